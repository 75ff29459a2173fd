#!/usr/bin/env python3
"""The running editor as a screen reader gets to know it: screenreader_test.py PROGRAM

One process of the editor on a virtual display; each function below is a test and goes on where the
one before it ended. Without the display or the bindings everything is skipped (exit status 77).
"""
import pathlib
import sys
import traceback

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
import accessibility_dump as screen

PAGE_DOWN, DOWN, TAB, BACK_TAB = 0xFF56, 0xFF54, 0xFF09, 0xFE20
NAMES, FOCUS, DESCRIPTIONS = ("object:property-change:accessible-name", "object:state-changed:focused",
                              "object:property-change:accessible-description")


def same(found, expected):
    if found != expected:
        raise AssertionError(f"found {found!r} instead of {expected!r}")


class Reader:
    """Listens to the editor."""

    def __init__(self, editor):
        self.editor = editor
        self.heard = []
        for kind in (NAMES, FOCUS, DESCRIPTIONS):
            editor.bus.Registry.registerEventListener(self.hear, kind)
        self.main = editor.window(screen.MAIN)

    def hear(self, event):
        """Keeps what was told: the kind, what it is about, what is read there now."""
        if event.type != FOCUS or event.detail1:
            node = event.source
            self.heard.append((event.type, node.getRoleName(), node.description or node.name, node.name))

    def said(self, kind):
        return [told[1:] for told in self.heard if told[0] == kind]

    def after(self, action, condition):
        """Forgets what was told before, does something and waits for what it does; a call that the
        editor answers then comes behind everything that it told."""
        self.editor.pump()
        self.heard.clear()
        action()
        self.editor.wait(condition, "what an action does")
        self.editor.fence()

    def node(self, role, name, window=None):
        return self.editor.find(window or self.main, role, name)

    def press(self, name, condition, role="push button", window=None):
        self.after(lambda: self.editor.press(self.node(role, name, window)), condition)

    def value(self, meaning, window=None):
        """What a label that means something shows."""
        return next(node.name for node in screen.walk(window or self.main) if node.description == meaning)

    def enter(self, role, name):
        node = self.node(role, name)
        self.editor.click(node)  # without a window manager nothing else makes a window the active one
        self.editor.wait(lambda: "focused" in screen.states(node), f"the focus of {name}")

    def key_until(self, symbol, condition):
        self.after(lambda: self.editor.key(symbol), condition)

    def chosen(self):
        """The rows of the list that are chosen, with their places."""
        return [(row.name, row.getIndexInParent())
                for row in screen.children(self.node("list", "Telefonregister")) if "selected" in screen.states(row)]


def values_are_read(reader):
    for meaning, value in (("Aktueller Eintrag", "1"), ("Anzahl der Einträge", "60"),
                           ("Anzahl der markierten Einträge", "20"), ("Quelle", "195"),
                           ("Gebührenbetrag", "0,00"), ("Platz in der Tabelle", "60"), ("Statuszeile", "OK")):
        same((meaning, reader.value(meaning)), (meaning, value))
    same(len(reader.value("Stand der Quelle")), len("22.11.2026 04:38"))


def the_picture_is_a_button(reader):
    picture = reader.node("push button", "Rufnummer umwandeln (Test)")
    same(picture.queryAction().getName(0), "Press")
    reader.press("Rufnummer umwandeln (Test)", lambda: len(reader.editor.windows()) == 2)
    box = reader.editor.window("NORVIK")
    fields = [node.name for node in screen.walk(box) if node.getRoleName() == "text"]
    same(fields, ["Testeingabe Internationalisierung"])
    reader.editor.close("NORVIK")


def the_list_tells_row_position_and_count(reader):
    same(reader.chosen(), [("#1: abc-Taxi Brückner (03023125142) auch Großraumtaxi", 0)])
    entries = reader.node("list", "Telefonregister")
    same((entries.childCount, entries.queryTable().nRows), (60, 60))


def a_page_down_moves_no_focus(reader):
    reader.enter("text", "Telefonnummer")
    reader.key_until(PAGE_DOWN, lambda: reader.value("Aktueller Eintrag") == "2")
    same(reader.said(FOCUS), [])
    same(reader.said(NAMES), [("label", "Aktueller Eintrag", "2"), ("label", "Platz in der Tabelle", "12")])
    same(reader.chosen(), [("#2: anna (Schulfreundin) (01713920012) Zimmer 4. Stock", 1)])


def marking_moves_no_focus(reader):
    reader.press("Zum Exportieren markiert", lambda: reader.value("Anzahl der markierten Einträge") == "21",
                 "check box")
    same(reader.said(FOCUS), [])


def the_colour_is_said_in_words(reader):
    button = reader.node("push button", "Eintrag übernehmen")
    same(button.description, "Der Eintrag oder die Markierung ist übernommen")
    reader.press("Gebührenzähler", lambda: reader.said(DESCRIPTIONS), "check box")
    same(reader.said(DESCRIPTIONS),
         [("push button", "Änderungen sind noch nicht übernommen", "Eintrag übernehmen")])


def storing_is_told_once(reader):
    def told():
        return [name for name in reader.said(NAMES) if name[1] == "Statuszeile"]
    reader.press("Eintrag übernehmen", told)
    same(told(), [("label", "Statuszeile", "Sortieren beendet")])
    reader.press("Eintrag übernehmen", told)  # the same text again, and told again
    same(reader.said(NAMES), [("label", "Statuszeile", "Sortieren beendet")])


def erasing_moves_no_focus(reader):
    reader.press("Eintrag löschen", lambda: reader.value("Anzahl der Einträge") == "59")
    same(reader.said(FOCUS), [])


def a_row_chosen_in_the_list_is_told(reader):
    def rows():
        return [name for role, _, name in reader.said(FOCUS) if role == "list item"]
    third = "#3: Apotheke am Bach (02214710136) ()Bestellt bis 11 h"
    reader.after(lambda: reader.editor.click(reader.node("list item", third)), rows)
    same(rows(), [third])
    reader.key_until(DOWN, rows)
    same([row[:4] for row in rows()], ["#4: "])
    reader.key_until(TAB, lambda: reader.said(FOCUS))
    same(reader.said(FOCUS), [("check box", "Listenfilter aktiv", "Listenfilter aktiv")])
    reader.key_until(BACK_TAB, rows)
    same([row[:4] for row in rows()], ["#4: "])


def the_number_of_hits_is_told_once(reader):
    reader.editor.choose("Liste", "Registerliste...")
    window = reader.editor.window("Telefonregister-Liste")
    same(reader.value("Anzahl der Treffer", window), "-")

    def told():
        return [name for name in reader.said(NAMES) if name[1] == "Anzahl der Treffer"]
    reader.press("Tonruf", told, "check box", window)
    same(told(), [("label", "Anzahl der Treffer", "23")])
    same(default_buttons(window), ["Filter setzen"])
    same(unnamed(window), [])
    reader.editor.close("Telefonregister-Liste")


def default_buttons(window):
    return [node.name for node in screen.walk(window) if "is default" in screen.states(node)]


def unnamed(window):
    """What the keyboard can reach, or what groups it, without a name."""
    return [node.getRoleName() for node in screen.walk(window)
            if not node.name and "focusable" in screen.states(node) and node.getRoleName() != "list"]


def groups(window):
    return [node.name for node in screen.walk(window) if node.getRoleName() == "panel" and node.name]


def the_main_window_names_everything(reader):
    same(unnamed(reader.main), [])
    same(groups(reader.main),
         ["Name und Nummer", "Infozeilen", "Klingelton und Leitung", "Anruffilter", "Gebühren"])
    same(screen.labels(reader.node("text", "Telefonnummer")), ["Nummer (Tel):"])


def the_mobile_export_names_everything(reader):
    reader.editor.choose("Datei", "Handyexport...")
    window = reader.editor.window("Handyexport")
    same(unnamed(window), [])
    same(groups(window), ["Rufnummern", "Einträge", "Zeilen der Datei"])
    same(default_buttons(window), ["Exportieren"])
    same((reader.value("Vorwahl", window), reader.value("Land", window)), ("030", "0049"))
    same(screen.labels(reader.node("text", "Trennzeichen", window)), ["Trennzeichen:"])
    reader.editor.close("Handyexport")


def the_settings_name_everything(reader):
    reader.editor.choose("Extras", "Einstellungen...")
    window = reader.editor.window("Norvikkonverter")
    same(unnamed(window), [])
    same(groups(window), ["Allgemein", "Lokalisierung", "Synchronisation"])
    same(default_buttons(window), ["Übernehmen"])
    same([reader.value(item + ": Beispiel", window) for item in (
        "Name", "Vorname", "Firma", "Strasse, Hausnr.", "PLZ", "Stadt", "Tel. geschäftl.", "Tel. privat", "Fax",
        "Andere (Handy)")],
         ["Ackerlaub", "Björn", "Firma: Beispiel: leer", "Fliederbogen 24", "45678", "Rübenfeld",
          "Tel. geschäftl.: Beispiel: leer", "+49-69-90009323", "Fax: Beispiel: leer",
          "Andere (Handy): Beispiel: leer"])
    same(screen.labels(reader.node("text", "Ländercode", window)), ["Ländercode"])
    reader.editor.close("Norvikkonverter")


TESTS = (values_are_read, the_picture_is_a_button, the_list_tells_row_position_and_count,
         a_page_down_moves_no_focus, marking_moves_no_focus, the_colour_is_said_in_words, storing_is_told_once,
         erasing_moves_no_focus, a_row_chosen_in_the_list_is_told, the_number_of_hits_is_told_once,
         the_main_window_names_everything, the_mobile_export_names_everything, the_settings_name_everything)


def main():
    screen.run_on_own_display()
    failed = 0
    with screen.Editor(sys.argv[1]) as editor:
        editor.answer(lambda box: same(default_buttons(box), ["OK"]))
        reader = Reader(editor)
        editor.wait(lambda: reader.value("Statuszeile") == "OK", "the end of the start")
        for test in TESTS:
            try:
                test(reader)
            except Exception:  # whatever it is, the next test may find more
                failed += 1
                print(f"FAILED {test.__name__}\n{traceback.format_exc()}")
    print(f"{len(TESTS) - failed} of {len(TESTS)} tests passed")
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
