#!/bin/bash
# Runs all tests in a build that counts, and prints how much of each folder's code they reach, as
# docs/testing.md shows it. Which lines they don't reach stands in build/coverage/unreached.txt.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/install-deps.sh build test coverage

build=build/coverage
cmake --preset coverage >/dev/null
find "$build" -name '*.gcda' -delete
cmake --build --preset coverage
ctest --preset coverage --parallel "$(nproc)"

# A call in C++ is a branch to the compiler, for the exception that it may throw; those don't count.
gcovr --root . --filter 'src/' --filter 'host/' --filter 'collectors/' \
  --exclude-throw-branches --exclude-unreachable-branches \
  --csv "$build/coverage.csv" --txt "$build/unreached.txt" "$build"

awk -F, '
  function row(name) {
    printf "| %s | %d of %d | %.1f %% | %d of %d | %.1f %% |\n", name, linesReached[name],
      lines[name], 100 * linesReached[name] / lines[name], branchesReached[name], branches[name],
      branches[name] ? 100 * branchesReached[name] / branches[name] : 100
  }
  NR == 1 { next }
  {
    folder = $1
    sub("/[^/]*$", "", folder)
    if (!(folder in lines)) folders[++count] = folder
    for (i = 1; i <= 2; ++i) {
      name = i == 1 ? "all" : folder
      lines[name] += $2; linesReached[name] += $3
      branches[name] += $5; branchesReached[name] += $6
    }
  }
  END {
    print "| Folder | Lines reached | | Branches reached | |"
    print "|---|---|---|---|---|"
    for (i = 1; i <= count; ++i) row(folders[i])
    row("all")
  }' "$build/coverage.csv"
