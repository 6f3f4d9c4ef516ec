# shellcheck shell=bash disable=SC2034,SC2154
# For the tests of plug-ins: a screen, a home and an IDE of their own, and hands. Sourced.
# Expects $build, the build directory; leaves pictures in $pictures.
set -euo pipefail

source_tree=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
work=$(mktemp -d)
pictures=${IDE_PICTURES:-$build/ide-pictures}
mkdir -p "$pictures" "$work/home" "$work/run" "$work/probe"
chmod 700 "$work/run"
started=()

clean_up() {
  local status=$?
  if [ $status -ne 0 ] && [ -n "${DISPLAY:-}" ]; then
    import -window root "$pictures/failed-$ide.png" 2>/dev/null || true
    tail -30 "$work/ide.log" >&2 || true
  fi
  local id
  for id in "${started[@]}"; do
    kill -- "$id" 2>/dev/null || true
  done
  wait 2>/dev/null || true
  # Services that the IDE started write to its home for a moment after it is gone.
  local attempt
  for attempt in $(seq 20); do
    rm -rf "$work" 2>/dev/null && break
    sleep 0.1
  done
  exit $status
}
trap clean_up EXIT

# Everything of the user's is the test's own.
export HOME=$work/home XDG_RUNTIME_DIR=$work/run LANG=C.UTF-8 LC_ALL=C.UTF-8
export XDG_CONFIG_HOME=$HOME/.config XDG_DATA_HOME=$HOME/.local/share XDG_STATE_HOME=$HOME/.local/state
export XDG_CACHE_HOME=$HOME/.cache
unset WAYLAND_DISPLAY ZELK
export QT_QPA_PLATFORM=xcb QT_PLUGIN_PATH=${IDE_PLUGINS:-$build/plugins}
export QT_QPA_GENERIC_PLUGINS=ideprobe IDE_PROBE=$work/probe IDE_PROBED=$ide

# A screen whose number is free.
exec 3>"$work/display"
Xvfb -displayfd 3 -screen 0 1360x900x24 -nolisten tcp >/dev/null 2>&1 &
started+=($!)
exec 3>&-
for _ in $(seq 100); do
  [ -s "$work/display" ] && break
  sleep 0.05
done
DISPLAY=:$(cat "$work/display")
export DISPLAY
# Windows have the whole screen, so that everything is seen.
cat >"$work/openbox.xml" <<END
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <applications><application type="normal"><maximized>yes</maximized></application></applications>
</openbox_config>
END
openbox --sm-disable --config-file "$work/openbox.xml" >/dev/null 2>&1 &
started+=($!)

start_ide() {
  setsid dbus-run-session -- "$@" >"$work/ide.log" 2>&1 &
  ide_group=$!
  started+=("-$ide_group")
}

# Asks the probe in the IDE; prints its answer.
ask() {
  rm -f "$work/probe/answer"
  printf '%s' "$*" >"$work/probe/question.new"
  mv "$work/probe/question.new" "$work/probe/question"
  local i
  for i in $(seq 100); do
    if [ -f "$work/probe/answer" ]; then
      cat "$work/probe/answer"
      return 0
    fi
    sleep 0.05
  done
  echo none
}

# Waits until the probe finds it, 40 seconds at most; prints the answer.
await() {
  local i answer
  for i in $(seq 400); do
    answer=$(ask "$@")
    if [ "$answer" != none ]; then
      echo "$answer"
      return 0
    fi
    sleep 0.1
  done
  echo "\"$*\" did not come up" >&2
  return 1
}

# A real click, where the control is when it has come to rest.
click() {
  local x y rest answer before=
  answer=$(await "$@")
  while [ "$answer" != "$before" ]; do
    before=$answer
    sleep 0.3
    answer=$(await "$@")
  done
  read -r x y rest <<<"$answer"
  xdotool mousemove "$x" "$y" click 1
}

# A command of the menu. Menus close when their window moves, as it does while it comes up.
command_of_menu() {
  local i
  for i in $(seq 10); do
    click menu Deployment
    sleep 0.5
    if [ "$(ask item "$1")" != none ]; then
      click item "$1"
      return 0
    fi
    xdotool key Escape
  done
  echo "the menu has no \"$1\"" >&2
  return 1
}

# Waits until the command succeeds, 20 seconds at most.
until_holds() {
  local i
  for i in $(seq 200); do
    if "$@"; then
      return 0
    fi
    sleep 0.1
  done
  echo "does not hold: $*" >&2
  return 1
}

# Whether the box of a row is ticked (2) or not (0).
is_ticked() {
  local x y state
  read -r x y state <<<"$(ask check "$1")"
  [ "$state" = "$2" ]
}

has_text() { grep -qF -- "$2" "$1" 2>/dev/null; }
# Whether the entry of a file is taken off somewhere.
is_off() {
  awk -v name="LocalName=\"${2//\\/\\\\}\"" 'index($0, name) { inside = 1 } inside && /<Enabled>false/ { off = 1 }
    /<\/DeployFile>/ { inside = 0 } END { exit !off }' "$1"
}
lacks_text() { [ -f "$1" ] && ! has_text "$1" "$2"; }
says() { ask text "$1" | grep -qF -- "$2"; }

# Chooses a project in the view by the letters that its name begins with.
choose() {
  click widget projectChooser
  sleep 0.3
  xdotool type "$1"
  xdotool key Return
}

# A profile that deploys into a directory.
write_profile() {
  mkdir -p "$XDG_CONFIG_HOME/deployment-manager" "$work/box"
  cat >"$XDG_CONFIG_HOME/deployment-manager/profiles.json" <<END
{ "profiles": [ { "name": "box", "platform": "Linux64", "kind": "folder", "path": "$work/box", "default": true,
  "allowOutside": false, "stateless": false, "afterDeploy": "" } ] }
END
  chmod 600 "$XDG_CONFIG_HOME/deployment-manager/profiles.json"
}

picture() {
  sleep 0.5
  import -window root "$pictures/$1.png"
}
