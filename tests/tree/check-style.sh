#!/bin/sh
# Fails where the tree's form is not what .clang-format, .clang-tidy, shellcheck, check-tree.py and
# check-texts.py ask for: tests/tree/check-style.sh BUILD, from the top of the tree. BUILD is a folder with
# compile_commands.json of a Clang build; its generated headers must be there.
set -eu
build=$1

tests/tree/check-tree.py
tests/tree/check-texts.py
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
git ls-files | xargs grep -lE '^#!/(bin/|usr/bin/env )(ba)?sh' | xargs shellcheck -x

# The programs' own code: what a test does wrong, its result shows. The longest first, so that no
# core waits at the end. A line is printed for each finding, none for what was looked at.
git ls-files 'app/*.cpp' 'engine/*.cpp' 'standin/*.cpp' 'tools/*.cpp' | grep -v SystemWindows |
    xargs wc -c | sort -rn | awk '$2 != "total" { print $2 }' |
    xargs -P "$(nproc)" -n 1 clang-tidy -p "$build" --quiet
