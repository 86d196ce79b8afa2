#!/bin/bash
# clang-tidy and cppcheck over the library, the host and the collectors. Which checks, and why not
# the others, stands in .clang-tidy and below. Takes a build folder's compile commands, a debug
# build's unless another folder is given:
#   scripts/check-static.sh build/ci-clang
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/install-deps.sh build test ci

build=${1:-build/debug}
failed=0
[[ -f $build/compile_commands.json ]] || cmake --preset debug -B "$build" >/dev/null

# It tells of the warnings in others' headers that it has not shown; that line is dropped.
tidy() { clang-tidy -p "$1" --quiet "$2" 2> >(grep -v 'warnings\? generated' >&2); }
export -f tidy
git ls-files {src,host,collectors}/'*.cpp' {src,collectors}/'*.c' |
  xargs -P"$(nproc)" -I{} bash -c 'tidy "$@"' tidy "$build" {} || failed=1

# Signatures of the public headers are given; a raw loop reads as well as an algorithm; values of one
# argument convert on purpose; and "could be const" doesn't see what the compiler sees. readdir is
# asked on streams of the caller's own.
cppcheck -j"$(nproc)" --quiet --error-exitcode=1 --inline-suppr \
  --enable=warning,style,performance,portability --std=c++17 --library=posix \
  --suppress=passedByValue --suppress=useStlAlgorithm --suppress=noExplicitConstructor \
  --suppress=constParameter --suppress=readdirCalled --suppress=redundantContinue \
  -Iinclude -Isrc src host collectors || failed=1
exit "$failed"
