#!/usr/bin/env bash
# How the cost of the main jobs grows: instructions counted by callgrind at several sizes, and the slope between the
# smallest and the largest on a log-log scale. Fails above 1.05.
# usage: bench/slopes.sh BUILD_DIR [SIZE...]     (sizes ascending; default 10000 100000 1000000)
# JOBS names other jobs; JOBS=ids takes all those over arrays of ids.
set -euo pipefail
build=${1:?usage: bench/slopes.sh BUILD_DIR [SIZE...]}
shift
sizes=("$@")
((${#sizes[@]})) || sizes=(10000 100000 1000000)
jobs=${JOBS:-read make}
[[ $jobs == ids ]] && jobs=$("$build/bench/one_job" --jobs | grep '^ids-')

instructions() { # job size
  valgrind --tool=callgrind --instr-atstart=no --callgrind-out-file=/dev/null "$build/bench/one_job" "$@" 1 2>&1 >/dev/null |
    awk '/Collected/ { print $NF }'
}

bad=0
for job in $jobs; do
  counts=()
  for size in "${sizes[@]}"; do
    counts+=("$(instructions "$job" "$size")")
    ((counts[-1])) || { echo "slopes: nothing was counted; was one_job built without valgrind?" >&2 && exit 2; }
    printf '%-13s %8d entities %15d instructions %8d each\n' "$job" "$size" "${counts[-1]}" $((counts[-1] / size))
  done
  slope=$(awk -v a="${counts[0]}" -v b="${counts[-1]}" -v n="${sizes[0]}" -v m="${sizes[-1]}" \
    'BEGIN { printf "%.3f", (log(b) - log(a)) / (log(m) - log(n)) }')
  printf '%-13s slope %s\n' "$job" "$slope"
  awk -v s="$slope" 'BEGIN { exit !(s > 1.05) }' && bad=1
done
exit $bad
