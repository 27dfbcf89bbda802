#!/bin/sh
# Fails where clang-tidy with the tree's settings finds something: tests/tree/check-tidy.sh BUILD, from
# the top of the tree. BUILD is a folder with compile_commands.json of a Clang build; its generated
# headers must be there.
set -eu
build=$1

# The programs' own code: what a test does wrong, its result shows. The longest first, so that no
# core waits at the end. A line is printed for each finding, none for what was looked at.
git ls-files 'app/*.cpp' 'engine/*.cpp' 'standin/*.cpp' 'tools/*.cpp' | grep -v SystemWindows |
    xargs wc -c | sort -rn | awk '$2 != "total" { print $2 }' |
    xargs -P "$(nproc)" -n 1 clang-tidy -p "$build" --quiet
