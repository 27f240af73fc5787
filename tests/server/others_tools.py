"""The drive program as the tools of others find it: mbpoll and pymodbus, over TCP and over a serial line.

    others_tools.py KRT550SIM tcp|rtu
"""
import os
import re
import signal
import socket
import struct
import subprocess
import sys
import tempfile
import time

from pymodbus.client import ModbusSerialClient, ModbusTcpClient
from pymodbus.diag_message import ReturnQueryDataRequest
from pymodbus.mei_message import ReadDeviceInformationRequest

UNKNOWN, LIMITS, REFUSED, BUSY, NO_UNIT = 2, 3, 4, 6, 11
TAKE, RELEASE, CLOSE, OPEN, START, STOP, RESET, REFERENCE, POLL = range(1, 10)
CONTACTOR, RUNNING, LOCAL, FAULT, STOPPED = 1, 2, 4, 8, 16
LONGEST = 30  # of any wait [s]

failures = []


def expect(what, found, wanted):
    if found != wanted:
        failures.append(f"{what}: {found!r} instead of {wanted!r}")


def wait_for(what, condition):
    end = time.monotonic() + LONGEST
    while not condition():
        if time.monotonic() > end:
            failures.append(f"{what}: has not come to be within {LONGEST} s")
            return
        time.sleep(0.05)


class Drive:
    """krt550sim, and the serial line to it where there is one."""

    def __init__(self, program, line):
        self.directory = tempfile.TemporaryDirectory()
        self.line = None
        if line == "rtu":
            ends = [os.path.join(self.directory.name, end) for end in ("drive", "host")]
            self.line = subprocess.Popen(["socat"] + [f"pty,raw,echo=0,link={end}" for end in ends])
            wait_for("the serial line", lambda: all(map(os.path.exists, ends)))
            self.place = ends[1]
            arguments = ["--rtu", ends[0] + ",19200,8E1"]
        else:
            arguments = ["--tcp", "0"]
        self.process = subprocess.Popen([program, "--motor", "S2"] + arguments, stdout=subprocess.PIPE, text=True)
        greeting = self.process.stdout.readline()
        if line == "tcp":
            self.place = int(re.search(r"127\.0\.0\.1 port (\d+), unit 1", greeting).group(1))
        self.unconnected = self.descriptors()

    def descriptors(self):
        return len(os.listdir(f"/proc/{self.process.pid}/fd"))

    def wait_until_unconnected(self, but=0):
        wait_for("connections that are closed here are closed there",
                 lambda: self.descriptors() == self.unconnected + but)

    def client(self):
        if self.line:
            client = ModbusSerialClient(self.place, baudrate=19200, timeout=2)  # a pseudo-terminal knows no parity
        else:
            client = ModbusTcpClient("127.0.0.1", port=self.place, timeout=5)
        assert client.connect(), "no connection"
        return client

    def mbpoll(self, *arguments):
        """Last line that mbpoll prints, of its values or of its complaint."""
        if self.line:
            how = ["-m", "rtu", "-b", "19200", "-P", "even", self.place]
        else:
            how = ["-m", "tcp", "-p", str(self.place), "127.0.0.1"]
        done = subprocess.run(["mbpoll", "-0", "-o", "2"] + list(how[:-1]) + list(arguments[0]) + [how[-1]]
                              + list(arguments[1:]), capture_output=True, text=True, timeout=LONGEST)
        return (done.stdout + done.stderr).strip().splitlines()[-1].strip()

    def end(self):
        """Asks the program to end; gives what it says meanwhile."""
        self.process.send_signal(signal.SIGTERM)
        expect("exit status after SIGTERM", self.process.wait(LONGEST), 0)
        if self.line:
            self.line.terminate()
        return self.process.stdout.read()


def words(client, address, count=1, unit=1):
    answer = client.read_holding_registers(address, count, slave=unit)
    return -answer.exception_code if answer.isError() else answer.registers


def write(client, address, *values):
    if len(values) == 1:
        answer = client.write_register(address, values[0], slave=1)
    else:
        answer = client.write_registers(address, list(values), slave=1)
    return answer.exception_code if answer.isError() else 0


def reference(client, rpm):
    return write(client, 20000, REFERENCE, *struct.unpack(">HH", struct.pack(">i", round(rpm * 100))))


def status(client):
    return words(client, 20100, 2)[1]


def reason(client):
    text = words(client, 20109, 101)
    return struct.pack(">100H", *text[1:])[:text[0]].decode()


def check_requests(drive):
    read_once = ["-1", "-t", "4"]
    expect("mbpoll reads 30.29", drive.mbpoll(read_once + ["-r", "3029"]).split(), ["[3029]:", "50"])
    expect("mbpoll writes 30.29", drive.mbpoll(["-t", "4", "-r", "3029"], "12"), "Written 1 references.")
    expect("mbpoll reads 30.29 again", drive.mbpoll(read_once + ["-r", "3029"]).split(), ["[3029]:", "12"])
    for options, value, complaint in ((["-1", "-r", "9999"], [], "Read .* failed: Illegal data address"),
                                      (["-r", "3029"], ["601"], "Write .* failed: Illegal data value"),
                                      (["-r", "101"], ["1"], "Write .* failed: Slave device or server failure")):
        said = drive.mbpoll(["-t", "4"] + options, *value)
        if not re.match(complaint, said):
            failures.append(f"mbpoll {options} {value}: {said}")

    client = drive.client()
    expect("a group of parameters", words(client, 101, 24)[11], 230)
    expect("a parameter that is missing", words(client, 9999), -UNKNOWN)
    expect("a value in its limits", write(client, 2204, 1500), 0)
    expect("and read back", words(client, 2204), [1500])
    expect("a value outside its limits", write(client, 3029, 601), LIMITS)
    expect("why", "60" in reason(client), True)
    expect("a group is written: the ramps", write(client, 2201, 300, 300), 0)
    loopback = client.execute(ReturnQueryDataRequest(0xA537, unit=1))
    expect("loopback", loopback.message, (0xA537,))
    identity = client.execute(ReadDeviceInformationRequest(read_code=2, object_id=0, unit=1))
    expect("identification", (identity.information[0], identity.information[4][:7]), (b"KRT", b"KRT 550"))
    expect("a coil", client.read_coils(0, 1, slave=1).exception_code, 1)
    expect("the whole state", len(words(client, 20100, 110)), 110)
    client.close()


def turn_motor(client):
    for command in (TAKE, CLOSE, START):
        expect(f"command {command}", write(client, 20000, command), 0)
    expect("reference", reference(client, 250.5), 0)
    wait_for("the motor turns", lambda: 100 < words(client, 104)[0] < 0x8000)


def check_motor(drive):
    """The motor turns; then its host is silent."""
    host = drive.client()
    expect("30.29", write(host, 3029, 10), 0)
    expect("start without local control", write(host, 20000, START), REFUSED)
    turn_motor(host)
    expect("reference beyond the limits", reference(host, 99999), LIMITS)
    expect("reference in use", struct.unpack(">i", struct.pack(">HH", *words(host, 20103, 2)))[0], 25050)
    expect("status", status(host), CONTACTOR | RUNNING | LOCAL)
    if drive.line:
        watch = host  # there is one master: it comes back too late
        time.sleep(1.3)
    else:
        watch = drive.client()
        expect("another one's stop", write(watch, 20000, STOP), BUSY)
        host.close()
    wait_for("a silent host makes the drive trip", lambda: words(watch, 20105) == [109])
    wait_for("and stop", lambda: status(watch) == FAULT | STOPPED)
    for command in (TAKE, RESET, RELEASE):
        expect(f"another host's command {command}", write(watch, 20000, command), 0)
    watch.close()


def closes(connection):
    connection.settimeout(LONGEST)
    try:
        return connection.recv(1) == b""
    except ConnectionResetError:
        return True


def check_clients(drive):
    """Eight at once, one too many, and those that misbehave."""
    drive.wait_until_unconnected()
    others = [drive.client() for _ in range(8)]
    for other in others:
        expect("one of eight", words(other, 3029), [10])
    expect("the ninth is closed", closes(socket.create_connection(("127.0.0.1", drive.place))), True)
    expect("another unit", words(others[0], 3029, unit=5), -NO_UNIT)
    for other in others[1:]:
        other.close()
    drive.wait_until_unconnected(but=1)
    begun = time.monotonic()
    misfits = [socket.create_connection(("127.0.0.1", drive.place)) for _ in range(3)]
    misfits[0].sendall(b"GET / HTTP/1.1\r\n\r\n")
    misfits[1].sendall(bytes.fromhex("000100000006010300"))
    for number in range(50):
        expect("beside garbage, half a frame and silence", words(others[0], 3029), [10])
    expect("garbage is closed", closes(misfits[0]), True)
    expect("half a frame is closed", closes(misfits[1]), True)
    if time.monotonic() - begun > 5:
        failures.append("half a frame is given up too late")
    misfits[2].sendall(bytes.fromhex("00010000000601030bd50001"))
    expect("the silent one is served", misfits[2].recv(64).hex(), "00010000000501030200" + "0a")
    for connection in misfits:
        connection.close()
    others[0].close()


def main():
    program, line = sys.argv[1:]
    drive = Drive(program, line)
    try:
        check_requests(drive)
        check_motor(drive)
        if line == "tcp":
            check_clients(drive)
    finally:
        drive.end()
    turning = Drive(program, line)
    try:
        turn_motor(turning.client())
    finally:
        expect("what it says at its end", turning.end(),
               "krt550sim: the motor is stopped first; once more ends at once\n")
    for failure in failures:
        print(failure)
    return 1 if failures else 0


sys.exit(main())
