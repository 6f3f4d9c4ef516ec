#!/usr/bin/env bash
# Packs deploymgr with everything that it needs besides the C library into one archive for build servers:
# packaging/build_dist.sh [DIRECTORY]. Unpacked anywhere, it runs on every Linux of the same processor whose
# C library is not older than the one here.
set -euo pipefail

tree=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$tree/build-dist}
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' "$tree/CMakeLists.txt")
name=deploymgr-$version-$(uname -m)
home=lib/deployment-manager

# Old-style paths, because they hold for the libraries of libraries too.
cmake -S "$tree" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF \
  -DCMAKE_UNITY_BUILD=ON -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON \
  -DCMAKE_INSTALL_RPATH="\$ORIGIN/../$home;\$ORIGIN;\$ORIGIN/../../$home" \
  -DCMAKE_EXE_LINKER_FLAGS=-Wl,--disable-new-dtags \
  -DCMAKE_MODULE_LINKER_FLAGS=-Wl,--disable-new-dtags >"$build.log" 2>&1 ||
  { cat "$build.log" >&2; exit 1; }
rm -f "$build.log"
cmake --build "$build" -j "$(nproc)"
rm -rf "${build:?}/$name"
cmake --install "$build" --prefix "$build/$name" --strip >/dev/null
# A build server writes no hosts.
rm -rf "$build/$name/include" "$build/$name/lib/cmake" "$build/$name"/lib/*.a
cp "$tree/LICENSE" "$tree/CHANGELOG.md" "$tree/docs/json.md" "$build/$name"

# The C library and its loader belong to the system.
ldd "$build/$name/bin/deploymgr" "$build/$name"/$home/*.so "$build/$name"/libexec/*/* |
  awk '$2 == "=>" && $3 ~ /^\// { print $3 }' | sort -u |
  grep -vE '/(libc|libm|libdl|libpthread|librt|ld-linux[^/]*)\.so' |
  while read -r library; do
    cp -L "$library" "$build/$name/$home/"
    # Each library's own terms go with it.
    package=$(dpkg-query -S "$(readlink -f "$library")" 2>/dev/null | cut -d: -f1 | head -1) || continue
    mkdir -p "$build/$name/share/licences"
    cp -L "/usr/share/doc/$package/copyright" "$build/$name/share/licences/$package" 2>/dev/null || true
  done
tar -C "$build" --sort=name --owner=0 --group=0 --numeric-owner -czf "$build/$name.tar.gz" "$name"
env -i "$build/$name/bin/deploymgr" --version
ls -l "$build/$name.tar.gz"
