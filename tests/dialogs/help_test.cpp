#include "dialogs/help.h"

#include "base/platform.h"
#include "tests/support/processlimits.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;

using Lines = std::vector<std::string>;

const std::string NoManual =
    "box \"Sorry, es ist noch kein Handbuch verfügbar. Alles wesentliche steht in README!\" "
    "title \"Entschuldigung\" icon Information buttons Ok default Ok -> Ok";

std::string Opened(const FilePath& document, int returned = 33) {
    return "document " + platform::Utf8Of(document) + " -> " + std::to_string(returned);
}

std::string ReadmeStatus(int returned = 33) {
    return "status \"Start von README im Webbrowser (Testfunktion) Returncode ShellExecute: " +
           std::to_string(returned) + "\"";
}

/// What the read-me item does with the folders.
Lines Readme(const HelpFolders& folders) {
    ScriptedDesktop desktop;
    mnuHilfeReadme(folders, desktop, desktop);
    return desktop.Transcript;
}

Lines WhatsNew(const HelpFolders& folders) {
    ScriptedDesktop desktop;
    mnuHilfeWhatsNew(folders, desktop);
    return desktop.Transcript;
}

// The three documents

TEST(HelpManual, ExcusesItselfOpensTheManualAndShowsTheReturnValue) {
    const TestFolder folder;
    const FilePath manual = folder.Write("NorvikRegister-Handbuch.pdf", "");
    ScriptedDesktop desktop;

    mnuHelpManual({folder.Path()}, desktop, desktop);

    EXPECT_EQ(desktop.Transcript,
              (Lines{NoManual, Opened(manual),
                     "status \"Start des Handbuchs (Testfunktion) Returncode ShellExecute: 33\""}));
}

TEST(HelpManual, TheExcuseComesEveryTime) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    mnuHelpManual({folder.Path()}, desktop, desktop);
    mnuHelpManual({folder.Path()}, desktop, desktop);
    EXPECT_EQ(std::count(desktop.Transcript.begin(), desktop.Transcript.end(), NoManual), 2);
}

TEST(HelpManual, AMissingManualIsNotCheckedBeforehand) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    desktop.ShellResult = 2;

    mnuHelpManual({folder.Path()}, desktop, desktop);

    EXPECT_EQ(desktop.Transcript,
              (Lines{NoManual, Opened(folder / "NorvikRegister-Handbuch.pdf", 2),
                     "status \"Start des Handbuchs (Testfunktion) Returncode ShellExecute: 2\""}));
}

TEST(HelpReadme, OpensThePageAndShowsTheReturnValue) {
    const TestFolder folder;
    const FilePath page = folder.Write("nvreadme.htm", "");
    EXPECT_EQ(Readme({folder.Path()}), (Lines{Opened(page), ReadmeStatus()}));
}

TEST(HelpReadme, TheReturnValueIsShownInDecimalWhateverItIs) {
    const TestFolder folder;
    for (const int returned : {0, 2, 31, 32, 33, 42, -1, 2147483647}) {
        ScriptedDesktop desktop;
        desktop.ShellResult = returned;
        mnuHilfeReadme({folder.Path()}, desktop, desktop);
        EXPECT_EQ(desktop.Transcript,
                  (Lines{Opened(folder / "nvreadme.htm", returned), ReadmeStatus(returned)}));
    }
}

TEST(HelpWhatsNew, OpensTheTextEditorWithoutAStatusText) {
    const TestFolder folder;
    const FilePath text = folder.Write("whatsnew.txt", "");
    EXPECT_EQ(WhatsNew({folder.Path()}), Lines{"editor " + text.string()});
}

TEST(HelpWhatsNew, AMissingTextIsLeftToTheEditor) {
    const TestFolder folder;
    EXPECT_EQ(WhatsNew({folder.Path()}), Lines{"editor " + (folder / "whatsnew.txt").string()});
}

// Where the documents lie

TEST(HelpFolders, ADocumentInTheProgramsFolderGoesBeforeTheInstalledOne) {
    const TestFolder program;
    const TestFolder installed;
    const FilePath own = program.Write("nvreadme.htm", "");
    installed.Write("nvreadme.htm", "");
    EXPECT_EQ(Readme({program.Path(), installed.Path()}), (Lines{Opened(own), ReadmeStatus()}));
}

TEST(HelpFolders, ADocumentInTheInstallationFolderAloneIsFoundThere) {
    const TestFolder program;
    const TestFolder installed;
    const FilePath page = installed.Write("nvreadme.htm", "");
    const FilePath text = installed.Write("whatsnew.txt", "");
    const FilePath manual = installed.Write("NorvikRegister-Handbuch.pdf", "");
    const HelpFolders folders = {program.Path(), installed.Path()};

    EXPECT_EQ(Readme(folders), (Lines{Opened(page), ReadmeStatus()}));
    EXPECT_EQ(WhatsNew(folders), Lines{"editor " + text.string()});
    ScriptedDesktop desktop;
    mnuHelpManual(folders, desktop, desktop);
    EXPECT_EQ(desktop.Transcript.at(1), Opened(manual));
}

TEST(HelpFolders, EachDocumentIsLookedForOnItsOwn) {
    const TestFolder program;
    const TestFolder installed;
    const FilePath text = program.Write("whatsnew.txt", "");
    const FilePath page = installed.Write("nvreadme.htm", "");
    const HelpFolders folders = {program.Path(), installed.Path()};
    EXPECT_EQ(WhatsNew(folders), Lines{"editor " + text.string()});
    EXPECT_EQ(Readme(folders), (Lines{Opened(page), ReadmeStatus()}));
}

TEST(HelpFolders, ADocumentThatIsNowhereIsNamedInTheProgramsFolder) {
    const TestFolder program;
    const TestFolder installed;
    EXPECT_EQ(Readme({program.Path(), installed.Path()}),
              (Lines{Opened(program / "nvreadme.htm"), ReadmeStatus()}));
    EXPECT_EQ(WhatsNew({program.Path(), installed.Path()}),
              Lines{"editor " + (program / "whatsnew.txt").string()});
}

TEST(HelpFolders, AMissingProgramsFolderIsPassedOver) {
    const TestFolder installed;
    const FilePath page = installed.Write("nvreadme.htm", "");
    EXPECT_EQ(Readme({installed / "fehlt", installed.Path()}),
              (Lines{Opened(page), ReadmeStatus()}));
}

TEST(HelpFolders, WithoutAFolderTheNameAloneIsHandedOver) {
    EXPECT_EQ(Readme({}), (Lines{"document nvreadme.htm -> 33", ReadmeStatus()}));
}

TEST(HelpFolders, ADocumentIsFoundInOtherCase) {
    const TestFolder folder;
    const FilePath page = folder.Write("NVReadme.HTM", "");
    const FilePath text = folder.Write("WHATSNEW.TXT", "");
    const FilePath manual = folder.Write("norvikregister-handbuch.PDF", "");

    EXPECT_EQ(Readme({folder.Path()}), (Lines{Opened(page), ReadmeStatus()}));
    EXPECT_EQ(WhatsNew({folder.Path()}), Lines{"editor " + text.string()});
    ScriptedDesktop desktop;
    mnuHelpManual({folder.Path()}, desktop, desktop);
    EXPECT_EQ(desktop.Transcript.at(1), Opened(manual));
}

TEST(HelpFolders, ADocumentInOtherCaseInTheProgramsFolderGoesBeforeTheInstalledOne) {
    const TestFolder program;
    const TestFolder installed;
    const FilePath page = program.Write("NVREADME.HTM", "");
    installed.Write("nvreadme.htm", "");
    EXPECT_EQ(Readme({program.Path(), installed.Path()}), (Lines{Opened(page), ReadmeStatus()}));
}

TEST(HelpFolders, TheExactCaseGoesBeforeAnyOther) {
    const TestFolder folder;
    folder.Write("NVREADME.HTM", "");
    const FilePath exact = folder.Write("nvreadme.htm", "");
    EXPECT_EQ(Readme({folder.Path()}), (Lines{Opened(exact), ReadmeStatus()}));
}

TEST(HelpFolders, ThePathIsHandedOverAsItIsWhateverTheFolderIsCalled) {
    const TestFolder base;
    std::vector<std::string> names = {"Programme und Daten",
                                      "it's",
                                      "a;b",
                                      "$(touch geknackt)",
                                      "`touch geknackt`",
                                      "a&b",
                                      "%20",
                                      "%TEMP%",
                                      "^a^",
                                      "#1",
                                      "-rf",
                                      "$HOME",
                                      "Büro Süd",
                                      "Имя"};
#ifndef _WIN32
    names.insert(names.end(), {" ", "a\"b", "a&b|c>d", "#1?x", "\xE9", "a\nb"});
#endif
    for (const std::string& utf8 : names) {
        const FilePath name = platform::PathOfUtf8(utf8);
        const FilePath folder = base / name;
        fs::create_directory(folder);
        const FilePath page = base.Write(name / "nvreadme.htm", "");
        const FilePath text = base.Write(name / "whatsnew.txt", "");
        EXPECT_EQ(Readme({folder}), (Lines{Opened(page), ReadmeStatus()})) << utf8;
        EXPECT_EQ(WhatsNew({folder}), Lines{"editor " + platform::Utf8Of(text)}) << utf8;
    }
    EXPECT_FALSE(fs::exists("geknackt"));
}

TEST(HelpFolders, NothingIsWrittenIntoThem) {
    const TestFolder folder;
    Readme({folder.Path()});
    WhatsNew({folder.Path()});
    EXPECT_TRUE(fs::is_empty(folder.Path()));
}

#ifndef _WIN32
TEST(HelpFolders, AFolderThatMayNotBeEnteredIsPassedOver) {
    const TestFolder program;
    const TestFolder installed;
    program.Write("zu/nvreadme.htm", "");
    const FilePath page = installed.Write("nvreadme.htm", "");
    fs::permissions(program / "zu", fs::perms(0));
    fs::permissions(installed.Path(), fs::perms(0755));
    {
        const AsAnyUser anyUser;
        EXPECT_EQ(Readme({program / "zu", installed.Path()}),
                  (Lines{Opened(page), ReadmeStatus()}));
    }
    fs::permissions(program / "zu", fs::perms(0755));
}
#endif

// The information box

const std::string AboutQuestion =
    "box \"Telefonregistereditor für norvik Komforttelefone\\r\\n"
    "Unterstützte Telefone: Norvik 195, 193, 175\\r\\n"
    "Merkmale:\\r\\n"
    "- Konvertierung zwischen verschiedenen Formaten\\r\\n"
    "- Konvertierung von und zu Text (CSV)\\r\\n"
    "- Automatische Amtholung hinzufügen/entfernen\\r\\n"
    "- Auflisten und Löschen individueller Gebührenzähler\\r\\n"
    "- Anruferlistenkonvertierung\\r\\n"
    "Dies ist (Stand 30.06.2014)\\r\\n"
    "Dieses Programm ist ohne Auftrag der Norvik AG\\r\\n"
    "erstellt und FREEWARE.\\r\\n"
    "Keine Haftung bei Datenlust.\\r\\n"
    "Versionsgeschichte anzeigen?\" "
    "title \"Über das Programm\" icon None buttons Yes+No default Yes -> ";

const std::string History =
    "box \"Versionshistorie\\r\\n"
    "V 0.96d: einfacher Export CSV für Yealink-IP-Telefone\\r\\n"
    "V 0.96c: Anpassung der Amtholeinstellungen\\r\\n"
    "V 0.96b: NEU: Registerliste mit Filterfunktion\\r\\n"
    "V 0.96a: Klingeltonnamen erneuern\\r\\n"
    "V 0.95: Register-Wertchecks für Reparatur defekter Register\\r\\n"
    "Version 0.94: Klingeltonnamen und sortierte Filter\\r\\n"
    "Listenanzeige spezieller Registereigenschaften\\r\\n"
    "Einstellungen per Menü und Speichern in INI-Datei\\r\\n"
    "Übertragung v. Adreßdaten aus Textdatenbanken (Palm-DB u.a.)\\r\\n"
    "Export für Handy (mit Internationalisierung)\" "
    "title \"Versionsgeschichte\" icon Information buttons Ok default Ok -> Ok";

TEST(HelpAbout, YesShowsTheVersionHistory) {
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Yes);
    mnuHilfeAbout(desktop);
    EXPECT_EQ(desktop.Transcript, (Lines{AboutQuestion + "Yes", History}));
}

TEST(HelpAbout, NoEndsTheOperation) {
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::No);
    mnuHilfeAbout(desktop);
    EXPECT_EQ(desktop.Transcript, Lines{AboutQuestion + "No"});
}

}  // namespace
}  // namespace norvik::test
