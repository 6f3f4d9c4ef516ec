#!/bin/sh
# Measures what knowing the target costs: a deploy with a record beside one without, undo beside the
# deploy, verify beside sha256sum over SSH, five targets at once beside the slowest of them alone,
# and a large file of which one percent changed beside rsync, on a line of 100 Mbit/s with 20 ms.
# Usage: bench/target_bench.sh BIN-DIRECTORY [RUNS]. The directory holds deploymgr and delay_proxy.
# Prints medians of paired runs, in milliseconds, and the medians of their ratios. Needs
# openssh-server and rsync. Started as root it runs as a user that it makes for the time.
set -eu

bin=$(realpath "$1")
runs=${2:-5}
script=$(realpath "$0")

. "$(dirname "$script")/ssh_setup.sh"

mkdir -p target copy many large/files
(cd many && small_files 100)
head -c 67108864 /dev/urandom > large/files/file
add_profile near "$port" --path "$work/target"
add_profile unrecorded "$port" --stateless --path "$work/target"
add_profile slow "$slowPort" --path "$work/target"
targets=
for each in 1 2 3 4 5; do
  mkdir "target$each"
  add_profile "near$each" "$port" --path "$work/target$each"
  targets="$targets,near$each"
done
make_project many near
make_project large slow

deploy_many() { milliseconds "$bin/deploymgr" deploy many/many.vproj --quiet; }
deploy_to() { milliseconds "$bin/deploymgr" deploy many/many.vproj --quiet --to-profile "$1"; }
deploy_unrecorded() { deploy_to unrecorded; }
deploy_first() { deploy_to near1; }
deploy_five() { deploy_to "${targets#,}"; }
deploy_large() { milliseconds "$bin/deploymgr" deploy large/large.vproj --quiet; }
undo_many() { milliseconds "$bin/deploymgr" undo many/many.vproj --yes --quiet; }
verify_many() { milliseconds "$bin/deploymgr" verify many/many.vproj --quiet; }
hash_many() {
  milliseconds ssh -F "$client" near "cd '$work/target/many' && find . -type f -print0 | xargs -0 sha256sum"
}
rsync_large() {
  milliseconds rsync -a -e "ssh -F $client" large/files/ "slow:$work/copy/"
}
clear_five() { for each in 1 2 3 4 5; do rm -rf "target$each"; mkdir "target$each"; done; }
# change_large: one percent of it, in a hundred places.
change_large() {
  each=0
  while [ "$each" -lt 100 ]; do
    dd if=/dev/urandom of=large/files/file bs=6710 count=1 seek=$((each * 100)) conv=notrunc \
      status=none
    each=$((each + 1))
  done
}
# Another content of everything, there already.
change_many() {
  find many/files -type f -exec sh -c 'for each; do echo "$0" >> "$each"; done' "$(date +%N)" {} +
}
deploy_again() {
  change_many
  deploy_many
}
undo_again() {
  change_many
  deploy_many > /dev/null
  undo_many
}

printf '%-58s %8s %8s %6s\n' "what" "ours" "theirs" "ratio"
compare "10,000 new files, with a record / without" "$runs" clear_both deploy_many deploy_unrecorded
clear_both
deploy_many > /dev/null
compare "10,000 files, verify / ssh sha256sum" "$runs" nothing verify_many hash_many
compare "10,000 changed files, undo / deploy" "$runs" nothing undo_again deploy_again
compare "10,000 new files, five targets at once / one" "$runs" clear_five deploy_five deploy_first
deploy_large > /dev/null
rsync_large > /dev/null
compare "64 MiB, 1 % changed, 20 ms, 100 Mbit/s / rsync" "$runs" change_large deploy_large rsync_large
