#include "tests/qt/windowregisterlist.h"

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The main window while the register list is open.
class WindowBesideList : public WindowRegisterList {
  protected:
    WindowBesideList() { OpenList(); }

    /// Loads a file while the list is open.
    void LoadFile(const char* action, const char* name) {
        Dialogs.ChooseFile(PathIn(name));
        Trigger(action);
        Dialogs.Transcript.clear();
    }
};

TEST_F(WindowBesideList, TheMainWindowStepsThroughItsEntries) {
    Tick({0});
    Selector()->setValue(5);
    EXPECT_EQ(TextOfField(0), "Emil");
    ClickRow(6);
    EXPECT_EQ(TextOfField(0), "Gina");
    EXPECT_THAT(Lines(), ElementsAre("AB-Ansage 3:  Anna (1)"));
    EXPECT_EQ(Ticked(), "0");
}

TEST_F(WindowBesideList, AStoredEntryIsListedAtTheNextTick) {
    Selector()->setValue(8);
    Choose("DDAB", 2);
    Retype(0, "Zora");
    Click("btnSaveChange");
    EXPECT_THAT(Lines(), IsEmpty());
    Tick({0});
    EXPECT_THAT(Lines(), ElementsAre("AB-Ansage 2:  Zora (8)", "AB-Ansage 3:  Anna (1)"));
}

TEST_F(WindowBesideList, AFilledListStaysUntilTheNextTick) {
    Tick({7});
    Selector()->setValue(7);
    Click("chkExport");
    EXPECT_THAT(Lines(), ElementsAre("Markiert :  Gina (7)"));
    Tick({0});
    EXPECT_THAT(Lines(), ElementsAre("AB-Ansage 3:  Anna (1)"));
}

TEST_F(WindowBesideList, TickingLeavesWhatIsTypedAndPendingInTheMainWindow) {
    Selector()->setValue(2);
    Retype(0, "getippt");
    Click("chkCharge");
    ASSERT_EQ(ButtonColour(), Pending);
    Tick({0, 3});
    EXPECT_EQ(TextOfField(0), "getippt");
    EXPECT_TRUE(IsChecked("chkCharge"));
    EXPECT_EQ(ButtonColour(), Pending);
    EXPECT_EQ(TextOf("AnzNr"), "2");
    Click("btnCancel");
    EXPECT_EQ(TextOfField(0), "getippt");
    EXPECT_EQ(ButtonColour(), Pending);
}

TEST_F(WindowBesideList, NewAndErasedEntriesAreFollowedAtTheNextTick) {
    Selector()->setValue(1);
    Click("btnErase");
    Tick({0});
    EXPECT_THAT(Lines(), IsEmpty());
    Click("btnNew");
    Retype(0, "Neu");
    Choose("DDAB", 1);
    Click("btnSaveChange");
    Tick({7});
    EXPECT_THAT(Lines(), ElementsAre("AB-Ansage 1:  Neu ()", "Markiert :  Gina (7)"));
}

TEST_F(WindowBesideList, AFilteredMainListFollowsEachTick) {
    Click("chkListFilter");
    ASSERT_THAT(Rows(), IsEmpty());
    Tick({7});
    EXPECT_THAT(Rows(), ElementsAre("#7: Gina (7) ()"));
    Tick({0});
    EXPECT_THAT(Rows(), ElementsAre("#1: Anna (1)", "#7: Gina (7) ()"));
    Click("chkFi(7)");
    EXPECT_THAT(Rows(), ElementsAre("#1: Anna (1)"));
    Click("chkFi(0)");
    EXPECT_THAT(Rows(), ElementsAre("#1: Anna (1)")) << "the marks keep their values";
}

TEST_F(WindowBesideList, ALoadRefreshesTheListForTheTickedBoxes) {
    Tick({0, 7});
    Load({{.name = "Xaver", .tel = "91", .ab = 5}});
    EXPECT_EQ(Ticked(), "07");
    EXPECT_THAT(Lines(), ElementsAre("AB-Ansage 5:  Xaver (91)"));
    EXPECT_EQ(TextOf("AnzTreffer"), "1");
    Click("btnExit");
    EXPECT_THAT(Rows(), ElementsAre("#1: Xaver (91)"));
}

TEST_F(WindowBesideList, ALoadOfTextFilesRefreshesTheListToo) {
    Tick({0});
    Folder.Write("x.csv",
                 "Name;Tel;Info1;Info2;Info3;Info4;Info5;Info6;AB\r\nYvonne;92;;;;;;;4\r\n");
    LoadFile("mnuDateiLoadCSV", "x.csv");
    EXPECT_THAT(Lines(), ElementsAre("AB-Ansage 4:  Yvonne (92)"));
    Folder.Write("x.pbo", "norvik 175 phonebook\r\nN=Zoe\r\nP=93\r\nI=()\r\nI=\r\nI=\r\nI=\r\n"
                          "I=\r\nI=\r\n");
    Tick({7});
    LoadFile("mnuDateiLoad175", "x.pbo");
    EXPECT_THAT(Lines(), ElementsAre("Markiert :  Zoe (93)"));
}

TEST_F(WindowBesideList, ALoadWithoutATickedBoxEmptiesAFilledList) {
    Tick({0});
    Click("chkFi(0)");
    ASSERT_THAT(Lines(), ElementsAre("AB-Ansage 3:  Anna (1)"));
    Load({{.name = "Xaver", .tel = "91", .ab = 5}});
    EXPECT_THAT(Lines(), IsEmpty());
    EXPECT_EQ(TextOf("AnzTreffer"), "-");
    Click("chkListFilter");
    EXPECT_THAT(Rows(), IsEmpty()) << "no mark of the old register is left";
}

TEST_F(WindowBesideList, ALoadIntoAFilteredMainListShowsTheNewHitsAlone) {
    Tick({0});
    Click("btnExit");
    OpenList();
    Tick({7});
    Load({{.name = "Xaver", .tel = "91", .info = "()"}, {.name = "Yvonne", .tel = "92"}});
    EXPECT_THAT(Lines(), ElementsAre("Markiert :  Xaver (91)"));
    EXPECT_THAT(Rows(), ElementsAre("#1: Xaver (91) ()"));
}

TEST_F(WindowBesideList, ACancelledLoadLeavesTheList) {
    Tick({0});
    Dialogs.Cancel();
    Trigger("mnuDateiLoadNV");
    EXPECT_THAT(Lines(), ElementsAre("AB-Ansage 3:  Anna (1)"));
    EXPECT_EQ(TextOf("AnzTreffer"), "1");
}

TEST_F(WindowBesideList, ABrokenFileLeavesNothingStale) {
    Tick({0, 1, 2, 3, 4, 5, 6, 7});
    Bytes broken = RegisterFile({{.name = "Xaver", .tel = "91", .ab = 5}});
    broken.insert(broken.end() - 1, {3, 1, 0, 4});
    broken.pop_back();
    Folder.Write("kaputt.t9t", broken);
    Dialogs.ChooseFile(PathIn("kaputt.t9t"));
    Trigger("mnuDateiLoadNV");
    for (const std::string& line : Lines()) {
        EXPECT_THAT(line, testing::Not(testing::HasSubstr("Anna")));
    }
    EXPECT_THAT(Lines(), testing::Contains("AB-Ansage 5:  Xaver (91)"));
    EXPECT_EQ(TextOf("AnzTreffer"), std::to_string(Lines().size()));
}

TEST_F(WindowBesideList, RenewedToneNamesStandInTheListAtTheNextTick) {
    Load({{.name = "Xaver", .tel = "91", .ton = 0x94}});
    Folder.Write("tonruf/01Hund.t9r", "");
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuNameRingtones");
    Tick({1});
    EXPECT_THAT(Lines(), ElementsAre("Ton 01Hund:  Xaver (91)"));
}

TEST_F(WindowBesideList, DeletedCountersStandInTheListAtTheNextTick) {
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuGebDelete");
    Tick({3});
    EXPECT_THAT(Lines(), ElementsAre("GZ 0,00:  Anna (1)"));
}

TEST_F(WindowBesideList, TheMobileExportCanBeUsedBesideIt) {
    Tick({0});
    Dialogs.Drive([](QDialog& dialog) {
        QTest::mouseClick(dialog.findChild<QPushButton*>("btnSaveSettings"), Qt::LeftButton);
    });
    Trigger("mnuDateiHandyexp");
    ASSERT_NE(ListWindow(), nullptr);
    EXPECT_EQ(TextOf("Status"), "Einstellungen gespeichert");
    EXPECT_THAT(Lines(), ElementsAre("AB-Ansage 3:  Anna (1)"));
}

TEST_F(WindowBesideList, TheListKeepsItsChosenLineWhileTheMainWindowSteps) {
    Tick({2});
    ResultList()->setCurrentIndex(ResultList()->model()->index(1, 0));
    Selector()->setValue(5);
    Retype(0, "getippt");
    EXPECT_EQ(ResultList()->currentIndex().row(), 1);
    EXPECT_EQ(TextOf("AnzNr"), "5") << "a line is not for choosing an entry";
}

TEST_F(WindowBesideList, ItsLinesAreShownAsTheyStandAndNotEdited) {
    Load({{.name = "<b>A&B", .tel = "1", .ab = 1}});
    Tick({0});
    EXPECT_THAT(Lines(), ElementsAre("AB-Ansage 1:  <b>A&B (1)"));
    EXPECT_EQ(ResultList()->editTriggers(), QAbstractItemView::NoEditTriggers);
}

TEST_F(WindowBesideList, AFullRegisterFillsItWithEveryLineOfEveryEntry) {
    std::vector<std::string> names;
    for (int i = 1; i <= 2000; ++i) {
        names.push_back(QString("Name %1").arg(i, 4, 10, QChar(u'0')).toStdString());
    }
    std::vector<FileRecord> records;
    for (const std::string& name : names) {
        records.push_back({.name = name,
                           .tel = "1",
                           .info = "()",
                           .ton = 0x80,
                           .msnFilter = 0x50,
                           .gebEinh = 100,
                           .ab = 7});
    }
    Tick({0, 1, 2, 3, 4, 5, 6, 7});
    Load(records);
    EXPECT_EQ(TextOf("AnzTreffer"), "12000");
    std::vector<std::string> expected;
    for (const char* reason :
         {"AB-Ansage 7", "Anruffilter", "GZ 12,00", "Markiert ", "MSN 1", "Ton 3Klang 1"}) {
        for (const std::string& name : names) {
            expected.push_back(std::string(reason) + ":  " + name + " (1)");
        }
    }
    EXPECT_TRUE(Lines() == expected);
    Click("chkFi(1)");
    EXPECT_EQ(TextOf("AnzTreffer"), "10000");
    Click("btnExit");
    EXPECT_EQ(Rows().size(), 2000U);
}

TEST_F(WindowRegisterList, ADoubleClickOrReturnOnALineShowsItsEntryInTheMainWindow) {
    OpenList();
    Tick({0, 1});  // Anna has an announcement, Bernd a tone of his own
    ASSERT_THAT(Lines(), testing::SizeIs(2));
    const auto line = [this](int row) {
        return ResultList()->visualRect(ResultList()->model()->index(row, 0)).center();
    };
    QTest::mouseClick(ResultList()->viewport(), Qt::LeftButton, {}, line(1));
    EXPECT_EQ(TextOfField(0), "Anna");  // a click alone is none
    QTest::mouseDClick(ResultList()->viewport(), Qt::LeftButton, {}, line(1));
    EXPECT_EQ(TextOfField(0), "Bernd");
    EXPECT_EQ(TextOf("AnzNr"), "2");
    ResultList()->setFocus();
    QTest::keyClick(ResultList(), Qt::Key_Up);
    QTest::keyClick(ResultList(), Qt::Key_Return);
    EXPECT_EQ(TextOfField(0), "Anna");
    QTest::keyClick(ResultList(), Qt::Key_Down);
    QTest::keyClick(ResultList(), Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(TextOfField(0), "Bernd");
    ASSERT_NE(ListWindow(), nullptr);
    EXPECT_TRUE(ListWindow()->isVisible());
    EXPECT_FALSE(IsChecked("chkListFilter"));
    EXPECT_EQ(SelectedRow(), "#2: Bernd (2)");
}

}  // namespace

}  // namespace norvik::test
