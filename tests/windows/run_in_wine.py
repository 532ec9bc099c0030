#!/usr/bin/env python3
"""Runs a test program for Windows in Wine. Arguments: the prefix for Wine, the program."""

import sys

from wine import Wine

ALLOWED = 300


def main():
    prefix, program = sys.argv[1:]
    with Wine(prefix, ALLOWED) as wine:
        sys.exit(wine.start(program).wait())


main()
