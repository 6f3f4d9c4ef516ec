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

if [ "$(id -u)" -eq 0 ]; then
  user=ssh-bench
  userdel -r "$user" 2> /dev/null || true
  useradd -m -s /bin/sh "$user"
  usermod -p '*' "$user" # no password, but not locked either
  trap 'userdel -f -r "$user" 2> /dev/null || true' EXIT
  su "$user" -c "cd / && exec '$script' '$bin' '$runs'"
  exit
fi

work=$(mktemp -d -p /dev/shm ssh-bench.XXXXXX)
background=
cleanup() {
  for process in $background; do
    kill "$process" 2> /dev/null || true
  done
  rm -rf "$work"
}
trap cleanup EXIT
trap 'exit 130' INT TERM
cd "$work"
export XDG_CONFIG_HOME="$work/config" XDG_STATE_HOME="$work/state"

# The server, on the first port that is free.
mkdir server
ssh-keygen -q -t ed25519 -N '' -f server/host
ssh-keygen -q -t ed25519 -N '' -f server/key
cp server/key.pub server/authorized
cat > server/config << END
HostKey $work/server/host
AuthorizedKeysFile $work/server/authorized
Subsystem sftp /usr/lib/openssh/sftp-server
PidFile none
StrictModes no
UsePAM no
MaxSessions 50
END
port=22000
while :; do
  port=$((port + 1))
  /usr/sbin/sshd -D -f server/config -p "$port" -o ListenAddress=127.0.0.1 2> server/log &
  server=$!
  sleep 0.3
  kill -0 "$server" 2> /dev/null && break
  [ "$port" -lt 22100 ] || { cat server/log >&2; exit 1; }
done
background="$background $server"
mkfifo server/port
"$bin/delay_proxy" "$port" 10 > server/port &
background="$background $!"
read -r farPort < server/port
for each in "$port" "$farPort"; do
  echo "[127.0.0.1]:$each $(cut -d' ' -f1,2 server/host.pub)" >> server/known
done
for each in "near:$port" "far:$farPort"; do
  cat << END
Host ${each%%:*}
  HostName 127.0.0.1
  Port ${each##*:}
END
done > server/client
cat >> server/client << END
Host *
  IdentityFile $work/server/key
  IdentitiesOnly yes
  UserKnownHostsFile $work/server/known
END
client="$work/server/client"

# make_project NAME PROFILE: the files below NAME/files become a project.
make_project() {
  {
    echo '<Project xmlns="http://schemas.microsoft.com/developer/msbuild/2003"><PropertyGroup>'
    echo '<Config>Debug</Config><Platform>OSX32</Platform></PropertyGroup><ItemGroup>'
    echo '<BuildConfiguration Include="Debug"/>'
    echo "<TargetPlatform Include=\"OSX32\"><Profile>$2</Profile></TargetPlatform></ItemGroup>"
    echo '<ProjectExtensions><Deployment Version="2"><DeployClass Name="File"/>'
    for each in "$1:ProjectOutput" "$1.info.plist:ProjectOSXInfoPList" \
      "$1.entitlements:ProjectOSXEntitlements"; do
      echo "<DeployFile LocalName=\"${each%%:*}\" Configuration=\"Debug\" Class=\"${each##*:}\">"
      echo '<Platform Name="OSX32"><Enabled>false</Enabled></Platform></DeployFile>'
    done
    (cd "$1" && find files -type f -printf '%P\n') | sort | awk -F/ '{
      local = $0
      gsub("/", "\\", local)
      directory = NF > 1 ? $1 "\\" : ".\\"
      printf "<DeployFile LocalName=\"files\\%s\" Configuration=\"Base\" Class=\"File\">", local
      printf "<Platform Name=\"OSX32\"><RemoteDir>%s</RemoteDir></Platform></DeployFile>\n", directory
    }'
    echo '</Deployment></ProjectExtensions></Project>'
  } > "$1/$1.vproj"
}

# small_files DIRECTORIES: a hundred files of 4 KiB in each.
small_files() {
  each=0
  while [ "$each" -lt "$1" ]; do
    mkdir -p "files/$each"
    head -c 409600 /dev/urandom | split -b 4096 -d -a 2 - "files/$each/f"
    each=$((each + 1))
  done
}

mkdir -p target copy many big some medium/files big/files
(cd many && small_files 100)
(cd some && small_files 10)
head -c 536870912 /dev/urandom > big/files/file
head -c 67108864 /dev/urandom > medium/files/file
for each in "near:$port" "far:$farPort"; do
  "$bin/deploymgr" profile add "${each%%:*}" -p OSX32 --kind ssh --host 127.0.0.1 \
    --port "${each##*:}" --identity "$work/server/key" \
    --ssh-option "UserKnownHostsFile=$work/server/known" --ssh-option IdentitiesOnly=yes \
    --path "$work/target" --quiet
done
make_project many near
make_project big near
make_project some far
make_project medium far
find many/files -mindepth 1 -maxdepth 1 -printf 'put -r many/files/%f copy/\n' > many.batch

# milliseconds COMMAND...: how long it takes.
milliseconds() {
  start=$(date +%s%N)
  "$@" > /dev/null
  end=$(date +%s%N)
  echo $(((end - start) / 1000000))
}
# over_open WORD: the same for what the open connection does.
over_open() {
  echo "$1" >&3
  read -r time <&4
  echo "$time"
}
nothing() { :; }
# The record goes too: what it knows of is not new.
clear_both() { rm -rf target copy; mkdir target copy; }
# As a fresh checkout leaves them.
touch_some() { find some/files -type f -exec touch {} +; }

median() { sort -n | awk '{ v[NR] = $1 } END { print NR % 2 ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2 }'; }

# compare TITLE RUNS PREPARE OURS THEIRS: each of the last three is a function.
compare() {
  : > pairs
  number=0
  while [ "$number" -le "$2" ]; do
    "$3"
    # Who goes first changes, and the first pair warms up.
    if [ $((number % 2)) -eq 0 ]; then
      ours=$("$4"); theirs=$("$5")
    else
      theirs=$("$5"); ours=$("$4")
    fi
    [ "$number" -eq 0 ] || echo "$ours $theirs" >> pairs
    number=$((number + 1))
  done
  printf '%-58s %8.0f %8.0f %6.2f\n' "$1" "$(cut -d' ' -f1 pairs | median)" \
    "$(cut -d' ' -f2 pairs | median)" "$(awk '{ print $1 / $2 }' pairs | median)"
}

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
