# What is installed works as a person gets it: moved, below names with blanks, beside another version.
if(NOT DEPLOYMENT_SANITIZE)
  add_test(NAME Install.TreeWorksWhereverItIsMoved
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/install/check_installation.sh ${CMAKE_BINARY_DIR}
            ${CMAKE_COMMAND} ${PROJECT_SOURCE_DIR} $<TARGET_FILE:refusing-package>)
  add_test(NAME Install.CompletionsOfEachShell
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/install/check_completions.sh
            $<TARGET_FILE:deploymgr> ${PROJECT_SOURCE_DIR})
  add_test(NAME Install.ExampleHostIsBuiltAgainstWhatIsInstalledAlone
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/install/check_sdk.sh ${CMAKE_BINARY_DIR} ${CMAKE_COMMAND}
            ${PROJECT_SOURCE_DIR} ${CMAKE_CXX_COMPILER})
endif()
