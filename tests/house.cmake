# Rules of the house that a compiler does not check.
add_test(NAME House.IncludesPointDown
  COMMAND ${CMAKE_COMMAND} -DSOURCE=${PROJECT_SOURCE_DIR}
          -P ${CMAKE_CURRENT_SOURCE_DIR}/house/check_includes.cmake)
add_test(NAME House.WrongIncludesAreRefused
  COMMAND ${CMAKE_COMMAND} -DSOURCE=${PROJECT_SOURCE_DIR}
          -DSCRATCH=${CMAKE_CURRENT_BINARY_DIR}/planted_includes
          -P ${CMAKE_CURRENT_SOURCE_DIR}/house/check_planted_includes.cmake)
add_test(NAME House.DocumentsNameEveryRoomAndFilesThatExist
  COMMAND ${CMAKE_COMMAND} -DSOURCE=${PROJECT_SOURCE_DIR}
          -P ${CMAKE_CURRENT_SOURCE_DIR}/house/check_documents.cmake)
if(DEPLOYMENT_PACKAGE_ONLY)
  set(versioned_program "")
else()
  set(versioned_program -DPROGRAM=$<TARGET_FILE:deploymgr>)
endif()
add_test(NAME House.EverythingTellsTheSameVersion
  COMMAND ${CMAKE_COMMAND} -DSOURCE=${PROJECT_SOURCE_DIR} -DVERSION=${PROJECT_VERSION} ${versioned_program}
          -P ${CMAKE_CURRENT_SOURCE_DIR}/house/check_versions.cmake)

# Sanitizers bring libraries and symbols of their own.
if(NOT DEPLOYMENT_SANITIZE)
  add_test(NAME House.PackageExportsItsEntryPointAlone
    COMMAND ${CMAKE_COMMAND} -DMODULE=$<TARGET_FILE:deployment_module> -DNM=${CMAKE_NM}
            -P ${CMAKE_CURRENT_SOURCE_DIR}/house/check_exported_symbols.cmake)
  add_test(NAME House.PackageNeedsTheStandardLibraryAlone
    COMMAND ${CMAKE_COMMAND} -DMODULE=$<TARGET_FILE:deployment_module> -DREADELF=${CMAKE_READELF}
            -P ${CMAKE_CURRENT_SOURCE_DIR}/house/check_needed_libraries.cmake)
endif()
