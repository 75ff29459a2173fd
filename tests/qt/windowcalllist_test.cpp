#include "tests/qt/windowfixture.h"

#include <QSignalSpy>
#include <QValidator>

#include <filesystem>

namespace norvik::test {

namespace {

using testing::ElementsAre;

const std::string OpenDialog = "open \"Anrufliste (*.t9a)|Alle Dateien (*)\" name \"\"";
const std::string FirstCall = "input \"MSN zu 24.12.2005 18:30 0301234\" title "
                              "\"Anruferliste-Ergänzung MSN\" preset \"0\"";
const std::string SecondCall = "input \"MSN zu 01.01.1999 00:00 Bär\" title "
                               "\"Anruferliste-Ergänzung MSN\" preset \"0\"";

/// Two calls, the second one with a letter of the telephone's character set.
const Bytes TwoCalls = Raw("'12345678901234567890'"
                           "02 01 06 0A '0512241830' 06 07 '0301234' 01"
                           "02 0C 06 0A '9901010000' 06 03 'B' 84 'r' 03 FF FF");

std::string UndefinedError(const char* text) {
    return OkBox(QString("Undef'd Error: mnuDateiConvCallListCSV:") + text, "NORVIK", "None");
}

/// Converting call lists, entry 2 of a register being shown.
class WindowCallList : public WindowTest {
  protected:
    WindowCallList() {
        Load({{.name = "Anna", .tel = "1"}, {.name = "Bernd", .tel = "2"}});
        Selector()->setValue(2);
        Retype(0, "getippt");
        Folder.Write("anrufe.t9a", TwoCalls);
    }

    ~WindowCallList() override {
        // The register in memory is not touched.
        EXPECT_THAT(Rows(), ElementsAre("#1: Anna (1)", "#2: Bernd (2)"));
        EXPECT_EQ(TextOfField(0), "getippt");
        EXPECT_EQ(TextOf("AnzNr"), "2");
        const std::string status = TextOf("Status");
        EXPECT_TRUE(status == "Sortieren beendet" || status.starts_with("Gespeichert: ") ||
                    status.starts_with("Nicht gespeichert: "))
            << status;
        EXPECT_EQ(Caption(),
                  "norvik Telefonregister - Datei: " + PathIn("register.t9t").toStdString());
        EXPECT_TRUE(Window->close());
    }

    std::string Saved(const char* name) const {
        return OkBox("Anruferliste wurde in Datei\n" + PathIn(name) + " gespeichert.",
                     "Anruferliste", "Information");
    }

    bool Exists(const char* name) const { return std::filesystem::exists(Folder / name); }
};

TEST_F(WindowCallList, AsksForTheMsnOfEachCallAndWritesALineForEach) {
    Dialogs.ChooseFile(PathIn("anrufe.t9a"))
        .Look([](QDialog& dialog) { dialog.findChild<QLineEdit*>()->clear(); })
        .Type("12345")
        .Press(Qt::Key_Return)
        .Click(QMessageBox::Ok);
    Trigger("mnuDateiConvCallListCSV");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OpenDialog, FirstCall, SecondCall, Saved("anrufe.csv")));
    EXPECT_EQ(FileText("anrufe.csv"), "00;24.12.2005 18:30;12345;0301234\r\n"
                                      "11;01.01.1999 00:00;0;B\xE4r\r\n");
}

TEST_F(WindowCallList, TypingReplacesThePresetMsn) {
    Dialogs.ChooseFile(PathIn("anrufe.t9a")).Type("7").Type("8").Click(QMessageBox::Ok);
    Trigger("mnuDateiConvCallListCSV");
    EXPECT_EQ(FileText("anrufe.csv"), "00;24.12.2005 18:30;7;0301234\r\n"
                                      "11;01.01.1999 00:00;8;B\xE4r\r\n");
}

TEST_F(WindowCallList, ACancelledMsnIsAnEmptyThirdColumnAndTheNextCallIsAskedFor) {
    Dialogs.ChooseFile(PathIn("anrufe.t9a")).Cancel().Press(Qt::Key_Escape).Press(Qt::Key_Return);
    Trigger("mnuDateiConvCallListCSV");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OpenDialog, FirstCall, SecondCall, Saved("anrufe.csv")));
    EXPECT_EQ(FileText("anrufe.csv"), "00;24.12.2005 18:30;;0301234\r\n"
                                      "11;01.01.1999 00:00;;B\xE4r\r\n");
}

TEST_F(WindowCallList, TheMsnRefusesCharactersOutsideWindows1252WithABeep) {
    Dialogs.ChooseFile(PathIn("anrufe.t9a"))
        .Look([](QDialog& dialog) {
            auto* input = dialog.findChild<QLineEdit*>();
            ASSERT_NE(input->validator(), nullptr);
            const QSignalSpy beeps(input->validator(), SIGNAL(beeped()));
            input->end(false);
            TypeText(input, QString::fromUtf8("€Ω"));
            EXPECT_EQ(input->text().toStdString(), "0€");
            EXPECT_EQ(beeps.count(), 1);
        })
        .Press(Qt::Key_Return)
        .Press(Qt::Key_Return)
        .Press(Qt::Key_Return);
    Trigger("mnuDateiConvCallListCSV");
    EXPECT_EQ(FileText("anrufe.csv"), "00;24.12.2005 18:30;0\x80;0301234\r\n"
                                      "11;01.01.1999 00:00;0;B\xE4r\r\n");
}

TEST_F(WindowCallList, ARefusedFirstCharacterLeavesThePresetMsn) {
    Dialogs.ChooseFile(PathIn("anrufe.t9a"))
        .Look([](QDialog& dialog) {
            auto* input = dialog.findChild<QLineEdit*>();
            TypeText(input, QString::fromUtf8("→"));  // over the preset, which is selected
            EXPECT_EQ(input->text().toStdString(), "0");
        })
        .Press(Qt::Key_Return)
        .Look([](QDialog& dialog) {
            auto* input = dialog.findChild<QLineEdit*>();
            input->end(false);
            TypeText(input, QString::fromUtf8("→"));
            EXPECT_EQ(input->text().toStdString(), "0");
        })
        .Press(Qt::Key_Return)
        .Press(Qt::Key_Return);
    Trigger("mnuDateiConvCallListCSV");
    EXPECT_EQ(FileText("anrufe.csv"), "00;24.12.2005 18:30;0;0301234\r\n"
                                      "11;01.01.1999 00:00;0;B\xE4r\r\n");
}

TEST_F(WindowCallList, ACallersNumberIsNeitherMarkupNorAShortcut) {
    Folder.Write("anrufe.t9a", Raw("'12345678901234567890'"
                                   "02 01 06 0A '0512241830' 06 0B 'A&B<b>0</b>' 01"));
    Dialogs.ChooseFile(PathIn("anrufe.t9a"))
        .Look([](QDialog& dialog) {
            auto* label = dialog.findChild<QLabel*>();
            EXPECT_EQ(label->text().toStdString(), "MSN zu 24.12.2005 18:30 A&B<b>0</b>");
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
            EXPECT_EQ(label->buddy(), nullptr);
            EXPECT_EQ(dialog.findChild<QLineEdit*>()->accessibleName().toStdString(),
                      "MSN zu 24.12.2005 18:30 A&B<b>0</b>");
        })
        .Press(Qt::Key_Return)
        .Click(QMessageBox::Ok);
    Trigger("mnuDateiConvCallListCSV");
}

TEST_F(WindowCallList, ALongNumberLeavesTheButtonsOnTheScreen) {
    Bytes call = Raw("'12345678901234567890' 02 01 06 0A '0512241830' 06 FF");
    call.insert(call.end(), 255, '7');
    call.push_back(1);
    Folder.Write("anrufe.t9a", call);
    Dialogs.ChooseFile(PathIn("anrufe.t9a"))
        .Look([](QDialog& dialog) {
            EXPECT_EQ(dialog.findChild<QLabel*>()->text().remove('\n').toStdString(),
                      "MSN zu 24.12.2005 18:30 " + std::string(255, '7'));
            EXPECT_LE(dialog.frameGeometry().width(), dialog.screen()->availableGeometry().width());
        })
        .Press(Qt::Key_Return)
        .Click(QMessageBox::Ok);
    Trigger("mnuDateiConvCallListCSV");
}

TEST_F(WindowCallList, ANameWithoutAnEndingGetsIt) {
    Dialogs.ChooseFile(PathIn("anrufe")).Cancel().Cancel().Click(QMessageBox::Ok);
    Trigger("mnuDateiConvCallListCSV");
    EXPECT_TRUE(Exists("anrufe.csv"));
}

TEST_F(WindowCallList, AnExistingFileIsReplacedAfterTheOrdinaryQuestion) {
    const std::string replace = "box \"Die Datei leer.csv existiert bereits.\nSoll sie "
                                "überschrieben werden?\" title \"Speichern unter\" "
                                "icon Exclamation buttons Ja+Nein default Nein";
    Folder.Write("leer.csv", std::string(5000, 'x'));
    Folder.Write("leer.t9a", "12345678901234567890");
    Dialogs.ChooseFile(PathIn("leer.t9a")).Press(Qt::Key_Return);
    Trigger("mnuDateiConvCallListCSV");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenDialog, replace));
    EXPECT_EQ(FileText("leer.csv"), std::string(5000, 'x'));
    EXPECT_EQ(TextOf("Status"), "Sortieren beendet");

    Dialogs.Transcript.clear();
    Dialogs.ChooseFile(PathIn("leer.t9a")).Click(QMessageBox::Yes).Click(QMessageBox::Ok);
    Trigger("mnuDateiConvCallListCSV");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenDialog, replace, Saved("leer.csv")));
    EXPECT_EQ(FileText("leer.csv"), "");
    EXPECT_EQ(TextOf("Status"), "Gespeichert: " + PathIn("leer.csv").toStdString());
}

TEST_F(WindowCallList, TheFirstPointOfThePathEndsTheNameOfTheOutput) {
    Folder.Write("my.data/calls.t9a", TwoCalls);
    Dialogs.ChooseFile(PathIn("my.data/calls.t9a")).Cancel().Cancel().Click(QMessageBox::Ok);
    Trigger("mnuDateiConvCallListCSV");
    EXPECT_EQ(Dialogs.Transcript.back(), Saved("my.csv"));
    EXPECT_TRUE(Exists("my.csv"));
    EXPECT_FALSE(Exists("my.data/calls.csv"));
}

TEST_F(WindowCallList, ARegisterFileIsWarnedAboutAndReadAsCalls) {
    Folder.Write("register.t9a", Raw("06 0D 'TStCollection' 02 64 01 00 00"
                                     "02 01 06 0A '0512241830' 06 07 '0301234' 00"));
    Dialogs.ChooseFile(PathIn("register.t9a"))
        .Click(QMessageBox::Ok)
        .Click(QMessageBox::Ok)
        .Click(QMessageBox::Ok);
    Trigger("mnuDateiConvCallListCSV");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OpenDialog,
                            OkBox("Header=RegisterHeader!", "Anruferliste", "Exclamation"),
                            FirstCall, Saved("register.csv")));
    EXPECT_EQ(FileText("register.csv"), "00;24.12.2005 18:30;0;0301234\r\n");
}

TEST_F(WindowCallList, AWrongTagEndsTheProgramAtOnceAndLeavesNoOutput) {
    Folder.Write("kaputt.t9a", Raw("'12345678901234567890'"
                                   "02 01 06 0A '0512241830' 06 07 '0301234' 01"
                                   "02 0C 06 0A '9901010000' 07 03 '123' 01"));
    Dialogs.ChooseFile(PathIn("kaputt.t9a")).Click(QMessageBox::Ok);
    Trigger("mnuDateiConvCallListCSV");
    EXPECT_EQ(HardStops, 1);
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenDialog, FirstCall));
    EXPECT_FALSE(Exists("kaputt.csv"));
}

TEST_F(WindowCallList, CancellingTheFileDialogWritesNothing) {
    Dialogs.Cancel().Press(Qt::Key_Escape);
    Trigger("mnuDateiConvCallListCSV");
    Trigger("mnuDateiConvCallListCSV");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenDialog, OpenDialog));
    EXPECT_FALSE(Exists("anrufe.csv"));
}

TEST_F(WindowCallList, AFileThatCannotBeOpenedIsReported) {
    Dialogs.ChooseFile(PathIn("fehlt")).Click(QMessageBox::Ok);
    Trigger("mnuDateiConvCallListCSV");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OpenDialog, UndefinedError("53Datei nicht gefunden")));
    EXPECT_FALSE(Exists("fehlt.csv"));
}

TEST_F(WindowCallList, AnOutputThatCannotBeOpenedIsReportedBeforeAnyQuestion) {
    std::filesystem::create_directory(Folder / "anrufe.csv");
    Dialogs.ChooseFile(PathIn("anrufe.t9a")).Click(QMessageBox::Ok);
    Trigger("mnuDateiConvCallListCSV");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OpenDialog, UndefinedError("75Fehler beim Zugriff auf Pfad/Datei")));
}

TEST_F(WindowCallList, AnOutputThatWouldBeTheInputIsReportedAndTheFileStays) {
    Folder.Write("liste.csv", TwoCalls);
    Dialogs.ChooseFile(PathIn("liste.csv")).Click(QMessageBox::Ok);
    Trigger("mnuDateiConvCallListCSV");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OpenDialog, UndefinedError("55Datei bereits geöffnet")));
    EXPECT_EQ(ReadFile(Folder / "liste.csv"), TwoCalls);
}

}  // namespace

}  // namespace norvik::test
