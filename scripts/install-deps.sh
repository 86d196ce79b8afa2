#!/bin/bash
# Makes sure that the Debian packages of the given sets are there: build, test, ci, fuzz, 32bit, coverage.
# Quiet when they are; installs what is missing as root or by sudo, else says what to install.
set -euo pipefail

declare -A sets=(
  [build]="cmake ninja-build g++ libboost-dev zlib1g-dev libcurl4-openssl-dev libcli11-dev nlohmann-json3-dev"
  [test]="libgtest-dev python3 python3-pyftpdlib"
  [ci]="git clang clang-format clang-tidy cppcheck doxygen dpkg-dev pkg-config libbenchmark-dev libexpat1-dev libxml2-dev libpugixml-dev"
  [32bit]="g++-multilib lib32z1-dev libgtest-dev"
  [fuzz]="clang libclang-rt-dev"
  [coverage]="gcovr"
)

wanted=()
for name in "$@"; do
  read -ra packages <<<"${sets[$name]:?no such set of packages}"
  wanted+=("${packages[@]}")
done

if ! command -v dpkg-query >/dev/null; then
  echo "This is no Debian system; what these packages hold is needed: ${wanted[*]}" >&2
  exit 0
fi

missing=()
for package in "${wanted[@]}"; do
  state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
  [[ $state == installed ]] || missing+=("$package")
done
((${#missing[@]})) || exit 0

if ((EUID == 0)); then
  as_root=(env)
elif command -v sudo >/dev/null; then
  as_root=(sudo env)
else
  echo "Some packages are missing. As root: apt-get install ${missing[*]}" >&2
  exit 1
fi

echo "Installing ${missing[*]} ..." >&2
output=$(mktemp)
trap 'rm -f "$output"' EXIT
apt=("${as_root[@]}" DEBIAN_FRONTEND=noninteractive apt-get -q -y)
# One unreachable source among several is no reason to stop; the installation decides.
"${apt[@]}" update >"$output" 2>&1 </dev/null || tail -n 5 "$output" >&2
if ! "${apt[@]}" install --no-install-recommends "${missing[@]}" >"$output" 2>&1 </dev/null; then
  cat "$output" >&2
  exit 1
fi
