#!/usr/bin/env bash
# Builds the benches in release form and runs them. VSK_DATA may name a folder with
# dmtf-schema.xml.gz and gen_instances.py; without it they run on synthetic documents.
# Options are passed to cmake.
set -euo pipefail
cd "$(dirname "$0")/.."

devices=10000  # makes about 50 MB of instances

scripts/install-deps.sh build test ci

cmake --preset release -B build/bench -DVSK_BENCH=ON -DVSK_TESTS=OFF "$@"
cmake --build build/bench

documents=()
if [[ -n ${VSK_DATA:-} ]]; then
  folder=$(mktemp -d)
  trap 'rm -rf "$folder"' EXIT
  gunzip -c "$VSK_DATA/dmtf-schema.xml.gz" > "$folder/schema.xml"
  python3 "$VSK_DATA/gen_instances.py" "$devices" > "$folder/instances.xml"
  documents=("$folder/schema.xml" "$folder/instances.xml")
  for count in 2500 5000 10000 20000; do
    python3 "$VSK_DATA/gen_instances.py" "$count" > "$folder/devices-$count.xml"
  done
  for count in 2400 4800 9600 19200; do  # 20,000 of these are over 100 MiB, and refused
    python3 "$VSK_DATA/gen_instances.py" "$count" --one-class > "$folder/one-class-$count.xml"
  done
else
  echo "VSK_DATA is not set: the benches run on synthetic documents."
fi

for bench in reader load memory; do
  "build/bench/bin/bench_$bench" "${documents[@]}"
done
for bench in instance_memory cold_start look_up property scale limits; do
  "build/bench/bin/bench_$bench"
done
if ((${#documents[@]} > 0)); then
  build/bench/bin/bench_scale "$folder/schema.xml" "$folder/devices"-{2500,5000,10000,20000}.xml
  build/bench/bin/bench_scale "$folder/schema.xml" "$folder/one-class"-{2400,4800,9600,19200}.xml
fi
