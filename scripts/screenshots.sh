#!/usr/bin/env bash
# Makes the pictures of the user's guide, docs/help/bilder/*.png, and that of README.md,
# docs/images/fenster.png, from the running program: scripts/screenshots.sh
# The program runs on a virtual display with a window manager, on copies of the samples, with one
# font and a fixed file date, so that the same program gives the same pictures.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
# shellcheck source=scripts/packages.sh
. "$root/scripts/packages.sh"
install_missing "${EDITOR_PACKAGES[@]}" "${SCREENSHOT_PACKAGES[@]}"
cd "$root"
cmake --preset release -DNORVIK_BENCHMARKS=OFF >/dev/null
cmake --build --preset release --target norvik-telefonregister norvik-konverter

pictures=$root/docs/help/bilder
mkdir -p "$pictures"
folder=$(mktemp -d)
processes=()
# shellcheck disable=SC2317  # called by the trap
clean_up() {
    [ "${#processes[@]}" -eq 0 ] || kill "${processes[@]}" 2>/dev/null || true
    rm -rf "$folder"
}
trap clean_up EXIT

# What the program runs in: its own folder, home and fonts, the same everywhere.
program_folder=$folder/norvik
mkdir -p "$program_folder" "$folder/home" "$folder/cache"
cp build/release/qt/norvik-telefonregister samples/telefonbuch.t9t samples/adressen.csv \
    "$program_folder/"
sed 's/^\[common\]\r$/&\nLoadFile=telefonbuch.t9t\r/' samples/norvik.ini > "$program_folder/norvik.ini"
export LC_ALL=C TZ=UTC
touch -d '2026-05-04 10:30' "$program_folder"/*
cat > "$folder/fonts.conf" <<FONTS
<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>/usr/share/fonts/truetype/dejavu</dir>
  <cachedir>$folder/cache</cachedir>
  <alias binding="same"><family>Sans Serif</family><prefer><family>DejaVu Sans</family></prefer></alias>
  <alias><family>sans-serif</family><prefer><family>DejaVu Sans</family></prefer></alias>
  <alias><family>monospace</family><prefer><family>DejaVu Sans Mono</family></prefer></alias>
  <match target="font">
    <edit name="antialias" mode="assign"><bool>true</bool></edit>
    <edit name="hintstyle" mode="assign"><const>hintslight</const></edit>
    <edit name="rgba" mode="assign"><const>none</const></edit>
  </match>
</fontconfig>
FONTS
export FONTCONFIG_FILE=$folder/fonts.conf HOME=$folder/home XDG_CONFIG_HOME=$folder/home
export XDG_DATA_HOME=$folder/home QT_STYLE_OVERRIDE=fusion QT_QPA_PLATFORMTHEME='' QT_FONT_DPI=96
export QT_QPA_PLATFORM=xcb
unset WAYLAND_DISPLAY

# Calls a command until it succeeds, for ten seconds.
wait_until() {
    for _ in $(seq 100); do
        if "$@" >/dev/null 2>&1; then
            return 0
        fi
        sleep 0.1
    done
    import -window root "$folder/failed.png" 2>/dev/null && cp "$folder/failed.png" "${TMPDIR:-/tmp}"
    echo "waited in vain for: $* (a picture of the display: ${TMPDIR:-/tmp}/failed.png)" >&2
    return 1
}

# -displayfd lets the server choose a free number.
Xvfb -displayfd 3 -screen 0 1600x1000x24 -dpi 96 3>"$folder/display" >/dev/null 2>&1 &
processes+=($!)
wait_until test -s "$folder/display"
DISPLAY=:$(cat "$folder/display")
export DISPLAY
# The main window stands in the corner, so that the picture of its menu can be cut from that of the
# display.
cat > "$folder/rc.xml" <<OPENBOX
<?xml version="1.0"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <theme>
    <name>Clearlooks</name>
    <font place="ActiveWindow"><name>DejaVu Sans</name><size>8</size><weight>bold</weight></font>
  </theme>
  <applications>
    <application type="normal"><position force="yes"><x>0</x><y>0</y></position></application>
  </applications>
</openbox_config>
OPENBOX
openbox --sm-disable --config-file "$folder/rc.xml" >/dev/null 2>&1 &
processes+=($!)
wait_until xdotool get_num_desktops
xdotool mousemove 1599 999  # no widget is to look as if pointed at

# The title is a regular expression; letters beyond ASCII are left out.
window_named() { xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1 | grep .; }
is_active() { [ "$(xdotool getactivewindow 2>/dev/null)" = "$(window_named "$1")" ]; }
is_gone() { ! window_named "$1"; }
await() { wait_until is_active "$1"; }

# Waits until the display shows the same twice.
await_still() {
    local before='' now
    for _ in $(seq 50); do
        now=$(import -window root -depth 8 rgb:- | cksum)
        if [ "$now" = "$before" ]; then
            return 0
        fi
        before=$now
        sleep 0.2
    done
}

# picture NAME TITLE: the window with its frame.
picture() {
    local target=$pictures/$1.png
    await_still
    import -frame -window "$(window_named "$2")" +repage -strip \
        -define png:exclude-chunks=date,time "$target"
    echo "$target"
}

press() { xdotool key --delay 60 "$@"; }

# search_for TERM: shows the first entry that holds the term, the list having the focus.
search_for() {
    press ctrl+f
    await '^Suche nach$'
    xdotool type --delay 30 "$1"
    press Return
    wait_until is_gone '^Suche nach$'
    await "$main"
    press alt+w
}

# The first page of the phone list, on a day that stays.
faketime '2026-05-04 10:30' build/release/console/norvik-konverter samples/telefonbuch.t9t \
    "$folder/liste.pdf" --still || [ "$?" -eq 1 ]
pdftoppm -r 75 -png -singlefile "$folder/liste.pdf" "$folder/liste"
convert "$folder/liste.png" -bordercolor '#999999' -border 1 -strip \
    -define png:exclude-chunks=date,time "$pictures/telefonliste.png"
echo "$pictures/telefonliste.png"

main='^norvik Telefonregister - Datei: '
cd "$program_folder"
./norvik-telefonregister --datei telefonbuch.t9t &  # the caption shows no path
program=$!
processes+=("$program")

await '^Fehlerpr'
picture pruefung '^Fehlerpr'
press Return
await "$main"
search_for Holzhandel
xdotool windowsize --sync "$(window_named "$main")" 1160 520
picture fenster "$main"
cp "$pictures/fenster.png" "$root/docs/images/fenster.png"

# An open menu is a window of its own.
menu_is_open() { [ "$(xdotool search --onlyvisible --pid "$program" | wc -l)" -gt 1 ]; }
press alt+d
wait_until menu_is_open
await_still
import -window root -crop "$(identify -format '%wx%h' "$pictures/fenster.png")+0+0" +repage -strip \
    -define png:exclude-chunks=date,time "$pictures/menue.png"
echo "$pictures/menue.png"
press Escape Escape

press ctrl+p
await '^Telefonliste drucken$'
picture druckfenster '^Telefonliste drucken$'
press Escape
wait_until is_gone '^Telefonliste drucken$'
await "$main"

press alt+l Return
await '^Telefonregister-Liste'
xdotool windowsize --sync "$(window_named '^Telefonregister-Liste')" 640 400
press alt+a alt+v
picture registerliste '^Telefonregister-Liste'
press Escape
wait_until is_gone '^Telefonregister-Liste'
await "$main"

press alt+d h
await '^Handyexport$'
press alt+i alt+m
picture handyexport '^Handyexport$'
press Escape
wait_until is_gone '^Handyexport$'
await "$main"

press alt+x e
await '^Norvikkonverter'
press alt+z Next Next Next Next  # a record with all kinds of fields
press alt+1 Down Down Down Down Down
picture einstellungen '^Norvikkonverter'
press Escape
wait_until is_gone '^Norvikkonverter'
await "$main"

search_for 'Oma Grete'
press alt+s a
await '^WARNUNG!$'
picture warnung '^WARNUNG!$'
press Tab Tab Return  # "Ignorieren"
await '^Adresse gefunden'
picture adresse '^Adresse gefunden'
press Return
wait_until is_gone '^Adresse gefunden'
await "$main"
press alt+w
picture uebernommen "$main"

press alt+d a
await '^Speichern unter$'
xdotool type --delay 30 "$folder/register.csv"
press Return
await '^Speichern im CSV-Format$'
picture csvfrage '^Speichern im CSV-Format$'
press Return
wait_until is_gone '^Speichern im CSV-Format$'
await "$main"

# The earlier versions: of a register with a new entry that a load drops, of a file that a save
# replaces, and once more of the first kind, with two.
load() {
    press ctrl+o
    await '^.*ffnen$'
    xdotool type --delay 30 "$program_folder/telefonbuch.t9t"
    press Return
    await '^Fehlerpr'
    press Return
    await "$main"
}
press alt+e
load
press alt+e
press alt+d s
await '^Speichern unter$'
xdotool type --delay 30 "$program_folder/telefonbuch.t9t"
press Return
await_still
press alt+j
await "$main"
press alt+e alt+e
load
# The same days, the same place and another reason, whenever and wherever the script runs.
python3 - staende/*.stand <<'VERSIONS'
import calendar, os, struct, sys

days = [(2026, 5, 2, 18, 12, 0), (2026, 5, 3, 9, 40, 0), (2026, 5, 4, 10, 31, 0)]
reasons = [2, 1, 4]
original = b"/home/anna/telefonbuch.t9t"
files = sorted(sys.argv[1:], key=os.path.getmtime)
for file, day, reason in zip(files, days, reasons):
    with open(file, "rb") as stream:
        version = stream.read()
    (length,) = struct.unpack_from("<I", version, 19)
    content = version[23 + length : -8]
    when = calendar.timegm(day)
    version = version[:9] + struct.pack("<Bq", reason, when) + version[18:19]
    version += struct.pack("<I", len(original)) + original + content
    check = len(version)
    for i in range(0, len(version), 8):
        check = (check ^ int.from_bytes(version[i:i + 8], "little")) * 0x9E3779B97F4A7C15 % 2**64
        check ^= check >> 32
    with open(f"staende/{when:012}-{check:016x}.stand", "wb") as stream:
        stream.write(version + struct.pack("<Q", check))
    os.remove(file)
VERSIONS
press alt+d f
await '^Fr.*here St'
picture staende '^Fr.*here St'
