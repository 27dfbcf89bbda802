#!/usr/bin/env python3
"""Checks the programs' code with clang-tidy and the tree's settings.

Run from the top of the tree: tests/tree/check-tidy.py BUILD. BUILD is a folder with the
compile_commands.json of a Clang build; its generated headers must be there. Exits with 1 if there is
any finding.

The standard headers would take most of clang-tidy's time. So the sources of a target are checked as one
translation unit, which takes a tenth of it; check-tree.py makes sure that their names don't clash.
"""
import concurrent.futures
import json
import os
import shlex
import subprocess
import sys

FOLDERS = ("app/", "engine/", "standin/", "tools/")
# The analyzer follows the paths of the unit's own functions alone unless it is told that they are included.
# It gives up a function after so many states; the default of 225,000 takes four times as long.
ANALYZER = ("-Xclang", "-analyzer-opt-analyze-headers", "-Xclang", "-analyzer-config", "-Xclang", "max-nodes=5000")


def arguments(words):
    """The options of a compile command that say how to read the source."""
    kept = []
    for word, following in zip(words, [*words[1:], ""]):
        if word == "-isystem":
            kept += [word, following]
        elif word.startswith(("-I", "-D", "-std=", "-W")):
            kept.append(word)
    return kept


def units(build):
    """Yields sources that can be one translation unit, and the options for them: those of one target."""
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        commands = json.load(file)
    groups = {}  # sources by target and options
    for command in commands:
        words = command.get("arguments") or shlex.split(command["command"])
        output = os.path.join(command["directory"], words[words.index("-o") + 1])
        target = os.path.relpath(output, build).split(".dir/")[0]
        if target.startswith(FOLDERS):
            groups.setdefault((target, *arguments(words)), []).append(command["file"])
    return [(options, sources) for (_, *options), sources in groups.items()]


def check(build, number, options, sources):
    """What clang-tidy prints about these sources, nothing if they are clean."""
    unit = os.path.join(build, f"tidy{number}.cpp")
    with open(unit, "w", encoding="utf-8") as file:
        file.writelines(f'#include "{os.path.abspath(source)}"\n' for source in sources)
    done = subprocess.run(["clang-tidy", "--quiet", "--config-file=.clang-tidy", unit, "--", *options, *ANALYZER],
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
