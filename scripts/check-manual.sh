#!/bin/bash
# The manual page has the commands and options that the program's help has, and no others.
#   scripts/check-manual.sh build/release/bin/vsk
set -euo pipefail
vsk=$1
page=$(dirname "${BASH_SOURCE[0]}")/../docs/vsk.1

commands() { "$vsk" --help | sed -n '/^Subcommands:/,$ s/^  \([a-z]*\) .*/vsk \1/p'; }
all_help() {
  "$vsk" --help
  commands | while read -r _ command; do "$vsk" "$command" --help; done
}
words() { grep -oE -- '--[a-z-]+|vsk [a-z]+' | LC_ALL=C sort -u; }

diff -u <({ commands; all_help | grep -v '^Usage'; } | words) \
  <(sed -n '/^\.SH SYNOPSIS/,/^\.SH EXIT/ { s/\\-/-/g; s/^\.B vsk$//; p }' "$page" |
    words) || {
  echo "docs/vsk.1 and --help don't agree (-: not in the page, +: only there)." >&2
  exit 1
}
