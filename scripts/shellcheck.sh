#!/usr/bin/env bash
# Runs shellcheck over the shell scripts among the given files, without files over all that git knows,
# whatever their names end in: scripts/shellcheck.sh [FILE…]
set -euo pipefail

if [ "$#" -eq 0 ]; then
    cd "$(dirname "${BASH_SOURCE[0]}")/.."
    mapfile -d '' -t files < <(git ls-files -z)
    set -- "${files[@]}"
fi
scripts=()
for file in "$@"; do
    if [ -f "$file" ] && LC_ALL=C sed -n '1{/^#!.*\bbash\b/p; /^#!.*\/sh\b/p; /^# shellcheck shell=/p}' "$file" |
        grep -q .; then
        scripts+=("$file")
    elif [[ $file == *.sh || $file == *.bash-completion ]]; then
        scripts+=("$file")
    fi
done
[ "${#scripts[@]}" -eq 0 ] || shellcheck -x "${scripts[@]}"
