#!/usr/bin/env python3
"""Prints what a screen reader gets to know of each window: role, name, value, description.

    scripts/accessibility_dump.py [PROGRAM [WINDOW…]]

PROGRAM is the editor's file, by default that of build/release; a WINDOW one of those in WINDOWS, by
default all. The editor runs on a virtual display, with a message bus of its own, on copies of the
samples; the user's settings are neither read nor written. tests/screenreader/screenreader_test.py
drives it in the same way.
"""
import contextlib
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
LONGEST_WAIT = 30  # seconds; a busy machine, a program with sanitizers
LONGEST_RUN = 480
PYTHON = "/usr/bin/python3"  # the system's own has the bindings
HOME = "NORVIK_DUMP_HOME"
UNWANTED = ("WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "AT_SPI_BUS_ADDRESS")
ESCAPE = 0xFF1B  # the key's number in X11
SKIPPED = 77  # exit status: something is not installed here

MAIN = "norvik Telefonregister"

# What opens each window, as the names of menu and item and of a button in the dialog that these open,
# or as that of a button in the main window; and a piece of its title.
WINDOWS = {
    "main": ((), MAIN),
    "list": (("Liste", "Registerliste..."), "Telefonregister-Liste"),
    "doubles": (("Liste", "Doppelte Rufnummern..."), "Doppelte Rufnummern"),
    "versions": (("Datei", "Frühere Stände..."), "Frühere Stände"),
    "export": (("Datei", "Handyexport..."), "Handyexport"),
    "settings": (("Extras", "Einstellungen..."), "Norvikkonverter"),
    "about": (("Hilfe", "Über das Programm"), "ber das Programm"),
    "history": (("Hilfe", "Über das Programm", "Ja"), "Versionsgeschichte"),
    "phone list": (("Datei", "Drucken..."), "Telefonliste drucken"),
    "preview": (("Datei", "Drucken...", "Vorschau"), "Druckvorschau"),
    "print": (("Datei", "Drucken...", "Drucken"), "Drucken"),
    "question": (("Gebühren", "Zähler löschen..."), ""),
    "input": (("Suchen",), "Suche nach"),
    "file": (("Datei", "norvik 195/193 laden..."), "ffnen"),
}


def run_on_own_display():
    """Runs this program anew, on a display and with a message bus of its own and with a home that
    nobody else uses. All of them end with the program."""
    if HOME in os.environ:
        return
    missing = [name for name in ("dbus-run-session", "Xvfb") if shutil.which(name) is None]
    if missing or subprocess.run([PYTHON, "-c", "import pyatspi"], stderr=subprocess.DEVNULL).returncode != 0:
        print("dbus-run-session, Xvfb or python3-pyatspi is not installed")
        sys.exit(SKIPPED)
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    with tempfile.TemporaryDirectory() as home, display() as number:
        runtime = pathlib.Path(home, "runtime")
        runtime.mkdir(mode=0o700)
        environment = {name: value for name, value in os.environ.items() if name not in UNWANTED}
        environment |= {
            HOME: home, "HOME": home, "XDG_CONFIG_HOME": home + "/config", "XDG_DATA_HOME": home + "/data",
            "XDG_STATE_HOME": home + "/state", "XDG_CACHE_HOME": home + "/cache", "XDG_RUNTIME_DIR": str(runtime),
            "DISPLAY": number, "LC_ALL": "C.UTF-8", "NO_AT_BRIDGE": "1", "QT_QPA_PLATFORM": "xcb",
            "QT_STYLE_OVERRIDE": "fusion", "QT_QPA_PLATFORMTHEME": "", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        with open(os.path.join(home, "bus"), "wb") as complaints:  # of a bus that may not do what it would like to
            program = subprocess.Popen(["dbus-run-session", "--", PYTHON, "-u", *sys.argv], env=environment,
                                       stdin=subprocess.DEVNULL, stderr=complaints)
            try:
                status = program.wait(LONGEST_RUN)
            finally:
                program.terminate()
        if status != 0:
            sys.stderr.write(pathlib.Path(home, "bus").read_text(errors="replace"))
    sys.exit(status)


@contextlib.contextmanager
def display():
    """A virtual display; gives its name. SCREEN is its size, QT_FONT_DPI the size of its texts."""
    reading, writing = os.pipe()
    # -displayfd lets the server choose a free number.
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writing), "-noreset", "-nolisten", "tcp", "-screen", "0", os.environ.get("SCREEN", "1600x1000") + "x24",
         "-dpi", os.environ.get("QT_FONT_DPI", "96")],
        pass_fds=[writing], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        os.close(writing)
        with os.fdopen(reading) as number:
            yield ":" + number.readline().strip()
    finally:
        server.kill()
        server.wait()


class Missing(AssertionError):
    """Something was waited for in vain."""


def fits(name, title):
    """Whether the name of a window has `title` in it; without one, whether it is not the main one."""
    return title in name if title else MAIN not in name


def children(node):
    """The children of a node that are there."""
    for index in range(node.childCount):
        with contextlib.suppress(Exception):  # it may vanish at any time
            child = node.getChildAtIndex(index)
            if child is not None:
                yield child


def walk(node):
    """The node and all below it."""
    yield node
    for child in children(node):
        yield from walk(child)


def text_of(node):
    """The text or the value of a node, None where it has neither."""
    with contextlib.suppress(NotImplementedError):
        return node.queryText().getText(0, -1)
    with contextlib.suppress(NotImplementedError):
        value = node.queryValue()
        return f"{value.currentValue:g} of {value.minimumValue:g} to {value.maximumValue:g}"
    return None


def states(node):
    """The names of what a node is at the moment: "checked", "is default", …"""
    from gi.repository import Atspi
    return {Atspi.StateType(state).value_nick.replace("-", " ") for state in node.getState().getStates()}


def labels(node):
    """The names of the labels that belong to a node, without the groups that it stands in."""
    import pyatspi
    return [relation.getTarget(index).name for relation in node.getRelationSet()
            if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY
            for index in range(relation.getNTargets()) if relation.getTarget(index).getRole() == pyatspi.ROLE_LABEL]


class Editor:
    """The editor on a display of its own, as a screen reader sees it."""

    def __init__(self, program):
        self.folder = pathlib.Path(os.environ[HOME], "norvik")
        self.program = pathlib.Path(program).resolve()
        self.process = self.application = None

    def __enter__(self):
        import pyatspi
        from gi.repository import Atspi, GLib
        self.bus, self.atspi, self.loop = pyatspi, Atspi, GLib.MainContext.default()
        self.passing = (GLib.Error, LookupError, RuntimeError)
        self.folder.mkdir()
        for name in ("telefonbuch.t9t", "adressen.csv"):
            shutil.copy(ROOT / "samples" / name, self.folder)
        settings = (ROOT / "samples/norvik.ini").read_bytes()
        (self.folder / "norvik.ini").write_bytes(
            settings.replace(b"[common]\r\n", b"[common]\r\nLoadFile=telefonbuch.t9t\r\n"))
        executable = shutil.copy(self.program, self.folder)  # its files lie beside it
        self.process = subprocess.Popen([executable], cwd=self.folder)
        desktop = self.bus.Registry.getDesktop(0)

        def there():
            if self.process.poll() is not None:
                raise Missing("the program ended at once")
            return next((app for app in children(desktop) if app.name == self.program.name), None)
        try:
            self.application = self.wait(there, "the program on the bus")
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    def pump(self):
        """Takes in what the program has told."""
        while self.loop.iteration(False):
            pass

    def wait(self, condition, what):
        """Gives what the condition gives as soon as that is true."""
        end = time.monotonic() + LONGEST_WAIT
        while True:
            self.pump()
            with contextlib.suppress(*self.passing):
                found = condition()
                if found:
                    return found
            if time.monotonic() > end:
                raise Missing(f"waited in vain for {what}; the windows: {self.windows()}")
            time.sleep(0.01)

    def fence(self):
        """Waits until the program did what was asked of it and all that it told has come."""
        self.application.clearCache()
        self.application.getChildAtIndex(0).queryComponent().getExtents(0)
        self.pump()

    def window(self, title):
        """The window whose title holds `title`, or one beside the main window; waits for it."""
        return self.wait(lambda: next((w for w in children(self.application)
                                       if fits(w.name, title) and "showing" in states(w)), None),
                         f"a window {title}")

    def windows(self):
        return [window.name for window in children(self.application)] if self.application else []

    def find(self, window, role, name):
        """The node of a role and a name in a window; waits for it."""
        return self.wait(lambda: next((node for node in walk(window)
                                       if node.getRoleName() == role and node.name == name), None), f"{role} {name}")

    def press(self, node):
        """Presses a button or a menu item. Where that opens a dialog the answer never comes."""
        self.atspi.set_timeout(100, 100)
        with contextlib.suppress(Exception):
            node.queryAction().doAction(0)
        self.atspi.set_timeout(LONGEST_WAIT * 1000, LONGEST_WAIT * 1000)

    def choose(self, menu, item):
        """Chooses an item of the menu."""
        bar = self.find(self.window(MAIN), "menu bar", "")
        self.press(self.find(self.find(bar, "menu item", menu), "menu item", item))

    def close(self, title):
        """Closes a window by the Escape key."""
        node = self.window(title)
        node.queryComponent().grabFocus()
        self.key(ESCAPE)
        self.wait(lambda: not any(fits(name, title) for name in self.windows()), f"the end of {title}")

    def answer(self, look):
        """Looks at the box of the start and closes it."""
        box = self.window("Fehlerpr")
        look(box)
        self.press(self.find(box, "push button", "OK"))
        self.wait(lambda: len(self.windows()) == 1, "the end of the box")

    @contextlib.contextmanager
    def opened(self, name):
        """One of WINDOWS, opened and closed."""
        way, title = WINDOWS[name]
        before = None
        if len(way) == 1:
            self.press(self.find(self.window(MAIN), "push button", way[0]))
        elif way:
            self.choose(*way[:2])
        if len(way) == 3:
            before = self.window("").name
            self.press(self.find(self.window(before), "push button", way[2]))
        yield self.window(title)
        if way:
            self.close(title)
        if before in self.windows():
            self.close(before)

    def click(self, node):
        """Clicks into the middle of a node."""
        place = node.queryComponent().getExtents(self.bus.DESKTOP_COORDS)
        self.bus.Registry.generateMouseEvent(place.x + place.width // 2, place.y + place.height // 2, "b1c")

    def key(self, symbol):
        """Presses and releases a key by its number in X11."""
        self.bus.Registry.generateKeyboardEvent(symbol, None, self.bus.KEY_SYM)


def line_of(node):
    """What a line of the dump says."""
    said = [node.getRoleName(), repr(node.name)]
    text = text_of(node)
    if text is not None:
        said.append(f"value {text!r}")
    if node.description:
        said.append(f"description {node.description!r}")
    shown = states(node) & {"checked", "selected", "focused", "is default", "read only"}
    if "sensitive" not in states(node):
        shown.add("disabled")
    said += sorted(shown)
    said += [f"labelled by {label!r}" for label in labels(node)]
    return " ".join(said)


def dump(node, depth=0):
    """Prints a node and what is below it; menus and bare containers are left out."""
    role = node.getRoleName()
    hidden = "visible" not in states(node)
    if hidden or (role in ("menu bar", "scroll bar") and not node.name):
        return
    bare = role in ("filler", "unknown", "split pane", "scroll pane") and not node.name
    if not bare:
        print("  " * depth + line_of(node))
    below = list(children(node))
    most = 4 if role in ("list", "table") else len(below)
    for child in below[:most]:
        dump(child, depth + (not bare))
    if len(below) > most:
        print("  " * (depth + 1) + f"… {len(below)} in all")


def main():
    run_on_own_display()
    program = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ROOT / "build/release/qt/norvik-telefonregister")
    with Editor(program) as editor:
        editor.answer(dump)
        for name in sys.argv[2:] or WINDOWS:
            print(f"\n{name}:")
            with editor.opened(name) as window:
                dump(window)


if __name__ == "__main__":
    main()
