#!/bin/sh
# Fails if clang-format, shellcheck, check-tree.py or check-texts.py finds a fault. Run it from the
# top of the tree.
set -eu

tests/tree/check-tree.py
tests/tree/check-texts.py
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
git ls-files | xargs grep -lE '^#!/(bin/|usr/bin/env )(ba)?sh' | xargs shellcheck -x
