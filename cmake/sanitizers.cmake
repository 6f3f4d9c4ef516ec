if(DEPLOYMENT_SANITIZE)
  add_compile_options(-fsanitize=${DEPLOYMENT_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${DEPLOYMENT_SANITIZE})
endif()

# The fuzz targets learn from what an input reaches, in every room.
if(DEPLOYMENT_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "DEPLOYMENT_FUZZ needs clang: libFuzzer comes with it")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link)
  add_link_options(-fsanitize=fuzzer-no-link)
endif()
