#!/usr/bin/env bash
# Shows the Deployment Manager on the example projects: in the window where there is a display, else
# at work on copies of them on the terminal. Run as: tools/tour.sh BIN
set -eu

bin=$(cd "$1" && pwd)
tree=$(cd "$(dirname "$0")/.." && pwd)
if [ -x "$bin/deployment-manager" ] && [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec "$bin/deployment-manager" "$tree/examples/sky-chart/SkyChart.vproj"
fi
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
# Settings and backups of the tour stay in its own directory.
export XDG_CONFIG_HOME="$place/config" XDG_STATE_HOME="$place/state"
cp -r "$tree/examples/sky-chart" "$tree/examples/tide-logger" \
  "$tree/examples/wind-gauge" "$place"
cd "$place"

step() { printf '\n\033[1m%s\033[0m\n' "$1"; }
[ -t 1 ] || step() { printf '\n%s\n' "$1"; }
run() {
  printf '$ deploymgr %s\n' "$*"
  "$bin/deploymgr" "$@"
}

# The classes are long to read; "deploymgr classes PROJECT" shows them.
without_classes() { grep -v '^class '; }

step 'The list of a project: local name, class and configuration, and where the file goes'
run show tide-logger/TideLogger.vproj -p Win32 | without_classes

step 'A list of an older version is upgraded; a second time there is nothing to do'
run upgrade sky-chart/SkyChart.vproj
run upgrade sky-chart/SkyChart.vproj

step 'What the settings of the project ask for comes into the list, and a second time nothing changes'
run reconcile sky-chart/SkyChart.vproj -p Win32
run reconcile sky-chart/SkyChart.vproj -p Win32

step 'Why a file is in the list, or is not'
run explain sky-chart/SkyChart.vproj packages/Win32/Ephemeris.de -p Win32
run explain sky-chart/SkyChart.vproj art/ios/iPhone_AppIcon57.png -p iOSSimulator

step 'A file is added, edited and shown'
run add sky-chart/SkyChart.vproj sky-chart/optional/*.dat -p Win32 -c Release
run set sky-chart/SkyChart.vproj optional/BrightStars.dat --remote-dir charts --overwrite false \
  -p Win32 -c Release
run show sky-chart/SkyChart.vproj -p Win32 -c Release | without_classes

step 'The rows of the Deployment Manager for a target'
run list sky-chart/SkyChart.vproj -p Win32 --sort localName

step 'A profile says where the target is: here a directory of this machine'
run profile add lab-pc --platform Win32 --kind folder --path "$place/lab"

step 'What differs is copied, and a second time there is nothing to copy'
run deploy sky-chart/SkyChart.vproj -p Win32
run deploy sky-chart/SkyChart.vproj -p Win32

step 'The rows again, with the state of the files on the target; one was changed there'
touch -d '1 hour' "$place/lab/SkyChart/levels.dat"
rm "$place/lab/SkyChart/Ephemeris.ja"
run status sky-chart/SkyChart.vproj -p Win32

step 'Optional files are chosen from a catalog'
run featured sky-chart/SkyChart.vproj --extension .dat
run featured sky-chart/SkyChart.vproj --choose 'Bright stars' --dry-run

step 'A program for Linux, with a versioned library and its links'
run profile add gauge --platform Linux64 --kind folder --path "$place/opt" --default
run deploy wind-gauge/WindGauge.vproj -p Linux64
(cd "$place/opt/WindGauge" \
  && find . -type f -printf '%P\n' -o -type l -printf '%P -> %l\n' | LC_ALL=C sort)
if [ "$(uname -m)" = x86_64 ]; then
  "$place/opt/WindGauge/bin/windgauge"
fi

step 'Only what changed has changed'
diff "$tree/examples/tide-logger/TideLogger.vproj" tide-logger/TideLogger.vproj \
  && echo 'tide-logger: byte for byte the same'
diff <(sed '/<Deployment/,/<\/Deployment>/d' "$tree/examples/sky-chart/SkyChart.vproj") \
  <(sed '/<Deployment/,/<\/Deployment>/d' sky-chart/SkyChart.vproj) \
  && echo 'sky-chart: byte for byte the same outside its list'

step 'What a command-line build sees of it'
run export sky-chart/SkyChart.vproj
grep -n -A9 'BrightStars.dat' sky-chart/SkyChart.deployproj
