# The deployment package, for hosts. Gives
#   DeploymentPackage::host    what a host compiles and links: the interfaces and their helpers
#   DeploymentPackage::module  the loadable module, whose IMPORTED_LOCATION a host opens at run time
# and DeploymentPackage_MODULE, DeploymentPackage_TABLES_DIR: the module, and the directory that
# holds ObjRepos.
get_filename_component(_deployment_prefix "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)
set(DeploymentPackage_MODULE
  "${_deployment_prefix}/lib/deployment-manager/deployment-package.so")
set(DeploymentPackage_TABLES_DIR "${_deployment_prefix}/share/deployment-manager")

foreach(_deployment_file IN ITEMS "${DeploymentPackage_MODULE}"
    "${_deployment_prefix}/lib/libdeployment-host-api.a"
    "${_deployment_prefix}/lib/libdeployment-common.a"
    "${_deployment_prefix}/include/deployment-package/package/host/api/package.h")
  if(NOT EXISTS "${_deployment_file}")
    set(DeploymentPackage_FOUND FALSE)
    set(DeploymentPackage_NOT_FOUND_MESSAGE
      "there is no ${_deployment_file}: the installation is not complete")
    return()
  endif()
endforeach()

if(NOT TARGET DeploymentPackage::host)
  add_library(DeploymentPackage::common STATIC IMPORTED)
  set_target_properties(DeploymentPackage::common PROPERTIES
    IMPORTED_LOCATION "${_deployment_prefix}/lib/libdeployment-common.a"
    INTERFACE_COMPILE_FEATURES cxx_std_20
    INTERFACE_INCLUDE_DIRECTORIES "${_deployment_prefix}/include/deployment-package")
  add_library(DeploymentPackage::host STATIC IMPORTED)
  set_target_properties(DeploymentPackage::host PROPERTIES
    IMPORTED_LOCATION "${_deployment_prefix}/lib/libdeployment-host-api.a"
    INTERFACE_LINK_LIBRARIES "DeploymentPackage::common;${CMAKE_DL_LIBS}")
  add_library(DeploymentPackage::module MODULE IMPORTED)
  set_target_properties(DeploymentPackage::module PROPERTIES
    IMPORTED_LOCATION "${DeploymentPackage_MODULE}")
endif()
unset(_deployment_prefix)
unset(_deployment_file)
