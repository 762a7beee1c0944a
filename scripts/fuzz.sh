#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs each for a while (default 60 s).
set -euo pipefail
cd "$(dirname "$0")/.."
RAVLIN_WITH_CLANG=1 bash scripts/install-deps.sh
seconds="${1:-60}"
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
for fuzzer in build/fuzz/bin/fuzz_*; do
  name=$(basename "$fuzzer")
  corpus="fuzz/corpus/${name#fuzz_}"
  mkdir -p "build/fuzz/corpus/$name"
  echo "== $name for ${seconds}s"
  dict="fuzz/${name#fuzz_}.dict"
  "$fuzzer" -max_total_time="$seconds" -print_final_stats=1 $( [[ -f "$dict" ]] && echo "-dict=$dict" ) "build/fuzz/corpus/$name" $( [[ -d "$corpus" ]] && echo "$corpus" )
done
