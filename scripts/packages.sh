# Sourced by the commands in the project's folder: installs Debian packages that are missing.

# Installs those of the named packages that are not there yet; with sudo when not root.
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
    echo "Installing missing packages: ${missing[*]}"
    local sudo=()
    if [ "$(id -u)" -ne 0 ]; then
        sudo=(sudo)
    fi
    "${sudo[@]}" apt-get update -qq
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# What it takes to build and start the editor.
EDITOR_PACKAGES=(g++ cmake ninja-build qt6-base-dev qt6-translations-l10n fonts-dejavu-core)
# To show it where there is no display.
SCREEN_PACKAGES=(xvfb xdotool imagemagick)
# To make the pictures of the user's guide.
SCREENSHOT_PACKAGES=(xvfb openbox xdotool imagemagick)
# To build and run the tests.
TEST_PACKAGES=(clang libclang-rt-14-dev lld ccache libgtest-dev libgmock-dev python3 python3-phonenumbers)
# For the linters, the benchmarks and the fuzzers.
LINT_PACKAGES=(clang-format clang-tidy)
BENCHMARK_PACKAGES=(libbenchmark-dev python3 abook)
COVERAGE_PACKAGES=(gcovr)
FUZZ_PACKAGES=(clang libclang-rt-14-dev llvm-14)
