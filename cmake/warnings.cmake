# Warnings are errors; linked privately by every target of ours.
add_library(deployment_warnings INTERFACE)
target_compile_options(deployment_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
