#!/bin/sh
# Cuts the wire at every tenth frame of every run that turns a motor, and puts each run on a bad line with many seeds. The few of
# these that ctest does are test_link_chaos. Takes about half an hour.
# Usage: bench/link_cuts.sh [BUILD [STRIDE [SEEDS]]]
set -eu
build="${1:-build}"
export KRT550_LINK_STRIDE="${2:-10}" KRT550_LINK_SEEDS="${3:-20}" QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"
exec "$build/bin/test_link_chaos"
