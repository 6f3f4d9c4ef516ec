# Fails when the package's module exports more than its entry point and its version, which hosts with functions of
# the same names would take the place of.
# Run as: cmake -DMODULE=<file> -DNM=<program> -P check_exported_symbols.cmake
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${NM} -D --defined-only ${MODULE} OUTPUT_VARIABLE symbols
  RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "${NM} cannot read ${MODULE}")
endif()
string(REGEX MATCHALL "[^ \n]+\n" names "${symbols}")
list(TRANSFORM names STRIP)
list(SORT names)
if(NOT names STREQUAL "CreateDeploymentPackage;DeploymentPackageVersion")
  list(LENGTH names count)
  list(SUBLIST names 0 5 names)
  message(FATAL_ERROR "the module exports ${count} symbols, among them: ${names}")
endif()
