# shellcheck shell=bash
# shellcheck disable=SC2034  # the lists are for those who source this
# Sourced by the commands in the project's folder: installs Debian packages that are missing.

# Installs those of the named packages that are not there yet; with sudo when not root. Where neither
# may be, it says what the administrator has to install.
install_missing() {
    local missing=() package
    for package in "$@"; do
        if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed'; then
            missing+=("$package")
        fi
    done
    if [ "${#missing[@]}" -eq 0 ]; then
        return 0
    fi
    local sudo=() reason="This command is not run by root, and there is no sudo."
    if [ "$(id -u)" -ne 0 ]; then
        sudo=(sudo)
    fi
    if [ "${#sudo[@]}" -eq 0 ] || command -v sudo >/dev/null; then
        echo "Installing missing packages: ${missing[*]}"
        if "${sudo[@]}" apt-get update -qq &&
            "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive \
                apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null; then
            return 0
        fi
        reason="They could not be installed."
    fi
    cat >&2 <<SAY
These packages are missing: ${missing[*]}
$reason Ask the administrator of this machine to install them, as root:
    apt-get install --no-install-recommends ${missing[*]}
Then call this command again.
SAY
    return 1
}

# What it takes to build and start the editor.
EDITOR_PACKAGES=(g++ cmake ninja-build qt6-base-dev qt6-translations-l10n libhpdf-dev
    fonts-dejavu-core)
# To make a Debian package of it: cpack finds its dependencies with these.
PACKAGE_PACKAGES=(dpkg-dev file gzip)
# To show it where there is no display.
SCREEN_PACKAGES=(xvfb xdotool imagemagick)
# To make the pictures of the user's guide.
SCREENSHOT_PACKAGES=(xvfb openbox xdotool imagemagick poppler-utils faketime)
# To build and run the tests.
TEST_PACKAGES=(clang libclang-rt-14-dev lld ccache libgtest-dev libgmock-dev python3 python3-phonenumbers
    at-spi2-core dbus-daemon poppler-utils python3-pyatspi xvfb)
# For the linters, the benchmarks and the fuzzers.
LINT_PACKAGES=(clang-format clang-tidy git hunspell hunspell-de-de hunspell-en-us python3 shellcheck)
BENCHMARK_PACKAGES=(libbenchmark-dev python3 abook)
COVERAGE_PACKAGES=(gcovr)
# To build for Windows: the converter, the window's toolkit, the installer; and to try all of it.
WINDOWS_PACKAGES=(g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix libz-mingw-w64-dev cmake
    ninja-build dpkg-dev xz-utils)
WINDOWS_TOOLKIT_PACKAGES=(qt6-base-dev qt6-base-dev-tools perl python3)
WINDOWS_SETUP_PACKAGES=(qt6-translations-l10n nsis zip)
WINDOWS_TEST_PACKAGES=(googletest ccache wine wine64)
WINDOWS_CHECK_PACKAGES=("${EDITOR_PACKAGES[@]}" wine wine64 xvfb openbox xdotool imagemagick unzip)
FUZZ_PACKAGES=(clang libclang-rt-14-dev llvm-14 libhpdf-dev)
