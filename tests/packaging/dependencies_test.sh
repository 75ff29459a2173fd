#!/usr/bin/env bash
# A package that does not know what it needs is none: packing fails without the programs that find
# the dependencies, and ./package looks at what was found.
set -uo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
failures=0
fail() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}

cmake=$(command -v cmake)
tools=$folder/bin
mkdir "$tools"
touch "$tools/file" "$tools/dpkg-shlibdeps"
chmod 755 "$tools"/*
pack() {
    PATH=$tools "$cmake" -DCPACK_GENERATOR="$1" \
        -P "$root/packaging/dependencytools.cmake" 2>&1
}
message=$(pack DEB) || fail "with both programs: $message"
for program in file dpkg-shlibdeps; do
    rm "$tools/$program"
    message=$(pack DEB) && fail "it is packed without $program"
    [[ $message == *"cannot be found without $program"* ]] || fail "without $program: $message"
    message=$(pack TGZ) || fail "other packages have no dependencies: $message"
    touch "$tools/$program"
    chmod 755 "$tools/$program"
done

# depends LIST: what the check says of a package with these dependencies.
depends() {
    rm -rf "$folder/package"
    mkdir -p "$folder/package/DEBIAN"
    printf '%s\n' 'Package: norvik' 'Version: 1' 'Architecture: all' 'Maintainer: Norvik <a@b.invalid>' \
        'Description: none' > "$folder/package/DEBIAN/control"
    [ -z "$1" ] || echo "Depends: $1" >> "$folder/package/DEBIAN/control"
    dpkg-deb --root-owner-group -b "$folder/package" "$folder/norvik.deb" >/dev/null &&
        "$root/packaging/checkdepends.sh" "$folder/norvik.deb" 2>&1
}
all='libc6 (>= 2.34), libgcc-s1 (>= 3.0), libhpdf-2.3.0 (>= 2.3.0), libqt6core6 (>= 6.4.0), libqt6gui6 (>= 6.1.2), libqt6printsupport6 (>= 6.1.2), libqt6widgets6 (>= 6.3.0), libstdc++6 (>= 12), qt6-translations-l10n'
message=$(depends "$all") || fail "a whole list: $message"
message=$(depends "${all/libqt6widgets6 (>= 6.3.0), /}") && fail "one without the window's library"
[[ $message == *"does not depend on libqt6widgets6"* ]] || fail "the library is not named: $message"
message=$(depends "${all/libhpdf-2.3.0 (>= 2.3.0), /}") && fail "one without the PDF library"
[[ $message == *"does not depend on libhpdf-2.3.0"* ]] || fail "the library is not named: $message"
depends "qt6-translations-l10n" >/dev/null && fail "one with the translations alone"
depends "${all/libc6 /libc6-dev }" >/dev/null && fail "one with a longer name"
depends "" >/dev/null && fail "one without dependencies"

[ "$failures" -eq 0 ]
