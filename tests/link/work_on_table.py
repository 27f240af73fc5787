#!/usr/bin/env python3
"""Works with krt550tool on the register table of another maker's server, and looks at what has reached it.

Usage: work_on_table.py PYTHON SOURCE BIN      PYTHON has pymodbus
"""
import os
import socket
import subprocess
import sys
import tempfile
import time

PLAY = """start
expect page 100
expect value 9902 240
set 9902 250
press apply
wait idle
expect drive 9902 250
press next
wait idle
press next
wait idle
say A run that never ends by itself, and Cancel.
press 60202
wait box
answer ok
wait 1
press cancel
wait idle
expect page 107
"""
COMMAND = 20000
TAKE, RELEASE, CLOSE, OPEN, START, STOP = range(1, 7)
RUN = [TAKE, RELEASE, TAKE, CLOSE, START, STOP, OPEN, RELEASE]


def free_port():
    with socket.create_server(("127.0.0.1", 0)) as listener:
        return listener.getsockname()[1]


def wait_for(port):
    for _ in range(100):
        try:
            socket.create_connection(("127.0.0.1", port), 1).close()
            return
        except OSError:
            time.sleep(0.1)
    sys.exit("the server does not come up")


def main():
    python, source, binaries = sys.argv[1:4]
    port = free_port()
    table = os.path.join(source, "tests", "link", "register_table.py")
    server = subprocess.Popen([python, table, os.path.join(source, "data", "KRT550.parameters"), str(port)], text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    try:
        wait_for(port)
        with tempfile.TemporaryDirectory() as folder:
            play = os.path.join(folder, "table.play")
            with open(play, "w", encoding="utf-8") as file:
                file.write(PLAY)
            run = subprocess.run([os.path.join(binaries, "krt550tool"), "--drive", f"modbus-tcp:127.0.0.1:{port}",
                                  "--play", play, "--shots", folder], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                 text=True)
    finally:
        server.terminate()
    written = [tuple(map(int, line.split()[1:])) for line in server.communicate()[0].splitlines()]
    commands = [word for address, word in written if address == COMMAND]
    words = [write for write in written if write[0] != COMMAND]
    good = run.returncode == 0 and [word & 0xFF for word in commands] == RUN and words[0] == (9902, 250) and (
        words[1][0] == 9906 and set(words[2:]) == {(9906, 0)})
    if not good or [word >> 8 for word in commands] != list(range(1, len(RUN) + 1)):
        sys.exit(f"exit status {run.returncode}, written: {written}\n{run.stdout}")


if __name__ == "__main__":
    main()
