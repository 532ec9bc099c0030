#!/usr/bin/env python3
"""Reads the tables that a PC's firmware made, from a saved image of its memory: starts an emulated
PC, waits until its firmware has written its entry point, saves the first megabyte, and shows it.
Argument: the tool."""

import json
import os
import subprocess
import sys
import tempfile
import time

PATIENCE = 120

BIOS = "type=0,vendor=Merlin Firmware,version=4.2-K,date=03/14/2001,release=4.2"
SYSTEM = (
    "type=1,manufacturer=Hobby Works,product=Kite 300,version=rev C,serial=HW-0042,"
    "uuid=00112233-4455-6677-8899-aabbccddeeff,sku=K300,family=Kites"
)


class Machine:
    """An emulated PC, and the way to ask it for its memory."""

    def __init__(self):
        self.process = subprocess.Popen(
            # It ends with this process, however that ends.
            ["setpriv", "--pdeathsig", "KILL", "qemu-system-x86_64", "-accel", "tcg"]
            + ["-machine", "pc", "-m", "64", "-display", "none", "-nodefaults", "-qmp", "stdio"]
            + ["-smbios", BIOS, "-smbios", SYSTEM],
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            text=True,
        )
        self.answer()  # It greets.
        self.ask("qmp_capabilities")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    def answer(self):
        line = self.process.stdout.readline()
        if not line:
            raise SystemExit("FAILED: the emulated PC ended")
        return json.loads(line)

    def ask(self, command, **arguments):
        json.dump({"execute": command, "arguments": arguments}, self.process.stdin)
        self.process.stdin.flush()
        while "return" not in (answer := self.answer()):
            if "error" in answer:
                raise SystemExit(f"FAILED: {command}: {answer}")

    def save_memory(self, path, size):
        self.ask("pmemsave", val=0, size=size, filename=path)
        with open(path, "rb") as file:
            return file.read()


def save_first_megabyte(path):
    deadline = time.monotonic() + PATIENCE
    with Machine() as machine:
        while b"_SM_" not in machine.save_memory(path, 0x100000)[0xF0000:]:
            if time.monotonic() > deadline:
                raise SystemExit("FAILED: the firmware wrote no entry point")
            time.sleep(0.2)
        # The anchor may be there before the rest: wait until nothing changes any more.
        before = None
        while before != (before := machine.save_memory(path, 0x100000)[0xF0000:]):
            time.sleep(0.5)


def tool(*arguments):
    result = subprocess.run([sys.argv[1], *arguments], capture_output=True, check=False)
    if result.returncode != 0 or result.stderr:
        raise SystemExit(f"FAILED: {arguments}: {result.returncode}, {result.stderr.decode()}")
    return result.stdout.decode("utf-8")


def expect(text, *pieces):
    for piece in pieces:
        if piece not in text:
            raise SystemExit(f"FAILED: without {piece!r}:\n{text}")


def main():
    with tempfile.TemporaryDirectory() as folder:
        image = os.path.join(folder, "memory")
        save_first_megabyte(image)
        expect(
            tool("report", "--image", image),
            "BIOS Information (Type 0)\n\tVendor Name : Merlin Firmware\n\tBIOS Version : 4.2-K\n",
            "\tBIOS Release Date : 03/14/2001\n",
            "System Information (Type 1)\n\tManufacturer Name : Hobby Works\n"
            "\tProduct Name : Kite 300\n\tVersion : rev C\n\tSerial Number : HW-0042\n"
            "\tUUID : 33 22 11 0 55 44 77 66 88 99 AA BB CC DD EE FF\n"
            "\tWake-up Type : Power Switch\n\n",
            "End-of-Table (Type 127)\n\n",
        )
        expect(
            tool("mif", "--image", image),
            '\t\tValue = "Hobby Works"\r\n',
            '\t\tValue = "Kite 300"\r\n',
            '\t{0,"Merlin Firmware","4.2-K",64,59392,0,"","20010314000000.000000-300",1}\r\n',
        )
        expect(tool("list", "--image", image), "  BIOS Information\n", "  Memory Device\n")


if __name__ == "__main__":
    main()
