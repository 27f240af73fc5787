#!/usr/bin/env python3
"""Plays a script against krt550sim over a wire, and compares what it shows with the same play in one process.

Usage: play_over_wire.py tcp|rtu PLAY [SPEED [BIN]]

`compare` lines, which look into the motor, become `show`: numbers over the wire must come within 3 % of those in one
process (what is measured while time passes for real is never the same twice), other values must be the same.

The drive that has been played on lives on: it is backed up before, and restored afterwards, which must leave every
writable parameter as it was found.
"""
import json
import os
import re
import subprocess
import sys
import tempfile
import time

NEAR = 0.03


def shown(output):
    return re.findall(r"^  (\d+\.\d+ .*?): (\S+)(.*)$", output, re.M)


def play(tool, drive, script, folder, *more):
    run = subprocess.run([tool, "--drive", drive, "--play", script, "--shots", folder, *more], text=True,
                         stdout=subprocess.PIPE, stderr=subprocess.STDOUT, env={**os.environ, "QT_QPA_PLATFORM": "offscreen"})
    if run.returncode != 0:
        sys.exit(f"{drive}: exit status {run.returncode}\n{run.stdout[-2000:]}")
    return shown(run.stdout)


def run(tool, drive, status, *arguments):
    done = subprocess.run([tool, *arguments, "--drive", drive], text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if done.returncode != status:
        sys.exit(f"{arguments}: exit status {done.returncode} instead of {status}\n{done.stdout[-2000:]}")
    return done.stdout


def settings(tool, drive):
    return {value["register"]: value["value"]
            for value in json.loads(run(tool, drive, 0, "list", "--json")) if value["access"] == "rw"}


class Backup:
    """The drive as it is found."""

    def __init__(self, tool, drive, folder):
        self.tool, self.drive, self.file = tool, drive, os.path.join(folder, "as-found")
        self.found = settings(tool, drive)
        run(tool, drive, 0, "backup", self.file)
        run(tool, drive, 0, "compare", self.file)

    def restore(self):
        run(self.tool, self.drive, 0, "set", "43.16=Bridge 1 only", "12.05=-12", "43.06=1.234")
        got = run(self.tool, self.drive, 0, "get", "12.05", "4306")
        if got != "12.05 Constant speed 2: -12 rpm\n43.06 Motor 1 P-gain armature current: 1.234\n":
            sys.exit(got)
        changes = run(self.tool, self.drive, 1, "compare", self.file)
        if "12.05 Constant speed 2: 875 rpm -> -12 rpm\n" not in changes or changes.count(" -> ") < 15:
            sys.exit(f"the demonstration has changed no more than this:\n{changes}")
        record = self.file + ".record"
        run(self.tool, self.drive, 0, "restore", self.file, "--yes", "--record", record)
        written = subprocess.run([self.tool, "record", "--json", record], text=True, stdout=subprocess.PIPE).stdout
        session, = json.loads(written)
        if session["writes"] != changes.count(" -> ") or not session["ended"] or session["gaps"]:
            sys.exit(f"{changes.count(' -> ')} values were put back, the record has: {session}")
        run(self.tool, self.drive, 0, "compare", self.file)
        left = settings(self.tool, self.drive)
        if left != self.found:
            sys.exit(f"not as found: {set(left.items()) ^ set(self.found.items())}")
        print(f"{changes.count(' -> ')} of {len(left)} writable parameters were changed, all are as they were found")


def is_near(one, other):
    try:
        return abs(float(one) - float(other)) <= NEAR * abs(float(one))
    except ValueError:
        return one == other


def serial_lines(folder):
    """Two serial lines that are connected, as long as socat runs."""
    ends = [os.path.join(folder, name) for name in ("host", "drive")]
    socat = subprocess.Popen(["socat"] + [f"pty,raw,echo=0,link={end}" for end in ends])
    while not all(map(os.path.exists, ends)):
        time.sleep(0.05)
    return socat, ends


def main():
    wire, script = sys.argv[1:3]
    speed, binaries = (sys.argv[3:] + ["10", "build/bin"][len(sys.argv) - 3:])[:2]
    tool, simulator = (os.path.join(binaries, name) for name in ("krt550tool", "krt550sim"))
    with tempfile.TemporaryDirectory() as folder:
        with open(script, encoding="utf-8") as lines:
            text = re.sub(r"^compare (\d+) .*$", r"show \1", lines.read(), flags=re.M)
        derived = os.path.join(folder, "derived.play")
        with open(derived, "w", encoding="utf-8") as file:
            # Played faster than in life on a busy machine, the drive would miss the wizard between two looks.
            file.write("drive 3029 60\n" + text)
        alone = play(tool, "sim", derived, folder)
        helpers = []
        try:
            if wire == "rtu":
                socat, (host, drive) = serial_lines(folder)
                helpers.append(socat)
                place, name = ["--rtu", drive], f"modbus-rtu:{host},19200,8E1"
            else:
                place, name = ["--tcp", "0"], None
            server = subprocess.Popen([simulator, *place, "--speed", speed], text=True, stdout=subprocess.PIPE)
            helpers.insert(0, server)
            greeting = server.stdout.readline()
            if not name:
                name = "modbus-tcp:127.0.0.1:" + re.search(r"port (\d+)", greeting)[1]
            backup = Backup(tool, name, folder)
            over = play(tool, name, derived, folder, "--speed", speed)
            backup.restore()
        finally:
            for helper in helpers:
                helper.terminate()
                helper.wait()
    different = [f"{one[0]}: {one[1]}{one[2]} in one process, {other[1]}{other[2]} over the wire"
                 for one, other in zip(alone, over) if not is_near(one[1], other[1])]
    if len(alone) != len(over) or not alone or different:
        sys.exit(f"{len(alone)} and {len(over)} values\n" + "\n".join(different))
    if server.returncode != 0:
        sys.exit(f"krt550sim: exit status {server.returncode}: the motor did not stand")
    print(f"{len(over)} values are the same over {wire}")


if __name__ == "__main__":
    main()
