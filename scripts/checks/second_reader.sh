#!/usr/bin/env bash
# What `morvane make` and `morvane convert` write of real drawings, checked by a reader that is not ours.
# Usage: second_reader.sh BUILD_DIR; BLOCKCOMMON_CORPUS names the folder of the drawings.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
build=${1:?usage: second_reader.sh BUILD_DIR}

if [[ -z ${BLOCKCOMMON_CORPUS:-} ]]; then
  echo "second reader: BLOCKCOMMON_CORPUS is not set, nothing is checked"
  exit 0
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# The system's interpreter: the reader is a package of the system.
/usr/bin/python3 "$here/second_reader.py" "$build/console/morvane" "$BLOCKCOMMON_CORPUS" "$work"
