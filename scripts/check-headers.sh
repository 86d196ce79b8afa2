#!/bin/bash
# Compiles each public header alone, as for a user who includes nothing else: with both compilers as
# C++17, and those that are pure C as strict C99 too.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../include"

flags=(-fsyntax-only -I. -Wall -Wextra -Wpedantic -Werror)
# All that clang can say, as some users want it: but for what is older than C++17, the gaps between
# fields, and small classes that stand whole in a header.
everything=(-Weverything -Wno-c++98-compat-pedantic -Wno-padded -Wno-weak-vtables)
failed=0

# alone HEADER COMPILER FLAGS...
alone() {
  local header=$1
  shift
  # The declaration is there because C forbids a unit without any.
  printf '#include <%s>\ntypedef int vskUnit;\n' "$header" | "$@" "${flags[@]}" - || {
    echo "does not compile alone: $header ($*)" >&2
    failed=1
  }
}

while read -r header; do
  alone "$header" g++ -std=c++17 -x c++
  alone "$header" clang++ -std=c++17 "${everything[@]}" -x c++
  case ${header##*/} in
    vskcore.h) ;; # gathers the C++ headers
    vsk*.h)
      alone "$header" gcc -std=c99 -pedantic-errors -x c
      alone "$header" clang -std=c99 -pedantic-errors "${everything[@]}" -x c
      ;;
  esac
done < <(find vskcore -name '*.h' | LC_ALL=C sort)
exit "$failed"
