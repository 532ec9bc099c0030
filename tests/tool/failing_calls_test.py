#!/usr/bin/env python3
"""Runs the tool with each call in turn failing that it makes for memory or files.

It then does all of its work, or says in a line why not, and leaves nothing that it has begun.
Arguments: the tool, and the library that lets a call fail.
"""
import os
import pathlib
import socket
import subprocess
import sys
import tempfile

KESTREL, FAILING_CALL = map(os.path.abspath, sys.argv[1:])

MEMORY = "there is not enough memory: close other programs"
READING = "'dump' cannot be read (Input/output error): name a file that can"
READING_PAIR = "'pair' cannot be read (Input/output error): name a file that can"
NO_FOLDER = ("'pair' is not a file: name a saved image, or pass it on standard input "
             "with --image -")
PRINTING = "standard output cannot be written (Input/output error): write to a place that takes it"
WRITING = "'out' cannot be written (Input/output error): write to a place that takes it"

# What a command says when a call fails on which it depends.
CASES = {
    "--help": {MEMORY, PRINTING},
    "report --image dump": {MEMORY, READING, PRINTING},
    "report --image pair": {MEMORY, NO_FOLDER, READING_PAIR, PRINTING},
    "mif --image dump -o out": {MEMORY, READING, WRITING},
    "bios --image dump": {MEMORY, READING, PRINTING},
    "list --image dump": {MEMORY, READING, PRINTING},
    "json --image dump -o out": {MEMORY, READING, WRITING},
    "check --image dump": {MEMORY, READING, PRINTING},
    "overview --image dump": {MEMORY, READING, PRINTING},
    "show --image dump": {MEMORY, READING, PRINTING},
    "get bios-version --image dump": {MEMORY, READING, PRINTING},
    "html --image dump -o out": {MEMORY, READING, WRITING},
    "check --frob": {MEMORY},
}

TABLE = (b"\0\x12\0\0\1\2\0\xE0\3\7\x90\0\0\0\0\0\0\0Maker\x001.07\x0005/14/2002\0\0"
         b"\x7F\x04\0\0\0\0")
ENTRY_POINT = (b"_SM_\0\x1F\x02\x03\0\0\0\0\0\0\0\0_DMI_\0" + len(TABLE).to_bytes(2, "little")
               + b"\x20\0\0\0\x02\0\x23\0")


def take(file):
    """Returns what was written to the file, and empties it."""
    file.seek(0)
    written = file.read()
    file.seek(0)
    file.truncate()
    return written


def runs(arguments):
    """Yields the exit code of run after run, and the texts on both streams and in the file.

    In the first run no call fails, then the first one, and so on.
    """
    ours, theirs = socket.socketpair()
    with (tempfile.TemporaryFile(buffering=0) as output,
          tempfile.TemporaryFile(buffering=0) as errors):
        with theirs:
            # Bound before it forks, functions need not be bound again in every run.
            environment = {"LD_PRELOAD": FAILING_CALL, "LD_BIND_NOW": "1"}
            tool = subprocess.Popen([KESTREL, *arguments.split()], env=environment,
                                    stdin=theirs, stdout=output, stderr=errors)
        with tool, ours:
            while status := ours.recv(4):
                out = pathlib.Path("out")
                written = out.read_bytes() if out.exists() else None
                out.unlink(missing_ok=True)
                code = os.waitstatus_to_exitcode(int.from_bytes(status, sys.byteorder))
                yield code, take(output), take(errors), written
                ours.send(b"-")


def check(arguments, expected):
    """Returns what is wrong with the command."""
    results = runs(arguments)
    whole = next(results)
    said = set()
    for failing_call, result in enumerate(results):
        if not os.path.lexists("failed"):
            break
        os.unlink("failed")
        line = result[2].decode()
        if result != whole:
            said.add(line.removeprefix("kestrel: ").rstrip("\n"))
            if result != (1, b"", line.encode(), None) or line.count("\n") != 1:
                return [f"{arguments}, call {failing_call}: {result}"]
    results.close()
    names = sorted(os.listdir())
    if names != ["dump", "pair"] or failing_call < 10 or said != expected:
        return [f"{arguments}, {failing_call} calls: said {said}, and left {names}"]
    return []


def main():
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        os.mkdir("pair")
        pathlib.Path("dump").write_bytes(ENTRY_POINT + TABLE)
        pathlib.Path("pair/smbios_entry_point").write_bytes(ENTRY_POINT)
        pathlib.Path("pair/DMI").write_bytes(TABLE)
        faults = [fault for case in CASES.items() for fault in check(*case)]
        print("\n".join(faults))
        os.chdir("/")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
