#!/bin/bash
# Builds what is needed, collects this machine, and prints it. Options go on to "vsk collect":
#   scripts/collect.sh --class ZNTSG_ComputerSystem --json
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/install-deps.sh build

build=build/collect
output=$(mktemp)
trap 'rm -f "$output"' EXIT
run() { "$@" >"$output" 2>&1 || { cat "$output" >&2; exit 1; }; }

[[ -e $build/bin/vsk ]] || echo "Building; this takes a minute or two ..." >&2
run cmake --preset release -B "$build" -DVSK_TESTS=OFF
run cmake --build "$build"

rm -f "$output"
exec "$build/bin/vsk" collect "$@"
