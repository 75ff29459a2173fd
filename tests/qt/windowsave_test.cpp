#include "tests/qt/windowfixture.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>

#include <filesystem>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string Save195 = "save \"norvik-195-Datei (*.t9t)|Alle Dateien (*)\" name \"\"";
const std::string Save193 = "save \"norvik-193/5-Datei (*.t9t)|Alle Dateien (*)\" name \"\"";
const std::string OnlyMarked = "box \"Nur markierte Datensätze abspeichern?\" title "
                               "\"Datensatzreduktion\" icon Question buttons Ja+Nein default Nein";
const std::string Quit = "box \"Beenden ohne zu sichern?\" title \"Sicherheitsabfrage\" icon "
                         "Question buttons OK+Abbrechen default Abbrechen";

/// Where a file dialog shows a file, as soon as it has read the folder.
QPoint CentreOfRow(const QListView& list, const QString& name) {
    QModelIndex row;
    const auto isThere = [&list, &name, &row] {
        for (int i = 0; i < list.model()->rowCount(list.rootIndex()); ++i) {
            row = list.model()->index(i, 0, list.rootIndex());
            if (row.data().toString() == name) {
                return true;
            }
        }
        return false;
    };
    EXPECT_TRUE(QTest::qWaitFor(isThere)) << name.toStdString();
    return list.visualRect(row).center();
}

class WindowSave : public WindowTest {
  protected:
    WindowSave() {
        Load({{.name = "M\x81ller",
               .tel = "22",
               .info = "B\x81ro",
               .ton = 0x8A,
               .msnFilter = 0x92,
               .gebEinh = 200,
               .ab = 7},
              {.name = "Anna", .tel = "11", .info = "()", .gebEinh = 100}});
    }

    Bytes Expected195() const {
        return Join({Raw("06 0D 'TStCollection' 02 64 01"),
                     Raw("02 00 02 01 06 04 'Anna' 06 02 '11' 06 02 '()'"),
                     Raw("02 00 02 0F 02 64 02 00"),
                     Raw("02 01 02 02 06 06 'M' 81 'ller' 06 02 '22' 06 04 'B' 81 'ro'"),
                     Raw("03 8A 00 03 92 00 03 C8 00 02 07"), Raw("00")});
    }
    Bytes Expected193() const {
        return Join({Raw("06 0D 'TStCollection' 02 64 01"),
                     Raw("02 00 02 01 06 04 'Anna' 06 02 '11' 02 00 02 0F 02 64 02 00"),
                     Raw("02 01 02 02 06 06 'M' 81 'ller' 06 02 '22'"),
                     Raw("02 00 03 92 00 03 C8 00 02 00"), Raw("00")});
    }
};

TEST_F(WindowSave, SavesForThe195) {
    Selector()->setValue(2);
    Dialogs.ChooseFile(PathIn("neu"));
    Trigger("mnuDateiSaveNV");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Save195));
    EXPECT_EQ(ReadFile(Folder / "neu.t9t"), Expected195());
    EXPECT_EQ(TextOf("AnzNr"), "2");
    EXPECT_EQ(Caption(), "norvik Telefonregister - Datei: " + PathIn("register.t9t").toStdString());
}

TEST_F(WindowSave, SavesForThe193) {
    Selector()->setValue(2);
    Dialogs.ChooseFile(PathIn("neu")).Click(QMessageBox::No);
    Trigger("MNUDateiSave193");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Save193, OnlyMarked));
    EXPECT_EQ(ReadFile(Folder / "neu.t9t"), Expected193());
    EXPECT_EQ(TextOf("AnzNr"), "1");
    EXPECT_EQ(TextOfField(0), "Anna");
}

TEST_F(WindowSave, SavesTheMarkedEntriesForThe193) {
    Dialogs.ChooseFile(PathIn("neu.x")).Click(QMessageBox::Yes);
    Trigger("MNUDateiSave193");
    EXPECT_EQ(ReadFile(Folder / "neu.x"),
              Join({Raw("06 0D 'TStCollection' 02 64 01"),
                    Raw("02 00 02 01 06 04 'Anna' 06 02 '11' 02 00 02 0F 02 64 02 00 00")}));
}

TEST_F(WindowSave, WithoutAMarkedEntryNoFileIsWritten) {
    Click("chkExport");
    Dialogs.ChooseFile(PathIn("neu")).Click(QMessageBox::Yes).Click(QMessageBox::Ok);
    Trigger("MNUDateiSave193");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(Save193, OnlyMarked,
                            OkBox("Keine Datensätze zum Exportieren!", "Fehler", "Exclamation")));
    EXPECT_FALSE(std::filesystem::exists(Folder / "neu.t9t"));
    Dialogs.Cancel();
    EXPECT_FALSE(Window->close());
}

TEST_F(WindowSave, ARegisterOfThe193IsSavedForItWithoutAQuestion) {
    Folder.Write("alt.t9t", Expected193());
    Dialogs.ChooseFile(PathIn("alt.t9t")).ChooseFile(PathIn("neu.t9t"));
    Trigger("mnuDateiLoadNV");
    Trigger("MNUDateiSave193");
    EXPECT_EQ(Dialogs.Transcript.size(), 2U);
    EXPECT_EQ(Dialogs.Transcript.back(), Save193);
    // Reading such a file sets the MSN to that of the telephone.
    EXPECT_EQ(ReadFile(Folder / "neu.t9t"),
              Join({Raw("06 0D 'TStCollection' 02 64 01"),
                    Raw("02 00 02 01 06 04 'Anna' 06 02 '11' 02 00 02 0F 02 64 02 00"),
                    Raw("02 01 02 02 06 06 'M' 81 'ller' 06 02 '22'"),
                    Raw("02 00 03 9F 00 03 C8 00 02 00"), Raw("00")}));
}

TEST_F(WindowSave, TheOverwriteQuestionNamesTheFileWithItsEnding) {
    Folder.Write("neu.t9t", "alt");
    Dialogs.ChooseFile(PathIn("neu")).Click(QMessageBox::Yes);
    Trigger("mnuDateiSaveNV");
    ASSERT_EQ(Dialogs.Transcript.size(), 2U);
    EXPECT_EQ(Dialogs.Transcript[0], Save195);
    EXPECT_THAT(Dialogs.Transcript[1], testing::HasSubstr("neu.t9t"));
    EXPECT_THAT(Dialogs.Transcript[1], testing::HasSubstr("buttons Ja+Nein default Nein"));
    EXPECT_EQ(ReadFile(Folder / "neu.t9t"), Expected195());
}

TEST_F(WindowSave, AClickedFileWithoutAnEndingStandsForTheOneWithIt) {
    Folder.Write("alt/neu", "ohne Endung");
    Folder.Write("alt/neu.t9t", "mit Endung");
    Dialogs
        .DriveToItsEnd([this](QDialog& dialog) {
            auto& files = dynamic_cast<QFileDialog&>(dialog);
            files.setDirectory(PathIn("alt"));
            files.selectNameFilter(files.nameFilters().constLast());
            auto* list = files.findChild<QListView*>("listView");
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, CentreOfRow(*list, "neu"));
            const auto* buttons = files.findChild<QDialogButtonBox*>();
            QTest::mouseClick(buttons->button(QDialogButtonBox::Save), Qt::LeftButton);
            QTest::mouseClick(buttons->button(QDialogButtonBox::Cancel), Qt::LeftButton);
        })
        .Click(QMessageBox::No);
    Trigger("mnuDateiSaveNV");
    ASSERT_EQ(Dialogs.Transcript.size(), 2U);
    EXPECT_THAT(Dialogs.Transcript[1], testing::HasSubstr("neu.t9t"));
    EXPECT_EQ(ReadFile(Folder / "alt/neu"), Raw("'ohne Endung'"));
    EXPECT_EQ(ReadFile(Folder / "alt/neu.t9t"), Raw("'mit Endung'"));
}

TEST_F(WindowSave, AFileIsKeptWhenTheOverwriteQuestionIsAnsweredNo) {
    Folder.Write("neu.t9t", "alt");
    Dialogs.ChooseFileAndKeep(PathIn("neu"));
    Trigger("mnuDateiSaveNV");
    EXPECT_EQ(Dialogs.Transcript.size(), 2U);
    EXPECT_EQ(ReadFile(Folder / "neu.t9t"), Raw("'alt'"));
}

TEST_F(WindowSave, AFolderWithAPointDoesNotStandForTheEnding) {
    std::filesystem::create_directory(Folder / "a.b");
    Dialogs.ChooseFile(PathIn("a.b/neu"));
    Trigger("mnuDateiSaveNV");
    EXPECT_EQ(ReadFile(Folder / "a.b/neu.t9t"), Expected195());
}

TEST_F(WindowSave, ACancelledDialogWritesNothing) {
    Retype(0, "getippt");
    Dialogs.Cancel().Cancel();
    Trigger("mnuDateiSaveNV");
    Trigger("MNUDateiSave193");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Save195, Save193));
    EXPECT_EQ(TextOfField(0), "getippt");
    EXPECT_EQ(TextOf("Status"), "Sortieren beendet");
}

TEST_F(WindowSave, TypedTextThatIsNotStoredIsNotSaved) {
    Retype(0, "getippt");
    Dialogs.ChooseFile(PathIn("neu"));
    Trigger("mnuDateiSaveNV");
    EXPECT_EQ(ReadFile(Folder / "neu.t9t"), Expected195());
    EXPECT_EQ(TextOfField(0), "getippt");
}

TEST_F(WindowSave, AFailedSaveShowsTheErrorInTheStatusLineAndTheWindowStaysUsable) {
    Click("btnSaveChange");
    Dialogs.ChooseFile(PathIn("fehlt/neu"));
    Trigger("mnuDateiSaveNV");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Save195));
    EXPECT_EQ(TextOf("Status"), "Nicht gespeichert: Pfad nicht gefunden");
    Dialogs.ChooseFile(PathIn("neu"));
    Trigger("mnuDateiSaveNV");
    EXPECT_EQ(ReadFile(Folder / "neu.t9t"), Expected195());
    EXPECT_TRUE(Window->close());
}

TEST_F(WindowSave, AFullDiskIsReportedAndTheRegisterIsNotSaved) {
    Click("btnSaveChange");
    std::filesystem::create_symlink("/dev/full", Folder / "voll.t9t");
    Dialogs.ChooseFile(PathIn("voll.t9t")).Click(QMessageBox::Yes);
    Trigger("mnuDateiSaveNV");
    EXPECT_EQ(TextOf("Status"), "Nicht gespeichert: Datenträger voll");
    Dialogs.Cancel();
    EXPECT_FALSE(Window->close());
}

TEST_F(WindowSave, AFailedSaveForThe193ShowsEntryOne) {
    Selector()->setValue(2);
    Dialogs.ChooseFile(PathIn("fehlt/neu")).Click(QMessageBox::No);
    Trigger("MNUDateiSave193");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Save193, OnlyMarked));
    EXPECT_EQ(TextOf("Status"), "Nicht gespeichert: Pfad nicht gefunden");
    EXPECT_EQ(TextOf("AnzNr"), "1");
    EXPECT_EQ(TextOfField(0), "Anna");
}

TEST_F(WindowSave, TheFileDialogIsGerman) {
    Dialogs
        .Look([](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Speichern unter");
            std::vector<std::string> captions;
            for (const QAbstractButton* button : dialog.findChildren<QPushButton*>()) {
                captions.push_back(WithoutMnemonic(button->text()).toStdString());
            }
            EXPECT_THAT(captions, testing::UnorderedElementsAre("Speichern", "Abbrechen"));
        })
        .Cancel();
    Trigger("mnuDateiSaveNV");
}

/// Closing the window while the register is not saved.
class WindowQuit : public WindowSave {
  protected:
    void ExpectQuestion() {
        Dialogs.Cancel();
        EXPECT_FALSE(Window->close());
        EXPECT_THAT(Dialogs.Transcript, ElementsAre(Quit));
        EXPECT_TRUE(Window->isVisible());
    }
};

TEST_F(WindowQuit, CancelKeepsTheWindowOpen) {
    Click("btnNew");
    ExpectQuestion();
    Click("btnNew");
    EXPECT_EQ(TextOf("AnzGes"), "4");
}

TEST_F(WindowQuit, OkClosesTheWindow) {
    Click("btnNew");
    Dialogs.Click(QMessageBox::Ok);
    EXPECT_TRUE(Window->close());
    EXPECT_FALSE(Window->isVisible());
}

TEST_F(WindowQuit, ReturnAndEscapeAreCancel) {
    Click("btnNew");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        Dialogs.Press(key);
        EXPECT_FALSE(Window->close());
    }
    Dialogs.Close();
    EXPECT_FALSE(Window->close());
}

TEST_F(WindowQuit, TheMenuItemAsksToo) {
    Click("btnNew");
    Dialogs.Cancel();
    Trigger("mnuDateiBeenden");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Quit));
    EXPECT_TRUE(Window->isVisible());
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuDateiBeenden");
    EXPECT_FALSE(Window->isVisible());
}

TEST_F(WindowQuit, ASavedRegisterIsClosedWithoutAQuestion) {
    Trigger("mnuDateiBeenden");
    EXPECT_FALSE(Window->isVisible());
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowQuit, StoringIsAReasonToAsk) {
    Click("btnSaveChange");
    ExpectQuestion();
}

TEST_F(WindowQuit, ErasingIsAReasonToAskAlsoWhenTheOnlyEntryStays) {
    Load({{.name = "Anna", .tel = "11"}});
    Click("btnErase");
    ExpectQuestion();
}

TEST_F(WindowQuit, MarkingIsAReasonToAsk) {
    Click("chkExport");
    ExpectQuestion();
}

TEST_F(WindowQuit, ChoicesThatAreNotStoredAreNone) {
    Click("chkTon");
    Click("btnEraseCharge");
    EXPECT_TRUE(Window->close());
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowQuit, SavingTakesTheReasonAway) {
    Click("btnNew");
    Dialogs.ChooseFile(PathIn("neu")).Click(QMessageBox::No);
    Trigger("MNUDateiSave193");
    EXPECT_TRUE(Window->close());
    EXPECT_EQ(Dialogs.Transcript.size(), 2U);
}

}  // namespace

}  // namespace norvik::test
