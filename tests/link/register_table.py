#!/usr/bin/python3
"""A drive that is nothing but a register table, served by somebody else's Modbus library: what the host says is checked by
code that knows nothing of ours.

Usage: register_table.py PARAMETERS PORT      serves until it is ended; prints each write that it is sent
"""
import sys

from pymodbus.datastore import ModbusServerContext, ModbusSlaveContext, ModbusSparseDataBlock
from pymodbus.server import StartTcpServer

COMMAND, STATUS, PLACE, COUNT, LAST, IDENTITY = 20000, 20100, 20102, 20106, 20107, 20400
STOPPED, LOCAL = 16, 4
TAKE, RELEASE = 1, 2


def parameters(path):
    """Registers and their defaults as raw words."""
    words = {}
    with open(path, encoding="utf-8") as lines:
        rows = (line.rstrip("\n").split("\t") for line in lines if line.strip() and not line.startswith("#"))
        columns = {name: at for at, name in enumerate(next(rows))}
        for row in rows:
            shown = float(row[columns["default"]])
            words[int(row[0])] = round(shown * 10 ** int(row[columns["decimals"]])) & 0xFFFF
    return words


class Table(ModbusSparseDataBlock):
    def setValues(self, address, values, use_as_default=False):
        values = list(values) if isinstance(values, (list, tuple)) else [values]
        super().setValues(address, values)
        print("write", address, *values, flush=True)
        if address == COMMAND:
            command = values[0] & 0xFF
            place = {TAKE: 1, RELEASE: 0}.get(command, self.values[PLACE])
            self.values.update({PLACE: place, STATUS + 1: STOPPED + LOCAL * place, LAST: values[0]})
            self.values[COUNT] += 1


def main():
    words = parameters(sys.argv[1])
    words.update({address: 0 for address in range(COMMAND, COMMAND + 3)})
    words.update({address: 0 for address in range(STATUS, STATUS + 110)})
    words.update({STATUS + 1: STOPPED, IDENTITY: 550, IDENTITY + 1: 1, IDENTITY + 2: 0})
    drive = ModbusSlaveContext(hr=Table(words), zero_mode=True)
    StartTcpServer(context=ModbusServerContext(slaves=drive, single=True), address=("127.0.0.1", int(sys.argv[2])))


if __name__ == "__main__":
    main()
