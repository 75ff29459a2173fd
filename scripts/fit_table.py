#!/usr/bin/env python3
"""Looks whether every window fits on small screens and with large texts: a table, and a picture of each.

    scripts/fit_table.py [PROGRAM [FOLDER [SIZE]]]

PROGRAM is the editor's file, by default that of build/release; the pictures go to FOLDER, by default
build/fit; a SIZE is a part of those that the table names. Each window is opened on a virtual display
with a window manager; it fits if its frame stands on the screen, and each of its buttons too or in a
part that scrolls. Texts that are cut are looked for by tests/qt/windowfit_test.cpp. scripts/packages.sh
lists what has to be installed, for tests and for screenshots.
"""
import os
import pathlib
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import accessibility_dump as screen

SCREENS = ("1024x600", "1366x768", "1920x1080")
SIZES = [("QT_SCALE_FACTOR", scale) for scale in ("1", "1.25", "1.5", "2")] + \
        [("QT_FONT_DPI", dpi) for dpi in ("120", "144", "192")]
# Larger texts are no larger scale.
PURE = {"QT_SCALE_FACTOR": {"QT_FONT_DPI": "96"}, "QT_FONT_DPI": {"QT_ENABLE_HIGHDPI_SCALING": "0"}}
BUTTONS = ("push button", "check box", "radio button")


def box_of(node):
    import pyatspi
    place = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return place.x, place.y, place.x + place.width, place.y + place.height


def holds(outer, inner):
    return outer[0] <= inner[0] and outer[1] <= inner[1] and inner[2] <= outer[2] and inner[3] <= outer[3]


def lost(node, parts, room):
    """The buttons below a node that nobody can bring onto the screen; `parts` are what it stands in."""
    if node.getRoleName() in ("menu bar", "list", "table") or "visible" not in screen.states(node):
        return
    place = box_of(node)
    if node.getRoleName() in BUTTONS and not holds(room, place):
        # What reaches beyond a part of the window that is on the screen is scrolled there.
        if not any(holds(room, part) and not holds(part, place) for part in parts):
            yield node.name
    for child in screen.children(node):
        yield from lost(child, [*parts, place], room)


def look(window, name, picture, room):
    """What does not fit of a window, in words."""
    time.sleep(0.3)  # until it is painted
    subprocess.run(["import", "-window", "root", str(picture / f"{os.environ['FIT']}-{name}.png")], check=True)
    place = box_of(window)
    found = list(lost(window, [], room))
    if not holds(room, place):
        found.insert(0, "window {}x{} at {},{}".format(place[2] - place[0], place[3] - place[1], *place[:2]))
    print(f"{os.environ['FIT']}|{name}|{', '.join(found) or 'fits'}", flush=True)


def look_at_all(program, folder):
    width, height = map(int, os.environ["SCREEN"].split("x"))
    manager = subprocess.Popen(["openbox", "--sm-disable"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    scale = float(os.environ.get("QT_SCALE_FACTOR", "1"))
    room = (0, 0, width / scale + 1, height / scale + 1)  # in the program's own points, rounded
    try:
        with screen.Editor(program) as editor:
            editor.answer(lambda box: look(box, "message", folder, room))
            for name in screen.WINDOWS:
                try:
                    with editor.opened(name) as window:
                        look(window, name, folder, room)
                except screen.Missing as missing:
                    print(f"{os.environ['FIT']}|{name}|{missing}", flush=True)
    finally:
        manager.kill()
        manager.wait()


def main():
    program = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else screen.ROOT / "build/release/qt/norvik-telefonregister")
    folder = pathlib.Path(sys.argv[2] if len(sys.argv) > 2 else screen.ROOT / "build/fit").resolve()
    if "FIT" in os.environ:
        screen.run_on_own_display()
        look_at_all(program, folder)
        return
    folder.mkdir(parents=True, exist_ok=True)
    windows = ["message", *screen.WINDOWS]
    print("| screen | " + " | ".join(windows) + " |\n|---" + "|---" * len(windows) + "|")
    for size in SCREENS:
        for name, value in SIZES:
            label = f"{size} {'x' if name == 'QT_SCALE_FACTOR' else 'dpi '}{value}"
            if len(sys.argv) > 3 and sys.argv[3] not in label:
                continue
            done = subprocess.run([sys.executable, __file__, str(program), str(folder)], stdout=subprocess.PIPE,
                                  text=True, env={**os.environ, "SCREEN": size, name: value, "FIT": label, **PURE[name]})
            found = dict(line.split("|")[1:] for line in done.stdout.splitlines() if line.count("|") == 2)
            print(f"| {label} | " + " | ".join(found.get(window, "not seen") for window in windows) + " |", flush=True)


if __name__ == "__main__":
    main()
