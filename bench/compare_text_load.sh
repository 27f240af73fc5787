#!/bin/sh
# compare_text_load.sh [BUILD_FOLDER [MEGABYTES]]: loads a generated wizard text file and splits the same file with mawk,
# in turns; prints the best time of each and their ratio.
set -eu
build=${1:-build}
megabytes=${2:-100}
directory=$(mktemp -d)
trap 'rm -rf "$directory"' EXIT

"$build/bin/generate_texts" "$directory" "$megabytes"
file=$directory/Wzkrt550.txt
for round in 1 2 3 4 5 6 7; do
    "$build/bin/time_text_load" "$directory" | sed 's/^/load /'
    start=$(date +%s%N)
    mawk -F'\t' '{ fields += NF } END { print fields > "/dev/null" }' "$file"
    echo "mawk $(($(date +%s%N) - start))"
done | mawk -v size="$(wc -c <"$file")" '
    !best[$1] || $2 < best[$1] { best[$1] = $2 }
    END {
        for (what in best)
            printf "%s: %.1f ms, %.0f MB/s\n", what, best[what] / 1e6, size * 1e3 / best[what]
        printf "load / mawk: %.2f\n", best["load"] / best["mawk"]
    }'
