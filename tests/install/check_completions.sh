#!/usr/bin/env bash
# The completions of the shells that are there: check_completions.sh PROGRAM TREE
set -eu

program=$1 tree=$2
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
export HOME="$place" ZELK="$tree" LC_ALL=C.UTF-8 PATH="$place/bin:$PATH"
unset XDG_CONFIG_HOME XDG_STATE_HOME PLATFORM CONFIG
mkdir "$place/bin"
ln -s "$program" "$place/bin/deploymgr"
cp -r "$tree/examples/tide-logger" "$place/project"
cd "$place/project"
deploymgr profile add lab-pc --platform Win32 --path "$place/lab" --quiet
failures=0

# expect SHELL LINE CANDIDATES: those that the shell offers at the end of the line.
expect() {
  local shell=$1 line=$2 wanted=$3 offered
  offered=$("complete_$shell" "$line" 2>&1 | sort | tr '\n' ' ')
  [ "$offered" = "$wanted " ] && return
  printf 'FAILED: %s, "%s": "%s" instead of "%s "\n' "$shell" "$line" "$offered" "$wanted"
  failures=$((failures + 1))
}

complete_bash() {
  bash --norc -c '
    source "$1/packaging/completions/deploymgr.bash"
    compopt() { :; }
    read -r -a COMP_WORDS <<<"$2"
    [[ $2 == *" " ]] && COMP_WORDS+=("")
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    _deploymgr deploymgr
    printf "%s\n" "${COMPREPLY[@]}"
  ' bash "$tree" "$1"
}

complete_fish() {
  fish --no-config -c 'source $argv[1]; complete -C $argv[2]' \
    "$tree/packaging/completions/deploymgr.fish" "$1" | cut -f 1
}

# zsh hands out its words where it completes; what comes of them is taken where it would be added.
complete_zsh() {
  zsh -f -c '
    _call_program() { shift; eval "$@"; }
    compadd() { print -l -- $values; }
    compset() { :; }
    _files() { print -l -- *.vproj; }
    words=(${(z)2})
    [[ $2 == *" " ]] && words+=("")
    CURRENT=$#words
    source "$1/packaging/completions/_deploymgr"
  ' zsh "$tree" "$1"
}

for shell in bash zsh fish; do
  command -v "$shell" >/dev/null || continue
  expect "$shell" 'deploymgr rev' 'revert'
  expect "$shell" 'deploymgr list . --so' '--sort'
  expect "$shell" 'deploymgr list . -p Win' 'Win32 Win64'
  expect "$shell" 'deploymgr list . -c F' 'Field'
  expect "$shell" 'deploymgr profile test ' 'lab-pc'
  expect "$shell" 'deploymgr set . data/ca' 'data/calm-day.txt'
  expect "$shell" 'deploymgr show Tide' 'TideLogger.vproj'
done
expect bash 'deploymgr nonsense ' ''
expect bash 'deploymgr list . --platform = Win' 'Win32 Win64'
expect bash 'deploymgr set . docs/' 'docs/Gezeiten\ für\ Anfänger.txt'

[ "$failures" = 0 ] && echo "the shells offer what the program knows"
