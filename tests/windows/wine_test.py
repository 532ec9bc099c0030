#!/usr/bin/env python3
"""Runs Kestrel.dll, kestrel.exe and the driver, which reads a memory image here, on Wine's Windows.
What comes out is compared with what the tool of this system makes of the same image.
Arguments: the folder with the files for Windows, the tool of this system, the prefix for Wine."""

import os
import re
import shutil
import subprocess
import sys
import tempfile

from wine import Wine, skip

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "firmware"))
import real_firmware_test  # pylint: disable=wrong-import-position

ALLOWED = 110

# The reported versions, and the driver file of each.
DRIVER_FILES = {
    "winxp64": "Petrel.sys",
    "winxp": "Petrel.sys",
    "win2k": "Petrel.sys",
    "nt40": "PetrelNt.sys",
}

# Two handles to the driver: the request, what comes, and the first and last byte of the buffer.
DEVICE = """\
222024: error 1, 5A 5A
222018: error 1784, 5A 5A
222040: error 87, 5A 5A
222018: 0 bytes, 5A 5A
222018: 0 bytes, 5A 5A
222020: error 87, 5A 5A
222018: 0 bytes, 5A 5A
222020: 0 bytes, 5A 5A
222020: 0 bytes, 5A 5A
222040: 65535 bytes, E1 E2
222040: 4 bytes, F1 F2
222040: error 87, 5A 5A
222018: 0 bytes, 5A 5A
222020: 0 bytes, 5A 5A
222040: error 87, 5A 5A
"""
DEVICE_MARKS = {0xE0000: b"\xE1", 0xEFFFE: b"\xE2", 0xF0000: b"\xF1", 0xF0003: b"\xF2"}


def expect(what, found, wanted):
    if found != wanted:
        raise SystemExit(f"FAILED: {what}:\n{found}\nnot:\n{wanted}")


class Machine:
    """Windows with host programs in a folder, the driver beside them, and the library elsewhere."""

    def __init__(self, wine, files, native_tool):
        self.wine = wine
        self.files = files
        self.native_tool = native_tool
        self.image = os.path.join(wine.drive, "memory.img")
        for folder in ("host", "library"):
            os.mkdir(os.path.join(wine.drive, folder))
        self.put("Kestrel.dll", "library")
        for program in ("host.exe", "kestrel.exe", "sample_memory.exe"):
            self.put(program, "host")

    def put(self, name, folder, source=None):
        shutil.copy(
            os.path.join(self.files, source or name), os.path.join(self.wine.drive, folder, name)
        )

    def read(self, name):
        with open(os.path.join(self.wine.drive, name), "rb") as file:
            return file.read()

    def put_driver(self, name):
        """The driver under this name is the only one there."""
        for other in ("Petrel.sys", "PetrelNt.sys"):
            if os.path.exists(self.program(other)):
                os.remove(self.program(other))
        self.put(name, "host", "Petrel.sys")

    def patch_image(self, patches):
        with open(self.image, "r+b") as file:
            for offset, patch in patches.items():
                file.seek(offset)
                file.write(patch)

    def program(self, name):
        """By this name Wine becomes the program, instead of starting it."""
        return os.path.join(self.wine.drive, "host", name)

    def host_command(self, words):
        return [self.program("host.exe"), r"C:\library\Kestrel.dll", *words.split()]

    def host(self, words, trace="-all"):
        result = self.wine.run(*self.host_command(words), trace=trace)
        if result.returncode != 0:
            raise SystemExit(f"FAILED: host.exe {words}:\n{result.stdout}{result.stderr}")
        return result

    def expect_host(self, words, wanted):
        expect(f"host.exe {words}", self.host(words).stdout, wanted)

    def native(self, *arguments):
        command = [self.native_tool, *arguments]
        return subprocess.run(command, capture_output=True, check=True).stdout

    def expect_texts(self, driver, image=None):
        """Both texts through the driver are the bytes that this system makes of the same source."""
        image = image or ["--image", self.image]
        wanted = [self.native("report", "--exact", *image), self.native("mif", *image)]
        self.expect_host(
            r"open service read report C:\report mif C:\mif close service",
            f"open 1\nservice runs C:\\host\\{driver}\nread 1\n"
            f"report {len(wanted[0])}\nmif {len(wanted[1])}\nclose 1\nservice none\n",
        )
        for name, bytes_wanted in zip(("report", "mif"), wanted):
            expect(name, self.read(name), bytes_wanted)

    def expect_tool(self, arguments, code, message):
        result = self.wine.run(self.program("kestrel.exe"), *arguments)
        expect(
            f"kestrel.exe {arguments}",
            (result.returncode, result.stdout, result.stderr),
            (code, "", message),
        )


def test_versions_with_driver(machine):
    for version, driver in DRIVER_FILES.items():
        machine.wine.report_version(version)
        machine.put_driver(driver)
        machine.expect_texts(driver, ["--sample"])


def touch(machine, opened):
    """What the host asks of devices and of the service manager."""
    result = machine.host("open close", trace="-all,trace+file,trace+service")
    expect("open and close", result.stdout, f"open {opened}\nclose 1\n")
    pattern = r'trace:(?:file:CreateFileW (L"\\\\\\\\.*)|service:(\w+))'
    return ["".join(found) for found in re.findall(pattern, result.stderr)]


def test_versions_without_driver(machine):
    skua = r'L"\\\\.\\SKUA.VXD" QUERY_ACCESS  creation 1 attributes 0x4000000'
    for version, wanted in {"win98": [skua], "win95": [skua], "win7": []}.items():
        machine.wine.report_version(version)
        expect(version, touch(machine, 0), wanted)
    # What a version shows that has a driver, so that nothing above is known to be nothing.
    machine.wine.report_version("winxp64")
    expect("winxp64", touch(machine, 1)[0], "OpenSCManagerW")


def test_killed_host(machine):
    process = machine.wine.start(*machine.host_command("open hold"), stdout=subprocess.PIPE)
    expect("first line", process.stdout.readline(), "open 1\n")
    expect("second line", process.stdout.readline(), "holds\n")
    process.kill()
    process.wait()
    machine.expect_host("service", "service runs C:\\host\\Petrel.sys\n")
    machine.expect_texts("Petrel.sys")


def test_device(machine):
    machine.patch_image(DEVICE_MARKS)
    machine.expect_host("open device close service", f"open 1\n{DEVICE}close 1\nservice none\n")


def test_tool(machine):
    machine.expect_tool(["save", r"C:\dump"], 0, "")
    dump = os.path.join(machine.wine.drive, "dump")
    for command in (["report", "--exact"], ["mif"], ["list"]):
        expect(
            f"{command} of the saved dump",
            machine.native(*command, "--image", dump),
            machine.native(*command, "--sample"),
        )
    # A tool that fails leaves no service either.
    machine.expect_tool(
        ["report", "-o", r"C:\nowhere\report"],
        1,
        "kestrel: 'C:\\nowhere\\report' cannot be written (No such file or directory): "
        "write to a place that takes it\n",
    )
    machine.expect_host("service", "service none\n")
    machine.expect_tool(["report", "--sample", "--exact", "-o", r"C:\report"], 0, "")
    expect("report", machine.read("report"), machine.native("report", "--sample", "--exact"))


def test_bad_memory(machine):
    def expect_no_table():
        machine.expect_host(
            r"open read report C:\report close service",
            "open 1\nread 0\nreport 0\nclose 1\nservice none\n",
        )

    entry_point = machine.read("memory.img").index(b"_SM_")
    # A table that would end beyond 32 bits; no anchor; no memory at all.
    machine.patch_image({entry_point + 24: b"\x00\xFF\xFF\xFF"})
    expect_no_table()
    machine.patch_image({entry_point: b"_sm_"})
    expect_no_table()
    os.remove(machine.image)
    expect_no_table()


def test_no_driver_file(machine):
    os.remove(machine.program("Petrel.sys"))
    machine.expect_host(
        "open service read close service",
        "open 0\nservice none\nread 0\nclose 1\nservice none\n",
    )
    machine.expect_tool(
        ["bios"],
        1,
        "kestrel: this machine shows no SMBIOS tables: run it as an administrator with the driver "
        "file beside it, or use --image FILE or --sample\n",
    )


def main():
    files, native_tool, prefix = sys.argv[1:]
    if not os.path.exists(native_tool):
        skip(f"there is no {native_tool} to compare with")
    with tempfile.TemporaryDirectory() as folder:
        firmware_image = os.path.join(folder, "memory")
        real_firmware_test.save_first_megabyte([], firmware_image, folder)
        with Wine(prefix, ALLOWED) as wine:
            machine = Machine(wine, files, native_tool)
            shutil.copy(firmware_image, machine.image)
            machine.put_driver("Petrel.sys")
            wine.report_version("winxp64")
            machine.expect_texts("Petrel.sys")

            result = wine.run(machine.program("sample_memory.exe"), r"C:\memory.img")
            expect("sample_memory.exe", result.returncode, 0)
            test_versions_without_driver(machine)
            test_versions_with_driver(machine)
            wine.report_version("winxp64")
            machine.put_driver("Petrel.sys")
            test_killed_host(machine)
            test_tool(machine)
            test_device(machine)
            test_bad_memory(machine)
            test_no_driver_file(machine)


main()
