#!/usr/bin/env bash
# The packages in a clean Debian 12: installed, used, purged: packaging/chroot_round.sh DEBS [ARCHIVE]
# DEBS is the directory with the packages, ARCHIVE the one for build servers, which is tried before anything
# is installed. Run as root; mmdebstrap is needed, and a mirror.
set -euo pipefail

debs=$(cd "$1" && pwd)
tree=$(cd "$(dirname "$0")/.." && pwd)
work=$(mktemp -d)
root=$work/root
clean_up() {
  for point in "$root/proc" "$root/dev/pts" "$root/dev"; do
    mountpoint -q "$point" && umount -l "$point"
  done
  rm -rf --one-file-system "$work"
}
trap clean_up EXIT

say() { printf '\n== %s (after %d s)\n' "$1" "$SECONDS"; }
inside() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }

say "A clean Debian 12"
mmdebstrap --quiet --variant=apt bookworm "$root"
mount -t proc proc "$root/proc" 2>/dev/null || mount --bind /proc "$root/proc"
mkdir "$root/debs"
cp "$debs"/*.deb "$root/debs"
# The names of mirrors are found as they are outside.
cp -L /etc/resolv.conf /etc/hosts "$root/etc/"
inside apt-get -qq update
inside find / -xdev \( -path /proc -o -path /debs -o -path /log -o -path /tmp -o -path /var -o -path /root \) -prune \
  -o \( -type f -o -type l \) -print | LC_ALL=C sort >"$work/before"

if [ $# -gt 1 ]; then
  say "The archive for build servers, in a system that has nothing of what it needs"
  mkdir "$root/root/server"
  tar -xzf "$2" -C "$root/root/server" --strip-components=1
  inside /root/server/bin/deploymgr --version
  inside /root/server/bin/deploymgr new /root/server/demo.vproj --platforms Linux64
  inside /root/server/bin/deploymgr profile add box --platform Linux64 --path /root/server/box --default
  inside sh -c 'cd /root/server && echo data >a.txt && bin/deploymgr add demo.vproj a.txt -p Linux64 &&
    mkdir -p Linux64/Debug && echo program >Linux64/Debug/demo && bin/deploymgr deploy demo.vproj -p Linux64'
  inside rm -rf /root/server /root/.config /root/.local
fi

say "deploymgr alone: no Qt comes with it"
inside sh -c 'apt-get -qq -y --no-install-recommends install /debs/deploymgr_*.deb >/log 2>&1 || { cat /log; exit 1; }'
if inside dpkg -l | grep -i libqt; then
  echo "deploymgr needs Qt" >&2
  exit 1
fi
inside dpkg-query -W -f '${Package} ${Version}, ${Installed-Size} KiB\n' deploymgr

say "The main job"
cp -r "$tree/examples/tide-logger" "$tree/examples/sky-chart" "$root/root"
inside sh -euc '
  cd /root
  deploymgr --version
  deploymgr list tide-logger/TideLogger.vproj -p Win32
  deploymgr reconcile sky-chart/SkyChart.vproj -p Win32 | tail -3
  deploymgr profile add lab-pc --platform Win32 --kind folder --path /root/lab --default
  deploymgr deploy sky-chart/SkyChart.vproj -p Win32 | tail -3
  deploymgr deploy sky-chart/SkyChart.vproj -p Win32 | tail -1
  deploymgr verify sky-chart/SkyChart.vproj -p Win32
  find lab -type f | sort | head -5'

say "The window and what hosts need"
inside sh -c 'apt-get -qq -y --no-install-recommends install /debs/deployment-manager_*.deb \
  /debs/libdeployment-package-dev_*.deb >/log 2>&1 || { cat /log; exit 1; }'
inside deployment-manager --version
inside env QT_QPA_PLATFORM=offscreen deployment-manager --screenshot /root/window.png \
  /root/tide-logger/TideLogger.vproj
inside sh -c 'test -s /root/window.png && test -f /usr/lib/cmake/DeploymentPackage/DeploymentPackageConfig.cmake'

if compgen -G "$debs/kdevelop-deployment-manager_*.deb" >/dev/null; then
  say "The plug-ins, with the IDEs that they are for"
  inside sh -c 'apt-get -qq -y --no-install-recommends install /debs/kdevelop-deployment-manager_*.deb \
    /debs/kate-deployment-manager_*.deb >/log 2>&1 || { cat /log; exit 1; }'
  # Each stands where its IDE looks, and what it is linked to is there.
  inside sh -euc '
    for plugin in kdevplatform/*/kdevdeploymentmanager.so ktexteditor/katedeploymentmanager.so; do
      file=$(ls /usr/lib/*/qt5/plugins/$plugin)
      if ldd "$file" | grep "not found"; then exit 1; fi
      echo "$file"
    done'
fi

say "Purged"
inside sh -c 'dpkg-query -W -f "\${Package}\n" "*deploymgr" "*deployment-manager" libdeployment-package-dev 2>/dev/null |
  xargs apt-get -qq -y purge >/dev/null 2>&1
  apt-get -qq -y --purge autoremove >/dev/null 2>&1'
inside find / -xdev \( -path /proc -o -path /debs -o -path /log -o -path /tmp -o -path /var -o -path /root \) -prune \
  -o \( -type f -o -type l \) -print | LC_ALL=C sort >"$work/after"
left=$(comm -13 "$work/before" "$work/after" | grep -v '^/etc/ld.so.cache$\|\.cache$' || true)
ours=$(inside find / -xdev -path /proc -prune -o -path /tmp -prune -o -path /root -prune -o -path /debs -prune \
  -o \( -name '*deploymgr*' -o -name '*deployment-manager*' -o -name '*deployment-package*' \
  -o -name '*DeploymentManager*' \) -print | grep -v '^/var/log\|^/var/cache/apt' || true)
if [ -n "$ours" ]; then
  printf 'left behind:\n%s\n' "$ours" >&2
  exit 1
fi
printf 'nothing of ours is left; other packages left %s files\n' "$(grep -c . <<<"$left" || true)"
say "Done"
