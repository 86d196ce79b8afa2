#!/bin/bash
# Holds what a built library exports against the list in cmake/exports.txt.
#   scripts/check-exports.sh build/release/lib/vskcore/libvskcore.so [--update]
# The list is what hosts and plug-ins link to, each symbol with its version: a line that goes away
# breaks them.
set -euo pipefail
library=$1
list=$(dirname "${BASH_SOURCE[0]}")/../cmake/exports.txt

exported() {
  nm --dynamic --defined-only --demangle --format=posix "$library" |
    sed -E 's/ [A-Za-z] [0-9a-f]+( [0-9a-f]*)?$//; s/ [A-Za-z]$//' | LC_ALL=C sort -u
}

if [[ ${2-} == --update ]]; then
  exported >"$list"
else
  diff -u "$list" <(exported) || {
    echo "The exported symbols are not those of cmake/exports.txt (-: missing, +: new)." >&2
    exit 1
  }
fi
