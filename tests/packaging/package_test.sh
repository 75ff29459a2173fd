#!/usr/bin/env bash
# Builds the Debian package and looks at it as its users would: what it holds, what it depends on,
# what lintian says, whether it runs where it was unpacked (as another user, with and without a
# screen), and whether removing it leaves nothing. To be run by hand, as root:
#     tests/packaging/package_test.sh [--here]
# The package is built by ./package in a new, bare Debian system, and installed with all that it
# depends on in another one (some minutes, some 600 MB to fetch). With --here, or where there can be no
# such system, it is built in this one, and none installs it.
# The package is left in build/package/.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=scripts/packages.sh
. "$root/scripts/packages.sh"
if [ "$#" -gt 1 ] || [ "${1:---here}" != --here ]; then
    echo "usage: tests/packaging/package_test.sh [--here]" >&2
    exit 2
fi
if [ "$(id -u)" -ne 0 ]; then
    echo "must be run as root: it starts the program as another user" >&2
    exit 2
fi
install_missing "${EDITOR_PACKAGES[@]}" lintian desktop-file-utils shared-mime-info man-db \
    xvfb openbox xdotool libglib2.0-bin "${PACKAGE_PACKAGES[@]}"

work=$(mktemp -d)
chmod 755 "$work"
processes=()
# shellcheck disable=SC2317  # called by the trap
clean_up() {
    [ "${#processes[@]}" -eq 0 ] || kill "${processes[@]}" 2>/dev/null || true
    awk -v "work=$work/" 'index($2, work) == 1 { print $2 }' /proc/mounts | sort -r |
        while IFS= read -r mounted; do
            umount "$mounted" || true
        done
    rm -rf --one-file-system "$work"
}
trap clean_up EXIT

step() { echo "== $*"; }
fail() { echo "FAILED: $*" >&2; exit 1; }

wait_until() {
    for _ in $(seq 200); do
        if "$@" >/dev/null 2>&1; then
            return 0
        fi
        sleep 0.1
    done
    fail "waited in vain for: $*"
}

# A bare Debian system of this one's release, from the place where this one has its packages from.
bare=$work/bare
make_bare_system() {
    local release mirror
    release=$(. /etc/os-release && echo "${VERSION_CODENAME:-}")
    # shellcheck disable=SC2016  # apt fills this in
    mirror=$(apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' | awk -v "release=$release" '$2 == release && $3 == "main" { print $1; exit }')
    if [ -z "$release" ] || [ -z "$mirror" ]; then
        echo "apt knows no Debian \"$release\""
        return 1
    fi
    install_missing debootstrap || return 1
    if ! debootstrap --variant=minbase "$release" "$bare" "$mirror" >"$work/debootstrap.log" 2>&1; then
        tail -n 5 "$work/debootstrap.log"
        return 1
    fi
    # The way to the packages is this system's, too.
    apt-config dump | grep -E '^Acquire::(.*Proxy|Check-)' > "$bare/etc/apt/apt.conf.d/99way" || true
    rm -f "$bare"/var/cache/apt/archives/*.deb
}

# A copy of it, at $1.
new_system() {
    cp -a "$bare" "$1"
    mount -t proc proc "$1/proc"
}

inside() {
    local system=$1
    shift
    chroot "$system" env DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 HOME=/root \
        PATH=/usr/sbin:/usr/bin:/sbin:/bin "$@"
}

builder=
cd "$root"
mkdir -p build/package
rm -f build/package/*.deb
if [ "${1:-}" = --here ]; then
    step "no bare Debian system"
elif step "a bare Debian system" && make_bare_system; then
    builder=$work/builder
else
    step "no bare Debian system (see above): built here, and installed nowhere"
fi

step "build"
if [ -n "$builder" ]; then
    new_system "$builder"
    mkdir "$builder/norvik"
    git -c safe.directory='*' ls-files -z --cached --others --exclude-standard |
        xargs -0 cp -P --parents -t "$builder/norvik"
    inside "$builder" bash -c 'umask 077 && cd / && /norvik/package' >"$work/build.log" 2>&1 ||
        fail "./package: $(tail -n 30 "$work/build.log")"
    grep -E '^Installing missing packages:' "$work/build.log"
    cp "$builder"/norvik/build/package/*.deb build/package/
else
    (umask 077 && ./package)  # the package's files must be readable for everybody all the same
fi
package=$(echo build/package/norvik-telefonregister_*.deb)
[ -f "$package" ] || fail "no package: $package"
echo "$package: $(stat -c %s "$package") bytes"

step "control data"
field() { dpkg-deb -f "$package" "$1"; }
[ "$(field Package)" = norvik-telefonregister ] || fail "name: $(field Package)"
[ "$(field Architecture)" = "$(dpkg --print-architecture)" ] || fail "$(field Architecture)"
[ "$(field Maintainer)" = "Norvik Telefonregister <telefonregister@norvik.invalid>" ] ||
    fail "maintainer: $(field Maintainer)"
echo "Depends: $(field Depends)"
packaging/checkdepends.sh "$package" || fail "dependencies"
[ "$(dpkg-deb -I "$package" | grep -cE ' (preinst|postinst|prerm|postrm) ')" = 0 ] ||
    fail "needs no scripts of its own"

step "contents"
program_lines() {
    cat <<'LIST'
./usr/bin/norvik-telefonregister
./usr/share/applications/norvik-telefonregister.desktop
./usr/share/applications/zz-norvik-telefonregister-csv.desktop
./usr/share/applications/zz-norvik-telefonregister-vcf.desktop
./usr/share/doc/norvik-telefonregister/changelog.gz
./usr/share/doc/norvik-telefonregister/copyright
./usr/share/icons/hicolor/scalable/apps/norvik-telefonregister.svg
./usr/share/man/man1/norvik-telefonregister.1.gz
./usr/share/mime/packages/norvik-telefonregister.xml
LIST
    (cd docs/help && find . -type f) | sed 's|^\.|./usr/share/norvik-telefonregister|'
    if [ -d console ]; then
        cat <<'LIST'
./usr/bin/norvik-konverter
./usr/share/bash-completion/completions/norvik-konverter
./usr/share/man/man1/norvik-konverter.1.gz
LIST
    fi
}
dpkg-deb -c "$package" > "$work/listing"
awk '$1 !~ /^d/ { print $6 }' "$work/listing" | sort > "$work/contents"
program_lines | sort | diff - "$work/contents" || fail "other files than expected"
awk '{ print $1, $2 }' "$work/listing" | sort | uniq -c
awk '$1 !~ /^(drwxr-xr-x|-rw-r--r--|-rwxr-xr-x)$/ || $2 != "root/root"' "$work/listing" |
    grep . && fail "wrong rights"

step "lintian"
lintian --fail-on error --allow-root "$package" || fail "lintian"

step "unpacked"
prefix=$work/leer\ und\ Ü
dpkg -x "$package" "$prefix"
desktop-file-validate "$prefix"/usr/share/applications/*.desktop
update-mime-database "$prefix/usr/share/mime" 2>/dev/null  # it says that no desktop looks there
update-desktop-database "$prefix/usr/share/applications"
for page in "$prefix"/usr/share/man/man1/*.gz; do
    warnings=$(LC_ALL=C.UTF-8 man --warnings -E UTF-8 -l -Tutf8 "$page" 2>&1 >/dev/null)
    [ -z "$warnings" ] || fail "$page: $warnings"
done
# What the desktop makes of the two endings, and which program it then starts.
asked() {
    env XDG_DATA_DIRS="$prefix/usr/share" PATH="$prefix/usr/bin:$PATH" HOME="$work" LC_ALL=C.UTF-8 \
        gio "$@"
}
for ending in t9t:telefonregister pbo:telefonbuch T9T:telefonregister; do
    echo Anna > "$work/a.${ending%%:*}"
    type=application/x-norvik-${ending##*:}
    [[ $(asked info -a standard::content-type "$work/a.${ending%%:*}") == *"content-type: $type" ]] ||
        fail "the type of .${ending%%:*} is not $type"
    [[ $(asked mime "$type") == *" norvik-telefonregister.desktop"* ]] || fail "no program for $type"
done
# A CSV or vCard file may be opened with it, but is not by itself where there is another program.
for kind in csv:csv vcard:vcf; do
    type=text/${kind%%:*}
    ending=${kind##*:}
    [[ $(asked mime "$type") == *"zz-norvik-telefonregister-$ending.desktop"* ]] || fail "not offered for .$ending"
    for other in abc zettel; do
        printf '[Desktop Entry]\nType=Application\nName=%s\nExec=true %%f\nMimeType=%s;\n' "$other" "$type" \
            > "$prefix/usr/share/applications/$other.desktop"
        update-desktop-database "$prefix/usr/share/applications"
        # shellcheck disable=SC1111  # gio's own quotes
        [[ $(asked mime "$type") == "Default application for “$type”: $other.desktop"*zz-norvik* ]] ||
            fail "the programs for .$ending: $(asked mime "$type")"
        rm "$prefix/usr/share/applications/$other.desktop"
    done
done
update-desktop-database "$prefix/usr/share/applications"

# A user who may not write where the program stands.
home=$work/home
mkdir -m 700 "$home"
chown 12345:12345 "$home"
as_user() {
    (cd "$home" && exec env -i HOME="$home" PATH="$work/bin:/usr/bin:/bin" \
        XDG_RUNTIME_DIR="$home" LC_ALL=C.UTF-8 DISPLAY="${DISPLAY:-}" "${data_home[@]}" \
        setpriv --reuid=12345 --regid=12345 --clear-groups --no-new-privs -- "$@")
}
data_home=(XDG_DATA_HOME=)
program=$prefix/usr/bin/norvik-telefonregister

step "without a screen, as another user"
# A register with a wrong tag ends the program at once, with status 1: it was found and read.
mkdir -p "$home/a /l b"
broken="$home/a /l b/Müllers, \"neu\".t9t"
printf '\006\015TStCollection\002\144\001\002\000\002\001\006\004Anna\007\0012' > "$broken"
mkdir -p "$home/.local/share/norvik"
printf '[common]\r\n' > "$home/.local/share/norvik/norvik.ini"
status_of() {
    local status=0
    as_user env QT_QPA_PLATFORM=offscreen timeout "$@" 2>/dev/null || status=$?
    echo "$status"
}
still_running=124
[ "$(status_of 5 "$program")" = "$still_running" ] || fail "does not run without a screen"
[ "$(status_of 60 "$program" --datei "$broken")" = 1 ] || fail "the file was not opened"
rm -r "$home/.local"

step "with a screen, as another user"
mkdir "$work/bin"
cat > "$work/bin/xdg-open" <<'OPEN'
#!/bin/sh
printf '%s\n' "$@" >> "$HOME/geoeffnet"
OPEN
chmod 755 "$work/bin/xdg-open"
Xvfb -ac -displayfd 3 -screen 0 1280x800x24 3>"$work/display" >/dev/null 2>&1 &
processes+=($!)
wait_until test -s "$work/display"
DISPLAY=:$(cat "$work/display")
export DISPLAY
openbox --sm-disable >/dev/null 2>&1 &
processes+=($!)
wait_until xdotool get_num_desktops
is_active() { [[ $(xdotool getactivewindow getwindowname 2>/dev/null) =~ $1 ]]; }
press() { sleep 0.3; xdotool key --clearmodifiers "$@"; }

# Opens the sample under a name that no command line could hold, stores the settings and asks for
# the two help documents.
drive() {
    local sample="$home/a /l b/Müllers, 'gut'.t9t" folder=$1
    cp samples/telefonbuch.t9t "$sample"
    chmod 644 "$sample"
    rm -f "$home/geoeffnet"
    as_user "$program" --datei "$sample" &
    local editor=$!
    processes+=("$editor")
    wait_until is_active '^NORVIK$'  # there are no settings yet
    press Return
    wait_until is_active 'Fehlerprüfung'
    press Return
    wait_until is_active "Datei: $sample\$"
    press alt+h r
    wait_until grep -q "/usr/share/norvik-telefonregister/nvreadme.htm" "$home/geoeffnet"
    press alt+h w
    wait_until grep -q "/usr/share/norvik-telefonregister/whatsnew.txt" "$home/geoeffnet"
    press alt+x e
    wait_until is_active '^Norvikkonverter'
    press Return  # "Übernehmen"
    wait_until test -s "$folder/norvik.ini"
    wait_until is_active "Datei: $sample\$"
    press alt+d b
    wait "$editor" || fail "the editor ended with status $?"
}
drive "$home/.local/share/norvik"
data_home=("XDG_DATA_HOME=$home/Meine Daten")
drive "$home/Meine Daten/norvik"
find "$prefix" -newer "$work/display" | grep . && fail "something was written to the installation"

step "installed and removed"
# A system that knows nothing but this package; its dependencies are another step's matter.
system=$work/system
mkdir -p "$system/var/lib/dpkg/info" "$system/var/lib/dpkg/updates" "$system/var/log"
touch "$system/var/lib/dpkg/status"
files_of() { (cd "$system" && find . -not -path './var/*' | sort); }
before=$(files_of)
dpkg --root="$system" --force-depends -i "$package" >/dev/null 2>&1
[ -x "$system/usr/bin/norvik-telefonregister" ] || fail "not installed"
dpkg --root="$system" --verify norvik-telefonregister | grep . && fail "other files than promised"
dpkg --root="$system" -r norvik-telefonregister >/dev/null 2>&1
[ "$(files_of)" = "$before" ] || fail "removing left: $(files_of)"
dpkg --root="$system" -l norvik-telefonregister 2>/dev/null | grep '^[a-z]c' && fail "left settings"

step "cmake --install"
install=(cmake --install "$root/build/package" --prefix /opt/norvik)
if [ -n "$builder" ]; then
    install=(inside "$builder" env DESTDIR=/ziel cmake --install /norvik/build/package --prefix /opt/norvik)
fi
DESTDIR=$work/ziel "${install[@]}" >/dev/null
(cd "${builder:-$work}/ziel/opt/norvik" && find . -type f) | sed 's|^\.|./usr|' | sort |
    diff "$work/contents" - || fail "cmake --install puts other files"

if [ -n "$builder" ]; then
    step "installed in a bare Debian system"
    debian=$work/debian
    new_system "$debian"
    cp "$package" "$debian/tmp/norvik.deb"
    inside "$debian" apt-get update -qq
    # First what shows the desktop's files, so that removing can be compared.
    inside "$debian" apt-get install -y -qq --no-install-recommends shared-mime-info \
        desktop-file-utils hicolor-icon-theme >/dev/null 2>&1
    inside "$debian" apt-get install -y -qq --no-install-recommends /tmp/norvik.deb \
        >"$work/apt.log" 2>&1 || fail "apt-get: $(tail -n 5 "$work/apt.log")"
    inside "$debian" ldd /usr/bin/norvik-telefonregister | grep 'not found' && fail "libraries are missing"
    grep -q 'x-norvik-telefonregister:\*.t9t' "$debian/usr/share/mime/globs2" ||
        fail "the type is not known to the system"
    user=(setpriv --reuid=12345 --regid=12345 --clear-groups)
    converted=$(inside "$debian" "${user[@]}" norvik-konverter --version)
    [ "$converted" = "norvik-konverter $(field Version)" ] || fail "--version: $converted"
    cp samples/telefonbuch.t9t "$debian/tmp/"
    chmod 644 "$debian/tmp/telefonbuch.t9t"
    inside "$debian" "${user[@]}" norvik-konverter /tmp/telefonbuch.t9t - --nach csv >"$work/csv" 2>/dev/null ||
        [ "$?" -eq 1 ] || fail "the converter"  # 1: the sample has three impossible values
    [ -s "$work/csv" ] || fail "the converter wrote nothing"
    cp "$broken" "$debian/tmp/Müllers, neu.t9t"
    mkdir -p "$debian/tmp/daten/norvik"  # without settings, a box would wait for an answer
    printf '[common]\r\n' > "$debian/tmp/daten/norvik/norvik.ini"
    editor=(env QT_QPA_PLATFORM=offscreen XDG_DATA_HOME=/tmp/daten timeout)
    editor_status() {
        local status=0
        inside "$debian" "${user[@]}" "${editor[@]}" "$@" 2>/dev/null || status=$?
        echo "$status"
    }
    status=$(editor_status 5 norvik-telefonregister)
    [ "$status" = "$still_running" ] || fail "the editor ended by itself with status $status"
    status=$(editor_status 60 norvik-telefonregister --datei "/tmp/Müllers, neu.t9t")
    [ "$status" = 1 ] || fail "status $status instead of 1"
    inside "$debian" apt-get remove -y -qq norvik-telefonregister >/dev/null 2>&1
    ! inside "$debian" which norvik-telefonregister norvik-konverter || fail "not removed"
    find "$debian" -xdev -path "$debian/proc" -prune -o -iname '*norvik*' -print |
        grep -v "^$debian/tmp/\|^$debian/var/\(log\|cache\)/" && fail "removing left something"
fi

echo "all checks passed"
