#!/usr/bin/env python3
"""Runs Kestrel.dll, kestrel.exe and the driver, which reads a memory image here, on Wine's Windows.
What comes out is compared with what the tool of this system makes of the same machine.
The tool runs as Windows 10 as well.
Arguments: the folder with the files for Windows, the tool of this system, the prefix for Wine, and
the versions of Windows to be. Those with services come first."""

import json
import os
import shutil
import subprocess
import sys

from wine import Wine, skip

ALLOWED = 240
NO_SERVICE = "service 0\n"
RUNS = "service 4\n"


def expect(what, found, wanted):
    if found != wanted:
        raise SystemExit(f"FAILED: {what}:\n{found}\nnot:\n{wanted}")


class Machine:
    """Windows with host programs in a folder, the drivers beside them, and the library elsewhere."""

    def __init__(self, wine, files, native_tool):
        self.wine = wine
        self.files = files
        self.native_tool = native_tool
        for folder in ("host", "library"):
            os.mkdir(os.path.join(wine.drive, folder))
        self.put("library", "Kestrel.dll")
        for program in ("host.exe", "kestrel.exe", "sample_memory.exe", "Petrel.sys"):
            self.put("host", program)
        self.put("host", "PetrelNt.sys", "Petrel.sys")
        # The image that the driver reads.
        expect("image", wine.run(self.program("sample_memory.exe"), r"C:\memory.img"), (0, "", ""))

    def put(self, folder, name, source=None):
        target = os.path.join(self.wine.drive, folder, name)
        shutil.copy(os.path.join(self.files, source or name), target)

    def read(self, name):
        with open(os.path.join(self.wine.drive, name), "rb") as file:
            return file.read()

    def program(self, name):
        """By this name Wine becomes the program, instead of starting it."""
        return os.path.join(self.wine.drive, "host", name)

    def host_command(self, words):
        return [self.program("host.exe"), r"C:\library\Kestrel.dll", *words.split()]

    def expect_host(self, words, wanted):
        expect(f"host {words}", self.wine.run(*self.host_command(words)), (0, wanted, ""))

    def native(self, *arguments):
        command = [self.native_tool, *arguments]
        return subprocess.run(command, capture_output=True, check=True).stdout

    def expect_texts(self, before, opened, after=""):
        """Both texts through the driver are the bytes that this system makes of the sample."""
        report = self.native("report", "--exact", "--sample")
        mif = self.native("mif", "--sample")
        self.expect_host(
            rf"{before} ReadSMObjects SMObjsToString C:\report SMObjsToMifString C:\mif "
            "CloseSMBios service",
            f"{opened}ReadSMObjects 1\nSMObjsToString {len(report)}\nSMObjsToMifString {len(mif)}\n"
            f"CloseSMBios 1\n{after}",
        )
        expect("report", self.read("report"), report)
        expect("document", self.read("mif"), mif)

    def expect_round(self):
        self.expect_texts("OpenSMBios service", f"OpenSMBios 1\n{RUNS}", NO_SERVICE)

    def expect_tool(self, arguments, code, message):
        result = self.wine.run(self.program("kestrel.exe"), *arguments)
        expect(f"kestrel.exe {arguments}", result, (code, "", message))
        self.expect_host("service", NO_SERVICE)


def test_killed_host(machine, versions):
    """The service of a host that is killed stays. While it holds, its device stands in for SKUA."""
    process = machine.wine.start(*machine.host_command("OpenSMBios hold"), stdout=subprocess.PIPE)
    for line in ("OpenSMBios 1\n", "holds\n"):
        expect("a host that holds", process.stdout.readline(), line)
    for version in versions:
        machine.wine.report_version(version)
        machine.expect_texts("skua OpenSMBios", "OpenSMBios 1\n", RUNS)
    process.kill()
    process.wait()
    machine.expect_host("service", RUNS)


def test_tool(machine):
    machine.expect_tool(["save", r"C:\dump"], 0, "")
    dump = os.path.join(machine.wine.drive, "dump")
    expect("dump", machine.native("list", "--image", dump), machine.native("list", "--sample"))
    machine.expect_tool(["report", "--exact", "-o", r"C:\report"], 0, "")
    expect("report", machine.read("report"), machine.native("report", "--exact", "--sample"))


def test_driver(machine):
    machine.expect_host(
        "OpenSMBios descriptor device CloseSMBios",
        "OpenSMBios 1\ndescriptor valid 1, O:BAG:BAD:(A;;FA;;;BA)\nCloseSMBios 1\n",
    )
    os.remove(os.path.join(machine.wine.drive, "memory.img"))
    machine.expect_host(
        "OpenSMBios ReadSMObjects CloseSMBios", "OpenSMBios 1\nReadSMObjects 0\nCloseSMBios 1\n"
    )


def test_windows_10(machine):
    """The tool asks Windows, which has its own table, and not the driver."""
    machine.wine.report_version("win10")
    tool = machine.program("kestrel.exe")
    code, listed, errors = machine.wine.run(tool, "list")
    expect("list", (code, "  System Information\n" in listed, errors), (0, True, ""))
    machine.expect_tool(["save", r"C:\dump10"], 0, "")
    dump = os.path.join(machine.wine.drive, "dump10")
    expect("dump", machine.native("list", "--image", dump).decode(), listed)
    expect("read back", machine.wine.run(tool, "list", "--image", r"C:\dump10"), (0, listed, ""))
    machine.expect_tool(["json", "-o", r"C:\json"], 0, "")
    document, wanted = (
        json.loads(text) for text in (machine.read("json"), machine.native("json", "--image", dump))
    )
    # Windows does not say what kind of entry point there was.
    expect("entry point", document["smbios"].pop("entry_point"), None)
    del wanted["smbios"]["entry_point"]
    expect("json", document, wanted)


def test_without_driver(machine):
    os.remove(machine.program("Petrel.sys"))
    machine.expect_tool(
        ["bios"],
        1,
        "kestrel: this machine shows no SMBIOS tables: run it as an administrator with the driver "
        "file beside it, or use --image FILE or --sample\n",
    )


def main():
    files, native_tool, prefix, *versions = sys.argv[1:]
    if not os.path.exists(native_tool):
        skip(f"there is no {native_tool} to compare with")
    with Wine(prefix, ALLOWED) as wine:
        machine = Machine(wine, files, native_tool)
        without_services = [version for version in versions if version.startswith("win9")]
        for version in versions[: len(versions) - len(without_services)]:
            wine.report_version(version)
            machine.expect_round()
        wine.report_version(versions[0])
        test_killed_host(machine, without_services)
        wine.report_version(versions[0])
        machine.expect_round()
        test_tool(machine)
        test_windows_10(machine)
        machine.wine.report_version(versions[0])
        test_driver(machine)
        test_without_driver(machine)
    print(f"ran as {', '.join(versions)}")


main()
