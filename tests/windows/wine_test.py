#!/usr/bin/env python3
"""Runs Kestrel.dll, kestrel.exe and the driver, which reads a memory image here, on Wine's Windows.
What comes out is compared with what the tool of this system makes of the same machine.
Arguments: the folder with the files for Windows, the tool of this system, the prefix for Wine, and
the versions of Windows to be, of which the first has the driver."""

import os
import shutil
import subprocess
import sys

from wine import Wine, skip

ALLOWED = 240


def expect(what, found, wanted):
    if found != wanted:
        raise SystemExit(f"FAILED: {what}:\n{found}\nnot:\n{wanted}")


class Machine:
    """Windows with host programs in a folder, the driver beside them, and the library elsewhere."""

    def __init__(self, wine, files, native_tool):
        self.wine = wine
        self.files = files
        self.native_tool = native_tool
        for folder in ("host", "library"):
            os.mkdir(os.path.join(wine.drive, folder))
        self.put("Kestrel.dll", "library")
        for program in ("host.exe", "kestrel.exe", "sample_memory.exe"):
            self.put(program, "host")
        # The image that the driver reads.
        result = wine.run(self.program("sample_memory.exe"), r"C:\memory.img")
        expect("sample_memory.exe", result.returncode, 0)

    def put(self, source, folder, name=None):
        target = os.path.join(self.wine.drive, folder, name or source)
        shutil.copy(os.path.join(self.files, source), target)

    def read(self, name):
        with open(os.path.join(self.wine.drive, name), "rb") as file:
            return file.read()

    def be(self, version):
        """From now on Windows is this version, with its driver beside the hosts."""
        self.wine.report_version(version)
        driver = "PetrelNt.sys" if version == "nt40" else "Petrel.sys"
        for name in ("Petrel.sys", "PetrelNt.sys"):
            if os.path.exists(self.program(name)):
                os.remove(self.program(name))
        self.put("Petrel.sys", "host", driver)
        self.service = f"service runs C:\\host\\{driver}\n"

    def program(self, name):
        """By this name Wine becomes the program, instead of starting it."""
        return os.path.join(self.wine.drive, "host", name)

    def host_command(self, words):
        return [self.program("host.exe"), r"C:\library\Kestrel.dll", *words.split()]

    def expect_host(self, words, wanted):
        result = self.wine.run(*self.host_command(words))
        expect(f"host.exe {words}", (result.stdout, result.returncode), (wanted, 0))

    def native(self, *arguments):
        command = [self.native_tool, *arguments]
        return subprocess.run(command, capture_output=True, check=True).stdout

    def expect_texts(self, before="", after=""):
        """Both texts through the driver are the bytes that this system makes of the sample. The
        words that the host does before reading and after closing print a line each."""
        wanted = [self.native("report", "--exact", "--sample"), self.native("mif", "--sample")]
        self.expect_host(
            r"%s read report C:\report mif C:\mif close %s" % (before[0], after[0]),
            f"{before[1]}read 1\nreport {len(wanted[0])}\nmif {len(wanted[1])}\nclose 1\n{after[1]}",
        )
        for name, bytes_wanted in zip(("report", "mif"), wanted):
            expect(name, self.read(name), bytes_wanted)

    def expect_round(self):
        self.expect_texts(("open service", f"open 1\n{self.service}"), ("service", "service none\n"))

    def expect_tool(self, arguments, code, message):
        result = self.wine.run(self.program("kestrel.exe"), *arguments)
        found = (result.returncode, result.stdout, result.stderr)
        expect(f"kestrel.exe {arguments}", found, (code, "", message))
        self.expect_host("service", "service none\n")


def test_version(machine, version):
    machine.be(version)
    machine.expect_round()


def test_killed_host(machine, versions):
    """Of a host that is killed the service stays. Meanwhile its device stands in for SKUA."""
    process = machine.wine.start(*machine.host_command("open hold"), stdout=subprocess.PIPE)
    for line in ("open 1\n", "holds\n"):
        expect("a host that holds", process.stdout.readline(), line)
    for version in versions:
        machine.wine.report_version(version)
        machine.expect_texts(("skua open", "open 1\n"), ("", ""))
    process.kill()
    process.wait()
    machine.expect_host("service", machine.service)


def test_tool(machine):
    machine.expect_tool(["save", r"C:\dump"], 0, "")
    dump = os.path.join(machine.wine.drive, "dump")
    for command in (["report", "--exact"], ["mif"], ["list"]):
        of_dump = machine.native(*command, "--image", dump)
        expect(f"{command} of the dump", of_dump, machine.native(*command, "--sample"))
    machine.expect_tool(["report", "--exact", "-o", r"C:\report"], 0, "")
    expect("report", machine.read("report"), machine.native("report", "--exact", "--sample"))


def test_device(machine):
    machine.expect_host(
        "open descriptor device close",
        "open 1\ndescriptor valid 1, administrators 1, others 0\nclose 1\n",
    )


def test_without_memory(machine):
    os.remove(os.path.join(machine.wine.drive, "memory.img"))
    machine.expect_host("open read close", "open 1\nread 0\nclose 1\n")


def test_without_driver_file(machine):
    os.remove(machine.program("Petrel.sys"))
    machine.expect_host("open close service", "open 0\nclose 1\nservice none\n")
    machine.expect_tool(
        ["bios"],
        1,
        "kestrel: this machine shows no SMBIOS tables: run it as an administrator with the driver "
        "file beside it, or use --image FILE or --sample\n",
    )


def main():
    files, native_tool, prefix, first, *others = sys.argv[1:]
    if not os.path.exists(native_tool):
        skip(f"there is no {native_tool} to compare with")
    with Wine(prefix, ALLOWED) as wine:
        machine = Machine(wine, files, native_tool)
        without_services = [version for version in others if version.startswith("win9")]
        for version in [other for other in others if other not in without_services] + [first]:
            test_version(machine, version)
        test_killed_host(machine, without_services)
        test_version(machine, first)
        test_tool(machine)
        test_device(machine)
        test_without_memory(machine)
        test_without_driver_file(machine)
    print(f"ran as {', '.join([first] + others)}")


main()
