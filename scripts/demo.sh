#!/usr/bin/env bash
# Makes a block of everything in the example drawing and lists what the saved drawing holds.
# usage: scripts/demo.sh MORVANE
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
morvane=${1:?usage: scripts/demo.sh MORVANE}
out=build/demo
mkdir -p "$out"

drawings=(examples/drawings/*.dxf)
[[ -f ${drawings[0]} ]] || {
  echo "demo: no drawing in examples/drawings" >&2
  exit 3
}
for drawing in "${drawings[@]}"; do
  made=$out/$(basename "$drawing")
  printf '== morvane make %s -> %s\n' "$drawing" "$made"
  "$morvane" make "$drawing" --name demo --base 0,0 --all --output "$made" --force
  "$morvane" -c "LIST" "$made"
done
