#!/usr/bin/env bash
# A minute of hostile drawings: mutations of the project's own examples, under the sanitizers.
# Usage: fuzz.sh BUILD_DIR; FUZZ_SECONDS sets another time. The fuzz build lies beside BUILD_DIR.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cmake --preset fuzz >"$work/configure.log" || { cat "$work/configure.log"; exit 1; }
cmake --build --preset fuzz --target dxf_reader_fuzz
mkdir "$work/seeds"
cp examples/drawings/*.dxf "$work/seeds"
export LSAN_OPTIONS="suppressions=$PWD/tests/leaks.supp:print_suppressions=0"
build/fuzz/fuzz/dxf_reader_fuzz -max_total_time="${FUZZ_SECONDS:-60}" -timeout=20 -rss_limit_mb=4096 -verbosity=0 \
  -print_final_stats=1 -artifact_prefix="$PWD/build/fuzz/" "$work/seeds"
