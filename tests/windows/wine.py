"""Wine for tests: a new prefix, no display, and nothing left of it afterwards."""

import os
import shutil
import signal
import subprocess
import sys
import tempfile

SKIPPED = 77
PATIENCE = 60  # seconds for a program


def find(*names):
    for name in names:
        # Debian puts what is not meant to be called by name into a folder.
        path = shutil.which(name) or shutil.which(name, path="/usr/lib/wine")
        if path:
            return path
    skip(f"there is no {names[0]}")


def skip(why):
    print(f"skipped: {why}")
    sys.exit(SKIPPED)


def end(*_):
    raise SystemExit("FAILED: it took too long, or was told to end")


class Wine:
    """Stops what it has started when its block is left. `allowed` is how many seconds the block
    may take in all."""

    def __init__(self, prefix, allowed):
        self.loader = find("wine64", "wine")
        self.server = find("wineserver64", "wineserver")
        self.prefix = os.path.abspath(prefix)
        self.drive = os.path.join(self.prefix, "drive_c")
        self.environment = {
            "HOME": self.prefix,
            "PATH": os.environ["PATH"],
            "TMPDIR": self.prefix,  # where Wine leaves the folder of its server
            "WINEDEBUG": "-all",
            "WINEDLLOVERRIDES": "mscoree,mshtml=;winemenubuilder.exe=",
            "WINEPREFIX": self.prefix,
        }
        for name in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP, signal.SIGALRM):
            signal.signal(name, end)
        signal.alarm(allowed)

    def __enter__(self):
        shutil.rmtree(self.prefix, ignore_errors=True)
        os.makedirs(self.prefix)
        try:
            # The first program brings Windows up, and by waiting keeps it up between two others. It
            # ends with this process, however that ends.
            self.keeper = self.start("cmd", stdin=subprocess.PIPE, stdout=subprocess.PIPE)
            self.keeper.stdin.write("echo up and running\n")
            self.keeper.stdin.flush()
            while "up and running" not in (line := self.keeper.stdout.readline()):
                if not line:
                    skip("Wine does not start")
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        signal.alarm(0)
        for option in ("-k", "-w"):
            subprocess.run([self.server, option], env=self.environment, check=False)
        shutil.rmtree(self.prefix, ignore_errors=True)

    def start(self, *command, **streams):
        return subprocess.Popen(
            [self.loader, *command], env=self.environment, cwd=self.prefix, text=True, **streams
        )

    def run(self, *command):
        """The output goes to files: a pipe would stay open as long as any service of Windows that
        the program happens to start."""
        with tempfile.TemporaryFile("w+") as output, tempfile.TemporaryFile("w+") as errors:
            process = self.start(*command, stdin=subprocess.DEVNULL, stdout=output, stderr=errors)
            code = process.wait(timeout=PATIENCE)
            output.seek(0)
            errors.seek(0)
            return code, output.read(), errors.read()

    def report_version(self, version):
        """Sets which Windows programs believe to run on."""
        key = r"HKCU\Software\Wine"
        code, _, errors = self.run("reg", "add", key, "/v", "Version", "/d", version, "/f")
        if code != 0:
            raise SystemExit(f"FAILED: no version {version}: {errors}")
