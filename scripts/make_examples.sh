#!/usr/bin/env bash
# Draws the example drawings anew from their scripts.
# usage: scripts/make_examples.sh MORVANE
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
morvane=${1:?usage: scripts/make_examples.sh MORVANE}

for script in examples/drawings/*.scr; do
  drawing=${script%.scr}.dxf
  rm -f "$drawing"
  printf '== %s -> %s\n' "$script" "$drawing"
  { cat "$script"; printf 'SAVEAS %s 2018\n' "$drawing"; } | "$morvane" 2>/dev/null
done
