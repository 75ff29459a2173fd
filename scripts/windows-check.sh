#!/usr/bin/env bash
# Tries what ./windows made, under wine on a virtual display: installs it, looks at what it installed,
# starts the editor there, edits and saves the sample, compares that with what the same keys make of
# it here, opens the guide and the list of changes, ends the session, converts, removes it, and looks at
# what is left: scripts/windows-check.sh FOLDER [PICTURE]
# FOLDER is that of the build; the picture of the window lies there, too, unless PICTURE is given.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$(realpath "$1")
picture=${2:-$build/fenster.png}
cd "$root"
cmake --preset release -DNORVIK_BENCHMARKS=OFF >/dev/null
cmake --build --preset release --target norvik-telefonregister norvik-konverter >/dev/null
setup=$(echo "$build"/NorvikRegister-*-setup.exe)
zip=$(echo "$build"/NorvikRegister-*.zip)

folder=$(mktemp -d)
export HOME=$folder/home WINEPREFIX=$folder/wine WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml='
export LC_ALL=C.UTF-8 TZ=UTC XDG_RUNTIME_DIR=$folder/run QT_QPA_PLATFORM=
unset QT_QPA_PLATFORM WAYLAND_DISPLAY XDG_CONFIG_HOME XDG_DATA_HOME XDG_STATE_HOME
mkdir -p "$HOME" "$folder/run"
processes=()
# shellcheck disable=SC2317  # called by the trap
clean_up() {
    wineserver -k 2>/dev/null || true
    [ "${#processes[@]}" -eq 0 ] || kill "${processes[@]}" 2>/dev/null || true
    rm -rf "$folder"
}
trap clean_up EXIT
failures=0
fail() {
    echo "FAILED: $*" >&2
    failures=$((failures + 1))
}
# expect WHAT FOUND WANTED
expect() {
    if [ "$2" != "$3" ]; then
        fail "$1"
        diff <(echo "$3") <(echo "$2") | sed 's/^/    /' >&2 || true
    fi
}
# Calls a command until it succeeds, for a minute.
wait_until() {
    for _ in $(seq 300); do
        if "$@" >/dev/null 2>&1; then
            return 0
        fi
        sleep 0.2
    done
    import -window root "$build/failed.png" || true
    echo "waited in vain for: $* (a picture of the display: $build/failed.png)" >&2
    return 1
}
has_window() { xdotool search --onlyvisible --name "$1"; }
has_no_window() { ! has_window "$1"; }
# Answers a box with its default; it may be there before it has the keyboard.
answer() {
    wait_until has_window "$1"
    for _ in $(seq 30); do
        xdotool key Return
        sleep 1
        if has_no_window "$1"; then
            return 0
        fi
    done
}
# wine's own programs end their lines as Windows does.
registry() { wine reg query "$@" 2>/dev/null | tr -d '\r'; }

Xvfb -displayfd 3 -screen 0 1280x900x24 -dpi 96 3>"$folder/display" >/dev/null 2>&1 &
processes+=($!)
wait_until test -s "$folder/display"
DISPLAY=:$(cat "$folder/display")
export DISPLAY
openbox --sm-disable >/dev/null 2>&1 &
processes+=($!)
wineboot --init >/dev/null 2>&1
# Fonts in the manner of Windows, which are not free.
for font in 'Tahoma=DejaVu Sans' 'Segoe UI=DejaVu Sans' 'Courier New=DejaVu Sans Mono'; do
    wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "${font%=*}" /d "${font#*=}" /f >/dev/null
done
wineserver -w
user=$WINEPREFIX/drive_c/users/$(id -un)

# Files that a user gets, as paths below a folder.
files_of() { (cd "$1" && find . -type f | sort); }
# The system's own folder for what is to go is left out: the uninstaller lies there until the next start.
everything() { (cd "$user" && find . -path './[Tt]emp' -prune -o -path ./AppData/Local/Temp -prune -o -print | sort); }
everything > "$folder/before"
registry 'HKCU\Software' /s > "$folder/registry-before"

echo "Installing"
wine "$setup" /S
wineserver -w
installed="$user/AppData/Local/Programs/Norvik Telefonregister"
program=$installed/norvik-telefonregister.exe
unzip -q "$zip" -d "$folder/zip"
expect "the files that are installed" "$(files_of "$installed")" \
    "$( (files_of "$(echo "$folder"/zip/*)"; echo ./Entfernen.exe) | sort)"
shortcut="$user/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Norvik Telefonregister.lnk"
[ -f "$shortcut" ] || fail "there is no entry in the start menu"
for ending in t9t pbo; do
    registry "HKCU\\Software\\Classes\\.$ending" | grep -q "NorvikTelefonregister.$ending" ||
        fail ".$ending does not belong to the program"
    registry "HKCU\\Software\\Classes\\NorvikTelefonregister.$ending\\shell\\open\\command" |
        grep -q 'norvik-telefonregister.exe" --datei "%1"' || fail ".$ending is not opened by the program"
done
if registry 'HKCU\Software\Classes\.vcf' | grep -q '(Default).*Norvik'; then
    fail ".vcf was taken over"
fi
registry 'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\NorvikTelefonregister' |
    grep -q 'Entfernen.exe' || fail "there is no entry for removing it"

# start PROGRAM ARGUMENT…: starts the editor on the sample.
start() {
    "$@" >/dev/null 2>&1 &
    editor=$!
    processes+=("$editor")
    answer '^NORVIK$'  # there are no settings
    answer '^Fehlerpr'
    wait_until has_window 'norvik Telefonregister - Datei: .*V.*gel'
}
add_entry() {
    xdotool key --delay 500 ctrl+n
    xdotool type --delay 60 'Aal, Otto'
    xdotool key --delay 200 Return
    xdotool type --delay 60 '040123456'
    xdotool key --delay 500 shift+Return
    sleep 1  # until everything is painted
}
# Behind a window of wine's own no window has the keyboard.
to_editor() {
    xdotool search --onlyvisible --name 'norvik Telefonregister - Datei:' windowactivate --sync >/dev/null
}
# edit FILE TYPED PROGRAM ARGUMENT…: starts the editor on the sample, adds an entry, saves the
# register as FILE, whose name is typed as TYPED, and ends it.
edit() {
    local saved=$1 typed=$2
    shift 2
    start "$@"
    add_entry
    import -window root "$picture"
    xdotool key ctrl+s
    wait_until has_window 'Speichern unter'
    sleep 1
    xdotool type --delay 60 "$typed"
    xdotool key --delay 500 Return
    wait_until test -s "$saved"
    wait_until has_no_window 'Speichern unter'
    to_editor
    xdotool key --delay 500 alt+F4
    wait_until has_no_window 'norvik Telefonregister - Datei:'
    local status=0
    wait "$editor" || status=$?
    expect "the exit status of $1" "$status" 0
}

echo "Editing here"
mkdir -p "$folder/here" "$user/Desktop/Meine Vögel"
cp samples/telefonbuch.t9t "$folder/here/Vögel, alle.t9t"
cp samples/telefonbuch.t9t "$user/Desktop/Meine Vögel/Vögel, alle.t9t"
edit "$folder/here/neu.t9t" "$folder/here/neu.t9t" build/release/qt/norvik-telefonregister \
    --datei "$folder/here/Vögel, alle.t9t"

echo "Editing there"
there="$user/Desktop/Meine Vögel"
edit "$there/neu.t9t" neu.t9t wine "$program" \
    --datei "C:\\users\\$(id -un)\\Desktop\\Meine Vögel\\Vögel, alle.t9t"
cmp "$there/neu.t9t" "$folder/here/neu.t9t" || fail "the saved register differs"

echo "Opening the documents and ending the session"
wine reg add 'HKCR\.htm' /ve /d NorvikProbe /f >/dev/null
wine reg add 'HKCR\NorvikProbe\shell\open\command' /ve /d 'notepad.exe "%1"' /f >/dev/null
start wine "$program" --datei "C:\\users\\$(id -un)\\Desktop\\Meine Vögel\\Vögel, alle.t9t"
xdotool key F1
wait_until has_window 'nvreadme.htm - Notepad'
to_editor
xdotool key --delay 300 alt+h w
wait_until has_window 'whatsnew.txt - Notepad'
wine taskkill /f /im notepad.exe >/dev/null 2>&1
to_editor
add_entry
status=0
(wait_until has_window 'Sicherheitsabfrage' && xdotool key Escape) &
wine wineboot --end-session >/dev/null 2>&1 || status=$?
expect "the end of a session that the user does not want" "$status" 1
(wait_until has_window 'Sicherheitsabfrage' && xdotool key --delay 300 shift+Tab Return) &
wine wineboot --end-session >/dev/null 2>&1 || fail "the session did not end"
wait_until has_no_window 'norvik Telefonregister - Datei:'
wait "$editor" 2>/dev/null || true  # it may have been killed, as on Windows
wineserver -w
expect "what the end of the session leaves" \
    "$(find "$installed/staende" -type f | sed 's|.*/||; s/[0-9a-f]\{12,16\}/N/g')" N-N.stand
rm -r "$installed/staende"
rm -r "$there"

echo "Converting"
# The sample's mistakes are reported, so the status is not 0.
said_here=$(build/release/console/norvik-konverter samples/telefonbuch.t9t "$folder/hier.csv" 2>&1; echo $?)
said_there=$(wine "$installed/norvik-konverter.exe" samples/telefonbuch.t9t "$folder/dort.csv" 2>&1; echo $?)
expect "what the converter says" "$(tr -d '\r' <<< "$said_there")" "$said_here"
cmp "$folder/hier.csv" "$folder/dort.csv" || fail "the converted register differs"

echo "Refusing while a program runs"
mkfifo "$folder/pipe"
wine "$installed/norvik-konverter.exe" --von csv --nach csv - - < "$folder/pipe" >/dev/null 2>&1 &
converter=$!
processes+=("$converter")
exec 4> "$folder/pipe"
sleep 3  # until it has started
touch -d 2020-01-01 "$installed/whatsnew.txt"
status=0
wine "$setup" /S || status=$?
expect "the exit status of the installer while the converter runs" "$status" 2
wine "$installed/Entfernen.exe" /S || true
sleep 5  # it works in a copy of itself
expect "what the installer and the uninstaller do while the converter runs" \
    "$(date -r "$installed/whatsnew.txt" +%Y 2>&1)" 2020
exec 4>&-
wait "$converter" || true

echo "Removing"
wineserver -w
wine "$installed/Entfernen.exe" /S
wineserver -w
# The uninstaller works in a copy of itself, which may outlive that call.
wait_until test ! -e "$shortcut"
wineserver -w
everything | comm -13 "$folder/before" - > "$folder/left"
expect "what is left of the files" "$(cat "$folder/left")" "./AppData/Local/norvik
./AppData/Local/norvik/fenster.ini"
registry 'HKCU\Software' /s > "$folder/registry-after"
expect "what is left in the registry" "$(grep -i norvik "$folder/registry-after" || true)" ""

if [ "$failures" -ne 0 ]; then
    echo "$failures checks failed" >&2
    exit 1
fi
echo "All is as it should be; a picture of the window: $picture"
