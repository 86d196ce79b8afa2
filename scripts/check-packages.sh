#!/bin/bash
# Makes the Debian packages of a build, holds the files and the dependencies of each against what is
# meant, unpacks all into one folder, and collects from there.
#   scripts/check-packages.sh build/release
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
build=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
root=$work/root

fail() { echo "$*" >&2; exit 1; }

cpack --config "$build/CPackConfig.cmake" -B "$work" >"$work/log" 2>&1 || { cat "$work/log" >&2; exit 1; }
package() { echo "$work/$1"_*.deb; }
field() { dpkg-deb -f "$(package "$1")" "$2"; }
version=$(field vskcore Version)

# The files that the package of that name is to hold, below /usr.
files_of() {
  local collector
  case $1 in
    vskcore)
      printf '%s\n' bin/vsk lib/vskcore/data/core.properties.xml \
        "lib/vskcore/libvskcore.so.${version%.*}" "lib/vskcore/libvskcore.so.$version" \
        share/doc/vskcore/{CHANGELOG,README}.md share/man/man1/vsk.1
      ;;
    vskcore-dev)
      printf '%s\n' lib/vskcore/libvskcore.so lib/pkgconfig/vskcore.pc \
        lib/cmake/vskcore/vskcore{Config,ConfigVersion,-targets,-targets-release}.cmake
      git ls-files 'include/*.h'
      git ls-files 'docs/*.md' 'examples/*' | sed 's|^|share/doc/vskcore/|'
      ;;
    vsk-collectors)
      for collector in $(git ls-files 'collectors/*/*.properties.xml'); do
        collector=$(basename "$collector" .properties.xml)
        printf "lib/vskcore/$collector/$collector.%s\n" pi.so properties.xml
      done
      ;;
  esac
}

# depends PACKAGE ON...
depends() {
  local on
  for on in "${@:2}"; do
    [[ $(field "$1" Depends), == *"$on"[,\ ]* ]] || fail "$1 depends on $(field "$1" Depends): no $on"
  done
}

for name in vskcore vskcore-dev vsk-collectors; do
  dpkg-deb --fsys-tarfile "$(package "$name")" | tar -t | grep -v '/$' | sed 's|^\./usr/||' |
    diff -u <(files_of "$name" | LC_ALL=C sort) <(LC_ALL=C sort) >&2 ||
    fail "$name does not hold the files that it should (-: missing, +: too many)"
  dpkg-deb -x "$(package "$name")" "$root"
done
depends vskcore libc6 libstdc++6 zlib1g
depends vskcore-dev "vskcore (= $version)" libboost-dev
depends vsk-collectors "vskcore (= $version)" libstdc++6
[[ -e $root/usr/lib/vskcore/libvskcore.so ]] || fail "libvskcore.so leads nowhere"

"$root/usr/bin/vsk" collect >"$work/report"
for class in ZNTSG_ComputerSystem ZNTSG_Processor ZNTSG_OperatingSystem; do
  grep -q "^$class " "$work/report" || { cat "$work/report" >&2; fail "no $class in that"; }
done
