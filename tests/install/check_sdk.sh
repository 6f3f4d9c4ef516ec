#!/usr/bin/env bash
# Builds the example host against what is installed, away from the sources, and runs it:
# check_sdk.sh BUILD CMAKE TREE COMPILER
set -eu

build=$1 cmake=$2 tree=$3 compiler=$4
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
prefix="$place/an installed tree"
run() { "$@" >"$place/log" 2>&1 || { cat "$place/log"; exit 1; }; }

run "$cmake" --install "$build" --prefix "$prefix"
cp -r "$tree/examples/host" "$place/source"
lines=$(cat "$place"/source/*.cpp "$place"/source/*.h | wc -l)
[ "$lines" -le 300 ] || { echo "the example has grown to $lines lines"; exit 1; }
run "$cmake" -S "$place/source" -B "$place/build" -DCMAKE_PREFIX_PATH="$prefix" \
  -DCMAKE_CXX_COMPILER="$compiler" \
  -DCMAKE_CXX_FLAGS="-O0 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror"
run "$cmake" --build "$place/build"
if grep -rq "$tree" "$place/build" --include='*.make' --include='build.ninja' --include='*.d'; then
  echo "the example was built with files of the source tree"
  exit 1
fi

output=$(cd "$place" && "$place/build/example-host" | sed '1s/[0-9.]*, interface [0-9]*/VERSION/')
wanted='package VERSION
art\face.png [File]  Win32=art\face.png
art\face.png [File]  Android=assets\internal\face.png
data\zones.txt [File]  Win32=data\zones.txt'
[ "$output" = "$wanted" ] || { printf 'the example prints\n%s\n' "$output"; exit 1; }

# An installation that lost its module is not found at all.
rm "$prefix/lib/deployment-manager/deployment-package.so" "$place/build/CMakeCache.txt"
if "$cmake" -S "$place/source" -B "$place/build" -DCMAKE_PREFIX_PATH="$prefix" >"$place/log" 2>&1; then
  echo "a package without its module is found"
  exit 1
fi
tr -s ' \n' ' ' <"$place/log" | grep -q 'the installation is not complete' || { cat "$place/log"; exit 1; }
echo "the example host works with what is installed"
