#!/usr/bin/env bash
# Installs a build, moves it, and uses it as people do: check_installation.sh BUILD CMAKE TREE MODULE
# MODULE is a package of another version.
set -eu

build=$1 cmake=$2 tree=$3 other_module=$4
place=$(mktemp -d)
trap 'chmod -R u+w "$place"; rm -rf "$place"' EXIT
export HOME="$place/home" LC_ALL=C.UTF-8
unset ZELK XDG_CONFIG_HOME XDG_STATE_HOME XDG_CACHE_HOME PLATFORM CONFIG
mkdir "$HOME"
cp -r "$tree/examples/tide-logger" "$place/project"
cd "$place/project"
failures=0

fail() {
  printf 'FAILED: %s\n' "$*"
  failures=$((failures + 1))
}

# expect NAME STATUS TEXT COMMAND...: the command ends so, and its output holds the text.
expect() {
  local name=$1 wanted=$2 text=$3 output status=0
  shift 3
  output=$("$@" 2>&1) || status=$?
  [ "$status" = "$wanted" ] || fail "$name: status $status instead of $wanted: ${output:0:400}"
  [[ $output == *"$text"* ]] || fail "$name: \"$text\" is not in: ${output:0:400}"
}

DESTDIR="$place/staged" "$cmake" --install "$build" --prefix /opt/manager >"$place/log" 2>&1 ||
  { cat "$place/log"; exit 1; }
[ -x "$place/staged/opt/manager/bin/deploymgr" ] || fail "DESTDIR is not heard"
first="$place/Prüf stelle/1.0" second="$place/Prüf stelle/2.0"
mkdir "$place/Prüf stelle"
mv "$place/staged/opt/manager" "$first"

for file in lib/deployment-manager/deployment-package.so \
  libexec/deployment-manager/deployment-askpass share/deployment-manager/ObjRepos/Deploy/defaults.de.xml \
  share/man/man1/deploymgr.1 share/man/man1/deploymgr-list.1 \
  share/bash-completion/completions/deploymgr share/fish/vendor_completions.d/deploymgr.fish \
  share/deployment-manager/docs/user-guide.md share/deployment-manager/docs/images/window.png \
  share/deployment-manager/examples/sky-chart/SkyChart.vproj; do
  [ -f "$first/$file" ] || fail "$file is not installed"
done
[ -L "$first/share/deployment-manager/examples/wind-gauge/lib/Linux64/libbeaufort.so" ] ||
  fail "a link of an example is installed as something else"
! find "$first" ! -type l -perm /022 | grep . || fail "others may write to what is installed"

# What most runs do without is loaded when it is needed; a build server has no Qt.
if readelf -d "$first/bin/deploymgr" | grep -E 'NEEDED.*lib(crypto|archive|Qt)'; then
  fail "the program needs libraries at its start that it should load later"
fi

expect "a moved tree" 0 "levels.dat" "$first/bin/deploymgr" list TideLogger.vproj -p Win32
ln -s "$first/bin/deploymgr" "$place/link"
expect "a link to the program" 0 "ProjectOutput" "$place/link" classes
expect "a language" 0 "ProjectOutput" env LC_ALL=de_DE.UTF-8 "$first/bin/deploymgr" classes
expect "no home" 0 "levels.dat" env -u HOME "$first/bin/deploymgr" list TideLogger.vproj -p Win32
expect "a home that is not there" 0 "levels.dat" \
  env HOME=/nowhere/at/all "$first/bin/deploymgr" list TideLogger.vproj -p Win32
as_person=()
if [ "$(id -u)" -eq 0 ]; then
  chmod 755 "$place"
  as_person=(setpriv --reuid=65534 --regid=65534 --clear-groups)
fi
chmod 555 "$HOME"
expect "a read-only home" 0 "levels.dat" \
  "${as_person[@]}" "$first/bin/deploymgr" list TideLogger.vproj -p Win32
expect "settings in a read-only home" 1 "settings.json was not written: its directory cannot be made: " \
  "${as_person[@]}" "$first/bin/deploymgr" settings set product-name X
chmod 755 "$HOME"

# Two versions side by side: each program takes its own module and tables.
cp -r "$first" "$second"
sed -i 's/Name="ProjectOutput"/Name="OutputOfTwo"/' \
  "$second/share/deployment-manager/ObjRepos/Deploy/defaults.xml"
expect "the second version" 0 "OutputOfTwo" "$second/bin/deploymgr" classes
expect "the first version" 0 "ProjectOutput  Project output" "$first/bin/deploymgr" classes
cp "$other_module" "$second/lib/deployment-manager/deployment-package.so"
expect "a module of another version" 3 "the package of version 9.8.7 (interface 4000000000) does not go with version " \
  "$second/bin/deploymgr" classes
expect "the version beside it" 0 "ProjectOutput  Project output" "$first/bin/deploymgr" classes

mv "$first/lib" "$first/away"
expect "no module" 3 "lib/deployment-manager/deployment-package.so: there is no such file: the installation is not complete" \
  "$first/bin/deploymgr" classes
mv "$first/away" "$first/lib"
mv "$first/share/deployment-manager/ObjRepos" "$place/tables"
expect "no tables" 3 "share/deployment-manager/ObjRepos/Deploy: there is no such directory: the installation is not complete" \
  "$first/bin/deploymgr" list TideLogger.vproj
cmp "$tree/examples/tide-logger/TideLogger.vproj" TideLogger.vproj || fail "the project was changed"

if command -v man >/dev/null; then
  for page in "$second"/share/man/man1/*.1; do
    warnings=$(man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null) || fail "$page"
    [ -z "$warnings" ] || fail "$page: $warnings"
  done
fi
if command -v desktop-file-validate >/dev/null && [ -d "$second/share/applications" ]; then
  desktop-file-validate "$second"/share/applications/*.desktop || fail "the desktop entry"
fi
if command -v appstreamcli >/dev/null && [ -d "$second/share/metainfo" ]; then
  appstreamcli validate-tree --no-net "$second" >"$place/log" 2>/dev/null ||
    fail "the metadata: $(cat "$place/log")"
fi
if command -v update-mime-database >/dev/null && [ -d "$second/share/mime" ]; then
  update-mime-database "$second/share/mime" 2>/dev/null
  grep -q 'application/x-deployment-project:\*.vproj' "$second/share/mime/globs" ||
    fail "the MIME type"
fi
# The page of the window is written by hand, so its options are held against the program's.
if [ -x "$second/bin/deployment-manager" ]; then
  help=$(env -u DISPLAY -u WAYLAND_DISPLAY "$second/bin/deployment-manager" --help)
  for option in $(grep -o -- '--[a-z]*' <<<"$help" | grep -v -- --help-all | sort -u); do
    grep -qF -- "\\-\\-${option#--}\\fR" "$second/share/man/man1/deployment-manager.1" ||
      fail "deployment-manager(1) does not tell of $option"
  done
fi

[ "$failures" = 0 ] && echo "everything that is installed works"
