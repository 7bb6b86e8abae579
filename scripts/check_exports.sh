#!/usr/bin/env bash
# Compares the names that a shared library exports with the reviewed list.
# usage: scripts/check_exports.sh LIBRARY LIST     (LIST: one demangled name a line, sorted in the C locale)
# To accept a change: scripts/check_exports.sh LIBRARY LIST --write
set -euo pipefail
export LC_ALL=C
library=${1:?} list=${2:?}

# The version tag and the version nodes themselves (absolute symbols) are no names of ours.
exported() {
  nm -D --defined-only -C "$library" | sed -nE '/^[0-9a-f]* A /d; s/^[0-9a-f]* +[A-Za-z] //; s/@@?[A-Za-z0-9_.]+$//; p' |
    sort -u
}

if [[ ${3:-} == --write ]]; then
  exported >"$list"
  exit
fi
sort -c "$list" || {
  echo "check_exports: $list is not sorted in the C locale" >&2
  exit 1
}
diff -u --label "$list" --label "exported by $(basename "$library")" "$list" <(exported) || {
  echo "check_exports: the exported names differ from the list (- missing, + not listed)" >&2
  exit 1
}
