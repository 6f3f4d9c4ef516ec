# One static library per room, linked to the libraries of the rooms that it sees.

# The name of the library of a room: package/host/api is package_host_api.
function(room_target folder result)
  string(REPLACE "/" "_" name ${folder})
  set(${result} ${name} PARENT_SCOPE)
endfunction()

#   room_library(<folder> [USES <library>...] [SUFFIX <suffix>])
# Makes the library from the sources of the folder, without those of folders in it. A folder that
# is not on the list of rooms is an error. With a suffix it is made once more under another name,
# for another version of Qt, and links the rooms that were made so too.
function(room_library folder)
  cmake_parse_arguments(ARG "" "SUFFIX" "USES" ${ARGN})
  if(NOT folder IN_LIST ROOMS)
    message(FATAL_ERROR "${folder} is not on the list of rooms, cmake/rooms.cmake")
  endif()
  room_target(${folder} name)
  string(APPEND name "${ARG_SUFFIX}")
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp
    ${PROJECT_SOURCE_DIR}/${folder}/*.h)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${ARG_USES} PRIVATE deployment_warnings)
  foreach(seen IN LISTS ROOM_SEES_${folder})
    room_target(${seen} target)
    if(ARG_SUFFIX AND TARGET ${target}${ARG_SUFFIX})
      string(APPEND target "${ARG_SUFFIX}")
    endif()
    target_link_libraries(${name} PUBLIC ${target})
  endforeach()
endfunction()
