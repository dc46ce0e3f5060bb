#!/usr/bin/env python3
"""pymodbus as RTU client against the r770-sim program over a socat pair of pseudo-terminals.

An independent Modbus implementation reads and writes the simulated drive: catalogue defaults,
single and multiple writes, the drive's exception letters, and a second line setting.
Usage: pymodbus_peer.py PATH-TO-r770-sim
"""
import os
import subprocess
import sys
import tempfile
import time

from pymodbus.client import ModbusSerialClient
from pymodbus.framer.rtu_framer import ModbusRtuFramer

failures = []


def check(condition, what):
    if not condition:
        failures.append(what)
        print("FAIL:", what)


def wait_for(path, seconds=5.0):
    end = time.monotonic() + seconds
    while not os.path.exists(path):
        if time.monotonic() > end:
            raise RuntimeError("socat did not create " + path)
        time.sleep(0.01)


def run(sim_path, work):
    a, b = os.path.join(work, "a"), os.path.join(work, "b")
    socat = subprocess.Popen(["socat", "pty,raw,echo=0,link=" + a, "pty,raw,echo=0,link=" + b])
    sim = None
    try:
        wait_for(a)
        wait_for(b)
        sim = subprocess.Popen([sim_path, "--device", a, "--station", "5", "--model", "201",
                                "--baud", "9600", "--parity", "none", "--stop-bits", "2"],
                               stdout=subprocess.PIPE, text=True)
        for line in sim.stdout:
            if line.startswith("ready"):
                break
        client = ModbusSerialClient(port=b, framer=ModbusRtuFramer, baudrate=9600, bytesize=8,
                                    parity="N", stopbits=2, timeout=1)
        check(client.connect(), "connect to " + b)

        rr = client.read_holding_registers(0x0D00, 2, slave=5)
        check(not rr.isError() and rr.registers == [201, 1000], "model code and version: %s" % rr)
        # Group 00 as the catalogue sets it: 00-11 and 00-12 are 50.00 Hz, 00-14 is 10.0 s.
        rr = client.read_holding_registers(0x0000, 21, slave=5)
        check(not rr.isError() and rr.registers[11] == 5000 and rr.registers[12] == 5000
              and rr.registers[14] == 100, "group 00 defaults: %s" % rr)
        # 09-02..09-04 tell the line the drive is on: 9600, two stop bits, no parity. (pyserial
        # can't set parity on a pseudo-terminal, so the line keeps none.)
        rr = client.read_holding_registers(0x0900, 6, slave=5)
        check(not rr.isError() and rr.registers[2:5] == [1, 1, 0], "line registers: %s" % rr)

        wr = client.write_register(0x000E, 150, slave=5)
        check(not wr.isError(), "write 00-14: %s" % wr)
        wr = client.write_registers(0x0A00, [7, 8, 9], slave=5)
        check(not wr.isError(), "write group 10: %s" % wr)
        rr = client.read_holding_registers(0x0A00, 3, slave=5)
        check(not rr.isError() and rr.registers == [7, 8, 9], "group 10 read back: %s" % rr)
        rr = client.read_holding_registers(0x000E, 1, slave=5)
        check(not rr.isError() and rr.registers == [150], "00-14 read back: %s" % rr)

        for address, value, letter in ((0x0207, None, 0x52), (0x0900, 40, 0x54)):
            if value is None:
                r = client.read_holding_registers(address, 1, slave=5)
            else:
                r = client.write_register(address, value, slave=5)
            check(r.isError() and getattr(r, "exception_code", None) == letter,
                  "exception %s at 0x%04X: %s" % (chr(letter), address, r))
        client.close()
    finally:
        if sim:
            sim.terminate()
            sim.wait(5)
        socat.terminate()
        socat.wait(5)


def main():
    if len(sys.argv) != 2:
        print(__doc__)
        return 2
    with tempfile.TemporaryDirectory() as work:
        run(sys.argv[1], work)
    print("%d passed, %d failed" % (0 if failures else 1, 1 if failures else 0))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
