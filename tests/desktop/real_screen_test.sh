#!/usr/bin/env bash
# The window on a screen with a window manager: a click and keys, and the project file that results.
# usage: real_screen_test.sh DIRECTORY_OF_PROGRAMS TREE; 77: what it needs is not installed
set -euo pipefail
bin=$1
tree=$2
for tool in Xvfb openbox xdotool; do
  if ! command -v "$tool" > /dev/null; then
    echo "$tool is not installed"
    exit 77
  fi
done

place=$(mktemp -d)
started=()
end() {
  for process in "${started[@]}"; do kill "$process" 2> /dev/null || true; done
  wait
  rm -rf "$place"
}
trap end EXIT
export HOME=$place XDG_CONFIG_HOME=$place/config XDG_STATE_HOME=$place/state XDG_RUNTIME_DIR=$place
export LANG=C.UTF-8 QT_QPA_PLATFORM=xcb
cp -r "$tree/examples/tide-logger" "$place/tide"
file=$place/tide/TideLogger.vproj

fail() {
  echo "$1"
  exit 1
}
# within COMMAND...: runs it until it succeeds, for twenty seconds at most
within() {
  for _ in $(seq 200); do
    if "$@" > /dev/null 2>&1; then return 0; fi
    sleep 0.1
  done
  return 1
}

Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3> "$place/display" 2> /dev/null &
started+=($!)
within test -s "$place/display" || fail "the screen did not start"
DISPLAY=:$(cat "$place/display")
export DISPLAY
openbox > /dev/null 2>&1 &
started+=($!)
within xdotool get_desktop || fail "the window manager did not start"
"$bin/deployment-manager" --light --size 1270x700 "$file" > "$place/said" 2>&1 &
started+=($!)
program=$!

within xdotool search --onlyvisible --name TideLogger || fail "there is no window: $(cat "$place/said")"
window=$(xdotool search --onlyvisible --name TideLogger | tail -n 1)
xdotool windowactivate --sync "$window"

# The remote name of levels.dat, then a new one, and Save.
xdotool mousemove --window "$window" 800 238 click 1
sleep 0.3
xdotool key F2
sleep 0.3
xdotool type --delay 20 tide-levels.bin
xdotool key Return
xdotool key ctrl+s
within grep -q '<RemoteName>tide-levels.bin</RemoteName>' "$file" || fail "what was typed is not in the file"
grep -c tide-levels.bin "$file" | grep -qx 1 || fail "it is there more than once"
xdotool key ctrl+q
within test ! -d "/proc/$program" || fail "the window did not close"
