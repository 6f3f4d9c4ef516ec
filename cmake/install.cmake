# What is installed, and where. Programs find everything else by their own place, so an installed
# tree may be moved as a whole; the directories below the prefix are therefore fixed.
set(DEPLOYMENT_ZSH_DIRECTORY share/zsh/site-functions CACHE STRING
  "Where zsh looks for completions, below the prefix")
option(DEPLOYMENT_INSTALL_EXAMPLES
  "Install the example projects, which hold programs for many machines" ON)
set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(desktop_id org.deploymentmanager.DeploymentManager)

install(TARGETS deployment_module LIBRARY DESTINATION lib/deployment-manager)
install(DIRECTORY ObjRepos DESTINATION share/deployment-manager)

if(TARGET deploymgr)
  install(TARGETS deploymgr RUNTIME DESTINATION bin)
  install(TARGETS deployment-codecs LIBRARY DESTINATION lib/deployment-manager)
  install(TARGETS deployment-askpass RUNTIME DESTINATION libexec/deployment-manager)
  install(DIRECTORY ${CMAKE_BINARY_DIR}/man/ DESTINATION share/man/man1)
  install(FILES ${packaging}/completions/deploymgr.bash
    DESTINATION share/bash-completion/completions RENAME deploymgr)
  install(FILES ${packaging}/completions/_deploymgr DESTINATION ${DEPLOYMENT_ZSH_DIRECTORY})
  install(FILES ${packaging}/completions/deploymgr.fish
    DESTINATION share/fish/vendor_completions.d)
endif()

if(TARGET deployment-manager)
  install(TARGETS deployment-manager RUNTIME DESTINATION bin)
  configure_file(${packaging}/man/deployment-manager.1 ${CMAKE_BINARY_DIR}/deployment-manager.1
    @ONLY)
  install(FILES ${CMAKE_BINARY_DIR}/deployment-manager.1 DESTINATION share/man/man1)
  install(FILES ${packaging}/icons/deployment-manager.svg
    DESTINATION share/icons/hicolor/scalable/apps RENAME ${desktop_id}.svg)
  install(FILES ${packaging}/desktop/${desktop_id}.desktop DESTINATION share/applications)
  install(FILES ${packaging}/desktop/${desktop_id}.metainfo.xml DESTINATION share/metainfo)
  install(FILES ${packaging}/desktop/${desktop_id}.xml DESTINATION share/mime/packages)
  # What its first page offers: the guide, and projects to try it on.
  install(FILES docs/user-guide.md DESTINATION share/deployment-manager/docs)
  install(DIRECTORY docs/images DESTINATION share/deployment-manager/docs)
  if(DEPLOYMENT_INSTALL_EXAMPLES)
    install(DIRECTORY examples/sky-chart examples/tide-logger examples/wind-gauge
      DESTINATION share/deployment-manager/examples USE_SOURCE_PERMISSIONS)
  endif()
endif()

# For hosts: what they compile against, and where they find the module.
include(CMakePackageConfigHelpers)
foreach(folder IN ITEMS common host/api)
  install(DIRECTORY package/${folder}/ DESTINATION include/deployment-package/package/${folder}
    FILES_MATCHING PATTERN "*.h")
endforeach()
install(FILES $<TARGET_FILE:package_host_api> DESTINATION lib RENAME libdeployment-host-api.a)
install(FILES $<TARGET_FILE:package_common> DESTINATION lib RENAME libdeployment-common.a)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/DeploymentPackageConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${packaging}/cmake/DeploymentPackageConfig.cmake
  ${CMAKE_BINARY_DIR}/DeploymentPackageConfigVersion.cmake
  DESTINATION lib/cmake/DeploymentPackage)
