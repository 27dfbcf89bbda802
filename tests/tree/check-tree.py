#!/usr/bin/env python3
"""Checks what a compiler doesn't: who may include whom, how long files and
functions are, that each source has its header, that no two sources of a target define the same name, since
unity builds compile them together, and that no two types of the product share one.

Run from the top of the tree: tests/tree/check-tree.py. Prints one line per finding, as
"file:line: message", and exits with 1 if there is any.
"""
import os
import re
import subprocess
import sys

from definitions import definitions, types

MOST_LINES_OF_A_FILE = 350
MOST_LINES_OF_A_FUNCTION = 60

PRODUCT = ("app/", "engine/", "standin/", "tools/")
# Names of nested types that say enough beside the name of their class.
NESTED_NAMES = {"Kind"}

# What a folder may include, apart from itself. The first row that matches a file decides.
LAYERS = [
    ("engine/core", []),
    ("engine/graphics", ["engine/core"]),
    ("engine/sound", ["engine/core"]),
    ("engine/window", ["engine/core", "engine/graphics"]),
    ("engine/menu", ["engine"]),
    ("app/aircraft", []),
    ("app/career", ["engine/core", "app/aircraft"]),
    ("app/mission", ["engine/core", "app/career"]),
    ("app/war", ["engine/core", "app/career", "app/mission"]),
    ("app/report", ["engine/core", "app/career", "app/mission"]),
    ("app/record", ["engine/core", "app/career"]),
    ("app/book", ["engine/core", "app/career", "app/report", "app/record"]),
    ("app/screens", ["engine", "app", "standin", "tools/common"]),
    ("standin", ["engine/core", "app/aircraft", "tools/common"]),
    ("tools/common", ["engine/core"]),
    ("tools/menucheck", ["engine", "tools/common"]),
    ("tools", ["engine/core", "app/career", "app/mission", "app/war", "app/report", "app/record", "app/book", "standin", "tools/common"]),
    ("tests", ["engine", "app", "standin", "tools", "fuzz", "bench"]),
    ("bench", ["engine", "app", "standin", "tools", "tests/support"]),
    ("fuzz", ["engine", "app", "standin", "tools", "tests"]),
]

# Who may include headers of SDL and OpenGL; those not listed are as SDL.h.
SDL_LAYERS = {"SDL.h": ["engine/window", "engine/sound", "app/screens", "tests", "bench"],
              "SDL_opengl.h": ["engine/graphics", "tests", "bench"]}


def within(path, folder):
    return path.startswith(folder + "/")


def layer_of(path):
    return next((row for row in LAYERS if within(path, row[0])), None)


def includes(path, lines):
    """Yields a finding for each include against LAYERS."""
    layer = layer_of(path)
    if layer is None:
        yield 1, "no layer names this folder"
        return
    for number, line in enumerate(lines, 1):
        found = re.match(r'#include "(.+)"', line)
        if found and not any(within(found[1], folder) for folder in [layer[0], *layer[1]]):
            yield number, f"{layer[0]} may not include {found[1]}"
        found = re.match(r"#include <((?:SDL|GL/)[^>]*)>", line)
        if found and layer[0] not in SDL_LAYERS.get(found[1], SDL_LAYERS["SDL.h"]):
            yield number, f"{layer[0]} may not include {found[1]}"


def functions(lines):
    """Yields first line and length of each function. The code is formatted: a function's last line
    is the next brace that is indented as its first line is."""
    start = indent = None
    in_body = in_raw_string = False
    for number, line in enumerate(lines, 1):
        was_in_raw_string = in_raw_string
        if 'R"(' in line or ')"' in line:
            in_raw_string = line.rfind('R"(') > line.rfind(')"')
        if was_in_raw_string:
            continue
        line = line.rstrip()
        if start is None:
            head = re.match(r" {0,12}(?! |namespace|class|struct|enum|union|extern|if|for|while|switch|#|//)[\w:~]", line)
            if head and "(" in line:
                start, indent, in_body = number, line[:len(line) - len(line.lstrip())], False
        if start is not None and not in_body:
            if line.endswith("{"):
                in_body = True
            elif line.endswith((";", "}")):
                start = None
        elif in_body and line.startswith(indent + "}"):
            yield start, number - start + 1
            start, in_body = None, False


def sizes(path, lines):
    """Yields a finding for each file or function that is too long."""
    if len(lines) > MOST_LINES_OF_A_FILE:
        yield 1, f"{len(lines)} lines, more than {MOST_LINES_OF_A_FILE}"
    for start, length in functions(lines):
        if length > MOST_LINES_OF_A_FUNCTION:
            yield start, f"a function of {length} lines, more than {MOST_LINES_OF_A_FUNCTION}"


def own_header(path, paths):
    """Yields a finding for a source of a library or program that has no header of its name."""
    # The two sides of the one seam between systems share the headers engine/core/System*.h.
    is_alone = path.endswith("main.cpp") or re.fullmatch(r"engine/core/System\w*(Posix|Windows)\.cpp", path)
    if path.startswith(PRODUCT) and path.endswith(".cpp") and not is_alone and path[:-4] + ".h" not in paths:
        yield 1, "has no header of its name"


def targets():
    """Yields the sources of each target, except those of single files."""
    listed = subprocess.run(["git", "ls-files", "*CMakeLists.txt"], check=True, capture_output=True, text=True)
    for path in listed.stdout.split():
        with open(path, encoding="utf-8") as file:
            text = file.read()
        for target in re.findall(r"^(?:wingtally_\w+|add_library|add_executable)\(([^)]*)\)", text, re.M):
            sources = [os.path.join(os.path.dirname(path), word)
                       for word in target.split() if re.fullmatch(r"[\w/]+\.cpp", word)]
            if len(sources) > 1:
                yield sources


def clashes(paths):
    """Yields source, line and message for each name that an earlier source of the target defines, and for
    each type whose name an earlier one of the product has. The same alias twice in a target isn't a
    clash."""
    for sources in targets():
        known = {}
        for source in filter(os.path.exists, sources):
            for number, name, text in definitions(source):
                first, before = known.setdefault(name, (source, text))
                if first != source and not (text.startswith("using ") and text == before):
                    yield source, number, f"{name.split('(')[0]} is defined in {first} too"
    known = {}
    for path in sorted(path for path in paths if path.startswith(PRODUCT)):
        for number, name in types(path):
            first = known.setdefault(name, f"{path}:{number}")
            if first != f"{path}:{number}" and name not in NESTED_NAMES:
                yield path, number, f"a type named {name} is in {first} too"


def main():
    listed = subprocess.run(["git", "ls-files", "-z", "*.cpp", "*.h"], check=True, capture_output=True)
    paths = set(filter(None, listed.stdout.decode().split("\0")))
    findings = 0
    for path in sorted(paths):
        with open(path, encoding="latin-1") as file:
            lines = file.read().splitlines()
        for number, message in [*includes(path, lines), *sizes(path, lines), *own_header(path, paths)]:
            print(f"{path}:{number}: {message}")
            findings += 1
    for path, number, message in clashes(paths):
        print(f"{path}:{number}: {message}")
        findings += 1
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
