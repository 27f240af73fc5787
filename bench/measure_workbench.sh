#!/bin/sh
# The workbench with the simulated drive connected, beside the wizard alone: time from process start to the first painted
# window (median of 15 runs in turn), and resident memory and processor time while nobody does anything, over half a minute
# that begins 10 s after the start. Takes two minutes.
# Usage: bench/measure_workbench.sh [BUILD]
set -eu
build="${1:-build}"
export QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"
XDG_DATA_HOME=$(mktemp -d) # records, and where the docks were
export XDG_DATA_HOME XDG_CONFIG_HOME="$XDG_DATA_HOME"
pid=""
trap '[ -z "$pid" ] || kill "$pid" 2>/dev/null; rm -r "$XDG_DATA_HOME"' EXIT

for _ in $(seq 15); do
    for what in --wizard --drive=sim; do
        echo "$what $(START=$(date +%s%N) "$build/bin/startup_krt550tool" "$what" 2>/dev/null | tail -n 1)"
    done
done | sort -k 1,1 -k 2,2n | awk '
    { time[$1, ++count[$1]] = $2 }
    END { for (what in count) printf "%-12s first paint %6.1f ms\n", what, time[what, int((count[what] + 1) / 2)] / 1000 }'

ticks() { awk '{ print $14 + $15 }' "/proc/$pid/stat"; }

for what in --wizard --drive=sim; do
    "$build/bin/krt550tool" "$what" >/dev/null 2>&1 &
    pid=$!
    sleep 10
    before=$(ticks)
    sleep 30
    after=$(ticks)
    resident=$(awk '/^VmRSS/ { print $2 / 1024 }' "/proc/$pid/status")
    echo "$what $before $after $(getconf CLK_TCK) $resident" |
        awk '{ printf "%-12s idle %5.2f %% of a core, %6.1f MB resident\n", $1, ($3 - $2) / $4 / 30 * 100, $5 }'
    kill "$pid"
    wait "$pid" || true
    pid=""
done
