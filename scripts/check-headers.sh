#!/bin/bash
# Compiles each public header alone, as a user would who includes nothing else: with both compilers
# as C++17, and those that are pure C as strict C99 as well.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../include"

flags=(-fsyntax-only -I. -Wall -Wextra -Wpedantic -Werror -x)
failed=0
try() { "$@" || { echo "does not compile alone: ${*: -1}" >&2; failed=1; }; }

while read -r header; do
  for compiler in g++ clang++; do
    try "$compiler" -std=c++17 "${flags[@]}" c++ - <<<"#include <$header>"$'\n' || true
  done
  # The C headers are named after the C interface.
  case ${header##*/} in
    vskcore.h) ;;
    vsk*.h)
      for compiler in gcc clang; do
        try "$compiler" -std=c99 -pedantic-errors "${flags[@]}" c - <<<"#include <$header>" || true
      done ;;
  esac
done < <(find vskcore -name '*.h' | sort)
exit "$failed"
