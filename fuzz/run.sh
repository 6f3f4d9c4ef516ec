#!/usr/bin/env bash
# usage: [FUZZ_OPTIONS=OPTIONS] fuzz/run.sh PROGRAMS SECONDS [TARGET...]
# Runs each fuzz target, or those named: the corpus first, then inputs that are made up for that many
# seconds. What is found stays in build-fuzz/TARGET. Prints a row for each target and ends with 1
# when one has a finding. With FUZZ_OPTIONS=-seed=1 the inputs that are made up are the same each time.
set -euo pipefail
programs=$(cd "$1" && pwd)
seconds=$2
shift 2
cd "$(dirname "$0")"
results=$PWD/../build-fuzz
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  for corpus in corpus/*; do targets+=("${corpus#corpus/}"); done
fi

run() {
  local target=$1 place=$results/$1 dictionary=()
  mkdir -p "$place/corpus"
  [ -e "dictionaries/$target.dict" ] && dictionary=("-dict=dictionaries/$target.dict")
  local status=0
  # shellcheck disable=SC2086 # several options are several words
  "$programs/fuzz_$target" "${dictionary[@]}" ${FUZZ_OPTIONS-} -max_total_time="$seconds" -timeout=10 \
    -entropic=0 -max_len=4096 -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="$place/" \
    "$place/corpus" "corpus/$target" >"$place/log" 2>&1 || status=$?
  local runs each inputs
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$place/log")
  each=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$place/log")
  inputs=$(find "corpus/$target" -type f | wc -l)
  printf '%-18s %7d %9s %9s  %s\n' "$target" "$inputs" "${runs:-?}" "${each:-?}" \
    "$([ "$status" -eq 0 ] && echo nothing || echo "FINDING, see build-fuzz/$target/log")"
  return "$status"
}

# Short call stacks of allocations: a finding is looked at by running its file alone, which has all.
export ASAN_OPTIONS=malloc_context_size=2:quarantine_size_mb=16 UBSAN_OPTIONS=print_stacktrace=1
printf '%-18s %7s %9s %9s  %s\n' Target Corpus Runs Runs/s "Found in $seconds s"
failed=0
# Two at a time, as many as the smallest machine has cores.
for ((i = 0; i < ${#targets[@]}; i += 2)); do
  run "${targets[i]}" & first=$!
  second=
  if [ $((i + 1)) -lt ${#targets[@]} ]; then
    run "${targets[i + 1]}" & second=$!
  fi
  wait "$first" || failed=1
  [ -z "$second" ] || wait "$second" || failed=1
done
exit "$failed"
