#!/usr/bin/env bash
# Makes a block of the furniture in an example drawing, and shows with a reader of another make that it is there.
# usage: scripts/demo.sh MORVANE
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
morvane=${1:?usage: scripts/demo.sh MORVANE}
readonly drawing=examples/drawings/room.dxf out=build/demo/room.dxf
mkdir -p "${out%/*}"

say() { printf '\n== %s\n' "$*"; }

# Names of the block definitions and what the references name, from the text of the file alone.
readAsText() {
  awk '
    { sub(/\r$/, "") }
    NR % 2 { code = $1 + 0; next }
    code == 0 { kind = $0 }
    code == 2 && kind == "BLOCK" && $0 !~ /^\*/ { print "definition: " $0; kind = "" }
    code == 2 && kind == "INSERT" { print "reference to: " $0; kind = "" }
  ' "$1"
}

readWithEzdxf() {
  /usr/bin/python3 - "$1" <<'PYTHON'
import sys, ezdxf
document = ezdxf.readfile(sys.argv[1])
for block in document.blocks:
    if not block.name.startswith("*"):
        print(f"definition: {block.name}, {len(block)} objects")
for insert in document.modelspace().query("INSERT"):
    values = ", ".join(f"{a.dxf.tag}={a.dxf.text}" for a in insert.attribs)
    print(f"reference to: {insert.dxf.name} at {insert.dxf.insert} {values}")
print(f"findings of its audit: {len(document.audit().errors)}")
PYTHON
}

say "$drawing holds"
"$morvane" -c LIST "$drawing" 2>/dev/null

say "morvane make: the furniture and the number become the block \"table\""
"$morvane" make "$drawing" --name table --base 2000,1600 --layer furniture --type ATTDEF \
  --description "A table with four chairs" --units mm -o "$out" --force

say "$out holds"
"$morvane" -c LIST "$out" 2>/dev/null

if /usr/bin/python3 -c 'import ezdxf' 2>/dev/null; then
  say "and so says ezdxf"
  readWithEzdxf "$out"
else
  say "and so says the text of the file"
  readAsText "$out"
fi | tee build/demo/seen.txt
grep -q '^reference to: table' build/demo/seen.txt
