#!/usr/bin/env bash
# The hook before a commit, in a repository of its own: it looks at what is staged, and only at that.
set -uo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
unset GIT_DIR GIT_INDEX_FILE GIT_WORK_TREE GIT_PREFIX  # where a hook runs this
export GIT_CONFIG_GLOBAL=/dev/null GIT_CONFIG_SYSTEM=/dev/null
cd "$folder" || exit 1
git init -q .
git config user.name Anna
git config user.email anna@norvik.invalid
mkdir -p scripts/hooks
cp "$root/.clang-format" .
cp "$root"/scripts/{packages.sh,shellcheck.sh,spelling.py,words.txt} scripts/
cp "$root/scripts/hooks/pre-commit" scripts/hooks/
git add .
git commit -q -m "Begin"
git config core.hooksPath scripts/hooks

failures=0
# expect CASE STATUS TEXT: commits what is staged; TEXT is in what is said.
expect() {
    local found status
    found=$(git commit -q -m "$1" 2>&1)
    status=$?
    if [ "$status" -ne "$2" ] || [[ $found != *"$3"* ]] || { [ -z "$3" ] && [ -n "$found" ]; }; then
        printf 'FAILED: %s: status %s\n%s\n' "$1" "$status" "$found"
        failures=$((failures + 1))
    fi
    git reset -q --hard
}
stage() {
    printf '%b' "$2" > "$1"
    git add "$1"
}

stage a.cpp '// A number.\nint number = 1;\n'
stage b 'no script\n'
stage c.md 'A text.\n'
# shellcheck disable=SC2016  # for the staged scripts
stage "d e.sh" '#!/bin/bash\necho "$1"\n'
expect "all right" 0 ""
stage a.cpp '// A number.\nint   number=1;\n'
expect "the format" 1 "a.cpp:2:4: error: code should be clang-formatted"
stage a.cpp '// A numbber.\nint number = 1;\n'
expect "a comment" 1 "a.cpp:1: numbber"
# shellcheck disable=SC2016
stage b '#!/usr/bin/env bash\necho $1\n'
expect "a script" 1 "SC2086"
stage c.md 'A texxt.\n'
expect "a text" 1 "c.md:1: texxt"
stage c.md 'A better text.\n'
printf 'A texxt.\n' > c.md
expect "what is not staged" 0 ""
stage c.md 'A texxt.\n'
printf 'A text.\n' > c.md
expect "what is staged alone" 1 "c.md:1: texxt"
git rm -q c.md
expect "a removal" 0 ""
exit "$((failures > 0))"
