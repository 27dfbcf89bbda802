#!/usr/bin/env python3
"""Checks the programs' code with clang-tidy and the tree's settings.

Run from the top of the tree: tests/tree/check-tidy.py BUILD. BUILD is a folder with the
compile_commands.json of a Clang build; its generated headers must be there. Exits with 1 if there is
any finding.

Most of clang-tidy's time goes into the standard headers. So the sources of a folder are checked as one
translation unit, which takes a tenth of the time; sources that define the same name get units of their own.
"""
import concurrent.futures
import json
import os
import re
import shlex
import subprocess
import sys

FOLDERS = ("app/", "engine/", "standin/", "tools/")
# A name that is defined at the top level: "constexpr int32_t Rows = 8;", "void draw(", "struct Row {".
DEFINITION = re.compile(r"(?:struct|class|enum|enum class) (\w+)|"
                        r"(?!return |using )\w[\w:<>&*, ]*[ &*(](\w+)(?:\[\w*\])?(?: =|[({)])")


def definitions(source):
    """The names that may clash with another source's, qualified ones left out."""
    with open(source, encoding="latin-1") as file:
        found = (DEFINITION.match(line) for line in file)
        return {match[1] or match[2] for match in found if match}


def arguments(command):
    """The options of a compile command that say how to read the source."""
    words = command.get("arguments") or shlex.split(command["command"])
    kept = []
    for word, following in zip(words, [*words[1:], ""]):
        if word == "-isystem":
            kept += [word, following]
        elif word.startswith(("-I", "-D", "-std=", "-W")):
            kept.append(word)
    return kept


def units(build):
    """Yields sources that can be one translation unit, and the options for them."""
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        commands = json.load(file)
    groups = []  # of one folder and the same options: folder, options, names, sources
    for command in sorted(commands, key=lambda command: command["file"]):
        source = os.path.relpath(command["file"])
        if not source.startswith(FOLDERS):
            continue
        folder, options, names = os.path.dirname(source), arguments(command), definitions(source)
        group = next((g for g in groups if g[0] == folder and g[1] == options and not g[2] & names), None)
        if group is None:
            groups.append((folder, options, names, [source]))
        elif source not in group[3]:
            group[2].update(names)
            group[3].append(source)
    return [(options, sources) for _, options, _, sources in groups]


def check(build, number, options, sources):
    """What clang-tidy prints about these sources, nothing if they are clean."""
    unit = os.path.join(build, f"tidy{number}.cpp")
    with open(unit, "w", encoding="utf-8") as file:
        file.writelines(f'#include "{os.path.abspath(source)}"\n' for source in sources)
    done = subprocess.run(["clang-tidy", "--quiet", "--config-file=.clang-tidy", unit, "--", *options],
                          capture_output=True, text=True, check=False)
    return "" if done.returncode == 0 else done.stdout + done.stderr


def main():
    build = sys.argv[1]
    todo = sorted(units(build), key=lambda unit: -len(unit[1]))
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = pool.map(lambda job: check(build, job[0], *job[1]), enumerate(todo))
        findings = "".join(results)
    print(findings, end="")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
