#!/bin/sh
# What a 0.1 ms step of the simulated drive and the commissioning of motors cost, in instructions, which a busy machine does not
# change: the motors of --drive sim at half their speed, and motor_table with two random motors.
# Usage: bench/compare_simulation.sh [BUILD [BUILD_BEFORE]]; needs valgrind.
set -eu
build=${1:-build}
before=${2:-}
seconds=4 # the motor turns from about the second one on

instructions() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null "$@" 2>&1 >/dev/null | sed -n 's/.*Collected : //p'
}
step() {
    short=$(instructions "$1/bin/simulate_seconds" "$2" 6)
    long=$(instructions "$1/bin/simulate_seconds" "$2" $((6 + seconds)))
    echo $(((long - short) / (seconds * 10000)))
}

printf '%-28s %14s %14s\n' "instructions" "$build" "$before"
for motor in S1 S2 S3 S5; do
    printf '%-28s %14s %14s\n' "a step of $motor" "$(step "$build" $motor)" "${before:+$(step "$before" $motor)}"
done
printf '%-28s %14s %14s\n' "motor_table 2, in millions" "$(($(instructions "$build/bin/motor_table" 2) / 1000000))" \
    "${before:+$(($(instructions "$before/bin/motor_table" 2) / 1000000))}"
