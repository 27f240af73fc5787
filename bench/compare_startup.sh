#!/bin/sh
# Time from process start to the painted start page, and resident memory then, beside those of an empty Qt dialog, of one
# with a single word in it (fonts are loaded for the first text) and of that one in a window as large as the wizard's (the
# memory of its picture comes page by page): 40 runs of each, taken in turn, so that what else the machine does meets
# all of them alike; ratios are medians of the pairs. Then the instructions of each.
# Usage: bench/compare_startup.sh [BUILD]
set -eu
build="${1:-build}"
export QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"
XDG_DATA_HOME=$(mktemp -d) # the program records its sessions
export XDG_DATA_HOME
trap 'rm -r "$XDG_DATA_HOME"' EXIT

run() { # name:program[:argument...], and what runs it
    what=$1
    shift
    IFS=:
    # shellcheck disable=SC2086 # its words are the arguments
    set -- "$@" $build/bin/${what#*:}
    unset IFS
    START=$(date +%s%N) "$@" 2>/dev/null | tail -n 1 | sed "s/^/${what%%:*} /"
}
wizard=krt550tool:startup_krt550tool:--wizard
size=$(run $wizard env | cut -d ' ' -f 4- | tr ' ' :)
programs="empty-dialog:startup_empty_dialog one-word-dialog:startup_empty_dialog:Start"
programs="$programs one-word-window:startup_empty_dialog:Start:$size $wizard"

for _ in $(seq 40); do
    for what in $programs; do
        run "$what" env
    done
done | awk '
    function median(list,    n, i, j, t, values) {
        n = split(list, values)
        for (i = 2; i <= n; ++i)
            for (j = i; j > 1 && values[j - 1] + 0 > values[j] + 0; --j) { t = values[j]; values[j] = values[j - 1]; values[j - 1] = t }
        return values[int((n + 1) / 2)]
    }
    { time[$1] = time[$1] " " $2; memory[$1] = $3; last[$1] = $2 }
    $1 == "krt550tool" { for (p in last) ratio[p] = ratio[p] " " $2 / last[p] }
    END {
        for (p in time) printf "%-16s %7.1f ms %7.1f MB\n", p, median(time[p]) / 1000, memory[p] / 1024
        for (p in time)
            if (p != "krt550tool")
                printf "krt550tool / %-16s time %.2f, memory %.2f\n", p, median(ratio[p]), memory["krt550tool"] / memory[p]
    }'

command -v valgrind >/dev/null || exit 0
counts=$(mktemp)
for what in $programs; do
    run "$what" valgrind --tool=callgrind --callgrind-out-file="$counts" >/dev/null
    awk -v name="${what%%:*}" '/^(summary|totals):/ { printf "%-16s %7.1f M instructions\n", name, $2 / 1e6; exit }' "$counts"
done
rm -f "$counts"
