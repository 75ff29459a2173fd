#!/usr/bin/env bash
# What the commands in the project's folder do about missing packages: as root, with sudo, with
# neither, and where the installing fails. Everything that they call is played here.
set -uo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
failures=0

# play NAME BODY: a program of that name in the played system.
play() {
    printf '#!/bin/bash\n%s\n' "$2" > "$folder/bin/$1"
    chmod 755 "$folder/bin/$1"
}

# A system with the package "there" alone; what apt-get and sudo are asked stands in "calls".
new_system() {
    rm -rf "${folder:?}/bin" "$folder/calls"
    mkdir "$folder/bin"
    local program
    for program in bash cat env grep; do
        ln -s "$(command -v "$program")" "$folder/bin/$program"
    done
    play id "echo $1"
    # shellcheck disable=SC2016  # for the played programs
    play dpkg-query 'for name; do :; done; [ "$name" = there ] && echo "install ok installed"'
    play apt-get "echo \"apt-get \$*\" >> '$folder/calls'"
}

# expect CASE STATUS OUTPUT CALLS PACKAGE…
expect() {
    local name=$1 status=$2 output=$3 calls=$4 found found_status
    shift 4
    # shellcheck disable=SC2016  # for the played system's shell
    found=$(PATH=$folder/bin bash -c '
        set -euo pipefail
        . "$1"
        shift
        install_missing "$@"
        echo "goes on"' bash "$root/scripts/packages.sh" "$@" 2>&1)
    found_status=$?
    if [ "$found_status" -ne "$status" ] || [ "$found" != "$output" ] ||
        [ "$(cat "$folder/calls" 2>/dev/null)" != "$calls" ]; then
        printf 'FAILED: %s\nstatus %s, output:\n%s\ncalls:\n%s\n' "$name" "$found_status" "$found" \
            "$(cat "$folder/calls" 2>/dev/null)"
        failures=$((failures + 1))
    fi
}

# refusal REASON PACKAGE…
refusal() {
    local reason=$1
    shift
    printf '%s\n' "These packages are missing: $*" \
        "$reason Ask the administrator of this machine to install them, as root:" \
        "    apt-get install --no-install-recommends $*" 'Then call this command again.'
}
install='apt-get install -y -qq --no-install-recommends'

new_system 1000
expect "nothing is missing" 0 "goes on" "" there

new_system 0
expect "root" 0 $'Installing missing packages: g++ cmake\ngoes on' \
    "apt-get update -qq"$'\n'"$install g++ cmake" g++ there cmake

new_system 1000
play sudo "echo sudo >> '$folder/calls'; \"\$@\""
expect "sudo" 0 $'Installing missing packages: g++\ngoes on' \
    $'sudo\napt-get update -qq\nsudo\n'"$install g++" g++

new_system 1000
expect "neither root nor sudo" 1 \
    "$(refusal "This command is not run by root, and there is no sudo." g++ cmake)" "" g++ there cmake

new_system 1000
play sudo 'echo "nobody is not in the sudoers file." >&2; exit 1'
expect "a sudo that refuses" 1 $'Installing missing packages: g++\nnobody is not in the sudoers file.\n'"$(
    refusal "They could not be installed." g++)" "" g++

new_system 0
play apt-get 'echo "E: no network" >&2; exit 100'
expect "an installing that fails" 1 $'Installing missing packages: g++\nE: no network\n'"$(
    refusal "They could not be installed." g++)" "" g++

# Each command asks before it does anything else.
new_system 1000
for program in basename dirname realpath; do
    ln -s "$(command -v "$program")" "$folder/bin/$program"
done
for command in run test package bench coverage fuzz .ci/run; do
    found=$(PATH=$folder/bin bash "$root/$command" 2>&1)
    status=$?
    if [ "$status" -ne 1 ] || [[ $found != "These packages are missing: "*"as root:"* ]] ||
        [ "$(wc -l <<<"$found")" -ne 4 ]; then
        printf 'FAILED: %s without its packages: status %s\n%s\n' "$command" "$status" "$found"
        failures=$((failures + 1))
    fi
done

[ "$failures" -eq 0 ]
