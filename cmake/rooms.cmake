# The rooms of the house, from the ground up. A room is a folder and a library of its own; it sees
# (may include) what stands in its list and nothing else, and only rooms that come before it.
# Read by the build and by tests/house/check_includes.cmake.
#
#   room(<folder> [SEES <folder>...])
set(ROOMS "")
macro(room folder)
  cmake_parse_arguments(ROOM "" "" "SEES" ${ARGN})
  foreach(seen IN LISTS ROOM_SEES)
    if(NOT seen IN_LIST ROOMS)
      message(FATAL_ERROR "${folder} cannot see ${seen}, which does not come before it")
    endif()
  endforeach()
  list(APPEND ROOMS ${folder})
  set(ROOM_SEES_${folder} ${ROOM_SEES})
endmacro()

# The package: the standard library, nothing else.
set(FOUNDATION package/common package/host/api)
room(package/common)
room(package/host/api SEES package/common)
room(package/featured SEES ${FOUNDATION})
room(package/reconcile SEES ${FOUNDATION} package/featured)
room(package/model SEES ${FOUNDATION} package/featured package/reconcile)
room(package/view SEES ${FOUNDATION} package/featured package/reconcile)
room(package/host/plugin SEES ${FOUNDATION} package/featured package/reconcile package/model
  package/view)
room(package/host/module SEES ${FOUNDATION} package/host/plugin)

# The workbench: of the package it sees the foundation; it loads the rest at run time.
room(workbench/text SEES package/common)
room(workbench/files SEES package/common workbench/text)
room(workbench/json SEES ${FOUNDATION} workbench/files workbench/text)
room(workbench/process SEES package/common workbench/files)
room(workbench/archive SEES package/common workbench/files workbench/text)
room(workbench/codecs SEES package/common workbench/archive workbench/files workbench/text)
room(workbench/xml SEES ${FOUNDATION} workbench/files workbench/text)
room(workbench/msbuild/values SEES ${FOUNDATION} workbench/files workbench/text workbench/xml)
room(workbench/msbuild SEES ${FOUNDATION} workbench/files workbench/msbuild/values workbench/text
  workbench/xml)
room(workbench/platforms SEES ${FOUNDATION} workbench/files workbench/text)
room(workbench/project SEES ${FOUNDATION} workbench/files workbench/msbuild
  workbench/msbuild/values workbench/platforms workbench/text workbench/xml)
room(workbench/project/build_import SEES ${FOUNDATION} workbench/files workbench/json
  workbench/process workbench/project workbench/text)
room(workbench/project/cpp SEES ${FOUNDATION} workbench/files workbench/msbuild
  workbench/msbuild/values workbench/platforms workbench/project workbench/text workbench/xml)
room(workbench/controls SEES ${FOUNDATION})
room(workbench/list SEES ${FOUNDATION} workbench/json workbench/text)

room(workbench/remote/target SEES ${FOUNDATION} workbench/files workbench/process workbench/text)
room(workbench/remote/folder SEES ${FOUNDATION} workbench/files workbench/process
  workbench/remote/target workbench/text)
room(workbench/remote/sftp SEES ${FOUNDATION} workbench/files workbench/process
  workbench/remote/target workbench/text)
room(workbench/remote/ssh SEES ${FOUNDATION} workbench/files workbench/process
  workbench/remote/sftp workbench/remote/target workbench/text)
set(REMOTE workbench/remote/target workbench/remote/folder workbench/remote/sftp
  workbench/remote/ssh)
room(workbench/remote/profile SEES ${FOUNDATION} ${REMOTE} workbench/files workbench/json
  workbench/text)
room(workbench/deploy/record SEES ${FOUNDATION} workbench/files workbench/json workbench/process
  workbench/remote/target workbench/text)
room(workbench/deploy/plan SEES ${FOUNDATION} workbench/deploy/record workbench/files
  workbench/process workbench/remote/target workbench/text)
room(workbench/deploy SEES ${FOUNDATION} workbench/archive workbench/deploy/plan
  workbench/deploy/record workbench/files
  workbench/json
  workbench/platforms workbench/process workbench/remote/folder workbench/remote/profile
  workbench/remote/target workbench/text)

room(workbench/deploy/fleet SEES ${FOUNDATION} workbench/archive workbench/deploy
  workbench/deploy/plan workbench/deploy/record workbench/files workbench/json workbench/process
  workbench/remote/profile workbench/remote/target workbench/text)

room(workbench/settings SEES ${FOUNDATION} workbench/files workbench/json workbench/text)
room(workbench/services SEES ${FOUNDATION} workbench/deploy workbench/files workbench/msbuild
  workbench/platforms workbench/project workbench/project/cpp workbench/remote/profile
  workbench/remote/ssh workbench/remote/target workbench/settings workbench/text workbench/xml)
room(workbench/session SEES ${FOUNDATION} workbench/deploy/plan workbench/files workbench/msbuild workbench/platforms
  workbench/project workbench/project/build_import workbench/project/cpp workbench/services
  workbench/settings workbench/text workbench/xml)
room(workbench/history SEES ${FOUNDATION} workbench/files workbench/json workbench/list
  workbench/session workbench/text)

room(workbench/explain SEES ${FOUNDATION} workbench/files workbench/json workbench/list
  workbench/session workbench/text)

# deploymgr, the command line.
room(workbench/cli/context SEES ${FOUNDATION} workbench/files workbench/json workbench/msbuild
  workbench/msbuild/values workbench/platforms workbench/process workbench/project workbench/project/cpp
  workbench/remote/ssh workbench/services workbench/session workbench/text)
room(workbench/cli/entries SEES ${FOUNDATION} workbench/cli/context workbench/explain
  workbench/files workbench/json
  workbench/list workbench/project/build_import workbench/session workbench/text)
room(workbench/cli/view SEES ${FOUNDATION} workbench/cli/context workbench/controls
  workbench/deploy workbench/deploy/fleet workbench/deploy/record workbench/files workbench/json workbench/remote/target workbench/services
  workbench/session workbench/text)
room(workbench/cli/targets SEES ${FOUNDATION} workbench/cli/context workbench/cli/entries
  workbench/cli/view workbench/deploy workbench/deploy/plan workbench/files
  workbench/remote/profile workbench/remote/target workbench/services workbench/session
  workbench/settings workbench/text)
room(workbench/cli/commands SEES ${FOUNDATION} workbench/cli/context workbench/cli/entries
  workbench/archive workbench/cli/targets workbench/cli/view workbench/controls workbench/deploy workbench/deploy/fleet
  workbench/explain workbench/deploy/plan workbench/deploy/record workbench/files
  workbench/json workbench/list workbench/platforms workbench/project
  workbench/project/build_import workbench/project/cpp workbench/remote/profile
  workbench/remote/target
  workbench/services workbench/session workbench/settings workbench/text)
room(workbench/cli/reference SEES ${FOUNDATION} workbench/cli/commands workbench/cli/context)
room(workbench/cli/completion SEES ${FOUNDATION} workbench/cli/context workbench/cli/reference
  workbench/platforms workbench/project workbench/project/cpp workbench/remote/profile
  workbench/services workbench/session workbench/settings)
room(workbench/cli SEES ${FOUNDATION} workbench/cli/commands workbench/cli/completion
  workbench/cli/context workbench/cli/reference workbench/files
  workbench/msbuild workbench/msbuild/values workbench/services workbench/session workbench/text)
room(workbench/askpass SEES workbench/remote/ssh)

# deployment-manager, the window.
room(workbench/desktop/text SEES ${FOUNDATION} workbench/deploy workbench/text)
room(workbench/desktop/controls SEES ${FOUNDATION} workbench/controls workbench/desktop/text)
room(workbench/desktop/list SEES ${FOUNDATION} workbench/controls workbench/desktop/controls
  workbench/desktop/text)
room(workbench/desktop/target SEES ${FOUNDATION} workbench/controls workbench/deploy
  workbench/deploy/plan workbench/deploy/record workbench/desktop/controls workbench/desktop/list
  workbench/desktop/text workbench/remote/profile workbench/remote/target workbench/services
  workbench/session workbench/text)
room(workbench/desktop/details SEES ${FOUNDATION} workbench/controls workbench/deploy
  workbench/deploy/record workbench/desktop/controls workbench/desktop/list workbench/desktop/text
  workbench/files workbench/remote/profile workbench/remote/target workbench/services
  workbench/session workbench/text)
room(workbench/desktop/dialogs/forms SEES ${FOUNDATION} workbench/desktop/controls
  workbench/desktop/text)
room(workbench/desktop/dialogs/profiles SEES ${FOUNDATION} workbench/desktop/controls
  workbench/desktop/dialogs/forms workbench/desktop/text workbench/platforms workbench/project
  workbench/remote/profile workbench/remote/target workbench/services workbench/session
  workbench/text)
room(workbench/desktop/dialogs/settings SEES ${FOUNDATION} workbench/desktop/controls
  workbench/desktop/dialogs/forms workbench/desktop/text workbench/platforms workbench/services
  workbench/session workbench/settings workbench/text)
room(workbench/desktop/deploy SEES ${FOUNDATION} workbench/deploy workbench/deploy/plan
  workbench/deploy/record workbench/desktop/controls workbench/desktop/dialogs/forms
  workbench/desktop/text workbench/files workbench/remote/target workbench/text)
room(workbench/desktop/projects SEES ${FOUNDATION} workbench/desktop/controls
  workbench/desktop/dialogs/forms workbench/desktop/text workbench/explain workbench/history
  workbench/list workbench/project workbench/services workbench/session workbench/text)
room(workbench/desktop/notices SEES ${FOUNDATION} workbench/desktop/controls
  workbench/desktop/dialogs/forms workbench/desktop/dialogs/profiles workbench/desktop/projects
  workbench/desktop/text workbench/explain workbench/files workbench/history
  workbench/remote/profile workbench/services workbench/session workbench/settings
  workbench/text)
room(workbench/desktop/interaction SEES ${FOUNDATION} workbench/deploy workbench/deploy/record
  workbench/desktop/controls workbench/desktop/deploy workbench/desktop/dialogs/forms
  workbench/desktop/dialogs/profiles workbench/desktop/projects workbench/desktop/text
  workbench/remote/profile workbench/remote/ssh workbench/remote/target workbench/services
  workbench/session workbench/settings workbench/text)
room(workbench/desktop/welcome SEES ${FOUNDATION} workbench/desktop/controls
  workbench/desktop/dialogs/forms workbench/desktop/text workbench/platforms workbench/project
  workbench/project/build_import workbench/session workbench/text)
room(workbench/desktop/window SEES ${FOUNDATION} workbench/deploy workbench/desktop/controls
  workbench/desktop/deploy workbench/desktop/details workbench/desktop/dialogs/forms
  workbench/desktop/dialogs/profiles workbench/desktop/dialogs/settings
  workbench/desktop/interaction workbench/desktop/list workbench/desktop/notices
  workbench/desktop/projects workbench/desktop/target workbench/desktop/text
  workbench/desktop/welcome
  workbench/files workbench/history workbench/platforms workbench/project workbench/project/cpp
  workbench/remote/profile workbench/remote/ssh workbench/remote/target workbench/services workbench/session
  workbench/settings workbench/text)

# Plug-ins of IDEs: the rooms of the window once more, for the Qt of the IDE.
room(workbench/ide/view SEES ${FOUNDATION} workbench/deploy workbench/desktop/controls
  workbench/desktop/deploy workbench/desktop/dialogs/forms
  workbench/desktop/dialogs/profiles workbench/desktop/interaction workbench/desktop/notices
  workbench/desktop/projects workbench/desktop/text workbench/platforms workbench/project workbench/project/build_import
  workbench/services workbench/session workbench/settings)
room(workbench/ide/kdevelop SEES workbench/desktop/text workbench/ide/view)
room(workbench/ide/kate SEES workbench/desktop/text workbench/ide/view)

room(workbench/desktop SEES ${FOUNDATION} workbench/desktop/controls workbench/desktop/text
  workbench/desktop/window workbench/files workbench/project workbench/session)
