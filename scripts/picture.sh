#!/usr/bin/env bash
# Starts a program on a virtual display, waits until its window shows a loaded register, answers
# message boxes with Return, and keeps a picture: picture.sh PICTURE PROGRAM [ARGUMENT…]
# SCREEN=1280x800 sets the size of the display.
set -euo pipefail

picture=$1
shift

# -displayfd lets the server choose a free number, so that several can run side by side.
number_file=$(mktemp)
Xvfb -displayfd 3 -screen 0 "${SCREEN:-1280x800}x24" 3>"$number_file" >/dev/null 2>&1 &
server=$!
program=
trap 'kill $program $server 2>/dev/null || true; rm -f "$number_file"' EXIT
for _ in $(seq 100); do
    [ -s "$number_file" ] && break
    sleep 0.1
done
DISPLAY=:$(cat "$number_file")
export DISPLAY

"$@" &
program=$!

# The window's caption ends in "[keine]" until a file is loaded; message boxes on the way are
# answered with Return.
loaded() { xdotool search --name 'norvik Telefonregister - Datei: [^[]' >/dev/null 2>&1; }
for _ in $(seq 60); do
    if ! kill -0 "$program" 2>/dev/null; then
        echo "the program ended before its window was ready" >&2
        exit 1
    fi
    loaded && break
    sleep 0.5
    xdotool key Return 2>/dev/null || true
done
sleep 1  # until everything is painted
if ! loaded; then
    import -window root "$picture"
    echo "The register was not loaded in time; a picture of the display: $picture" >&2
    exit 1
fi
window=$(xdotool search --name 'norvik Telefonregister - Datei:' | head -n 1)
import -window "$window" "$picture"
echo "A picture of the window: $picture"
