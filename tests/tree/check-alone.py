#!/usr/bin/env python3
"""Checks that each source of the programs compiles by itself: a unity build hides a missing include.

Run from the top of the tree: tests/tree/check-alone.py BUILD. BUILD is a folder with the
compile_commands.json of a Clang build; its generated headers must be there. The sources are only parsed,
which takes half a second each, with the headers that nearly all of them include parsed once. Exits with 1 if
one is faulty.
"""
import concurrent.futures
import json
import os
import re
import shlex
import subprocess
import sys
import tempfile

COMMON = "engine/core/String.h"  # its headers of the library are parsed once
FOLDERS = ("app/", "engine/", "standin/", "tools/")


def sources(path):
    """The sources that the file of a unity build includes; any other file is itself the source."""
    if "/Unity/" not in path:
        return [path]
    with open(path, encoding="utf-8") as file:
        return re.findall(r'^#include "(.+)"', file.read(), re.M)


def commands(build):
    """Yields what parses a source, for each source of the programs."""
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        compilations = json.load(file)
    for compilation in compilations:
        words = compilation.get("arguments") or shlex.split(compilation["command"])
        options = [word for word, before in zip(words, ["", *words])
                   if before == "-isystem" or word == "-isystem" or word.startswith(("-I", "-D", "-std="))]
        for source in sources(compilation["file"]):
            if os.path.relpath(source).startswith(FOLDERS):
                yield ["clang++", "-fsyntax-only", *options, source]


def check(command):
    """What the compiler prints, nothing if the source is right."""
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    return "" if done.returncode == 0 else done.stdout + done.stderr


def parse_common(folder):
    """The options that give a source the parsed headers."""
    with open(COMMON, encoding="utf-8") as header, open(folder + "/common.h", "w", encoding="utf-8") as common:
        common.writelines(line for line in header if line.startswith("#include <"))
    parsed = folder + "/common.pch"
    subprocess.run(["clang++", "-std=c++17", "-x", "c++-header", folder + "/common.h", "-o", parsed], check=True)
    return ["-include-pch", parsed]


def main():
    with tempfile.TemporaryDirectory() as folder, concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        common = parse_common(folder)
        findings = "".join(pool.map(lambda command: check(command + common), commands(sys.argv[1])))
    print(findings, end="")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
