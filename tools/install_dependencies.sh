#!/usr/bin/env bash
# Installs the Debian packages that are missing for the given purposes: build, test, bench, lint,
# package, manual, recording, sanitize; ide for the plug-ins, ide-test for their tests.
# Says nothing when everything is there. Elsewhere than on Debian it only says what is needed.
set -eu

packages=()
for purpose in "$@"; do
  case "$purpose" in
    build) packages+=(g++ cmake ninja-build libarchive-dev libexpat1-dev libcli11-dev libssl-dev
      nlohmann-json3-dev qt6-base-dev libqt6svg6-dev qt6-l10n-tools qt6-tools-dev) ;;
    test) packages+=(ansible-core binutils fonts-dejavu-core libgtest-dev mono-xbuild openssh-client
      openssh-server python3 strace) ;;
    bench) packages+=(hyperfine jq libbenchmark-dev libpugixml-dev openssh-client openssh-server rsync) ;;
    lint) packages+=(ansible-lint clang-14 clang-format-14 clang-tidy-14 clang-tools-14) ;;
    ide) packages+=(kdevelop-dev libkf5texteditor-dev libqt5svg5-dev qtbase5-dev qttools5-dev qttools5-dev-tools) ;;
    ide-test) packages+=(breeze-icon-theme dbus dbus-x11 git imagemagick kate kdevelop libqt5sql5-sqlite openbox
      xdotool xvfb) ;;
    package) packages+=(debhelper dpkg-dev fakeroot lintian mmdebstrap) ;;
    manual) packages+=(pandoc python3) ;;
    recording) packages+=(bash fish python3 python3-pyte zsh) ;;
    sanitize) packages+=(clang-14 libclang-rt-14-dev) ;;
    *)
      echo "install_dependencies.sh: unknown purpose \"$purpose\"" >&2
      exit 2
      ;;
  esac
done

command -v dpkg-query >/dev/null || {
  echo "These packages of Debian 12, or what they are called here, are needed: ${packages[*]}" >&2
  exit 0
}

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
  [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing ${missing[*]}"
as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || {
    echo "Please install as root: apt-get install ${missing[*]}" >&2
    exit 1
  }
  as_root=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
