#!/bin/sh
# Measures status and deploys to a machine behind SSH against rsync, scp and sftp, on a memory file
# system: an OpenSSH server of its own on loopback, near and behind a delay of 20 ms there and back.
# Usage: bench/ssh_bench.sh BIN-DIRECTORY [RUNS]. The directory holds deploymgr, delay_proxy and
# open_connection. Prints medians of paired runs, in milliseconds, and the medians of their ratios.
# Needs openssh-server and rsync. Started as root it runs as a user that it makes for the time.
set -eu

bin=$(realpath "$1")
runs=${2:-5}
script=$(realpath "$0")

. "$(dirname "$script")/ssh_setup.sh"

mkdir -p target copy many big some medium/files big/files
(cd many && small_files 100)
(cd some && small_files 10)
head -c 536870912 /dev/urandom > big/files/file
head -c 67108864 /dev/urandom > medium/files/file
add_profile near "$port" --path "$work/target"
add_profile far "$farPort" --path "$work/target"
make_project many near
make_project big near
make_project some far
make_project medium far
find many/files -mindepth 1 -maxdepth 1 -printf 'put -r many/files/%f copy/\n' > many.batch

deploy_many() { milliseconds "$bin/deploymgr" deploy many/many.vproj --quiet; }
deploy_big() { milliseconds "$bin/deploymgr" deploy big/big.vproj --quiet; }
deploy_some() { milliseconds "$bin/deploymgr" deploy some/some.vproj --quiet; }
deploy_medium() { milliseconds "$bin/deploymgr" deploy medium/medium.vproj --quiet; }
status_many() { milliseconds "$bin/deploymgr" status many/many.vproj; }
status_some() { milliseconds "$bin/deploymgr" status some/some.vproj; }
deploy_open() { over_open deploy; }
status_open() { over_open status; }
rsync_to() { # HOST FILES OPTIONS...
  host=$1
  files=$2
  shift 2
  milliseconds rsync -a "$@" -e "ssh -F $client" "$files/" "$host:$work/copy/"
}
rsync_many() { rsync_to near many/files; }
rsync_many_look() { rsync_to near many/files --dry-run; }
rsync_some() { rsync_to far some/files; }
rsync_some_look() { rsync_to far some/files --dry-run; }
sftp_many() { milliseconds sftp -q -F "$client" -b many.batch "near:$work"; }
scp_big() { milliseconds scp -q -F "$client" big/files/file "near:$work/copy/"; }
scp_medium() { milliseconds scp -q -F "$client" medium/files/file "far:$work/copy/"; }

printf '%-58s %8s %8s %6s\n' "what" "ours" "theirs" "ratio"
compare "10,000 x 4 KiB, all new / rsync -a" "$runs" clear_both deploy_many rsync_many
compare "10,000 x 4 KiB, all new / sftp -b" 3 clear_both deploy_many sftp_many
clear_both
deploy_many > /dev/null
rsync_many > /dev/null
compare "10,000 files, nothing changed / rsync -a" "$runs" nothing deploy_many rsync_many
compare "10,000 files, status / rsync -a --dry-run" "$runs" nothing status_many rsync_many_look
mkfifo server/words server/times
# with_open PROJECT: what follows goes over a connection to its machine that is open already, as
# the window has it; rsync makes its own, as it always does.
with_open() {
  "$bin/open_connection" "$1" < server/words > server/times &
  background="$background $!"
  exec 3> server/words 4< server/times
}
with_open many/many.vproj
compare "10,000 files, nothing changed, open / rsync -a" "$runs" nothing deploy_open rsync_many
compare "10,000 files, status, open / rsync -a --dry-run" "$runs" nothing status_open \
  rsync_many_look
exec 3>&- 4<&-
compare "512 MiB / scp" 3 clear_both deploy_big scp_big
clear_both
compare "64 MiB, 20 ms / scp" "$runs" clear_both deploy_medium scp_medium
compare "1,000 x 4 KiB, 20 ms, all new / rsync -a" "$runs" clear_both deploy_some rsync_some
compare "1,000 files, 20 ms, nothing changed / rsync -a" "$runs" nothing deploy_some rsync_some
compare "1,000 files, 20 ms, times alone differ / rsync -a" "$runs" touch_some deploy_some rsync_some
compare "1,000 files, 20 ms, status / rsync -a --dry-run" "$runs" nothing status_some \
  rsync_some_look
with_open some/some.vproj
compare "1,000 files, 20 ms, status, open / rsync -a --dry-run" "$runs" nothing status_open \
  rsync_some_look
exec 3>&- 4<&-
