#include "tests/qt/windowfixture.h"
#include "tests/support/times.h"

#include <QApplication>
#include <QScreen>

#include <algorithm>
#include <ctime>
#include <filesystem>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

const std::string OpenCSV = "open \"CSV-Datei (*.csv)|Alle Dateien (*)\" name \"\"";
const std::string Open175 = "open \"norvik-175-Datei (*.pbo)|Alle Dateien (*)\" name \"\"";
const std::string CsvHeader =
    "Name;Tel;Info1;Info2;Info3;Info4;Info5;Info6;AB;Ton;EnTon;MSN;Filter;GebEinh;EnGeb\r\n";

std::string UndefinedError(const char* text) {
    return OkBox(QString("Undef'd Error: ") + text, "NORVIK", "None");
}

/// Whether a dialog with all of its buttons is on the screen.
void ExpectFitsScreen(QDialog& dialog) {
    const QRect screen = dialog.screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(dialog.frameGeometry()));
    for (const auto* button : dialog.findChildren<QPushButton*>()) {
        const QRect shown(button->mapToGlobal(QPoint(0, 0)), button->size());
        EXPECT_TRUE(screen.contains(shown)) << button->text().toStdString();
        EXPECT_FALSE(button->visibleRegion().isEmpty());
    }
}

/// Loading CSV and 175 files over a register of one entry.
class WindowLoadText : public WindowTest {
  protected:
    WindowLoadText() { Load({{.name = "Alt", .tel = "9", .info = "()"}}); }

    /// Gives the first dialog a file of these bytes, last modified on 20 November 2026 at 09:05.
    void Choose(const char* name, const std::string& bytes) {
        Folder.Write(name, bytes);
        const FileTime time = LocalTime(2026, 11, 20, 9, 5, 0);
        std::filesystem::last_write_time(Folder / name, std::chrono::file_clock::from_sys(time));
        Dialogs.ChooseFile(PathIn(name));
    }

    void ExpectLoaded(const char* name, const char* model) const {
        EXPECT_EQ(Caption(), "norvik Telefonregister - Datei: " + PathIn(name).toStdString());
        EXPECT_EQ(TextOf("AnzQuelle"), model);
        EXPECT_EQ(TextOf("AnzQuellZeit"), "20.11.2026 09:05");
        EXPECT_EQ(TextOf("AnzNr"), "1");
        EXPECT_EQ(TextOf("Status"), "Sortieren beendet");
        EXPECT_EQ(ButtonColour(), NeutralColour());
    }

    void ExpectTheOldRegister() const {
        EXPECT_EQ(Caption(),
                  "norvik Telefonregister - Datei: " + PathIn("register.t9t").toStdString());
        EXPECT_EQ(TextOf("AnzQuelle"), "195");
        EXPECT_THAT(Rows(), ElementsAre("#1: Alt (9) ()"));
        EXPECT_EQ(TextOf("AnzGes"), "1");
        EXPECT_EQ(TextOf("AnzMarkiert"), "1");
        EXPECT_EQ(ButtonColour(), NeutralColour());
    }
};

TEST_F(WindowLoadText, ACsvFileIsLoadedSortedAndShown) {
    Choose("Register.csv", CsvHeader + "Zoe;030 1;Eins;;Drei;;;;2;10;ja;03;VIP ;100;ja\r\n"
                                       "M\xFCller;**12;()\r\n");
    Trigger("mnuDateiLoadCSV");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenCSV));
    ExpectLoaded("Register.csv", "CSV");
    EXPECT_EQ(TextOf("AnzGes"), "2");
    EXPECT_EQ(TextOf("AnzMarkiert"), "1");
    EXPECT_EQ(TextOf("Index"), "2");
    EXPECT_THAT(Rows(), ElementsAre("#1: Müller (**12) ()",
                                    "#2: Zoe (0301) " + Line("Eins") + Line("") + "Drei"));
    EXPECT_EQ(SelectedRow(), "#1: Müller (**12) ()");
    EXPECT_EQ(TextOf("DDMSN"), "(lt. Telefon)");
    EXPECT_EQ(TextOfField(6), "01 (1)");
    Selector()->setValue(2);
    EXPECT_EQ(TextOfField(1), "0301");
    EXPECT_EQ(TextOfField(8), Line("Eins"));
    EXPECT_EQ(TextOfField(10), Line("Drei"));
    EXPECT_EQ(TextOfField(2), "8A");
    EXPECT_EQ(TextOfField(5), "92");
    EXPECT_EQ(TextOf("DDAB"), "Ansage 2");
    EXPECT_EQ(TextOf("DDTon"), "Klingel 1");
    EXPECT_TRUE(IsChecked("chkTon"));
    EXPECT_EQ(TextOf("DDMSN"), "MSN 3");
    EXPECT_TRUE(IsChecked("OptFilter(2)"));
    EXPECT_TRUE(IsChecked("chkCharge"));
    EXPECT_EQ(TextOf("AnzGeb"), "12,00");
}

TEST_F(WindowLoadText, ACsvNameWithoutAnEndingGetsItAlsoInAFolderWithAPoint) {
    Folder.Write("a.b/Liste.csv", CsvHeader + "Anna;1\r\n");
    Dialogs.ChooseFile(PathIn("a.b/Liste"));
    Trigger("mnuDateiLoadCSV");
    EXPECT_THAT(Rows(), ElementsAre("#1: Anna (1)"));
    EXPECT_EQ(Caption(),
              "norvik Telefonregister - Datei: " + PathIn("a.b/Liste.csv").toStdString());
}

TEST_F(WindowLoadText, ACancelledDialogChangesNothing) {
    Retype(0, "getippt");
    Dialogs.Cancel().Cancel();
    Trigger("mnuDateiLoadCSV");
    Trigger("mnuDateiLoad175");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenCSV, Open175));
    EXPECT_EQ(TextOfField(0), "getippt");
    EXPECT_EQ(TextOf("Status"), "Sortieren beendet");
    ExpectTheOldRegister();
}

TEST_F(WindowLoadText, AFileThatCannotBeOpenedIsReportedAndTheRegisterStays) {
    std::filesystem::create_symlink("/dev/null", Folder / "null.csv");
    std::filesystem::create_symlink("/dev/null", Folder / "null.pbo");
    Retype(0, "getippt");
    Dialogs.ChooseFile(PathIn("fehlt")).Click(QMessageBox::Ok);
    Dialogs.ChooseFile(PathIn("null.csv")).Click(QMessageBox::Ok);
    Trigger("mnuDateiLoadCSV");
    Trigger("mnuDateiLoadCSV");
    Dialogs.ChooseFile(PathIn("fehlt/x")).Click(QMessageBox::Ok);
    Dialogs.ChooseFile(PathIn("null.pbo")).Click(QMessageBox::Ok);
    Trigger("mnuDateiLoad175");
    Trigger("mnuDateiLoad175");
    EXPECT_THAT(
        Dialogs.Transcript,
        ElementsAre(OpenCSV, UndefinedError("mnuDateiLoadCSV:53Datei nicht gefunden"), OpenCSV,
                    UndefinedError("mnuDateiLoadCSV:75Fehler beim Zugriff auf Pfad/Datei"), Open175,
                    UndefinedError("mnuDateiLoad175:76Pfad nicht gefunden"), Open175,
                    UndefinedError("mnuDateiLoad175:75Fehler beim Zugriff auf Pfad/Datei")));
    EXPECT_EQ(TextOfField(0), "getippt");
    ExpectTheOldRegister();
}

TEST_F(WindowLoadText, ACsvValueThatDoesNotFitEndsTheLoadAndWhatWasReadIsShown) {
    Choose("x.csv", CsvHeader + "Anna;1\r\nBernd;2;;;;;;;40000\r\n");
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuDateiLoadCSV");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OpenCSV, UndefinedError("mnuDateiLoadCSV:6Überlauf")));
    EXPECT_EQ(TextOf("AnzGes"), "1");
    EXPECT_EQ(TextOfField(0), "Anna");
    EXPECT_THAT(Rows(), ElementsAre("#1: Anna (1)"));
    EXPECT_EQ(TextOf("AnzQuelle"), "CSV");
    EXPECT_EQ(Caption(), "norvik Telefonregister - Datei: " + PathIn("x.csv").toStdString());
    Dialogs.Click(QMessageBox::Ok);
    EXPECT_TRUE(Window->close()) << "asks, and the answer is to quit";
}

TEST_F(WindowLoadText, AShortCsvReportIsShownByTheReaderAndByTheCheck) {
    Choose("x.csv", CsvHeader + "Anna;1\r\nAnna;2;;;;;;;8\r\n");
    Dialogs.Click(QMessageBox::Ok).Click(QMessageBox::Ok);
    Trigger("mnuDateiLoadCSV");
    EXPECT_THAT(
        Dialogs.Transcript,
        ElementsAre(
            OpenCSV,
            OkBox("Doppelter Name: Anna\n", "LadeCSV: Doubletten entfernt/Hinweise", "None"),
            OkBox("Es wurden 1 Fehler korrigiert\n\nDoppelter Name: Anna\n#1[Anna] Ansage zu "
                  "hoch: 8\n",
                  "Fehlerprüfung", "Information")));
    ExpectLoaded("x.csv", "CSV");
    EXPECT_EQ(TextOf("AnzGes"), "2");
}

TEST_F(WindowLoadText, ANameThatLooksLikeMarkupIsShownAsItStandsInTheReport) {
    Choose("x.csv", CsvHeader + "<b>A</b>;1\r\n<b>A</b>;2\r\n");
    Dialogs.Click(QMessageBox::Ok).Click(QMessageBox::Ok);
    Trigger("mnuDateiLoadCSV");
    ASSERT_THAT(Dialogs.Transcript, SizeIs(3));
    EXPECT_EQ(Dialogs.Transcript[1],
              OkBox("Doppelter Name: <b>A</b>\n", "LadeCSV: Doubletten entfernt/Hinweise", "None"));
}

TEST_F(WindowLoadText, ACsvReportOfAnyLengthFitsTheScreen) {
    for (const int lines : {10, 25, 32, 40, 60, 150, 1999}) {
        SCOPED_TRACE(lines);
        std::string file = CsvHeader;
        QString report;
        for (int i = 0; i <= lines; ++i) {
            file += "Anna Magdalena Bach;" + std::to_string(i) + "\r\n";
            report += i == 0 ? "" : "Doppelter Name: Anna Magdalena Bach\n";
        }
        Dialogs.Transcript.clear();
        Choose("x.csv", file);
        Dialogs.Look(ExpectFitsScreen).Press(Qt::Key_Return);
        Dialogs.Look(ExpectFitsScreen).Press(Qt::Key_Return);
        Trigger("mnuDateiLoadCSV");
        ASSERT_THAT(Dialogs.Transcript, SizeIs(3));
        EXPECT_THAT(Dialogs.Transcript[1],
                    HasSubstr(" \"" + report.toStdString() +
                              "\" title \"LadeCSV: Doubletten entfernt/Hinweise\" "));
        EXPECT_THAT(Dialogs.Transcript[2], HasSubstr(report.toStdString()));
        EXPECT_EQ(TextOf("AnzGes"), std::to_string(lines + 1));
    }
}

TEST_F(WindowLoadText, ACsvFileWithoutEntriesEndsTheProgramWithSortierfehler) {
    Choose("leer.csv", CsvHeader);
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuDateiLoadCSV");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenCSV, OkBox("Sortierfehler", " ", "None")));
    EXPECT_EQ(HardStops, 1);
    Window.reset();
    QApplication::restoreOverrideCursor();  // a process that ended has none
}

TEST_F(WindowLoadText, LoadingTextFilesIsNoReasonToAskWhenQuittingAndTakesNoneAway) {
    Choose("x.csv", CsvHeader + "Anna;1\r\n");
    Trigger("mnuDateiLoadCSV");
    EXPECT_TRUE(Window->close());
    Window->show();
    Click("btnNew");
    Choose("x.pbo", "norvik 175 phonebook\rN=A\rP=1\rI=\rI=\rI=\rI=\rI=\rI=");
    Trigger("mnuDateiLoad175");
    EXPECT_EQ(TextOf("AnzGes"), "1");
    Dialogs.Cancel();
    EXPECT_FALSE(Window->close());
}

TEST_F(WindowLoadText, A175FileIsLoadedSortedAndShown) {
    Choose("Buch.pbo", "  norvik 175 phonebook \r\n"
                       "N=Zoe\r\nP=030 1\r\nI=Eins\r\nI=\r\nI=Drei und noch viel mehr\r\n"
                       "I=\r\nI=\r\nI=Sechs\r\n"
                       "N=M\xFCller mit einem langen Namen\r\nP=1234567890123456789012\r\n"
                       "I=()\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=\r\n");
    Trigger("mnuDateiLoad175");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Open175));
    ExpectLoaded("Buch.pbo", "175");
    EXPECT_EQ(TextOf("AnzGes"), "2");
    EXPECT_EQ(TextOf("AnzMarkiert"), "1");
    EXPECT_THAT(Rows(), ElementsAre("#1: Müller mit einem lang (123456789012345678901) ()",
                                    "#2: Zoe (030 1) " + Line("Eins") + Line("") +
                                        "Drei und noch viel me" + Line("") + Line("") + "Sechs"));
    Selector()->setValue(2);
    EXPECT_EQ(TextOfField(10), "Drei und noch viel me");
    EXPECT_EQ(TextOfField(13), Line("Sechs"));
    EXPECT_EQ(TextOfField(2), "00");
    EXPECT_EQ(TextOfField(3), "0");
    EXPECT_EQ(TextOfField(4), "00");
    EXPECT_EQ(TextOfField(5), "0F");
    EXPECT_EQ(TextOfField(6), "01 (2)");
}

TEST_F(WindowLoadText, AnotherFirstLineIsNo175FileAndTheRegisterStays) {
    Choose("x.pbo", " <b>norvik</b> 176 \r\nN=A\r\n");
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuDateiLoad175");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(Open175, OkBox("Dies ist keine Norvik-175-Registerdatei!\n"
                                           "( <b>norvik</b> 176 )",
                                           "Fehlermeldung", "Critical")));
    EXPECT_EQ(TextOfField(0), "Alt");
    ExpectTheOldRegister();
}

TEST_F(WindowLoadText, AFirstLineOfAnyLengthFitsTheScreen) {
    for (const std::size_t length : {100U, 900U, 5000U, 60000U}) {
        SCOPED_TRACE(length);
        Choose("x.pbo", std::string(length, 'x'));
        Dialogs.Look(ExpectFitsScreen).Press(Qt::Key_Return);
        Trigger("mnuDateiLoad175");
        std::string shown = Dialogs.Transcript.back();
        if (length > 1000) {  // folded
            shown.erase(std::remove(shown.begin(), shown.end(), '\n'), shown.end());
        }
        EXPECT_TRUE(shown.find("(" + std::string(length, 'x') + ")") != std::string::npos);
    }
    ExpectTheOldRegister();
}

TEST_F(WindowLoadText, ACorrupt175FileBringsAMessageForEachLineFromThenOn) {
    Choose("x.pbo", "norvik 175 phonebook\r\n"
                    "N=Anna\r\nP=1\r\nI=eins\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=\r\n"
                    "N=Bernd\r\nQ=2\r\nI=\r\nN=Carla\r\nP=3\r\nI=\r\n");
    const std::string corrupt =
        OkBox("175-Datei korrupt, Lesen abgebrochen", "Fehlermeldung", "Critical");
    const auto pointer = [](QDialog&) { EXPECT_EQ(QApplication::overrideCursor(), nullptr); };
    for (int i = 0; i < 3; ++i) {
        Dialogs.Look(pointer).Click(QMessageBox::Ok);
    }
    Trigger("mnuDateiLoad175");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Open175, corrupt, corrupt, corrupt));
    ExpectLoaded("x.pbo", "175");
    EXPECT_THAT(Rows(), ElementsAre("#1: Anna (1) eins"));
}

TEST_F(WindowLoadText, A175FileThatEndsInAnEntryIsReportedAndWhatWasReadIsShown) {
    Choose("x.pbo", "norvik 175 phonebook\r\n"
                    "N=Anna\r\nP=1\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=\r\nN=Bernd\r\nP=2\r\n");
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuDateiLoad175");
    EXPECT_THAT(
        Dialogs.Transcript,
        ElementsAre(Open175, UndefinedError("mnuDateiLoad175:62Einlesen hinter Dateiende")));
    EXPECT_EQ(TextOfField(0), "Anna");
    EXPECT_EQ(TextOf("AnzQuelle"), "175");
    EXPECT_THAT(Rows(), ElementsAre("#1: Anna (1)"));
    EXPECT_EQ(TextOf("AnzGes"), "1");
}

TEST_F(WindowLoadText, AnEmpty175FileIsReported) {
    Choose("leer.pbo", "");
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuDateiLoad175");
    EXPECT_THAT(
        Dialogs.Transcript,
        ElementsAre(Open175, UndefinedError("mnuDateiLoad175:62Einlesen hinter Dateiende")));
    ExpectTheOldRegister();
}

}  // namespace

}  // namespace norvik::test
