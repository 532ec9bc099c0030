#!/usr/bin/env python3
"""Runs the linter on every C++ source that a build folder compiles; the folder is the argument.

The linter spends much of its time on the headers that a source includes. So sources that are compiled
alike are put together into units, folder by folder, as far as their names do not clash. The sources
of a unit in which the linter finds anything are checked one by one, and only what it finds then is a
fault: names of one source may seem to shadow those of another.
"""
import collections
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
# Leaves src/types to itself: the linter follows its functions into what it sees, and takes several
# times as long where it sees src/model.
LARGEST_UNIT = 56
# What includes this takes longest, so it comes first.
HEAVIEST = "#include <CLI/CLI.hpp>"

# What of a command matters to the linter.
FLAG = re.compile(r"-(?:[DIWm]|std=)")
# What a source defines outside of every class and function.
NAME = re.compile(r"^(?!namespace|static_assert|using|TEST)(?:\w[\w:<>,*&\[\] ]*?[ *&>])?"
                  r"([\w:]+)(?![\w:])(?:\[\w*\])*(?: final)? ?[={(;:]", re.MULTILINE)
NAMESPACE = re.compile(r"^namespace ([\w:]+)", re.MULTILINE)
GOOGLE_TEST = re.compile(r"^TEST(?:_[FP])?\((\w+), (\w+)\)", re.MULTILINE)


class Unit:
    def __init__(self):
        self.names = set()
        self.sources = []
        self.text = ""
        self.path = None

    def add(self, source):
        """Returns whether the source's names are new to the unit, which has the source then."""
        text = source.read_text()
        namespace = NAMESPACE.search(text)
        names = {(namespace and namespace[1], name) for name in NAME.findall(text)}
        names.update(GOOGLE_TEST.findall(text))
        if not self.names.isdisjoint(names):
            return False
        self.names |= names
        self.sources.append(source)
        self.text += text + "\n"
        return True


def config_folder(source):
    """The innermost folder that has settings of the linter for the source, in the project."""
    return next(folder.relative_to(PROJECT) for folder in source.parents
                if (folder / ".clang-tidy").exists())


def make_units(commands, folder):
    """Writes the units to the folder, each below a copy of its settings, and returns them."""
    commands = [command for command in commands if command["file"].endswith(".cpp")]
    flags = dict.fromkeys(flag for command in commands for flag in shlex.split(command["command"])
                          if FLAG.match(flag))
    sources = sorted(source for source in {pathlib.Path(command["file"]) for command in commands}
                     if PROJECT in source.parents)
    folders = collections.Counter(source.parent for source in sources)
    groups = {}
    clashing = []
    for source in sources:
        units = groups.setdefault(config_folder(source), [])
        # A folder's sources are counted at its first, so that the folder is not divided.
        coming = folders.pop(source.parent, 0)
        if not units or len(units[-1].sources) + coming > LARGEST_UNIT:
            units.append(Unit())
        if not units[-1].add(source):
            clashing.append(source)
    for source in clashing:
        units = groups[config_folder(source)]
        if not any(unit.add(source) for unit in reversed(units)):
            units.append(Unit())
            units[-1].add(source)

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
    # Precompiled headers are for another compiler, so the sources by themselves are read anew, too.
    (folder / "compile_commands.json").write_text(json.dumps(
        [{"directory": str(folder), "file": str(path), "arguments": ["c++", *flags, "-c", str(path)]}
         for unit in all_units for path in (unit.path, *unit.sources)]))
    return sorted(all_units, key=lambda unit: (HEAVIEST not in unit.text, -len(unit.text)))


def lint(database, path):
    return subprocess.run(["clang-tidy", "-p", database, "--quiet", path], text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)


def check(folder, unit):
    """Returns what is wrong with the unit's sources."""
    if lint(folder, unit.path).returncode == 0:
        return ""
    runs = [lint(folder, source) for source in unit.sources]
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
        faults = "".join(pool.map(lambda unit: check(folder, unit), units))
    print(faults, end="")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
