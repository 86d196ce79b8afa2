#!/bin/bash
# Builds the core with its tests for 32 bits, on an amd64 Debian, and runs them: nothing may hang on
# the size of a pointer or of a long. Arguments go on to the tests, such as --gtest_filter.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/install-deps.sh build 32bit

build=build/32bit
export CFLAGS=-m32 CXXFLAGS=-m32
# Debian has GoogleTest for 32 bits as a source alone, and libcurl not at all: only its headers are
# needed, and the tests of uploads stay out.
cmake -S /usr/src/googletest -B "$build/googletest" -G Ninja -DBUILD_GMOCK=OFF \
  -DCMAKE_INSTALL_PREFIX="$PWD/$build/prefix" >/dev/null
cmake --build "$build/googletest" --target install >/dev/null
cmake --preset debug -B "$build" -DCMAKE_PREFIX_PATH="$PWD/$build/prefix" \
  -DZLIB_LIBRARY=/usr/lib32/libz.so -DVSK_WERROR=ON >/dev/null
cmake --build "$build" --target vskcore_tests
"$build/bin/vskcore_tests" --gtest_brief=1 "$@" 2>"$build/log" || { tail -n 200 "$build/log" >&2; exit 1; }
