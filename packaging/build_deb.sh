#!/usr/bin/env bash
# Builds the Debian packages: packaging/build_deb.sh [DIRECTORY]. They are left in the directory, which is
# build-deb of the tree when none is given. Lintian looks at them where it is installed.
set -euo pipefail

tree=$(cd "$(dirname "$0")/.." && pwd)
place=${1:-$tree/build-deb}
rm -rf "$place"
mkdir -p "$place/source"
place=$(cd "$place" && pwd)
cd "$tree"
# What is under version control, as it is now; without it, everything but what builds left behind.
if git rev-parse --git-dir >/dev/null 2>&1; then
  git ls-files -z --cached --others --exclude-standard | tar -c --null -T - | tar -x -C "$place/source"
  commit=$(git describe --always --dirty --tags --abbrev=10)
else
  tar -c --exclude=./build --exclude='./build-*' . | tar -x -C "$place/source"
fi
mv "$place/source/packaging/debian" "$place/source/debian"

cd "$place/source"
jobs=$(nproc)
export DEPLOYMENT_COMMIT=${commit:-} DEB_BUILD_OPTIONS="noautodbgsym parallel=$jobs"
dpkg-buildpackage -b -us -uc >"$place/build.log" 2>&1 || { tail -40 "$place/build.log" >&2; exit 1; }
cd "$place"
rm -rf source
if command -v lintian >/dev/null; then
  lintian --allow-root --fail-on error,warning ./*.changes
fi
ls -l ./*.deb
