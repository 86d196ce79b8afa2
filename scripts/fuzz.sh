#!/bin/bash
# Builds the fuzzers and runs them, one after another, each for that many seconds (60 without):
#   scripts/fuzz.sh 1200 document reader
# What they find lies in build/fuzz/findings, what they have learned in build/fuzz/corpus.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/install-deps.sh build fuzz

seconds=${1:-60}
targets=("${@:2}")
((${#targets[@]})) || targets=(cinterface datetime document gzip reader)

build=build/fuzz
cmake --preset fuzz
cmake --build --preset fuzz --target "${targets[@]/#/fuzz_}"

# Depth of the stacks that are kept for each allocation: a fuzzer allocates all the time.
export ASAN_OPTIONS=${ASAN_OPTIONS:-malloc_context_size=8}
mkdir -p "$build/findings"
failed=()
for target in "${targets[@]}"; do
  mkdir -p "$build/corpus/$target"
  options=(-max_total_time="$seconds" -timeout=10 -report_slow_units=3 -rss_limit_mb=2048
    -print_final_stats=1 -artifact_prefix="$build/findings/$target-")
  case $target in
    document | reader) options+=(-max_len=65536 -dict=fuzz/cimxml.dict) ;;
    gzip) options+=(-max_len=65536) ;;
    *) options+=(-max_len=4096) ;;
  esac
  echo "== $target"
  "$build/bin/fuzz_$target" "${options[@]}" "$build/corpus/$target" "fuzz/corpus/$target" ||
    failed+=("$target")
done
((${#failed[@]} == 0)) || { echo "Found something: ${failed[*]}; see $build/findings" >&2; exit 1; }
