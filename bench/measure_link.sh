#!/bin/sh
# The wizard on krt550sim over a wire that takes its time, 19200 baud and TCP with 1, 5, 20 and 50 ms there and back, or what is
# given: requests and time of each page's activation and update pass, the longest time that a click waits, and from the click on
# Cancel to the stop on the wire; each beside plain single reads. Takes about ten minutes in real time.
# Usage: bench/measure_link.sh [BUILD [rtu|MS...]]
set -eu
build="${1:-build}"
[ $# -eq 0 ] || shift
QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}" exec "$build/bin/bench_link" "$@"
