#!/usr/bin/env python3
"""Checks the programs' code with clang-tidy and the tree's settings.

Run from the top of the tree: tests/tree/check-tidy.py BUILD. BUILD is a folder with the
compile_commands.json of a Clang build; its generated headers must be there. Exits with 1 if there is
any finding.

The standard headers would take most of clang-tidy's time. So many sources are pasted into one translation
unit: those of a target, whose names don't clash (check-tree.py makes sure of that), and of further targets
as long as theirs don't either. They are pasted, not included, because the analyzer follows no paths of an
included file, or else those of the standard headers too. For the same reason the tree's own headers are
pasted into one more source. A finding is reported where its source has it.
"""
import concurrent.futures
import json
import os
import re
import shlex
import subprocess
import sys

from definitions import definitions

FOLDERS = ("app/", "engine/", "standin/", "tools/")
MOST_LINES = 6000  # of a unit of several targets: both of two cores have work to the end
ALONE = "engine/core"  # where it sees how a string copies what it owns, the analyzer takes each copy for a leak
# The analyzer gives up a function after that many states; the default of 225,000 takes eight times as long.
ANALYZER = ("-Xclang", "-analyzer-config", "-Xclang", "max-nodes=5000")


class Unit:
    """Sources that are checked together, and the options that say how to read them."""

    def __init__(self):
        self.sources = []
        self.headers = {}  # folders of headers and macros; a dict keeps their order
        self.warnings = []
        self.lines = 0
        self.names = set()
        self.parts = [self]  # the targets
        self.is_alone = False

    def add(self, source, words):
        self.sources.append(source)
        for word, following in zip(words, [*words[1:], ""]):
            if word == "-isystem":
                self.headers[word, following] = None
            elif word.startswith(("-I", "-D", "-std=")):
                self.headers[(word,)] = None
        self.warnings = [word for word in words if word.startswith("-W")]
        self.names |= {name.split("(")[0] for _, name, _ in definitions(source)}
        with open(source, encoding="latin-1") as file:
            self.lines += sum(1 for _ in file)

    def fits(self, other):
        return (self.lines + other.lines <= MOST_LINES and self.warnings == other.warnings and
                not self.names & other.names and not self.is_alone and not other.is_alone)

    def with_other(self, other):
        result = Unit()
        result.sources = self.sources + other.sources
        result.headers = {**self.headers, **other.headers}
        result.warnings = self.warnings
        result.lines = self.lines + other.lines
        result.names = self.names | other.names
        result.parts = self.parts + other.parts
        return result

    def options(self):
        return [word for words in self.headers for word in words] + self.warnings


def sources_of(path):
    """The sources that the file of a unity build includes; any other file is itself the source."""
    if "/Unity/" not in path:
        return [path]
    with open(path, encoding="utf-8") as file:
        return re.findall(r'^#include "(.+)"', file.read(), re.M)


def targets(build):
    """The sources of each target as a unit; one that is compiled with other warnings is a unit by itself."""
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        commands = json.load(file)
    units = {}
    for command in commands:
        words = command.get("arguments") or shlex.split(command["command"])
        output = os.path.join(command["directory"], words[words.index("-o") + 1])
        target = os.path.relpath(output, build).split(".dir/")[0]
        if target.startswith(FOLDERS):
            unit = units.setdefault((target, *(word for word in words if word.startswith("-W"))), Unit())
            unit.is_alone = target.startswith(ALONE)
            for source in sources_of(command["file"]):
                unit.add(source, words)
    return list(units.values())


def merged(units):
    """The same sources in fewer units, the longest first."""
    result = []
    for unit in sorted(units, key=lambda unit: -unit.lines):
        place = next((i for i, other in enumerate(result) if other.fits(unit)), len(result))
        result[place:place + 1] = [result[place].with_other(unit) if place < len(result) else unit]
    return sorted(result, key=lambda unit: -unit.lines)


def lines_of(path, opened):
    """Yields path, number and text of the lines of a source. opened: None, or the headers that were read so
    far: then the tree's other headers are put in place of the lines that include them."""
    with open(path, encoding="latin-1") as file:
        for number, line in enumerate(file, 1):
            included = re.match(r'#include "(.+)"', line)
            if opened is None or included is None:
                if opened is None or not line.startswith("#pragma once"):
                    yield path, number, line.rstrip("\n") + "\n"
            elif included[1] not in opened:
                opened.add(included[1])
                yield from lines_of(included[1], opened)


def paste(sources, path, opened):
    """Writes the sources as one file. Returns source and line of each of its lines."""
    origins = []
    with open(path, "w", encoding="latin-1") as pasted:
        for source in sources:
            for origin, number, line in lines_of(source, opened):
                pasted.write(line)
                origins.append(f"{origin}:{number}")
    return origins


def check(build, name, unit, *checks, opened=None):
    """What clang-tidy prints about these sources, nothing if they are clean."""
    path = os.path.abspath(os.path.join(build, f"tidy{name}.cpp"))
    origins = paste(unit.sources, path, opened)
    done = subprocess.run(["clang-tidy", "--quiet", "--config-file=.clang-tidy", *checks, path, "--",
                           *unit.options(), *ANALYZER], capture_output=True, text=True, check=False)
    if done.returncode == 0:
        return ""
    if "[clang-diagnostic-error]" in done.stdout and len(unit.parts) > 1:  # targets that don't go together
        return "".join(check(build, f"{name}-{number}", part) for number, part in enumerate(unit.parts))
    return re.sub(re.escape(path) + r":(\d+)", lambda found: origins[int(found[1]) - 1], done.stdout + done.stderr)


def check_headers(build, units):
    """What the analyzer prints about the functions that headers define: one source with all headers in it,
    except those of texts, which use the same name twice."""
    unit = Unit()
    for other in units:
        unit.headers.update(other.headers)
    listed = subprocess.run(["git", "ls-files", "*.h"], check=True, capture_output=True, text=True)
    headers = [path for path in listed.stdout.split()
               if path.startswith(FOLDERS) and not path.endswith(("Wording.h", "Windows.h"))]
    path = os.path.join(build, "tidy-headers.txt")
    with open(path, "w", encoding="utf-8") as file:
        file.writelines(f'#include "{header}"\n' for header in headers)
    unit.sources = [path]
    return check(build, "-headers", unit, "--checks=-*,clang-analyzer-*", opened=set())


def main():
    build = sys.argv[1]
    units = targets(build)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = [pool.submit(check, build, number, unit) for number, unit in enumerate(merged(units))]
        results.append(pool.submit(check_headers, build, units))
        findings = "".join(result.result() for result in results)
    print(findings, end="")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
