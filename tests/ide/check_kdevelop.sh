#!/usr/bin/env bash
# The plug-in in a real KDevelop: check_kdevelop.sh BUILD
# A project with a list: a box is clicked, the list saved, the file on disk looked at. Then a project
# without one, whose list is made of its build.
build=$(cd "$1" && pwd)
ide=kdevelop
# shellcheck source=tests/ide/on_screen.sh
. "$(dirname "$0")/on_screen.sh"

write_project() { # DIRECTORY NAME
  cat >"$1/CMakeLists.txt" <<END
cmake_minimum_required(VERSION 3.16)
project($2 NONE)
install(FILES data/readme.txt DESTINATION share/$2)
END
  mkdir -p "$1/data" "$1/.kdev4" "$1/build"
  echo "read me" >"$1/data/readme.txt"
  cat >"$1/$2.kdev4" <<END
[Project]
Name=$2
Manager=KDevCMakeManager
VersionControl=
END
  # Without a build directory KDevelop asks for one.
  cat >"$1/.kdev4/$2.kdev4" <<END
[CMake]
Build Directory Count=1
Current Build Directory Index-Host System=0

[CMake][CMake Build Directory 0]
Build Directory Path=$1/build
Build Type=Debug
CMake Binary=/usr/bin/cmake
CMake Executable=/usr/bin/cmake
Environment Profile=
Install Directory=
END
  cmake -S "$1" -B "$1/build" -DCMAKE_BUILD_TYPE=Debug >/dev/null
}

gauge=$work/wind-gauge
cp -r "$source_tree/examples/wind-gauge" "$gauge"
list=$gauge/WindGauge.vproj
sed -i 's|<ProjectExtensions>|<Import Project="absent.props"/>\n  <ProjectExtensions>|' "$list"
write_project "$gauge" gauge
mkdir "$work/fresh"
write_project "$work/fresh" fresh

write_profile

session="$XDG_DATA_HOME/kdevelop/sessions/{11111111-2222-3333-4444-555555555555}"
mkdir -p "$session" "$XDG_CONFIG_HOME"
cat >"$session/sessionrc" <<END
SessionName=probe

[General Options]
Open Projects=file://$gauge/gauge.kdev4,file://$work/fresh/fresh.kdev4
END
start_ide kdevelop -s probe

# The menu shows the list, whatever KDevelop's own views do meanwhile.
show_list() {
  command_of_menu "Show List"
  sleep 1
  [ "$(ask widget projectChooser)" != none ]
}
until_holds show_list
choose gauge
await check stations.json >/dev/null
picture kdevelop-list

echo "a box is clicked: the list on disk changes with the save, not before"
click check stations.json
until_holds is_ticked stations.json 0
lacks_text "$list" "<Enabled>false</Enabled>"
click command deployment_save
until_holds has_text "$list" "<Enabled>false</Enabled>"
until_holds test -f "$gauge/WindGauge.deployproj"

echo "undone, and saved again"
click command deployment_undo
until_holds is_ticked stations.json 2
click command deployment_save
until_holds lacks_text "$list" "<Enabled>false</Enabled>"

echo "deployed from the menu, when the plan was seen"
command_of_menu Deploy
click widget deploy # the plan is shown first
until_holds cmp -s "$gauge/Linux64/Debug/windgauge" "$work/box/WindGauge/bin/windgauge"
picture kdevelop-deployed

echo "what is wrong with the list stands among the problems"
click button Problems
click tab Deployment
await row absent.props >/dev/null
picture kdevelop-problems
until_holds show_list

echo "a project without a list gets one of its build"
choose fresh
await widget makeList >/dev/null
picture kdevelop-first-use
click widget makeList
await check readme.txt >/dev/null
until_holds has_text "$work/fresh/fresh.vproj" 'LocalName="data\readme.txt"'
has_text "$work/fresh/fresh.vproj" '<RemoteDir>share\fresh\</RemoteDir>'
picture kdevelop-from-build

echo "closed in peace"
kill -- "-$ide_group"
