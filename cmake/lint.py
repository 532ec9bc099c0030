#!/usr/bin/env python3
"""Runs the linter on every C++ source that a build folder compiles; the folder is the argument.

The linter spends nearly all its time on the headers that a source includes. So sources that are
compiled alike are put together into units, as far as their names do not clash. The sources of a unit
in which the linter finds anything are checked one by one, and only what it finds then is a fault:
names of one source may seem to shadow those of another.
"""
import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys

PROJECT = pathlib.Path(__file__).resolve().parent.parent
LARGEST_UNIT = 24

# What a source defines, or makes visible, outside of every class and function.
FLAG = re.compile(r"-(?:[DIWm]|std=)")
NAME = re.compile(r"^(?!namespace|TEST)(?:\w[\w:<>,*&\[\] ]*?[ *&>])?([\w:]+)(?![\w:])(?:\[\w*\])*"
                  r"(?: final)? ?[={(;:]", re.MULTILINE)
GOOGLE_TEST = re.compile(r"^TEST(?:_[FP])?\((\w+, \w+)\)", re.MULTILINE)


class Unit:
    def __init__(self):
        self.names = set()
        self.sources = []
        self.text = ""
        self.path = None

    def takes(self, names):
        return len(self.sources) < LARGEST_UNIT and self.names.isdisjoint(names)

    def add(self, source, text, names):
        self.names |= names
        self.sources.append(source)
        self.text += text + "\n"


def config_folder(source):
    """The innermost folder that has settings of the linter for the source, in the project."""
    return next(folder.relative_to(PROJECT) for folder in source.parents
                if (folder / ".clang-tidy").exists())


def make_units(commands, folder):
    """Writes the units to the folder, each below a copy of its settings, and returns them."""
    commands = [command for command in commands if command["file"].endswith(".cpp")]
    flags = dict.fromkeys(flag for command in commands for flag in shlex.split(command["command"])
                          if FLAG.match(flag))
    groups = {}
    for source in sorted({pathlib.Path(command["file"]) for command in commands}):
        if PROJECT not in source.parents:
            continue
        text = source.read_text()
        names = set(NAME.findall(text)) | set(GOOGLE_TEST.findall(text))
        units = groups.setdefault(config_folder(source), [])
        unit = next((unit for unit in units if unit.takes(names)), None)
        if unit is None:
            unit = Unit()
            units.append(unit)
        unit.add(source, text, names)

    unit_commands = []
    all_units = []
    for config, units in groups.items():
        for place in (config, *config.parents):
            if (PROJECT / place / ".clang-tidy").exists():
                (folder / place).mkdir(parents=True, exist_ok=True)
                shutil.copy(PROJECT / place / ".clang-tidy", folder / place)
        for unit in units:
            unit.path = folder / config / f"unit{len(all_units)}.cpp"
            unit.path.write_text(unit.text)
            all_units.append(unit)
            unit_commands.append({"directory": str(folder), "file": str(unit.path),
                                  "arguments": ["c++", *flags, "-c", str(unit.path)]})
    (folder / "compile_commands.json").write_text(json.dumps(unit_commands))
    return sorted(all_units, key=lambda unit: -len(unit.text))


def lint(database, path):
    return subprocess.run(["clang-tidy", "-p", database, "--quiet", path], text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)


def check(build, folder, unit):
    """Returns what is wrong with the unit's sources."""
    if lint(folder, unit.path).returncode == 0:
        return ""
    runs = [lint(build, source) for source in unit.sources]
    # Whatever else the linter says, it fails by its exit code; it may crash without a word.
    return "".join(run.stdout or f"The linter ended with {run.returncode}\n"
                   for run in runs if run.returncode != 0)


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    folder = build / "lint"
    shutil.rmtree(folder, ignore_errors=True)
    commands = json.loads((build / "compile_commands.json").read_text())
    units = make_units(commands, folder)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        faults = "".join(pool.map(lambda unit: check(build, folder, unit), units))
    print(faults, end="")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
