// The help menu: what is handed to the desktop, and the boxes.
#include "tests/qt/windowfixture.h"

#include <QDesktopServices>
#include <QTextBrowser>
#include <QUrl>

#include <filesystem>
#include <fstream>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

namespace fs = std::filesystem;

/// Takes the files that the program hands to the desktop, as the desktop's program for them would.
class HandedOver {
  public:
    HandedOver() {
        // A toolkit's object that has a signal for one address.
        QObject::connect(&receiver_, &QTextBrowser::anchorClicked, &receiver_,
                         [this](const QUrl& url) { Urls.push_back(url); });
        QDesktopServices::setUrlHandler("file", &receiver_, "anchorClicked");
    }
    HandedOver(const HandedOver&) = delete;
    HandedOver& operator=(const HandedOver&) = delete;
    HandedOver(HandedOver&&) = delete;
    HandedOver& operator=(HandedOver&&) = delete;
    ~HandedOver() { QDesktopServices::unsetUrlHandler("file"); }

    std::vector<std::string> Files() const {
        std::vector<std::string> files;
        for (const QUrl& url : Urls) {
            files.push_back(url.isLocalFile() ? url.toLocalFile().toStdString()
                                              : "no file: " + url.toString().toStdString());
        }
        return files;
    }

    std::vector<QUrl> Urls;

  private:
    QTextBrowser receiver_;
};

const std::string NoManual =
    OkBox("Sorry, es ist noch kein Handbuch verfügbar. Alles wesentliche steht in README!",
          "Entschuldigung", "Information");
const std::string ManualStatus = "Start des Handbuchs (Testfunktion) Returncode ShellExecute: ";
const std::string ReadmeStatus =
    "Start von README im Webbrowser (Testfunktion) Returncode ShellExecute: ";

constexpr const char* Manual = "NorvikRegister-Handbuch.pdf";
constexpr const char* Readme = "nvreadme.htm";
constexpr const char* WhatsNew = "whatsnew.txt";

/// The window in a program's folder of its own inside the test's folder.
class WindowHelp : public WindowTest {
  protected:
    WindowHelp() : path_(qgetenv("PATH")) {
        DocumentFolder = Folder / "installiert";
        fs::create_directory(DocumentFolder);
        UsePrograms("");
    }
    ~WindowHelp() override { qputenv("PATH", path_); }

    /// Opens the window of a program that lies in a folder of this name.
    void OpenIn(const char* folder) {
        ProgramFolder = Folder / folder;
        fs::create_directory(ProgramFolder);
        std::ofstream(ProgramFolder / "norvik.ini") << "[common]\r\n";
        Open();
        Dialogs.Transcript.clear();
    }
    static std::string WriteDocument(const FilePath& path) {
        std::ofstream(path) << "Text";
        return path.string();
    }
    std::string Write(const char* document) const {
        return WriteDocument(ProgramFolder / document);
    }

    /// Lets programs be found in a folder of the test's folder alone.
    void UsePrograms(const char* folder) const {
        qputenv("PATH", QByteArray::fromStdString((Folder / "bin" / folder).string()));
    }
    std::string Status() const { return TextOf("Status"); }

    HandedOver Opened;

  private:
    QByteArray path_;
};

TEST_F(WindowHelp, TheReadmeIsHandedOver) {
    OpenIn("programm");
    const std::string path = Write(Readme);
    Trigger("mnuHilfeReadme");
    EXPECT_THAT(Opened.Files(), ElementsAre(path));
    EXPECT_EQ(Status(), ReadmeStatus + "33");
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowHelp, AMissingReadmeReturns2) {
    OpenIn("programm");
    Trigger("mnuHilfeReadme");
    EXPECT_THAT(Opened.Files(), IsEmpty());
    EXPECT_EQ(Status(), ReadmeStatus + "2");
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowHelp, AReadmeThatNoProgramOpensReturns31) {
    OpenIn("programm");
    Write(Readme);
    QDesktopServices::unsetUrlHandler("file");
    Trigger("mnuHilfeReadme");
    EXPECT_EQ(Status(), ReadmeStatus + "31");
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowHelp, TheManualIsHandedOverAfterItsMessage) {
    OpenIn("programm");
    const std::string path = Write(Manual);
    Dialogs
        .Look([this](QDialog&) {
            EXPECT_THAT(Opened.Files(), IsEmpty());
            EXPECT_EQ(Status(), "OK");
        })
        .Click(QMessageBox::Ok);
    Trigger("mnuHelpManual");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(NoManual));
    EXPECT_THAT(Opened.Files(), ElementsAre(path));
    EXPECT_EQ(Status(), ManualStatus + "33");
}

TEST_F(WindowHelp, AMissingManualReturns2) {
    OpenIn("programm");
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuHelpManual");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(NoManual));
    EXPECT_THAT(Opened.Files(), IsEmpty());
    EXPECT_EQ(Status(), ManualStatus + "2");
}

TEST_F(WindowHelp, AManualThatNoProgramOpensReturns31) {
    OpenIn("programm");
    Write(Manual);
    QDesktopServices::unsetUrlHandler("file");
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuHelpManual");
    EXPECT_EQ(Status(), ManualStatus + "31");
}

TEST_F(WindowHelp, ClosingTheMessageOfTheManualGoesOnAllTheSame) {
    OpenIn("programm");
    const std::string path = Write(Manual);
    Dialogs.Press(Qt::Key_Escape).Close();
    Trigger("mnuHelpManual");
    Trigger("mnuHelpManual");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(NoManual, NoManual)) << "it comes every time";
    EXPECT_THAT(Opened.Files(), ElementsAre(path, path));
}

TEST_F(WindowHelp, ADocumentOfTheProgramsFolderComesBeforeAnInstalledOne) {
    OpenIn("programm");
    const std::string installed = WriteDocument(DocumentFolder / Readme);
    Trigger("mnuHilfeReadme");
    EXPECT_THAT(Opened.Files(), ElementsAre(installed));
    const std::string own = WriteDocument(ProgramFolder / "NVReadMe.HTM");
    Trigger("mnuHilfeReadme");
    EXPECT_THAT(Opened.Files(), ElementsAre(installed, own));
    EXPECT_EQ(Status(), ReadmeStatus + "33");
}

TEST_F(WindowHelp, TheListOfChangesIsHandedOverWhereThereIsNoNotepad) {
    OpenIn("programm");
    const std::string path = Write(WhatsNew);
    Trigger("mnuHilfeWhatsNew");
    EXPECT_THAT(Opened.Files(), ElementsAre(path));
    EXPECT_EQ(Status(), "OK");
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowHelp, AMissingListOfChangesIsLeftToTheTextEditor) {
    OpenIn("programm");
    Trigger("mnuHilfeWhatsNew");
    EXPECT_THAT(Opened.Files(), ElementsAre((ProgramFolder / WhatsNew).string()));
    EXPECT_EQ(Status(), "OK");
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowHelp, WithoutAnyTextEditorTheListOfChangesSaysNothing) {
    OpenIn("programm");
    Write(WhatsNew);
    QDesktopServices::unsetUrlHandler("file");
    Trigger("mnuHilfeWhatsNew");
    EXPECT_EQ(Status(), "OK");
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

#ifndef _WIN32

/// What a folder may be called. Each would make a command shell run "touch" in the working folder,
/// or break the path apart.
class WindowHelpFolder : public WindowHelp, public testing::WithParamInterface<const char*> {
  protected:
    WindowHelpFolder() : workingFolder_(fs::current_path()) {
        fs::create_directory(Folder / "hier");
        fs::current_path(Folder / "hier");
    }
    ~WindowHelpFolder() override {
        EXPECT_TRUE(fs::is_empty(Folder / "hier")) << "a shell ran a part of the path";
        fs::current_path(workingFolder_);
    }

  private:
    FilePath workingFolder_;
};

INSTANTIATE_TEST_SUITE_P(Names, WindowHelpFolder,
                         testing::Values("Eigene Dateien", "\"in\" 'Zeichen'", "a; touch b; ",
                                         "$(touch b)", "`touch b`", "a&touch b&", "a|touch b",
                                         "x > b", "a\ntouch b\n", "Büro Übersicht ß", "100%41#?a=b",
                                         "-rf", "a\\b", "$HOME ~ *", "file:b", "Ω→日本"));

TEST_P(WindowHelpFolder, ArrivesExactlyAtTheDesktop) {
    OpenIn(GetParam());
    const std::string readme = Write(Readme);
    const std::string manual = Write(Manual);
    const std::string changes = Write(WhatsNew);
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuHilfeReadme");
    EXPECT_EQ(Status(), ReadmeStatus + "33");
    Trigger("mnuHelpManual");
    EXPECT_EQ(Status(), ManualStatus + "33");
    Trigger("mnuHilfeWhatsNew");
    EXPECT_THAT(Opened.Files(), ElementsAre(readme, manual, changes));
    for (const QUrl& url : Opened.Urls) {
        EXPECT_FALSE(url.hasQuery());
        EXPECT_FALSE(url.hasFragment());
        EXPECT_EQ(QUrl::fromEncoded(url.toEncoded()).toLocalFile(), url.toLocalFile());
    }
}

/// The same with an executable "notepad.exe" in the search path, which writes down its arguments.
class WindowHelpNotepad : public WindowHelpFolder {
  protected:
    WindowHelpNotepad() {
        // The folder is no part of the script's text: it may hold anything.
        const FilePath notepad =
            Folder.Write("bin/mit notepad/notepad.exe", "#!/bin/sh\n"
                                                        "out=\"${0%/*}/arguments\"\n"
                                                        "printf '%s\\0' \"$@\" > \"$out.part\"\n"
                                                        "/bin/mv \"$out.part\" \"$out\"\n");
        fs::permissions(notepad, fs::perms::owner_all);
        UsePrograms("mit notepad");
    }

    /// The arguments, each followed by a zero byte.
    std::string Arguments() const {
        const FilePath file = Folder / "bin/mit notepad/arguments";
        EXPECT_TRUE(QTest::qWaitFor([&file] { return fs::exists(file); }, 30000));
        const Bytes bytes = ReadFile(file);
        return {bytes.begin(), bytes.end()};
    }
};

INSTANTIATE_TEST_SUITE_P(Names, WindowHelpNotepad,
                         testing::Values("Eigene Dateien", "\"in\" 'Zeichen'", "a; touch b; ",
                                         "$(touch b)", "`touch b`", "a\ntouch b\n",
                                         "Büro Übersicht ß", "-rf"));

TEST_P(WindowHelpNotepad, GetsTheListOfChangesAsItsOnlyArgument) {
    OpenIn(GetParam());
    const std::string path = Write(WhatsNew);
    Trigger("mnuHilfeWhatsNew");
    EXPECT_EQ(Arguments(), path + '\0');
    EXPECT_THAT(Opened.Files(), IsEmpty());
    EXPECT_EQ(Status(), "OK");
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowHelp, ANotepadThatIsNoProgramIsNotStarted) {
    OpenIn("programm");
    const std::string path = Write(WhatsNew);
    Folder.Write("bin/datei/notepad.exe", "Text");
    UsePrograms("datei");
    Trigger("mnuHilfeWhatsNew");
    EXPECT_THAT(Opened.Files(), ElementsAre(path));
}

#endif

const std::string About =
    "box \"Telefonregistereditor für norvik Komforttelefone\n"
    "Unterstützte Telefone: Norvik 195, 193, 175\n"
    "Merkmale:\n"
    "- Konvertierung zwischen verschiedenen Formaten\n"
    "- Konvertierung von und zu Text (CSV)\n"
    "- Automatische Amtholung hinzufügen/entfernen\n"
    "- Auflisten und Löschen individueller Gebührenzähler\n"
    "- Anruferlistenkonvertierung\n"
    "Dies ist (Stand 30.06.2014)\n"
    "Dieses Programm ist ohne Auftrag der Norvik AG\n"
    "erstellt und FREEWARE.\n"
    "Keine Haftung bei Datenlust.\n"
    "Versionsgeschichte anzeigen?\" title \"Über das Programm\" icon None buttons Ja+Nein default "
    "Ja";
const std::string History = OkBox("Versionshistorie\n"
                                  "V 0.96d: einfacher Export CSV für Yealink-IP-Telefone\n"
                                  "V 0.96c: Anpassung der Amtholeinstellungen\n"
                                  "V 0.96b: NEU: Registerliste mit Filterfunktion\n"
                                  "V 0.96a: Klingeltonnamen erneuern\n"
                                  "V 0.95: Register-Wertchecks für Reparatur defekter Register\n"
                                  "Version 0.94: Klingeltonnamen und sortierte Filter\n"
                                  "Listenanzeige spezieller Registereigenschaften\n"
                                  "Einstellungen per Menü und Speichern in INI-Datei\n"
                                  "Übertragung v. Adreßdaten aus Textdatenbanken (Palm-DB u.a.)\n"
                                  "Export für Handy (mit Internationalisierung)",
                                  "Versionsgeschichte", "Information");

TEST_F(WindowHelp, TheInformationBoxOffersTheHistory) {
    Open();
    Dialogs.Click(QMessageBox::Yes).Click(QMessageBox::Ok);
    Trigger("mnuHilfeAbout");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(About, History));
    EXPECT_EQ(Status(), "OK");
}

TEST_F(WindowHelp, NoAndClosingTheInformationBoxShowNoHistory) {
    Open();
    Dialogs.Click(QMessageBox::No).Press(Qt::Key_Escape).Close();
    Trigger("mnuHilfeAbout");
    Trigger("mnuHilfeAbout");
    Trigger("mnuHilfeAbout");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(About, About, About));
}

}  // namespace

}  // namespace norvik::test
