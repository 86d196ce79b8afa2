#!/bin/bash
# Installs a build into a fresh folder, moves it, and uses it as others would: runs the program,
# finds the package by CMake and by pkg-config, builds the examples against it and runs them.
#   scripts/check-install.sh build/release
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source=$PWD
build=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() { echo "$*" >&2; exit 1; }
# Says what is missing where a text should stand.
expect() { grep -q -- "$2" "$1" || { cat "$1" >&2; fail "no \"$2\" in that"; }; }

cmake --install "$build" --prefix "$work/staged" >/dev/null
mv "$work/staged" "$work/moved"
prefix=$work/moved
for file in bin/vsk lib/vskcore/libvskcore.so lib/vskcore/data/core.properties.xml \
  lib/vskcore/os/os.pi.so lib/vskcore/os/os.properties.xml lib/vskcore/identity/identity.pi.so \
  lib/vskcore/cpu/cpu.pi.so lib/vskcore/cpu/cpu.properties.xml \
  include/vskcore/vskcore.h include/vskcore/vskplugin.h lib/cmake/vskcore/vskcoreConfig.cmake \
  lib/pkgconfig/vskcore.pc share/man/man1/vsk.1 share/doc/vskcore/README.md; do
  [[ -s $prefix/$file ]] || fail "$file is not installed"
done
if grep -rl -e "$source" -e "$work/staged" "$prefix"; then fail "these name the build's folders"; fi

"$prefix/bin/vsk" collect >"$work/report"
expect "$work/report" '^ZNTSG_ComputerSystem'
expect "$work/report" '^ZNTSG_OperatingSystem'

# example NAME LANGUAGE OPTIONS...
example() {
  cmake -S "examples/$1" -B "$work/$1" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" \
    "-DCMAKE_$2_FLAGS=-Wall -Wextra -Wpedantic -Werror" "${@:3}" >/dev/null
  cmake --build "$work/$1" >/dev/null
}
example host CXX
example plugin-cpp CXX
CXX=false example plugin-c C -DCMAKE_DISABLE_FIND_PACKAGE_Boost=ON --no-warn-unused-cli
cmake --install "$work/plugin-cpp" >/dev/null
cmake --install "$work/plugin-c" >/dev/null
"$work/host/host" >"$work/example"
expect "$work/example" '^ZNTSG_ComputerSystem.InstanceID="system:0"$'
expect "$work/example" '^Sample_EntropyPool.InstanceID="entropy:0"$'
"$prefix/bin/vsk" collect --class Sample_EntropyPool >"$work/report"
expect "$work/report" '^  Available .* Bits$'
"$prefix/bin/vsk" collect --class Sample_FileTable >"$work/report"
expect "$work/report" '^  Open files  *[1-9]'

# pcfiledir is where pkg-config found the file, so the flags follow the move.
export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
read -ra flags < <(pkg-config --cflags --libs vskcore)
g++ -std=c++17 examples/host/main.cpp "${flags[@]}" "-Wl,-rpath,$prefix/lib/vskcore" \
  -o "$work/by-pkg-config"
"$work/by-pkg-config" >"$work/example"
expect "$work/example" '^ZNTSG_OperatingSystem.InstanceID="os:running"$'
