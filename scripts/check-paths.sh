#!/bin/bash
# No file of the project names a folder of somebody's machine.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# The pattern is put together, or this file would find itself.
folders='work|home/[a-z]|root|tmp|Users|build'
if git grep -nIE "(^|[^A-Za-z0-9_.\$}*-])/($folders)/[A-Za-z]" -- . ':!scripts/check-paths.sh'; then
  echo "A path of a machine stands in the files above." >&2
  exit 1
fi
