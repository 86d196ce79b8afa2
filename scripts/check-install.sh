#!/bin/bash
# Installs a build into a fresh folder, moves it, and uses it as others would: runs the program,
# builds the examples against it by its CMake package and by pkg-config, with both compilers and
# each language standard that the headers promise, and runs them.
#   scripts/check-install.sh build/release
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source=$PWD
build=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/moved
core=$prefix/lib/vskcore
warnings=(-Wall -Wextra -Wpedantic -Werror)

fail() { echo "$*" >&2; exit 1; }
# expect PATTERN COMMAND...: says what is missing where a line should stand.
expect() {
  "${@:2}" >"$work/output"
  grep -q -- "$1" "$work/output" || { cat "$work/output" >&2; fail "no \"$1\" in that"; }
}

cmake --install "$build" --prefix "$work/staged" >/dev/null
cp -r "$work/staged" "$prefix"
rm -rf "$work/staged"
for file in bin/vsk lib/vskcore/libvskcore.so lib/vskcore/data/core.properties.xml \
  lib/vskcore/os/os.pi.so lib/vskcore/os/os.properties.xml lib/vskcore/identity/identity.pi.so \
  lib/vskcore/cpu/cpu.pi.so lib/vskcore/cpu/cpu.properties.xml \
  include/vskcore/vskcore.h include/vskcore/vskplugin.h lib/cmake/vskcore/vskcoreConfig.cmake \
  lib/pkgconfig/vskcore.pc share/man/man1/vsk.1 share/doc/vskcore/README.md; do
  [[ -s $prefix/$file ]] || fail "$file is not installed"
done
if grep -rl -e "$source" -e "$work/staged" "$prefix"; then fail "these name the build's folders"; fi

expect '^ZNTSG_ComputerSystem' "$prefix/bin/vsk" collect
expect '^ZNTSG_OperatingSystem' "$prefix/bin/vsk" collect

# by_cmake EXAMPLE COMPILER STANDARD OPTIONS...: what it installs is installed.
by_cmake() {
  local language=CXX folder=$work/$1-$2-$3
  case $3 in c[0-9]*) language=C ;; esac
  cmake -S "examples/$1" -B "$folder" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_$language"_COMPILER=$2" "-DCMAKE_${language}_FLAGS=${warnings[*]}" \
    -DCMAKE_$language"_STANDARD=${3##*[c+]}" -DCMAKE_$language"_EXTENSIONS=OFF" "${@:4}" >/dev/null
  grep -q -e "-std=$3" "$folder/build.ninja" || fail "$1 is not built as $3"
  cmake --build "$folder" >/dev/null
  cmake --install "$folder" >/dev/null
}

# pcfiledir is where pkg-config found the file, so the flags follow the move.
export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
read -ra flags < <(pkg-config --cflags --libs vskcore)
[[ $(pkg-config --variable=plugindir vskcore) -ef $core ]] || fail "pkg-config names other plug-ins"

# by_pkg_config EXAMPLE COMPILER STANDARD OUTPUT OPTIONS...
by_pkg_config() {
  "$2" "-std=$3" "${warnings[@]}" "${@:5}" "examples/$1"/*.c* "${flags[@]}" -o "$4"
}
# The same for a plug-in, which goes to its place.
plugin_by_pkg_config() {
  local name=$4
  mkdir "$core/$name"
  cp "examples/$1/$name.properties.xml" "$core/$name"
  by_pkg_config "$1" "$2" "$3" "$core/$name/$name.pi.so" -shared -fPIC
}

check_files() {
  expect '^  Open files  *[1-9]' "$prefix/bin/vsk" collect --class Sample_FileTable
  rm -r "$core/files"
}
for compiler in gcc clang; do
  for standard in c99 c11; do
    # CMake needs no C++ here.
    CXX=false by_cmake plugin-c "$compiler" "$standard" -DCMAKE_DISABLE_FIND_PACKAGE_Boost=ON \
      --no-warn-unused-cli
    check_files
    plugin_by_pkg_config plugin-c "$compiler" "$standard" files
    check_files
  done
done

check_host() {
  expect '^  Available .* Bits$' "$prefix/bin/vsk" collect --class Sample_EntropyPool
  expect '^Sample_EntropyPool.InstanceID="entropy:0"$' "$1"
  expect '^ZNTSG_OperatingSystem.InstanceID="os:running"$' "$1"
  rm -r "$core/entropy"
}
for compiler in g++ clang++; do
  for standard in c++17 c++20; do
    by_cmake plugin-cpp "$compiler" "$standard"
    by_cmake host "$compiler" "$standard"
    check_host "$work/host-$compiler-$standard/host"
    plugin_by_pkg_config plugin-cpp "$compiler" "$standard" entropy
    by_pkg_config host "$compiler" "$standard" "$work/host" "-Wl,-rpath,$core"
    check_host "$work/host"
  done
done
