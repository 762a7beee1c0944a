#!/usr/bin/env bash
# Builds the release preset and runs every benchmark, printed as one table:
# start-up to status items shown, timer firings per resting minute, panel show per
# style, one statistics pass, full-rebuild overhead, resident memory after start-up, and
# the keyboard's paths to a painted panel (global shortcut, one typed key). Coefficients
# of variation (the _cv rows) are printed in per cent.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
RAVLIN_PRESET=release bash scripts/build.sh --target all >/dev/null
export QT_QPA_PLATFORM=offscreen
printf '%-44s %14s  %s\n' "benchmark" "CPU time" "figures"
printf '%-44s %14s  %s\n' "---------" "--------" "-------"
for bench in build/release/bin/bench_*; do
  "$bench" --benchmark_format=csv 2>/dev/null | awk -F, '
    NR == 1 { for (i = 1; i <= NF; i++) { gsub(/"/, "", $i); col[i] = $i }; next }
    {
      name = $1; gsub(/"/, "", name)
      figures = ""
      for (i = 11; i <= NF; i++) if ($i != "") figures = figures col[i] "=" $i " "
      if ($9 == "true") figures = figures "ERROR: " $10
      # A coefficient of variation is a ratio: shown in per cent, not in the time unit.
      if (name ~ /_cv$/) printf "%-44s %12.1f %%  %s\n", name, $4 * 100, figures
      else printf "%-44s %11.3f %s  %s\n", name, $4, $5, figures
    }'
done
