#!/bin/sh
# Measures deploys of many small files to a folder against cp and rsync, on a memory file system.
# Usage: bench/deploy_bench.sh PROGRAM [FILES]. Needs hyperfine, rsync and jq. Fails when a limit is
# not kept: 1.5 times "cp -r --preserve=timestamps" for all new, 2 times "rsync --dry-run -a" for
# nothing changed.
set -eu

program=$(realpath "$1")
count=${2:-10000}
work=$(mktemp -d -p /dev/shm deploy-bench.XXXXXX)
trap 'rm -rf "$work"' EXIT
cd "$work"
export HOME="$work/home" XDG_CONFIG_HOME="$work/home/config" XDG_STATE_HOME="$work/home/state"

mkdir -p files target home
head -c 4096 /dev/urandom > block
{
  echo '<Project xmlns="http://schemas.microsoft.com/developer/msbuild/2003">'
  echo '  <PropertyGroup><Config>Debug</Config><Platform>Win32</Platform></PropertyGroup>'
  echo '  <ItemGroup><BuildConfiguration Include="Debug"/><TargetPlatform Include="Win32"/></ItemGroup>'
  echo '  <ProjectExtensions><Deployment Version="2"><DeployClass Name="File"/>'
  i=0
  while [ "$i" -lt "$count" ]; do
    mkdir -p "files/$((i / 100))"
    cp block "files/$((i / 100))/$i.dat"
    printf '<DeployFile LocalName="files\\%d\\%d.dat" Configuration="Base" Class="File">' \
      $((i / 100)) "$i"
    printf '<Platform Name="Win32"><RemoteDir>%d\\</RemoteDir></Platform></DeployFile>\n' \
      $((i / 100))
    i=$((i + 1))
  done
  echo '  </Deployment></ProjectExtensions>'
  echo '</Project>'
} > demo.vproj
"$program" profile add box -p Win32 --path target --default > /dev/null

hyperfine -N --warmup 1 --runs 10 --export-json new.json --prepare 'rm -rf target copy; mkdir target' \
  "$program deploy demo.vproj --quiet" 'cp -r --preserve=timestamps files copy' > /dev/null
hyperfine -N --warmup 1 --runs 10 --export-json same.json \
  "$program deploy demo.vproj --quiet" 'rsync --dry-run -a files/ copy/' > /dev/null

ratio() { jq -r '.results[0].median / .results[1].median * 100 | round / 100' "$1"; }
new=$(ratio new.json)
same=$(ratio same.json)
echo "all new:         deploy / cp -r --preserve=timestamps = $new (limit 1.5)"
echo "nothing changed: deploy / rsync --dry-run -a          = $same (limit 2)"
jq -en --argjson new "$new" --argjson same "$same" '$new <= 1.5 and $same <= 2' > /dev/null
