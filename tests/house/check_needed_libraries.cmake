# Fails when the package's module needs more than the C and C++ libraries at run time.
cmake_minimum_required(VERSION 3.25)
# Run as: cmake -DMODULE=<file> -DREADELF=<program> -P check_needed_libraries.cmake

execute_process(COMMAND ${READELF} -d ${MODULE} OUTPUT_VARIABLE dynamic RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "${READELF} cannot read ${MODULE}")
endif()
string(REGEX MATCHALL "\\(NEEDED\\)[^\n]*\\[[^]\n]*\\]" needed "${dynamic}")
if(NOT needed)
  message(FATAL_ERROR "${MODULE} names no library at all; is it the module?")
endif()
foreach(entry IN LISTS needed)
  string(REGEX REPLACE ".*\\[(.*)\\]" "\\1" library "${entry}")
  if(NOT library MATCHES "^(libc|libm|libstdc\\+\\+|libgcc_s|ld-linux-[a-z0-9-]+)\\.so")
    message(SEND_ERROR "the package needs ${library}")
  endif()
  message(STATUS "needs ${library}")
endforeach()
