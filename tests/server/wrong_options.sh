#!/bin/sh
# wrong_options.sh KRT550SIM: what it says to what it cannot do, in one line, with status 2.
program="$1"
failed=0

refuses() {
    wanted="$1"
    shift
    said=$("$program" "$@" 2>&1 >/dev/null)
    status=$?
    lines=$(printf '%s\n' "$said" | wc -l)
    case "$status $lines $said" in
    "2 1 krt550sim: "*"$wanted"*) ;;
    *) echo "krt550sim $*: status $status, $lines lines: $said"; failed=1 ;;
    esac
}

refuses "Give either --tcp"
refuses "Give either --tcp" --tcp 1502 --rtu /dev/null
refuses "\"70000\" is not [ADDRESS:]PORT" --tcp 70000
refuses "\"drive:1502\" is not" --tcp drive:1502
refuses "\"::1:1502\" is not" --tcp ::1:1502
refuses "192.0.2.1 port 1502: " --tcp 192.0.2.1:1502
refuses "/none/tty: No such file" --rtu /none/tty
refuses "/dev/null: " --rtu /dev/null
refuses "\"17\" is no baud rate" --rtu /dev/null,17
refuses "\"7E1\" is no character format" --rtu /dev/null,9600,7E1
refuses "--unit \"248\" is not a number from 1 to 247" --tcp 0 --unit 248
refuses "option --tcp needs a value" --tcp=
refuses "motor \"S9\"" --motor S9 --tcp 0
refuses "option R: \"9000\"" --motor S2 R=9000 --tcp 0
refuses "\"moon\"" fault=moon --tcp 0
refuses "\"S2\" is neither" S2 --tcp 0
refuses "'tram'" --tram
refuses "/none: " --parameters /none --tcp 0
exit $failed
