#!/usr/bin/env bash
# Builds a library for Windows, if it is not there yet, and tells its folder on standard output:
# scripts/windows-libraries.sh pdf|toolkit|googletest
# All are made of Debian's sources, and stay in ~/.cache/norvik (NORVIK_CACHE names another folder),
# under a name that changes with their version and with how they are built.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/packages.sh"
cache=${NORVIK_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/norvik}

# Fetches and unpacks a source package into the working folder, signatures and sums checked, with
# lists of its own: this machine's lists of packages need not hold sources.
# fetch_source PACKAGE VERSION [options of apt-get source]
fetch_source() {
    local package=$1 version=$2 codename mirror
    shift 2
    codename=$(. /etc/os-release && echo "$VERSION_CODENAME")
    # Where this machine has its packages from.
    # shellcheck disable=SC2016  # apt's own variables
    mirror=$(apt-get indextargets --format '$(REPO_URI)' "Created-By: Packages" "Codename: $codename" \
        "Component: main" | head -n 1)
    mkdir -p apt/lists/partial apt/cache/archives/partial
    printf 'deb-src %s %s main\n' "$mirror" "$codename" > apt/sources.list
    local apt=(-qq -o Dir::Etc::SourceList="$PWD/apt/sources.list" -o Dir::Etc::SourceParts=/dev/null
        -o Dir::State::Lists="$PWD/apt/lists" -o Dir::Cache="$PWD/apt/cache"
        -o APT::Sandbox::User="$(id -un)")
    apt-get "${apt[@]}" update
    apt-get "${apt[@]}" source "$@" "$package${version:+=$version}"
}

# What the toolkit is built with: an archive, of what the window uses. Its own German texts do not
# come from here but from Debian's package of translations.
toolkit_options=(
    -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake
    -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DINPUT_opengl=no
)
for feature in concurrent dbus network opengl opengles2 sql vulkan xml \
    direct2d1_1 gif jpeg tabletevent textmarkdownreader textmarkdownwriter textodfwriter tuiotouch \
    commandlineparser etw hijricalendar islamiccivilcalendar jalalicalendar \
    dial dockwidget errormessage keysequenceedit lcdnumber mdiarea splashscreen toolbox undoview wizard \
    system_doubleconversion system_freetype system_harfbuzz system_pcre2 system_png system_zlib; do
    toolkit_options+=("-DFEATURE_$feature=OFF")
done
for feature in accessibility direct2d ico printsupport sessionmanager testlib; do
    toolkit_options+=("-DFEATURE_$feature=ON")
done

# Its version is that of the tools which are installed here, since they take part in the build.
toolkit_version() {
    dpkg-query -W -f='${source:Version}' qt6-base-dev-tools
}

# build_toolkit FOLDER, in a working folder of its own
build_toolkit() {
    fetch_source qt6-base "$(toolkit_version)"
    # shellcheck disable=SC2211  # the folder's name holds the version
    cmake -S qt6-base-*/ -B build -G Ninja --toolchain "$root/cmake/windows.cmake" \
        -DCMAKE_INSTALL_PREFIX="$1" "${toolkit_options[@]}"
    cmake --build build
    cmake --install build --strip
}

pdf_version=2.3.0
pdf_options=(-O2 -DNDEBUG)
pdf_configuration="#define LIBHPDF_HAVE_NOPNGLIB"

# build_pdf FOLDER, in a working folder of its own
build_pdf() {
    fetch_source libharu "" --tar-only
    mkdir source objects "$1" "$1/include" "$1/lib"
    # No other version: the folder's name says which it is.
    tar --extract --file "libharu_$pdf_version"*.orig.tar.* --strip-components=1 --directory source
    echo "$pdf_configuration" > source/include/hpdf_config.h
    local file
    for file in source/src/*.c; do
        x86_64-w64-mingw32-gcc-posix "${pdf_options[@]}" -Isource/include -c "$file" \
            -o "objects/$(basename "$file" .c).o"
    done
    x86_64-w64-mingw32-ar rcs "$1/lib/libhpdf.a" objects/*.o
    cp source/include/*.h "$1/include/"
}

# The tests' framework, of its sources in the package of that name.
# build_googletest FOLDER, in a working folder of its own
build_googletest() {
    cmake -S /usr/src/googletest -B build -G Ninja --toolchain "$root/cmake/windows.cmake" \
        -DCMAKE_INSTALL_PREFIX="$1" -DCMAKE_BUILD_TYPE=MinSizeRel
    cmake --build build
    cmake --install build
}

case ${1:-} in
    toolkit)
        install_missing "${WINDOWS_PACKAGES[@]}" "${WINDOWS_TOOLKIT_PACKAGES[@]}" >&2
        name=windows-toolkit-$(toolkit_version)-$(sha256sum <<< "${toolkit_options[*]}" | head -c 8)
        ;;
    pdf)
        install_missing "${WINDOWS_PACKAGES[@]}" >&2
        name=windows-pdf-$pdf_version-$(sha256sum <<< "${pdf_options[*]} $pdf_configuration" | head -c 8)
        ;;
    googletest)
        install_missing "${WINDOWS_PACKAGES[@]}" googletest >&2
        name=windows-googletest-$(dpkg-query -W -f='${Version}' googletest)
        ;;
    *)
        echo "usage: scripts/windows-libraries.sh pdf|toolkit|googletest" >&2
        exit 2
        ;;
esac

folder=$cache/$name
if [ ! -d "$folder" ]; then
    mkdir -p "$cache"
    # What an interrupted or failed build left goes; one that is running holds its folder locked.
    exec 8< "$cache"
    flock 8
    for left in "$cache"/build-*; do
        [ ! -d "$left" ] || flock --nonblock "$left" rm -rf "$left" || true
    done
    work=$(mktemp -d "$cache/build-XXXXXX")
    exec 9< "$work"
    flock 9
    exec 8<&-
    echo "Building $name in $work; what it says stands in $work/log" >&2
    set +e  # what is called within a condition would go on after a failure
    (
        set -e
        cd "$work"
        mkdir new
        "build_$1" "$work/new/$name"
    ) > "$work/log" 2>&1
    status=$?
    set -e
    if [ "$status" -ne 0 ]; then
        tail -n 30 "$work/log" >&2
        exit 1
    fi
    # It gets its name when it is whole.
    mv -T "$work/new/$name" "$folder" 2>/dev/null || [ -d "$folder" ]
    rm -rf "$work"
fi
echo "$folder"
