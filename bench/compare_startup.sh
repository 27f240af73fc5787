#!/bin/sh
# Time from process start to the painted start page, and resident memory then, beside those of an empty Qt dialog; medians
# of 21 runs each, taken in turn. Usage: bench/compare_startup.sh [BUILD]
set -eu
build="${1:-build}"
export QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"

for run in $(seq 21); do
    for program in startup_empty_dialog startup_krt550tool; do
        echo "$program $(START=$(date +%s%N) "$build/bin/$program" 2>/dev/null | tail -n 1)"
    done
done | sort -k1,1 -k2,2n | awk '
    { time[$1] = time[$1] " " $2; memory[$1] = $3 }
    END {
        for (p in time) { n = split(time[p], t, " "); median[p] = t[int((n + 1) / 2)] }
        for (p in median) printf "%-22s %7.1f ms %7.1f MB\n", p, median[p] / 1000, memory[p] / 1024
        a = "startup_krt550tool"; b = "startup_empty_dialog"
        printf "ratio: time %.2f, memory %.2f\n", median[a] / median[b], memory[a] / memory[b]
    }'
