#!/usr/bin/env bash
# usage: tools/pictures.sh [--guide] [DIRECTORY]
# Paints every pane and dialog of the window, light and dark, plain, at 200 % and in German, and
# opens the page that shows them all. --guide puts those of the user guide into docs/images.
set -euo pipefail
tree=$(cd "$(dirname "$0")/.." && pwd)
guide=no
if [ "${1-}" = --guide ]; then
  guide=yes
  shift
fi
place=$(mkdir -p "${1:-$tree/build/pictures}" && cd "${1:-$tree/build/pictures}" && pwd)
build=${BUILD:-$tree/build}

make -s -C "$tree" test-dependencies
programs=(desktop_window_tests desktop_list_tests desktop_dialogs_tests)
if [ ! -f "$build/CMakeCache.txt" ] || ! grep -q '^BUILD_TESTING:.*=ON' "$build/CMakeCache.txt"; then
  cmake -S "$tree" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DBUILD_TESTING=ON \
    -DCMAKE_UNITY_BUILD=ON > /dev/null
fi
cmake --build "$build" -j "$(nproc)" --target "${programs[@]}" deployment-manager > /dev/null
german=$(find "$build/workbench/desktop" -name deployment_manager_de.qm | head -n 1)
english=${german/_de.qm/_en.qm}

# paint KIND [VARIABLE=VALUE...]: one picture of everything
paint() {
  local kind=$1
  shift
  mkdir -p "$place/$kind"
  for program in "${programs[@]}"; do
    (cd "$tree" && env WINDOW_PICTURES="$place/$kind" LIST_PICTURES="$place/$kind" \
      DIALOG_PICTURES="$place/$kind" QT_QPA_PLATFORM=offscreen "$@" \
      "$build/bin/$program" --gtest_filter='*Pictures*' --gtest_brief=1)
  done
}

paint plain PICTURE_TRANSLATION="$english"
paint double QT_SCALE_FACTOR=2 PICTURE_TRANSLATION="$english"
paint german PICTURE_TRANSLATION="$german"

{
  echo '<!DOCTYPE html><meta charset="utf-8"><title>Pictures of the window</title>'
  echo '<style>body{font-family:sans-serif;background:#888}img{max-width:100%}</style>'
  for kind in plain double german; do
    for file in "$place/$kind"/*.png; do
      name=$kind/$(basename "$file")
      echo "<h2>$name</h2><img alt=\"$name\" src=\"$name\">"
    done
  done
} > "$place/index.html"

if [ $guide = yes ]; then
  for file in "$tree"/docs/images/*.png; do
    name=$(basename "$file")
    painted=${name/profile-ssh/profile-mac-mini}
    painted=${painted/#connected/details}
    for picture in "$place/plain/$painted" "$place/plain/${painted%.png}-light.png"; do
      if [ -f "$picture" ]; then cp "$picture" "$file"; fi
    done
  done
fi

echo "$place/index.html"
if [ -n "${DISPLAY-}${WAYLAND_DISPLAY-}" ] && command -v xdg-open > /dev/null; then
  xdg-open "$place/index.html"
fi
