#include "tests/qt/windowfixture.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>

#include <algorithm>
#include <filesystem>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

const std::string SaveDialogCSV = "save \"CSV-Datei (*.csv)|Alle Dateien (*)\" name \"\"";
const std::string SaveDialog175 = "save \"norvik-175-Datei (*.pbo)|Alle Dateien (*)\" name \"\"";
const std::string SaveDialogIP286 = "save \"CSV-Datei(IP286) (*.csv)|Alle Dateien (*)\" name \"\"";
const std::string InQuotes = "box \"Sollen die Daten in \" \" gesetzt werden?\" title "
                             "\"Speichern im CSV-Format\" icon Question buttons Ja+Nein default Ja";
const std::string Exclude = "input \"Texte ausschließen (leer für beenden)\" title "
                            "\"Exportbeschränkung\" preset \"\"";
const std::string Quit = "box \"Beenden ohne zu sichern?\" title \"Sicherheitsabfrage\" icon "
                         "Question buttons OK+Abbrechen default Abbrechen";

std::string Result(int exported, int ignored, const QString& names = {}) {
    return OkBox(QString("%1 Einträge exportiert\n%2 Einträge wurden ignoriert\n")
                         .arg(exported)
                         .arg(ignored) +
                     names,
                 "Exportergebnis", "Information");
}

std::string UndefinedError(const char* text) {
    return OkBox(QString("Undef'd Error: ") + text, "NORVIK", "None");
}

/// Saving a register of two entries as text.
class WindowSaveText : public WindowTest {
  protected:
    WindowSaveText() {
        Load({{.name = "M\x81ller",
               .tel = "22",
               .info = "B\x81ro",
               .ton = 0x8A,
               .msnFilter = 0x92,
               .gebEinh = 200,
               .ab = 7},
              {.name = "Anna", .tel = "*11", .info = "()", .gebEinh = 100}});
        Selector()->setValue(2);
    }

    std::string FileText(const char* name) const {
        const Bytes bytes = ReadFile(Folder / name);
        return {bytes.begin(), bytes.end()};
    }

    /// Names a folder in the file dialog, which opens it and waits for another name.
    void ChooseFolder(const char* name) {
        std::filesystem::create_directory(Folder / name);
        Dialogs
            .Look([folder = PathIn(name)](QDialog& dialog) {
                dialog.findChild<QLineEdit*>("fileNameEdit")->setText(folder);
                auto* buttons = dialog.findChild<QDialogButtonBox*>();
                QTest::mouseClick(buttons->button(QDialogButtonBox::Save), Qt::LeftButton);
                EXPECT_TRUE(dialog.isVisible());
                EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).directory(), QDir(folder));
            })
            .Cancel();
    }

    /// Makes a name that exists and takes no byte, and answers the overwrite question.
    void ChooseFullDisk(const char* name) {
        std::filesystem::create_symlink("/dev/full", Folder / name);
        Dialogs.ChooseFile(PathIn(name)).Click(QMessageBox::Yes);
    }

    /// Makes a folder of this name while a dialog is shown.
    std::function<void(QDialog&)> MakingFolder(const char* name) const {
        return [path = Folder / name](QDialog&) { std::filesystem::create_directory(path); };
    }

    void ExpectQuestionOnQuit(bool asked) {
        Dialogs.Transcript.clear();
        if (asked) {
            Dialogs.Cancel();
        }
        EXPECT_EQ(Window->close(), !asked);
        EXPECT_THAT(Dialogs.Transcript,
                    ElementsAreArray(asked ? std::vector{Quit} : std::vector<std::string>()));
    }

    void ExpectCurrentFileAndColourUnchanged() const {
        EXPECT_EQ(Caption(),
                  "norvik Telefonregister - Datei: " + PathIn("register.t9t").toStdString());
        EXPECT_EQ(TextOf("AnzQuelle"), "195");
        EXPECT_EQ(ButtonColour(), NeutralColour());
    }

    static constexpr const char* PlainCSV =
        "Name;Tel;Info1;Info2;Info3;Info4;Info5;Info6;AB;Ton;EnTon;MSN;Filter;GebEinh;EnGeb\r\n"
        "Anna;*11;();;;;;;0;0;nein;00;Kein;100;nein\r\n"
        "M\xFCller;22;B\xFCro;;;;;;7;10;ja;03;VIP ;200;ja\r\n";
    static constexpr const char* Phonebook = "norvik 175 phonebook\r\n"
                                             "N=Anna\r\nP=*11\r\nI=()\r\n"
                                             "I=\r\nI=\r\nI=\r\nI=\r\nI=\r\n"
                                             "N=M\xFCller\r\nP=22\r\nI=B\xFCro\r\n"
                                             "I=\r\nI=\r\nI=\r\nI=\r\nI=\r\n";
};

TEST_F(WindowSaveText, SavesAsCsvWithoutQuotes) {
    Click("chkExport");  // from here on the register is not saved
    Click("chkExport");
    Retype(0, "getippt");
    Dialogs.ChooseFile(PathIn("neu")).Click(QMessageBox::No);
    Trigger("mnuDateiSaveCSV");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(SaveDialogCSV, InQuotes));
    EXPECT_EQ(FileText("neu.csv"), PlainCSV);
    EXPECT_EQ(TextOf("AnzNr"), "2");
    EXPECT_EQ(TextOfField(0), "Müller") << "the entry is shown again";
    EXPECT_EQ(TextOf("Status"), "Gespeichert: " + PathIn("neu.csv").toStdString());
    ExpectCurrentFileAndColourUnchanged();
    ExpectQuestionOnQuit(false);
}

TEST_F(WindowSaveText, SavesAsCsvWithQuotesByReturn) {
    Dialogs.ChooseFile(PathIn("neu.txt")).Press(Qt::Key_Return);
    Trigger("mnuDateiSaveCSV");
    EXPECT_EQ(FileText("neu.txt"),
              "\"Name\";\"Tel\";\"Info1\";\"Info2\";\"Info3\";\"Info4\";\"Info5\";\"Info6\";"
              "\"AB\";\"Ton\";\"EnTon\";\"MSN\";\"Filter\";\"GebEinh\";\"EnGeb\"\r\n"
              "\"Anna\";\"*11\";\"()\";\"\";\"\";\"\";\"\";\"\";\"0\";\"0\";\"nein\";\"00\";"
              "\"Kein\";\"100\";\"nein\"\r\n"
              "\"M\xFCller\";\"22\";\"B\xFCro\";\"\";\"\";\"\";\"\";\"\";\"7\";\"10\";\"ja\";"
              "\"03\";\"VIP \";\"200\";\"ja\"\r\n");
}

TEST_F(WindowSaveText, TheCsvQuestionHasNoCancelAndClosingItIsNo) {
    Dialogs.ChooseFile(PathIn("neu")).Close();
    Trigger("mnuDateiSaveCSV");
    EXPECT_EQ(FileText("neu.csv"), PlainCSV);
}

TEST_F(WindowSaveText, ASavedCsvFileIsLoadedAsTheSameRegister) {
    const std::vector<std::string> rows = Rows();
    Dialogs.ChooseFile(PathIn("neu")).Click(QMessageBox::Yes);
    Dialogs.ChooseFile(PathIn("neu")).ChooseFile(PathIn("noch")).Click(QMessageBox::No);
    Trigger("mnuDateiSaveCSV");
    Trigger("mnuDateiLoadCSV");
    Trigger("mnuDateiSaveCSV");
    EXPECT_EQ(Rows(), rows);
    EXPECT_EQ(FileText("noch.csv"), PlainCSV);
}

TEST_F(WindowSaveText, SavesForThe175AndShowsEntryOne) {
    Click("btnSaveChange");
    Retype(0, "getippt");
    Dialogs.ChooseFile(PathIn("neu"));
    Trigger("mnuDateiSave175");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(SaveDialog175));
    EXPECT_EQ(FileText("neu.pbo"), Phonebook);
    EXPECT_EQ(TextOf("AnzNr"), "1");
    EXPECT_EQ(Selector()->value(), 1);
    EXPECT_EQ(TextOfField(0), "Anna");
    EXPECT_EQ(SelectedRow(), "#1: Anna (*11) ()");
    EXPECT_EQ(TextOf("Status"), "Gespeichert: " + PathIn("neu.pbo").toStdString());
    ExpectCurrentFileAndColourUnchanged();
    ExpectQuestionOnQuit(false);
}

TEST_F(WindowSaveText, SavingForThe175TrimsTheInfoInTheRegisterAndTheList) {
    Retype(8, "  B");
    Click("btnSaveChange");
    ASSERT_EQ(Rows().back(), "#2: Müller (22)   B");
    Dialogs.ChooseFile(PathIn("neu"));
    Trigger("mnuDateiSave175");
    EXPECT_EQ(Rows().back(), "#2: Müller (22) B");
}

TEST_F(WindowSaveText, ExportsForTheIP286WithoutExclusions) {
    Click("btnSaveChange");
    Retype(0, "getippt");
    Dialogs.ChooseFile(PathIn("neu")).Type("").Click(QMessageBox::Ok);
    Trigger("mnuDateiSaveIP286");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(SaveDialogIP286, Exclude, Result(2, 0)));
    EXPECT_EQ(FileText("neu.csv"), "\"Name\",\"Telefonnummer\",\"Konto\"\r\n"
                                   "\"Anna\",\"*11\",\"1\"\r\n\"Mueller\",\"22\",\"1\"\r\n");
    EXPECT_EQ(TextOf("AnzNr"), "2");
    EXPECT_EQ(TextOfField(0), "Müller") << "the entry is shown again";
    ExpectCurrentFileAndColourUnchanged();
    ExpectQuestionOnQuit(true);
}

TEST_F(WindowSaveText, ExportsForTheIP286WithExclusionsUntilACancelledBox) {
    Dialogs.ChooseFile(PathIn("neu.txt")).Type("22").Type("7").Cancel().Click(QMessageBox::Ok);
    Trigger("mnuDateiSaveIP286");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(SaveDialogIP286, Exclude, Exclude, Exclude, Result(1, 1, "Müller\n")));
    EXPECT_EQ(FileText("neu.txt"),
              "\"Name\",\"Telefonnummer\",\"Konto\"\r\n\"Anna\",\"*11\",\"1\"\r\n");
}

TEST_F(WindowSaveText, ARegisterOf301EntriesIsExportedAfterAWarning) {
    Load(NumberedRegisterFile(301));
    Dialogs.Click(QMessageBox::Ok).ChooseFile(PathIn("neu")).Cancel().Click(QMessageBox::Ok);
    Trigger("mnuDateiSaveIP286");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OkBox("Der Datensatz wird 301 Datensätze beinhalten, ein Yealink T28 "
                                  "speichert jedoch maximal 300 Datensätze. Der Import wird einige "
                                  "Datensätze ignorieren!",
                                  "WARNHINWEIS", "Critical"),
                            SaveDialogIP286, Exclude, Result(301, 0)));
    const std::string text = FileText("neu.csv");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 302);
    EXPECT_TRUE(text.ends_with("\"Name 0301\",\"301\",\"1\"\r\n"));
}

TEST_F(WindowSaveText, ARegisterOf300EntriesIsExportedWithoutAWarning) {
    Load(NumberedRegisterFile(300));
    Dialogs.ChooseFile(PathIn("neu")).Cancel().Click(QMessageBox::Ok);
    Trigger("mnuDateiSaveIP286");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(SaveDialogIP286, Exclude, Result(300, 0)));
}

TEST_F(WindowSaveText, AResultOfHundredsOfNamesStandsInAPartThatScrolls) {
    Load(std::vector<FileRecord>(301, {.name = "Anna", .tel = "**1"}));
    std::string names;
    for (int i = 0; i < 301; ++i) {
        names += "Anna\n";
    }
    Dialogs.Click(QMessageBox::Ok).ChooseFile(PathIn("neu")).Type("**").Type("");
    Dialogs.Press(Qt::Key_Return);
    Trigger("mnuDateiSaveIP286");
    ASSERT_EQ(Dialogs.Transcript.size(), 5U);
    EXPECT_EQ(Dialogs.Transcript.back(), "text \"0 Einträge exportiert\n301 Einträge wurden "
                                         "ignoriert\n" +
                                             names +
                                             "\" title \"Exportergebnis\" buttons OK default OK");
    EXPECT_EQ(FileText("neu.csv"), "\"Name\",\"Telefonnummer\",\"Konto\"\r\n");
}

TEST_F(WindowSaveText, ACancelledDialogWritesNothing) {
    Retype(0, "getippt");
    Dialogs.Cancel().Cancel().Cancel();
    Trigger("mnuDateiSaveCSV");
    Trigger("mnuDateiSave175");
    Trigger("mnuDateiSaveIP286");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(SaveDialogCSV, SaveDialog175, SaveDialogIP286));
    EXPECT_EQ(TextOfField(0), "getippt");
    EXPECT_EQ(TextOf("AnzNr"), "2");
    EXPECT_EQ(TextOf("Status"), "Sortieren beendet");
    ExpectCurrentFileAndColourUnchanged();
}

TEST_F(WindowSaveText, AFolderCannotBeChosen) {
    ChooseFolder("neu.csv");
    Trigger("mnuDateiSaveCSV");
    ChooseFolder("neu.pbo");
    Trigger("mnuDateiSave175");
    ChooseFolder("neu");
    Trigger("mnuDateiSaveIP286");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(SaveDialogCSV, SaveDialog175, SaveDialogIP286));
}

TEST_F(WindowSaveText, AFailedCsvSaveIsReportedAndTheRegisterIsNotSaved) {
    Click("btnSaveChange");
    Retype(0, "getippt");
    Dialogs.ChooseFile(PathIn("fehlt/neu")).Click(QMessageBox::No).Click(QMessageBox::Ok);
    Trigger("mnuDateiSaveCSV");
    Dialogs.ChooseFile(PathIn("neu")).Look(MakingFolder("neu.csv")).Click(QMessageBox::No);
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuDateiSaveCSV");
    EXPECT_THAT(
        Dialogs.Transcript,
        ElementsAre(SaveDialogCSV, InQuotes,
                    UndefinedError("mnuDateiSaveCSV:76Pfad nicht gefunden"), SaveDialogCSV,
                    InQuotes,
                    UndefinedError("mnuDateiSaveCSV:75Fehler beim Zugriff auf Pfad/Datei")));
    EXPECT_EQ(TextOfField(0), "getippt");
    Dialogs.Transcript.clear();
    ChooseFullDisk("voll.csv");
    Dialogs.Click(QMessageBox::Yes).Click(QMessageBox::Ok);
    Trigger("mnuDateiSaveCSV");
    EXPECT_EQ(Dialogs.Transcript.back(), UndefinedError("mnuDateiSaveCSV:61Datenträger voll"));
    EXPECT_EQ(TextOf("AnzNr"), "2");
    EXPECT_EQ(TextOf("Status"), "Nicht gespeichert: Datenträger voll");
    ExpectQuestionOnQuit(true);
}

TEST_F(WindowSaveText, AFailedSaveForThe175StandsInTheStatusLineAndShowsEntryOne) {
    Click("btnSaveChange");
    Dialogs.ChooseFile(PathIn("fehlt/neu"));
    Trigger("mnuDateiSave175");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(SaveDialog175));
    EXPECT_EQ(TextOf("Status"), "Nicht gespeichert: Pfad nicht gefunden");
    EXPECT_EQ(TextOf("AnzNr"), "1");
    EXPECT_EQ(TextOfField(0), "Anna");
    Selector()->setValue(2);
    ChooseFullDisk("voll.pbo");
    Trigger("mnuDateiSave175");
    EXPECT_EQ(Dialogs.Transcript.size(), 3U);
    EXPECT_EQ(TextOf("Status"), "Nicht gespeichert: Datenträger voll");
    EXPECT_EQ(TextOfField(0), "Anna");
    ExpectQuestionOnQuit(true);
}

TEST_F(WindowSaveText, AFailedExportForTheIP286IsReportedWithoutAResult) {
    Retype(0, "getippt");
    Dialogs.ChooseFile(PathIn("fehlt/neu")).Cancel().Click(QMessageBox::Ok);
    Trigger("mnuDateiSaveIP286");
    Dialogs.ChooseFile(PathIn("neu")).Look(MakingFolder("neu.csv")).Type("");
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuDateiSaveIP286");
    EXPECT_THAT(
        Dialogs.Transcript,
        ElementsAre(SaveDialogIP286, Exclude,
                    UndefinedError("mnuDateiSaveIP286:76Pfad nicht gefunden"), SaveDialogIP286,
                    Exclude,
                    UndefinedError("mnuDateiSaveIP286:75Fehler beim Zugriff auf Pfad/Datei")));
    ChooseFullDisk("voll.csv");
    Dialogs.Cancel().Click(QMessageBox::Ok);
    Trigger("mnuDateiSaveIP286");
    EXPECT_EQ(Dialogs.Transcript.back(), UndefinedError("mnuDateiSaveIP286:61Datenträger voll"));
    EXPECT_EQ(TextOf("Status"), "Nicht gespeichert: Datenträger voll");
    EXPECT_EQ(TextOfField(0), "getippt");
    EXPECT_EQ(TextOf("AnzNr"), "2");
}

TEST_F(WindowSaveText, AFileIsKeptWhenTheOverwriteQuestionIsAnsweredNo) {
    for (const char* name : {"neu.csv", "neu.pbo", "ip.csv"}) {
        Folder.Write(name, "alt");
    }
    Dialogs.ChooseFileAndKeep(PathIn("neu"));
    Trigger("mnuDateiSaveCSV");
    Dialogs.ChooseFileAndKeep(PathIn("neu"));
    Trigger("mnuDateiSave175");
    Dialogs.ChooseFileAndKeep(PathIn("ip"));
    Trigger("mnuDateiSaveIP286");
    EXPECT_EQ(Dialogs.Transcript.size(), 6U);
    EXPECT_EQ(FileText("neu.csv") + FileText("neu.pbo") + FileText("ip.csv"), "altaltalt");
}

TEST_F(WindowSaveText, AFileIsReplacedWholeWhenTheOverwriteQuestionIsAnsweredYes) {
    Folder.Write("neu.csv", std::string(5000, 'x'));
    Dialogs.ChooseFile(PathIn("neu")).Click(QMessageBox::Yes).Click(QMessageBox::No);
    Trigger("mnuDateiSaveCSV");
    EXPECT_EQ(FileText("neu.csv"), PlainCSV);
}

TEST_F(WindowSaveText, TheOverwriteQuestionShowsAFilesNameAsItStands) {
    Folder.Write("<b>x<b>.t9t", "alt");
    Dialogs.ChooseFileAndKeep(PathIn("<b>x<b>"));
    Trigger("mnuDateiSaveNV");
    EXPECT_THAT(
        Dialogs.Transcript,
        ElementsAre("save \"norvik-195-Datei (*.t9t)|Alle Dateien (*)\" name \"\"",
                    "box \"Die Datei <b>x<b>.t9t existiert bereits.\nSoll sie "
                    "überschrieben werden?\" title \"Speichern unter\" icon Exclamation buttons "
                    "Ja+Nein default Nein"));
    EXPECT_EQ(FileText("<b>x<b>.t9t"), "alt");
}

}  // namespace

}  // namespace norvik::test
