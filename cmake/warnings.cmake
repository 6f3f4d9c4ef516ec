# Warnings are errors; linked privately by every target of ours.
add_library(deployment_warnings INTERFACE)
target_compile_options(deployment_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
# g++ 12 takes the pieces of std::string's operator+ for overlapping memory at -O3.
target_compile_options(deployment_warnings INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
# Where a room is compiled as one source, types of its files in anonymous namespaces seem to be a
# header's.
if(CMAKE_UNITY_BUILD)
  target_compile_options(deployment_warnings INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endif()
