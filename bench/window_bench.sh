#!/usr/bin/env bash
# From the start of the program to the first picture of an example, beside a bare window; the first
# paint of long lists beside that of a bare view; their filters and groups; and the plan of one.
# Give the directory of the built programs.
set -euo pipefail
bin=${1:-build-release/bin}
tree=$(cd "$(dirname "$0")/.." && pwd)
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=$place XDG_CONFIG_HOME=$place XDG_STATE_HOME=$place
hyperfine --warmup 3 --runs 20 \
  --command-name "a bare window" "$bin/bare_window $place/bare.png" \
  --command-name "deployment-manager with an example" \
  "$bin/deployment-manager --screenshot $place/ours.png $tree/examples/sky-chart/SkyChart.vproj"
"$bin/window_bench"
"$bin/list_bench"
"$bin/plan_bench"
