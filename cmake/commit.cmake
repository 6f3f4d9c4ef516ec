# The programs tell which commit they were built from. It is looked up with each build, and a new
# one costs the source files that name it.
#   tells_its_commit(<program>): gives its sources "deployment_commit.h" and DEPLOYMENT_VERSION
set(DEPLOYMENT_COMMIT "" CACHE STRING "Commit to tell, where the sources are in no repository")

if(CMAKE_SCRIPT_MODE_FILE)
  set(commit "${COMMIT}")
  if(commit STREQUAL "")
    execute_process(COMMAND git -C ${SOURCE} rev-parse --show-cdup
      OUTPUT_VARIABLE above ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE status)
    # A repository around an unpacked archive of these sources knows nothing of them.
    if(status EQUAL 0 AND above STREQUAL "")
      execute_process(COMMAND git -C ${SOURCE} describe --always --dirty --tags --abbrev=10
        OUTPUT_VARIABLE commit ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE)
    endif()
  endif()
  file(CONFIGURE OUTPUT ${HEADER} CONTENT [[
// Made by the build.
#pragma once

#define DEPLOYMENT_COMMIT "@commit@"
]] @ONLY)
  return()
endif()

set(commit_header ${CMAKE_BINARY_DIR}/generated/deployment_commit.h)
add_custom_target(deployment_commit
  COMMAND ${CMAKE_COMMAND} -DSOURCE=${PROJECT_SOURCE_DIR} -DHEADER=${commit_header}
          -DCOMMIT=${DEPLOYMENT_COMMIT} -P ${CMAKE_CURRENT_LIST_FILE}
  BYPRODUCTS ${commit_header} COMMENT "Looking up the commit" VERBATIM)

function(tells_its_commit program)
  add_dependencies(${program} deployment_commit)
  target_include_directories(${program} PRIVATE ${CMAKE_BINARY_DIR}/generated)
  target_compile_definitions(${program} PRIVATE DEPLOYMENT_VERSION="${PROJECT_VERSION}")
endfunction()
