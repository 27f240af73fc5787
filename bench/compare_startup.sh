#!/bin/sh
# Time from process start to the painted start page, and resident memory then, beside those of an empty Qt dialog and of one
# with a single word in it (fonts are loaded for the first text); medians of 21 runs each, taken in turn.
# Usage: bench/compare_startup.sh [BUILD]
set -eu
build="${1:-build}"
export QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"
XDG_DATA_HOME=$(mktemp -d) # the program records its sessions
export XDG_DATA_HOME
trap 'rm -r "$XDG_DATA_HOME"' EXIT

measure() {
    echo "$1 $(START=$(date +%s%N) "$build/bin/$2" ${3:-} 2>/dev/null | tail -n 1)"
}

for run in $(seq 21); do
    measure empty-dialog startup_empty_dialog
    measure one-word-dialog startup_empty_dialog Start
    measure krt550tool startup_krt550tool
done | sort -k1,1 -k2,2n | awk '
    { time[$1] = time[$1] " " $2; memory[$1] = $3 }
    END {
        for (p in time) { n = split(time[p], t, " "); median[p] = t[int((n + 1) / 2)] }
        for (p in median) printf "%-16s %7.1f ms %7.1f MB\n", p, median[p] / 1000, memory[p] / 1024
        for (p in median)
            if (p != "krt550tool")
                printf "krt550tool / %-16s time %.2f, memory %.2f\n", p,
                       median["krt550tool"] / median[p], memory["krt550tool"] / memory[p]
    }'
