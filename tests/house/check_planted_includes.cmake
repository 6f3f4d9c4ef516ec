# Fails when the check of includes lets a wrong one pass: plants some in a copy of the tree, each of
# which the check must name.
# Run as: cmake -DSOURCE=<tree> -DSCRATCH=<folder> -P check_planted_includes.cmake
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${SCRATCH})
file(COPY ${SOURCE}/package ${SOURCE}/workbench DESTINATION ${SCRATCH}
  FILES_MATCHING PATTERN "*.h" PATTERN "*.cpp" PATTERN "*.inc")
set(expected "")

macro(plant file line refusal)
  file(APPEND ${SCRATCH}/${file} "${line}\n")
  list(APPEND expected "${file}: ${refusal}")
endmacro()

plant(workbench/xml/xml_tree.h "#include \"workbench/cli/context/output.h\""
  "workbench/xml may not see \"workbench/cli/context/output.h\"")
plant(workbench/desktop/window/main_window.h "#include \"workbench/cli/context/output.h\""
  "workbench/desktop/window may not see \"workbench/cli/context/output.h\"")
plant(workbench/session/session.h "#include \"package/model/deployment_file.h\""
  "workbench/session may not see \"package/model/deployment_file.h\"")
plant(package/reconcile/packages.h "#include \"package/model/deployment_file.h\""
  "package/reconcile may not see \"package/model/deployment_file.h\"")
plant(package/common/convert.h "#include <expat.h>"
  "#include <expat.h> is not of the standard library")
plant(workbench/attic/old.h "#pragma once" "workbench/attic is not on the list of rooms")

execute_process(
  COMMAND ${CMAKE_COMMAND} -DSOURCE=${SCRATCH} -P ${CMAKE_CURRENT_LIST_DIR}/check_includes.cmake
  RESULT_VARIABLE status OUTPUT_QUIET ERROR_VARIABLE errors)
file(REMOVE_RECURSE ${SCRATCH})
# Long lines of an error are folded.
string(REGEX REPLACE "[ \n]+" " " errors "${errors}")
if(status EQUAL 0)
  message(SEND_ERROR "the check passes a tree with wrong includes")
endif()
foreach(refusal IN LISTS expected)
  string(FIND "${errors}" "${refusal}" at)
  if(at EQUAL -1)
    message(SEND_ERROR "not refused: ${refusal}\n${errors}")
  endif()
endforeach()
