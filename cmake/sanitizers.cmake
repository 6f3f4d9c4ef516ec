if(DEPLOYMENT_SANITIZE)
  add_compile_options(-fsanitize=${DEPLOYMENT_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${DEPLOYMENT_SANITIZE})
endif()
