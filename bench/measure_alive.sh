#!/bin/sh
# How soon the wizard answers while drive calls take 0, 5, 20 and 100 ms, or as long as is given: from the click on Cancel to
# 9906 := 0 and to StopMotor in every procedure that turns a motor, and the longest time that input waits during updates.
# Takes about eight minutes in real time, on a machine with nothing else to do.
# Usage: bench/measure_alive.sh [BUILD [MS...]]
set -eu
build="${1:-build}"
[ $# -eq 0 ] || shift
QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}" exec "$build/bin/bench_alive" "$@"
