#include "dialogs/help.h"

#include <initializer_list>

namespace norvik {

namespace {

/// The document in the first folder that has it, else where it should lie.
FilePath FindDocument(const HelpFolders& folders, TextView name) {
    for (const FilePath& folder : folders) {
        FilePath path = FindIgnoringCase(folder, FilePath(name));
        std::error_code failure;
        if (std::filesystem::exists(path, failure)) {
            return path;
        }
    }
    return (folders.empty() ? FilePath() : folders.front()) / FilePath(name);
}

Text Joined(std::initializer_list<TextView> lines) {
    Text text;
    for (const TextView line : lines) {
        text.append(text.empty() ? TextView() : LineEnd).append(line);
    }
    return text;
}

void OpenDocument(const HelpFolders& folders, TextView name, TextView status, Desktop& desktop,
                  Windows& windows) {
    const int returned = windows.OpenDocument(FindDocument(folders, name));
    desktop.SetStatus(Text(status) + Decimal(returned));
}

}  // namespace

void mnuHelpManual(const HelpFolders& folders, Desktop& desktop, Windows& windows) {
    desktop.Ask({.text = u"Sorry, es ist noch kein Handbuch verfügbar. Alles wesentliche steht in "
                         u"README!",
                 .title = u"Entschuldigung",
                 .icon = Icon::Information});
    OpenDocument(folders, u"NorvikRegister-Handbuch.pdf",
                 u"Start des Handbuchs (Testfunktion) Returncode ShellExecute: ", desktop, windows);
}

void mnuHilfeReadme(const HelpFolders& folders, Desktop& desktop, Windows& windows) {
    OpenDocument(folders, u"nvreadme.htm",
                 u"Start von README im Webbrowser (Testfunktion) Returncode ShellExecute: ",
                 desktop, windows);
}

void mnuHilfeWhatsNew(const HelpFolders& folders, Windows& windows) {
    windows.OpenInTextEditor(FindDocument(folders, u"whatsnew.txt"));
}

void mnuHilfeAbout(Desktop& desktop) {
    const Text about = Joined(
        {u"Telefonregistereditor für norvik Komforttelefone",
         u"Unterstützte Telefone: Norvik 195, 193, 175", u"Merkmale:",
         u"- Konvertierung zwischen verschiedenen Formaten",
         u"- Konvertierung von und zu Text (CSV)", u"- Automatische Amtholung hinzufügen/entfernen",
         u"- Auflisten und Löschen individueller Gebührenzähler", u"- Anruferlistenkonvertierung",
         u"Dies ist (Stand 30.06.2014)", u"Dieses Programm ist ohne Auftrag der Norvik AG",
         u"erstellt und FREEWARE.", u"Keine Haftung bei Datenlust.",
         u"Versionsgeschichte anzeigen?"});
    if (desktop.Ask({.text = about,
                     .title = u"Über das Programm",
                     .buttons = {Button::Yes, Button::No},
                     .defaultButton = Button::Yes}) != Button::Yes) {
        return;
    }
    const Text history = Joined(
        {u"Versionshistorie", u"V 0.96d: einfacher Export CSV für Yealink-IP-Telefone",
         u"V 0.96c: Anpassung der Amtholeinstellungen",
         u"V 0.96b: NEU: Registerliste mit Filterfunktion", u"V 0.96a: Klingeltonnamen erneuern",
         u"V 0.95: Register-Wertchecks für Reparatur defekter Register",
         u"Version 0.94: Klingeltonnamen und sortierte Filter",
         u"Listenanzeige spezieller Registereigenschaften",
         u"Einstellungen per Menü und Speichern in INI-Datei",
         u"Übertragung v. Adreßdaten aus Textdatenbanken (Palm-DB u.a.)",
         u"Export für Handy (mit Internationalisierung)"});
    desktop.Ask({.text = history, .title = u"Versionsgeschichte", .icon = Icon::Information});
}

}  // namespace norvik
