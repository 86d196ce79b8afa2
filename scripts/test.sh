#!/bin/bash
# Builds everything with its tests and runs them all. VSK_PRESET picks another preset than debug,
# such as asan; arguments go on to CMake:
#   VSK_PRESET=asan scripts/test.sh -DVSK_WERROR=ON
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/install-deps.sh build test

preset=${VSK_PRESET:-debug}
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:strict_string_checks=1:check_initialization_order=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1}

cmake --preset "$preset" "$@"
cmake --build --preset "$preset"
ctest --preset "$preset" --parallel "$(nproc)"
