"""Opens and drops connections to the drive program, and says what has become of its memory and its descriptors.

    many_connections.py KRT550SIM [COUNT]

Every connection does something else: nothing, garbage, half a request, a request without waiting for the answer, several
requests, a command. Fails when descriptors are left open or memory has grown after the first tenth.
"""
import os
import re
import signal
import socket
import subprocess
import sys
import time

WHAT = [b"",
        b"GET / HTTP/1.1\r\n\r\n",
        bytes.fromhex("0001000000060103"),
        bytes.fromhex("000100000006010300700001"),
        bytes.fromhex("00010000000601034e84006e") * 20,
        bytes.fromhex("000100000006010627100001"),
        bytes.fromhex("000100000006014e20000100"),
        bytes.fromhex("0001000000fe0110") + bytes(300)]
MOST_GROWTH = 512  # of the memory in use [kB]


def memory(pid):
    with open(f"/proc/{pid}/status", encoding="ascii") as status:
        return int(re.search(r"VmRSS:\s+(\d+) kB", status.read()).group(1))


def descriptors(pid):
    return len(os.listdir(f"/proc/{pid}/fd"))


def settled(pid, wanted):
    """Number of descriptors, after what was closed here has been closed there too."""
    end = time.monotonic() + 10
    while descriptors(pid) > wanted and time.monotonic() < end:
        time.sleep(0.05)
    return descriptors(pid)


def main():
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 10_000
    drive = subprocess.Popen([sys.argv[1], "--tcp", "0"], stdout=subprocess.PIPE, text=True)
    port = int(re.search(r"port (\d+)", drive.stdout.readline()).group(1))
    before = descriptors(drive.pid)
    begun = time.monotonic()
    for number in range(count):
        if number == count // 10:
            settled(drive.pid, before)
            warm = memory(drive.pid)
        connection = socket.create_connection(("127.0.0.1", port), timeout=10)
        try:
            connection.sendall(WHAT[number % len(WHAT)])
            if number % 3 == 0:
                connection.settimeout(0.05)
                connection.recv(16)
        except OSError:
            pass  # it was the ninth, or has been thrown out
        connection.close()
    took = time.monotonic() - begun
    left = settled(drive.pid, before) - before
    grown = memory(drive.pid) - warm
    drive.send_signal(signal.SIGTERM)
    status = drive.wait(30)
    print(f"{count} connections in {took:.1f} s: {left} descriptors left open, memory {warm} kB and {grown:+} kB, "
          f"exit status {status}")
    return 0 if left == 0 and grown <= MOST_GROWTH and status == 0 else 1


sys.exit(main())
