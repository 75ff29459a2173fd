#!/usr/bin/env bash
# clang-format (check only) over all sources, shellcheck over all shell scripts, what a script makes made
# again, the spell check over all texts, and clang-tidy over the product's sources, which needs the
# compile commands of build/dev.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run --Werror
echo "clang-format: clean"

scripts/shellcheck.sh
echo "shellcheck: clean"

# 77: another version of the Unicode data is installed.
scripts/simplify_table.py --check || [ "$?" -eq 77 ]
echo "table of spellings: as made"

# 77: other fonts, or another version of the library that cuts them.
scripts/list_fonts.py --check || [ "$?" -eq 77 ]
echo "fonts of the phone list: as made"

# First whether it finds what it is made to find.
tests/scripts/spelling_test.sh
tests/scripts/precommit_test.sh
scripts/spelling.py
echo "spell check: clean"

# A process a core; each prints only what it finds.
# The files of Windows need its headers.
git ls-files '*.cpp' ':!tests' ':!fuzzers' ':!benchmarks' ':!*_windows.cpp' |
    xargs -P "$(nproc)" -n 4 clang-tidy -p build/dev --quiet --warnings-as-errors='*' 2>/dev/null
echo "clang-tidy: clean"
