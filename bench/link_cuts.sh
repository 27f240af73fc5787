#!/bin/sh
# Cuts the wire at every tenth frame of every procedure, and puts each on bad lines with many seeds; six at once, because they wait
# most of the time. What ctest does of it is test_link_chaos. Prints each case's result; takes about half an hour.
# Usage: bench/link_cuts.sh [BUILD [STRIDE [SEEDS]]]     Exit status: not 0 when one failed.
set -eu
export KRT550_LINK_STRIDE="${2:-10}" KRT550_LINK_SEEDS="${3:-20}" QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"
export chaos="${1:-build}/bin/test_link_chaos"
"$chaos" --gtest_list_tests 2>/dev/null | awk '/^[A-Z].*\.$/ { suite = $1 } /^ / { print suite $1 }' |
    xargs -P 6 -I '{}' sh -c '
        said=$("$chaos" "--gtest_filter={}" 2>/dev/null) && result=passed || result=FAILED
        echo "$said" | grep -A 20 Failure
        echo "{} $result: $(echo "$said" | grep -E "^ +[0-9]+ (cuts|of)")"
        [ $result = passed ]'
