#!/usr/bin/env bash
# Makes the reference of the public headers; a public declaration without a comment is an error.
# Usage: api_reference.sh BUILD_DIR; the pages are in BUILD_DIR/api/html.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
build=${1:?usage: api_reference.sh BUILD_DIR}

if ! command -v doxygen >/dev/null; then
  echo "api reference: doxygen is missing; install the package doxygen" >&2
  exit 1
fi
mkdir -p "$build/api"
# Doxygen repeats a finding for each class that inherits the member.
if ! (cat docs/api/Doxyfile && echo "OUTPUT_DIRECTORY = \"$build/api\"") | doxygen - >"$build/api/log" 2>&1; then
  sort -u "$build/api/log" >&2
  echo "api reference: FAILED with $(sort -u "$build/api/log" | grep -c 'error:') findings" >&2
  exit 1
fi
echo "api reference: every public declaration is documented, see $build/api/html/index.html"
