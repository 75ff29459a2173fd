#!/usr/bin/env bash
# Builds the core's and the converter's tests for Windows, and those of the window if it is asked for
# them, and runs them under wine:
# scripts/windows-tests.sh [window] [options of the test framework, such as --gtest_filter=OutputFile*]
# No program has a manifest, so a path that goes through a narrow character set fails. What
# docs/windows.md names as not tested there is skipped, unless NORVIK_RUN_ALL is set; the script fails
# when that list does not fit. "./windows test" runs it, too, before it tries the programs themselves.
# Everything lies in build/windows-tests, but for the libraries (scripts/windows-libraries.sh).
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
. scripts/packages.sh
install_missing "${WINDOWS_PACKAGES[@]}" "${WINDOWS_TEST_PACKAGES[@]}"

build=$root/build/windows-tests
mkdir -p "$build"
# Two at once would share the folder and its Windows: the second waits.
exec 9< "$build"
flock --nonblock 9 || { echo "Waiting for another run in $build" >&2; flock 9; }
parts=(core console)
libraries=(pdf googletest)
if [ "${1:-}" = window ]; then
    shift
    install_missing "${WINDOWS_TOOLKIT_PACKAGES[@]}" qt6-translations-l10n fonts-dejavu-core
    parts+=(window)
    libraries+=(toolkit)
fi
roots=""
for library in "${libraries[@]}"; do
    roots+=$(scripts/windows-libraries.sh "$library")";"
done
# -O0 compiles faster, and what is tested here is the system.
cmake -S . -B "$build" -G Ninja --toolchain cmake/windows.cmake \
    "-DCMAKE_FIND_ROOT_PATH=${roots%;}" -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS=-g0 \
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
    -DNORVIK_WINDOW="$([[ ${parts[*]} = *window* ]] && echo ON || echo OFF)" > /dev/null
cmake --build "$build" --target "${parts[@]/%/-tests}"

# The locale decides which one the narrow character set is.
export WINEPREFIX=$build/wine WINEDEBUG=-all TZ=Europe/Berlin LC_ALL=C.UTF-8
if [ ! -d "$WINEPREFIX" ]; then
    wineboot --init > /dev/null 2>&1
fi
if [[ ${parts[*]} = *window* ]]; then
    # The font of the window's tests here. wine takes no such words from the environment.
    mkdir -p "$build/fonts"
    cp /usr/share/fonts/truetype/dejavu/DejaVuSans{,-Bold}.ttf "$build/fonts"
    wine reg add 'HKCU\Environment' /v QT_QPA_FONTDIR /d "Z:${build//\//\\}\\fonts" /f > /dev/null 2>&1
fi
# The tests' files lie in memory.
temporary=$(mktemp -d /dev/shm/norvik-windows-XXXXXX)
# shellcheck disable=SC2317  # the trap calls it
clean_up() {
    wineserver --kill || true
    for folder in "$WINEPREFIX"/drive_c/users/*/Temp; do
        rm -f "$folder"
        mkdir "$folder"
    done
    rm -rf "$temporary"
}
trap clean_up EXIT
for folder in "$WINEPREFIX"/drive_c/users/*/Temp; do
    rm -rf "$folder"
    ln -s "$temporary" "$folder"
done

# What the sources hold must be run or be named as not tested.
names() {
    grep -rhoP "^TEST(_F|_P)?\(\K\w+, \w+(?=\))" --include='*.cpp' "$@" | sed 's/, /./' | sort -u
}
listed() {
    # shellcheck disable=SC2016  # these are no variables
    grep -oP '^- `\K[\w/]+\.[\w/]+(?=`)' docs/windows.md | sed -E 's,^\w+/,,; s,/[0-9]+$,,' | sort -u
}
# The names in a test program, without what makes several of one.
built() {
    wine "$1" --gtest_list_tests | tr -d '\r' |
        awk '/^[^ ]/ { suite = $1; sub(/^[^\/]*\//, "", suite) } /^ / { sub(/\/.*/, "", $1); print suite $1 }' |
        sort -u
}
for part in "${parts[@]}"; do
    case $part in
        core) folders=(base register ringtones registertools formats sync losses versions paper dialogs
            mainwindow project) ;;
        console) folders=(console) ;;
        window) folders=(qt) ;;
    esac
    program=$build/tests/$part-tests.exe
    built=$(built "$program")
    sources=$(names "${folders[@]/#/tests/}")
    forgotten=$(comm -23 <(comm -23 <(echo "$sources") <(echo "$built")) <(listed))
    if [ -n "$forgotten" ]; then
        printf 'Neither built for Windows nor named in docs/windows.md:\n%s\n' "$forgotten" >&2
        exit 1
    fi
done
stale=$(comm -23 <(listed) <(names tests))
if [ -n "$stale" ]; then
    printf 'docs/windows.md names tests that there are not:\n%s\n' "$stale" >&2
    exit 1
fi

shards=$(nproc)
status=0
for part in "${parts[@]}"; do
    pids=()
    for ((shard = 0; shard < shards; ++shard)); do
        GTEST_TOTAL_SHARDS=$shards GTEST_SHARD_INDEX=$shard \
            wine "$build/tests/$part-tests.exe" --gtest_brief=1 "$@" > "$build/$part.$shard.log" 2>&1 &
        pids+=($!)
    done
    for ((shard = 0; shard < shards; ++shard)); do
        wait "${pids[shard]}" || status=1
        # Without the reasons why tests are skipped and what wine says of drives, and with the beginning of a
        # long line alone.
        log=$(tr -d '\r' < "$build/$part.$shard.log" | cut -c 1-500 |
            awk '/: Skipped$/ { getline; next } NF && !/^wine: Read access denied/')
        echo "$log"
        # A program that crashed may have given status 0.
        if ! grep -qE '^\[==========\] .* ran\.' <<< "$log"; then
            echo "$part-tests did not run to its end: $build/$part.$shard.log" >&2
            status=1
        fi
    done
done
exit "$status"
