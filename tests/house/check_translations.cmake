# Every text of the window has a German translation: what the translators' tool finds in the sources
# and the table lacks is an error.
#
#   cmake -DLUPDATE=<program> -DSOURCE=<top of the tree> -DWORK=<directory> -P check_translations.cmake
set(table ${WORK}/deployment_manager_de.ts)
configure_file(${SOURCE}/workbench/desktop/translations/deployment_manager_de.ts ${table} COPYONLY)
execute_process(
  COMMAND ${LUPDATE} -silent -I ${SOURCE} -locations none -no-obsolete ${SOURCE}/workbench/desktop
    -ts ${table}
  RESULT_VARIABLE result ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${LUPDATE} failed: ${errors}")
endif()
file(READ ${table} text)
# One line for each text: what is between two of these is a message.
string(REPLACE ";" "," text "${text}")
string(REPLACE "[" "(" text "${text}")
string(REPLACE "]" ")" text "${text}")
string(REPLACE "<message" ";<message" messages "${text}")
set(missing "")
foreach(message IN LISTS messages)
  if(message MATCHES "type=\"unfinished\"" AND message MATCHES "<source>(.*)</source>")
    string(APPEND missing "\n  ${CMAKE_MATCH_1}")
  endif()
endforeach()
if(missing)
  message(FATAL_ERROR "These texts have no German translation:${missing}")
endif()
