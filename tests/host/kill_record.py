#!/usr/bin/env python3
"""Kills a recorded play at random moments and compares each record with what has reached the drive.

    kill_record.py TOOL PLAY COUNT SEED [DIRECTORY]

Every record has to open, to pass SQLite's integrity check, and to hold every write and command that the drive was sent,
in order. Stops are sent first and recorded then, so that the last of them may be missing. What the drive was sent is
told by the program's log, whose lines are written one by one. DIRECTORY is where the records are made; without one a
file system in memory is taken, where there is one: what is tried here is the death of a process, not that of a disk.
"""

import os
import random
import sqlite3
import subprocess
import sys
import tempfile
import time

COMMANDS = {"SetReference", "StartMotor", "ResetFault", "CloseContactor", "TakeLocalControl", "WriteWord"}
STOPS = {"StopMotor", "OpenContactor", "ReleaseLocalControl"}


def is_stop(entry):
    return entry[0] in STOPS or entry == ("WriteWord", "9906", "0") or entry == ("SetReference", "", "0")


def sent(log):
    """Writes and commands of a log, in order; a line that was cut off does not count."""
    if not os.path.exists(log):
        return []
    with open(log, encoding="utf-8") as file:
        lines = [line.rstrip("\n").split("\t") for line in file if line.endswith("\n")]
    return [(f[1], f[2], f[3]) for f in lines if len(f) == 5 and f[1] in COMMANDS | STOPS]


def recorded(record):
    """The same of a record, whether the disk was late for it, and what is wrong with the file."""
    if not os.path.exists(record):
        return [], False, None
    database = sqlite3.connect(f"file:{record}?mode=ro", uri=True)
    check = database.execute("PRAGMA integrity_check").fetchone()[0]
    if check != "ok":
        return [], False, check
    if not database.execute("SELECT COUNT(*) FROM sqlite_master WHERE name = 'event'").fetchone()[0]:
        return [], False, None
    entries, late = [], False
    for kind, reg, word, text, detail in database.execute(
            "SELECT kind, register, new_word, text, detail FROM event ORDER BY session, n"):
        late = late or kind == "late"
        if kind == "write":
            entries.append(("WriteWord", str(reg), str(word)))
        elif kind == "command":
            entries.append((text, "", detail or ""))
    return entries, late, None


def missing(reached, written):
    """The first thing that reached the drive and is not in the record; None when all is there."""
    lively = [entry for entry in reached if not is_stop(entry)]
    noted = [entry for entry in written if not is_stop(entry)]
    for place, entry in enumerate(lively):
        if place >= len(noted) or noted[place] != entry:
            return entry
    # Every stop that something lively followed has to be there, too.
    last = max((place for place, entry in enumerate(reached) if not is_stop(entry)), default=-1)
    stops = [entry for entry in reached[: last + 1] if is_stop(entry)]
    noted = [entry for entry in written if is_stop(entry)]
    return None if noted[: len(stops)] == stops else ("a stop", stops, noted)


def play(tool, script, directory, seconds):
    """Plays until it is killed after so many seconds, or to the end; returns log, record and how long it took."""
    log, record = os.path.join(directory, "log"), os.path.join(directory, "a.record")
    for path in (log, record, record + "-wal", record + "-shm"):
        if os.path.exists(path):
            os.remove(path)
    begin = time.monotonic()
    process = subprocess.Popen([tool, "--play", script, "--shots", directory, "--log", log, "--record", record],
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                               env={**os.environ, "QT_QPA_PLATFORM": "offscreen"})
    try:
        process.wait(timeout=seconds)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()
    return log, record, time.monotonic() - begin


def main():
    tool, script, count, seed = sys.argv[1], sys.argv[2], int(sys.argv[3]), int(sys.argv[4])
    memory = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    place = sys.argv[5] if len(sys.argv) > 5 else memory
    moments = random.Random(seed)
    faults, lates, stops, longest = 0, 0, 0, 0
    with tempfile.TemporaryDirectory(dir=place) as directory:
        log, record, duration = play(tool, script, directory, 300)
        whole = len(sent(log))
        if whole == 0 or recorded(record)[0] == []:
            sys.exit("the play itself records nothing")
        for number in range(count):
            seconds = moments.uniform(0, duration)
            log, record, _ = play(tool, script, directory, seconds)
            reached = sent(log)
            written, late, broken = recorded(record)
            lost = broken or (missing(reached, written) if not late else None)
            lates += late
            stops += max(0, sum(map(is_stop, reached)) - sum(map(is_stop, written)))
            longest = max(longest, len(reached))
            if lost:
                faults += 1
                print(f"kill {number} after {seconds:.3f} s (seed {seed}): missing: {lost}")
    print(f"{count} kills within {duration:.1f} s, up to {longest} of {whole} calls sent: {faults} records with a fault, "
          f"{stops} last stops not recorded, {lates} records that say the disk was late")
    sys.exit(1 if faults or lates > count // 2 else 0)


main()
