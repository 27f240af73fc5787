#!/bin/sh
# CPU seconds of a clean build without ccache, and of what is built again when wizard/platform/window.h has changed. The
# wall clock of two cores is about half of it on a machine that does nothing else.
# Usage: bench/time_build.sh SOURCE...; several source trees give the table of before and after.
set -eu
export CCACHE_DISABLE=1
seconds() { # of what is run, user and system together
    ("$@" >/dev/null 2>&1 && times) | tail -n 1 | awk -F '[ms ]+' '{ printf "%.0f", $1 * 60 + $2 + $3 * 60 + $4 }'
}

printf '%-40s %12s %12s\n' "CPU seconds" "clean" "window.h"
for source in "$@"; do
    build=$(mktemp -d)
    cmake -S "$source" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
    clean=$(seconds nice cmake --build "$build" -j2)
    printf '%-40s %12s ' "$source" "$clean"
    touch "$source/wizard/platform/window.h"
    printf '%12s\n' "$(seconds nice cmake --build "$build" -j2)"
    rm -rf "$build"
done
