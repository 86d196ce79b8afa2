#!/usr/bin/env bash
# Builds the benches in release form and runs them. VSK_DATA may name a folder with
# dmtf-schema.xml.gz and gen_instances.py; without it they run on synthetic documents.
# Options are passed to cmake.
set -euo pipefail
cd "$(dirname "$0")/.."

devices=10000  # makes about 50 MB of instances

scripts/install-deps.sh build test ci

cmake --preset release -B build/bench -DVSK_BENCH=ON -DVSK_TESTS=OFF "$@"
cmake --build build/bench --target bench_reader bench_load bench_memory bench_property bench_scale

documents=()
if [[ -n ${VSK_DATA:-} ]]; then
  folder=$(mktemp -d)
  trap 'rm -rf "$folder"' EXIT
  gunzip -c "$VSK_DATA/dmtf-schema.xml.gz" > "$folder/schema.xml"
  python3 "$VSK_DATA/gen_instances.py" "$devices" > "$folder/instances.xml"
  documents=("$folder/schema.xml" "$folder/instances.xml")
  for count in 2500 5000 10000 20000; do
    python3 "$VSK_DATA/gen_instances.py" "$count" > "$folder/devices-$count.xml"
    python3 "$VSK_DATA/gen_instances.py" "$count" --one-class > "$folder/one-class-$count.xml"
  done
else
  echo "VSK_DATA is not set: the benches run on synthetic documents."
fi

for bench in reader load memory; do
  "build/bench/bin/bench_$bench" "${documents[@]}"
done
build/bench/bin/bench_property
build/bench/bin/bench_scale
if ((${#documents[@]} > 0)); then
  for form in devices one-class; do
    build/bench/bin/bench_scale "$folder/schema.xml" "$folder/$form"-{2500,5000,10000,20000}.xml
  done
fi
