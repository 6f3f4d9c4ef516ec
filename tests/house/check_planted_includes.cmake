# Fails when the check of includes lets a wrong one pass: plants some in a copy of the tree.
# Run as: cmake -DSOURCE=<tree> -DSCRATCH=<folder> -P check_planted_includes.cmake
cmake_minimum_required(VERSION 3.25)

# Plants `line` in `file` of a fresh copy; the check must name `expected` and fail.
function(expect_refusal file line expected)
  file(REMOVE_RECURSE ${SCRATCH})
  file(COPY ${SOURCE}/package ${SOURCE}/workbench DESTINATION ${SCRATCH}
    FILES_MATCHING PATTERN "*.h" PATTERN "*.cpp" PATTERN "*.inc")
  file(APPEND ${SCRATCH}/${file} "${line}\n")
  execute_process(
    COMMAND ${CMAKE_COMMAND} -DSOURCE=${SCRATCH} -P ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/check_includes.cmake
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  file(REMOVE_RECURSE ${SCRATCH})
  # Long lines of an error are folded.
  string(REGEX REPLACE "[ \n]+" " " errors "${errors}")
  string(FIND "${errors}" "${expected}" at)
  if(status EQUAL 0 OR at EQUAL -1)
    message(SEND_ERROR "${line} in ${file} was not refused with \"${expected}\":\n${errors}")
  endif()
endfunction()

expect_refusal(workbench/xml/xml_tree.h "#include \"workbench/cli/context/output.h\""
  "workbench/xml may not see \"workbench/cli/context/output.h\"")
expect_refusal(workbench/desktop/window/main_window.h "#include \"workbench/cli/context/output.h\""
  "workbench/desktop/window may not see \"workbench/cli/context/output.h\"")
expect_refusal(workbench/session/session.h "#include \"package/model/deployment_file.h\""
  "workbench/session may not see \"package/model/deployment_file.h\"")
expect_refusal(package/reconcile/packages.h "#include \"package/model/deployment_file.h\""
  "package/reconcile may not see \"package/model/deployment_file.h\"")
expect_refusal(package/common/convert.h "#include <expat.h>" "is not of the standard library")
expect_refusal(workbench/attic/old.h "#pragma once" "workbench/attic is not on the list of rooms")
