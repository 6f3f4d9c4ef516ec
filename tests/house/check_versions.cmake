# One version everywhere: the build, the program, the top of CHANGELOG.md, the Debian packages, the software
# catalog and the guide to the archive for build servers.
#   cmake -DSOURCE=<tree> -DVERSION=<the build's> [-DPROGRAM=<deploymgr>] -P check_versions.cmake
cmake_minimum_required(VERSION 3.25)

set(wrong "")
# What the first match of the pattern says, in its first group, has to be the version.
function(expect_version file pattern)
  file(READ ${SOURCE}/${file} text)
  if(NOT text MATCHES "${pattern}")
    list(APPEND wrong "${file} tells no version")
  elseif(NOT CMAKE_MATCH_1 STREQUAL VERSION)
    list(APPEND wrong "${file} says ${CMAKE_MATCH_1}")
  endif()
  set(wrong "${wrong}" PARENT_SCOPE)
endfunction()

expect_version(CHANGELOG.md "^# Changes\n[^#]*\n## ([^ \n]+)")
expect_version(packaging/debian/changelog "^deployment-manager \\(([^)]*)\\)")
expect_version(packaging/desktop/org.deploymentmanager.DeploymentManager.metainfo.xml
  "<releases>[^<]*<release version=\"([^\"]*)\"")
expect_version(docs/installing.md "tar -xzf deploymgr-([^-]*)-")

# A section names its version once, the newest first.
file(STRINGS ${SOURCE}/CHANGELOG.md headings REGEX "^## ")
set(newer "")
foreach(heading IN LISTS headings)
  if(NOT heading MATCHES "^## ([0-9]+\\.[0-9]+\\.[0-9]+) \\((unreleased|[0-9]+-[0-9]+-[0-9]+)\\)$")
    list(APPEND wrong "CHANGELOG.md: \"${heading}\" is no version with its date")
    continue()
  endif()
  set(version ${CMAKE_MATCH_1})
  set(date ${CMAKE_MATCH_2})
  if(newer AND date STREQUAL "unreleased")
    list(APPEND wrong "CHANGELOG.md: ${version} is below a newer one and has no date")
  endif()
  if(newer AND NOT version VERSION_LESS newer)
    list(APPEND wrong "CHANGELOG.md: ${version} stands below ${newer}")
  endif()
  set(newer ${version})
endforeach()

if(PROGRAM)
  execute_process(COMMAND ${PROGRAM} --version OUTPUT_VARIABLE told RESULT_VARIABLE result)
  if(NOT result EQUAL 0 OR NOT told MATCHES "^deploymgr ([^ \n]+)")
    list(APPEND wrong "deploymgr --version: \"${told}\" (${result})")
  elseif(NOT CMAKE_MATCH_1 STREQUAL VERSION)
    list(APPEND wrong "deploymgr --version says ${CMAKE_MATCH_1}")
  endif()
endif()

if(wrong)
  list(JOIN wrong "\n  " lines)
  message(FATAL_ERROR "The build makes version ${VERSION}:\n  ${lines}")
endif()
