#!/usr/bin/env bash
# Runs every fuzz target for the given number of minutes, prints its executions, and the lines of
# the reader's sources that the found inputs cover: scripts/fuzz.sh [MINUTES] [TARGET…]
# MINUTES is a whole number from 1 on. What it finds stays in build/fuzz/findings/; found inputs in
# build/fuzz/corpus/.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/packages.sh
install_missing cmake ninja-build "${FUZZ_PACKAGES[@]}"

minutes=${1:-1}
shift || true
if [ "$minutes" -lt 1 ]; then
    echo "usage: scripts/fuzz.sh [MINUTES] [TARGET…]" >&2
    exit 2
fi
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
# The same targets once more, with coverage counters and without sanitizers.
cmake -S . -B build/fuzz-coverage -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++ \
    -DNORVIK_FUZZERS=ON -DNORVIK_TESTS=OFF -DNORVIK_WINDOW=OFF \
    -DCMAKE_CXX_FLAGS="-fprofile-instr-generate -fcoverage-mapping" >/dev/null
cmake --build build/fuzz-coverage

# The source files that a target is about.
sources_of() {
    case $1 in
        registerfile) echo devicefiles/registerfilereader.cpp ;;
        settings) echo register/settings.cpp ;;
        commandline) echo mainwindow/commandline.cpp ;;
        tonenames) echo tools/tonenames.cpp ;;
        csv) echo textformats/csvreader.cpp textformats/csvsplit.cpp ;;
        phonebookfile) echo devicefiles/phonebookfilereader.cpp base/lines.cpp ;;
        addressdatabase) echo sync/synctables.cpp sync/quotedfields.cpp ;;
        globalize) echo textformats/globalize.cpp ;;
        infoflow) echo textformats/infoflow.cpp ;;
        calllist) echo textformats/convertcalllist.cpp ;;
        *) echo "sources_of: which sources does $1 read?" >&2; return 1 ;;
    esac
}

status=0
targets=("$@")
if [ "${#targets[@]}" -eq 0 ]; then
    for source in fuzz/*_fuzz.cpp; do
        name=$(basename "$source" _fuzz.cpp)
        targets+=("$name")
    done
fi
for name in "${targets[@]}"; do
    corpus=build/fuzz/corpus/$name
    findings=build/fuzz/findings/$name
    mkdir -p "$corpus" "$findings"
    dictionary=()
    [ -f "fuzz/$name.dict" ] && dictionary=("-dict=fuzz/$name.dict")
    log=build/fuzz/$name.log
    if ! "build/fuzz/fuzz/${name}_fuzz" "${dictionary[@]}" -max_total_time=$((minutes * 60)) \
        -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="$findings/" \
        "$corpus" "fuzz/seeds/$name" >"$log" 2>&1; then
        echo "$name: FINDING, see $log and $findings"
        status=1
    fi
    echo "$name: $(grep -o 'stat::number_of_executed_units: .*' "$log")"
    profile=build/fuzz-coverage/$name
    LLVM_PROFILE_FILE=$profile.profraw "build/fuzz-coverage/fuzz/${name}_fuzz" -runs=0 \
        "$corpus" "fuzz/seeds/$name" >/dev/null 2>&1
    llvm-profdata-14 merge -o "$profile.profdata" "$profile.profraw"
    # shellcheck disable=SC2046
    llvm-cov-14 report "build/fuzz-coverage/fuzz/${name}_fuzz" -instr-profile="$profile.profdata" \
        $(sources_of "$name") | awk '/\.cpp/ {print "  " $1 ": " $10 " of the lines covered"}'
done
exit $status
