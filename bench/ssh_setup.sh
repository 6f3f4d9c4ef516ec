# What the benches over SSH share; read by them, with `bin`, `runs` and `script` set. A directory on
# a memory file system, an OpenSSH server of its own on loopback, near, behind a delay of 20 ms there
# and back, and behind that and 100 Mbit/s; projects, clocks and comparisons.

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
# behind MILLISECONDS [MEGABITS]: the port of a line to the server.
behind() {
  "$bin/delay_proxy" "$port" "$@" > server/port &
  background="$background $!"
  read -r behind < server/port
}
behind 10
farPort=$behind
behind 10 100
slowPort=$behind
machines="near:$port far:$farPort slow:$slowPort"
for each in $machines; do
  echo "[127.0.0.1]:${each##*:} $(cut -d' ' -f1,2 server/host.pub)" >> server/known
done
for each in $machines; do
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

# add_profile NAME PORT OPTIONS...: of a machine, with the path given last.
add_profile() {
  name=$1
  to=$2
  shift 2
  "$bin/deploymgr" profile add "$name" -p OSX32 --kind ssh --host 127.0.0.1 --port "$to" \
    --identity "$work/server/key" --ssh-option "UserKnownHostsFile=$work/server/known" \
    --ssh-option IdentitiesOnly=yes --quiet "$@"
}

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
