# Fails when an include points up the house. Run as: cmake -DSOURCE=<tree> -P check_includes.cmake
cmake_minimum_required(VERSION 3.25)

set(foundation package/common package/host/api)
# What each floor may include besides itself. The longest folder name that fits a file counts.
set(may_see_package/common "")
set(may_see_package/host/api package/common)
set(may_see_package/featured ${foundation})
set(may_see_package/reconcile ${foundation} package/featured)
set(may_see_package/model ${foundation} package/featured package/reconcile)
set(may_see_package/view ${foundation} package/featured package/reconcile)
set(may_see_package/host ${foundation} package/featured package/reconcile package/model
    package/view)
set(may_see_workbench/files ${foundation})
set(may_see_workbench/platforms ${foundation})
set(may_see_workbench/text ${foundation})
set(may_see_workbench/remote ${foundation} workbench/files workbench/platforms workbench/text)
set(may_see_workbench ${foundation} workbench/files workbench/platforms workbench/remote
    workbench/text)
set(below_desktop ${foundation} workbench workbench/files workbench/platforms workbench/remote
    workbench/text)
set(may_see_workbench/desktop/dialogs ${below_desktop})
set(may_see_workbench/desktop/controls ${below_desktop} workbench/desktop/dialogs)
set(may_see_workbench/desktop/window ${below_desktop} workbench/desktop/dialogs
    workbench/desktop/controls)
set(may_see_workbench/desktop ${may_see_workbench/desktop/window} workbench/desktop/window)
set(floors package/common package/host/api package/featured package/reconcile package/model
    package/view package/host workbench workbench/files workbench/platforms workbench/remote
    workbench/text workbench/desktop workbench/desktop/dialogs workbench/desktop/controls
    workbench/desktop/window)

function(floor_of path result)
  set(best "")
  foreach(floor IN LISTS floors)
    string(FIND "${path}" "${floor}/" at)
    string(LENGTH "${floor}" length)
    string(LENGTH "${best}" best_length)
    if(at EQUAL 0 AND length GREATER best_length)
      set(best ${floor})
    endif()
  endforeach()
  set(${result} "${best}" PARENT_SCOPE)
endfunction()

file(GLOB_RECURSE sources RELATIVE ${SOURCE}
  ${SOURCE}/package/*.h ${SOURCE}/package/*.cpp ${SOURCE}/workbench/*.h ${SOURCE}/workbench/*.cpp)
list(LENGTH sources count)
if(count LESS 20)
  message(FATAL_ERROR "only ${count} sources found below ${SOURCE}")
endif()
set(problems 0)
foreach(source IN LISTS sources)
  floor_of(${source} floor)
  file(STRINGS ${SOURCE}/${source} includes REGEX "^#include \"")
  foreach(include IN LISTS includes)
    string(REGEX REPLACE "^#include \"([^\"]*)\".*" "\\1" included "${include}")
    floor_of("${included}" target)
    if(NOT target STREQUAL floor AND NOT target IN_LIST may_see_${floor})
      message(SEND_ERROR "${source}: \"${included}\" stands above ${floor}, or outside the house")
      math(EXPR problems "${problems} + 1")
    endif()
  endforeach()
  # The package needs nothing but the standard library, so it includes no file of another one.
  if(source MATCHES "^package/")
    file(STRINGS ${SOURCE}/${source} foreign REGEX "^#include <[^>]*[/.][^>]*>")
    if(foreign)
      message(SEND_ERROR "${source}: ${foreign} is not of the standard library")
      math(EXPR problems "${problems} + 1")
    endif()
  endif()
endforeach()
message(STATUS "${count} sources looked at, ${problems} includes in the wrong direction")
