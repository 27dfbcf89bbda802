#!/bin/sh
# Fails if clang-format, shellcheck, check-tree.py, check-texts.py or check-docs.py finds a fault. Run
# it from the top of the tree.
set -eu

tests/tree/check-tree.py
tests/tree/check-texts.py
tests/tree/check-docs.py
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
git ls-files | xargs grep -lE '^#!/(bin/|usr/bin/env )(ba)?sh' | xargs shellcheck -x -a
