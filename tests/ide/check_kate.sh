#!/usr/bin/env bash
# The plug-in in a real Kate: check_kate.sh BUILD SOURCE
# First without its module, then with one of another version, then as it should be: each time the
# view says what is wrong, and Kate goes on. Then a box is clicked and the list saved.
build=$(cd "$1" && pwd)
ide=kate
# shellcheck source=tests/ide/on_screen.sh
. "$(dirname "$0")/on_screen.sh"

# An installation whose module is missing.
tree=$work/tree
plugins=$tree/lib/plugins
mkdir -p "$tree/share/deployment-manager" "$tree/lib/deployment-manager" "$plugins/ktexteditor"
ln -s "$source_tree/ObjRepos" "$tree/share/deployment-manager/ObjRepos"
cp "$build/plugins/ktexteditor/katedeploymentmanager.so" "$plugins/ktexteditor"
ln -s "$build/plugins/generic" "$plugins/generic"
export QT_PLUGIN_PATH=$plugins
module=$tree/lib/deployment-manager/deployment-package.so

project=$work/tide-logger
cp -r "$source_tree/examples/tide-logger" "$project"
list=$project/TideLogger.vproj
cat >"$project/.kateproject" <<END
{ "name": "tide-logger", "files": [ { "directory": ".", "filters": [ "*.cpp", "*.json", "*.dat" ], "recursive": 1 } ] }
END
mkdir -p "$XDG_DATA_HOME/kate" "$XDG_CONFIG_HOME"
cat >"$XDG_DATA_HOME/kate/anonymous.katesession" <<END
[Kate Plugins]
kateprojectplugin=true
katedeploymentmanager=true
END
document=$(find "$project" -name '*.json' | head -1)
start_ide kate --startanon "$document"

echo "without its module"
command_of_menu "Show List"
until_holds says deploymentMessage "there is no such file: the installation is not complete"
says deploymentMessage "$module"
picture kate-without-module

echo "with a module of another version"
cp "$build/bin/refusing-package.so" "$module"
click button "Try Again"
until_holds says deploymentMessage "does not go with version"

echo "as it should be"
rm "$module"
cp "$build/bin/deployment-package.so" "$module"
cp "$build/bin/deployment-codecs.so" "$tree/lib/deployment-manager"
click button "Try Again"
await check stations.json >/dev/null
picture kate-list

echo "a box is clicked: the list on disk changes with the save, not before"
before=$(cat "$list")
click check levels.dat
until_holds is_ticked levels.dat 0
[ "$before" = "$(cat "$list")" ]
click command deployment_save
until_holds is_off "$list" 'data\levels.dat'
test -f "$project/TideLogger.deployproj"
picture kate-saved
