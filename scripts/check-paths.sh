#!/bin/bash
# No file of the project names a folder of somebody's machine.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

folders='work|home/[A-Za-z0-9_-]+|root|tmp|var/tmp'
if git grep -nIE "(^|[^A-Za-z0-9_.\$}*-])/($folders)/[A-Za-z]" -- . ':!scripts/check-paths.sh'; then
  echo "A path of a machine stands in the files above." >&2
  exit 1
fi
