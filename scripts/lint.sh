#!/usr/bin/env bash
# clang-format (check only) over all sources, and clang-tidy over the product's, which needs the
# compile commands of build/dev.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run --Werror
echo "clang-format: clean"

# A process a core; each prints only what it finds.
git ls-files '*.cpp' ':!tests' ':!fuzzers' ':!benchmarks' |
    xargs -P "$(nproc)" -n 4 clang-tidy -p build/dev --quiet --warnings-as-errors='*' 2>/dev/null
echo "clang-tidy: clean"
