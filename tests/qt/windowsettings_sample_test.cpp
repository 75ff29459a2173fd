// The sample record of the settings dialog: shown, scrolled and mapped to the address items.
#include "tests/qt/windowsettings.h"

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The dialog with a database of three records, whose path is in the settings file.
class WindowSettingsSample : public WindowSettings {
  protected:
    WindowSettingsSample() {
        Folder.Write("adressen.csv", "\"M\xFCller\",\"Hans\",\"\",\"Hauptstr. 1\"\r\n"
                                     "\"Anna\";\"<b>Otto</b>\"\t\"drei\"\r\n"
                                     "\"Ende\"\r\n");
        Folder.Write("norvik.ini", "SyncDatabase=" + PathIn("adressen.csv").toStdString() +
                                       "\r\nSyncName=1\r\nSyncGiven=2\r\nSyncAdd=4\r\n"
                                       "SyncZip=0\r\nSyncOther=41\r\n");
        Open();
    }

    std::vector<std::string> Outputs() const {
        std::vector<std::string> outputs;
        for (int item = 0; item < 10; ++item) {
            outputs.push_back(TextOfOutput(item));
        }
        return outputs;
    }
    void ExpectFirstRecord() const {
        EXPECT_THAT(SampleLines(),
                    ElementsAre("1 - Müller", "2 - Hans", "3 - ", "4 - Hauptstr. 1"));
    }
    void PressOnBar(Qt::Key key) const { QTest::keyClick(SampleChoice(), key); }
};

TEST_F(WindowSettingsSample, TheFirstRecordAndTheMappedFieldsAreShownAtOnce) {
    Drive([this] {
        ExpectFirstRecord();
        EXPECT_EQ(Sample()->currentRow(), -1);
        EXPECT_THAT(Outputs(),
                    ElementsAre("Müller", "Hans", "", "Hauptstr. 1", "", "", "", "", "", ""));
        EXPECT_EQ(SampleChoice()->minimum(), 1);
        EXPECT_EQ(SampleChoice()->maximum(), 1000);
        EXPECT_EQ(SampleChoice()->value(), 1);
    });
    ShowDialog();
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenedSettings));
}

TEST_F(WindowSettingsSample, TheArrowKeysGoThroughTheRecords) {
    Drive([this] {
        SampleChoice()->setFocus();
        PressOnBar(Qt::Key_Right);
        EXPECT_EQ(SampleChoice()->value(), 2);
        EXPECT_THAT(SampleLines(), ElementsAre("1 - Anna", "2 - <b>Otto</b>", "3 - drei"));
        EXPECT_THAT(Outputs(), ElementsAre("Anna", "<b>Otto</b>", "", "", "", "", "", "", "", ""));
        EXPECT_EQ(Find<QLabel>("Testausgabe(1)")->textFormat(), Qt::PlainText);
        PressOnBar(Qt::Key_Left);
        EXPECT_EQ(SampleChoice()->value(), 1);
        ExpectFirstRecord();
        PressOnBar(Qt::Key_Left);
        EXPECT_EQ(SampleChoice()->value(), 1);
    });
    ShowDialog();
}

TEST_F(WindowSettingsSample, ARecordBeyondTheEndShowsTheLastLine) {
    Drive([this] {
        for (const int record : {4, 1000}) {
            SampleChoice()->setValue(record);
            EXPECT_THAT(SampleLines(), ElementsAre("1 - Ende")) << record;
            EXPECT_THAT(Outputs(), ElementsAre("Ende", "", "", "", "", "", "", "", "", ""));
        }
        EXPECT_EQ(SampleChoice()->value(), 1000);
    });
    ShowDialog();
}

TEST_F(WindowSettingsSample, TypingAPathShowsItsSample) {
    Folder.Write("b.txt", "\"zweite\"\r\n");
    Drive([this] {
        Replace("InpSyncFile", PathIn("b.txt").chopped(1));
        EXPECT_THAT(SampleLines(), ElementsAre("SyncDatei n. gefunden"));
        TypeText(Find<QLineEdit>("InpSyncFile"), "t");
        EXPECT_THAT(SampleLines(), ElementsAre("1 - zweite"));
        EXPECT_EQ(TextOfOutput(0), "zweite");
        Replace("InpSyncFile", "");
        EXPECT_THAT(SampleLines(), IsEmpty());
    });
    ShowDialog();
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenedSettings));
}

TEST_F(WindowSettingsSample, ATypedFieldNumberShowsItsFieldAtOnce) {
    Drive([this] {
        ClickSampleLine(1);
        Replace(Value(3), "4");
        EXPECT_EQ(TextOfOutput(0), "Hauptstr. 1");
        EXPECT_EQ(Sample()->currentRow(), 1) << "the chosen line stays chosen";
        TypeText(Value(3), "2");
        EXPECT_EQ(TextOfOutput(0), "") << "there is no field 42";
        QTest::keyClick(Value(3), Qt::Key_Backspace);
        QTest::keyClick(Value(3), Qt::Key_Backspace);
        EXPECT_EQ(TextOfOutput(0), "");
        Value(12)->selectAll();
        Paste(Value(12), "1");
        EXPECT_EQ(TextOfOutput(9), "Müller") << "from 41, which the file does not have";
        EXPECT_EQ(TextOfValue(12), "1");
        EXPECT_EQ(TextOfOutput(1), "Hans");
        SampleChoice()->setValue(2);
        Replace(Value(4), "3");
        EXPECT_EQ(TextOfOutput(1), "drei");
        Replace(Value(0), "2");
        EXPECT_EQ(TextOfOutput(0), "");
    });
    ShowDialog();
}

TEST_F(WindowSettingsSample, ATypedFieldNumberWithoutAFileShowsNothing) {
    std::filesystem::remove(Folder / "adressen.csv");
    Drive([this] {
        Replace(Value(3), "1");
        EXPECT_EQ(TextOfOutput(0), "");
        EXPECT_THAT(SampleLines(), ElementsAre("SyncDatei n. gefunden"));
    });
    ShowDialog();
}

TEST_F(WindowSettingsSample, TypingInTheMiddleOfAPathLeavesTheCursorThere) {
    Drive([this] {
        auto* path = Find<QLineEdit>("InpSyncFile");
        Replace(path, "ad");
        path->setCursorPosition(1);
        TypeText(path, "bc");
        EXPECT_EQ(TextOf("InpSyncFile"), "abcd");
        QTest::keyClick(path, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_NE(TextOf("InpSyncFile"), "abcd") << "typing can be undone";
    });
    ShowDialog();
}

TEST_F(WindowSettingsSample, ATypedPathShowsTheRecordOfTheScrollBar) {
    Folder.Write("b.txt", "\"eins\"\r\n\"zwei\"\r\n");
    Drive([this] {
        SampleChoice()->setValue(2);
        Replace("InpSyncFile", PathIn("b.txt"));
        EXPECT_THAT(SampleLines(), ElementsAre("1 - zwei"));
        EXPECT_EQ(SampleChoice()->value(), 2);
    });
    ShowDialog();
}

TEST_F(WindowSettingsSample, AMissingFileOnlyShowsItInTheList) {
    std::filesystem::remove(Folder / "adressen.csv");
    Drive([this] {
        EXPECT_THAT(SampleLines(), ElementsAre("SyncDatei n. gefunden"));
        SampleChoice()->setValue(7);
        EXPECT_THAT(SampleLines(), ElementsAre("SyncDatei n. gefunden"));
    });
    ShowDialog();
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenedSettings));
}

TEST_F(WindowSettingsSample, ChangingTheFileShowsItsSampleAndCancellingKeepsTheOld) {
    Folder.Write("Neu.csv", "\"neu\"\r\n");
    Drive([this] {
        Click("btnChangeSyncfile");
        ExpectFirstRecord();
        EXPECT_EQ(TextOf("InpSyncFile"), (Folder / "adressen.csv").string());
        Click("btnChangeSyncfile");
        EXPECT_EQ(TextOf("InpSyncFile"), PathIn("Neu.csv").toStdString());
        EXPECT_THAT(SampleLines(), ElementsAre("1 - neu"));
        EXPECT_EQ(TextOfOutput(0), "neu");
        Click("btnChangeSyncfile");
        EXPECT_EQ(TextOf("InpSyncFile"), PathIn("Neu.txt").toStdString());
        EXPECT_THAT(SampleLines(), ElementsAre("SyncDatei n. gefunden"));
        EXPECT_EQ(TextOf("InpLoadfile"), "");
    });
    Dialogs.Cancel().ChooseFile(PathIn("Neu")).ChooseFile(PathIn("Neu.txt"));
    ShowDialog();
    const std::string question = "open \"CSV-Datei (*.csv)|Textdatei (*.txt)|Alle Dateien "
                                 "(*)|vCard-Datei (*.vcf)\" name \"\"";
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenedSettings, question, question, question));
}

TEST_F(WindowSettingsSample, EachItemTakesTheSelectedField) {
    Drive([this] {
        for (int item = 0; item < 10; ++item) {
            ClickSampleLine(item % 4);
            ClickItem(item);
        }
        EXPECT_EQ(FieldNumbers(), "1,2,3,4,1,2,3,4,1,2");
        EXPECT_THAT(Outputs(),
                    ElementsAre("1 - Müller", "2 - Hans", "3 - ", "4 - Hauptstr. 1", "1 - Müller",
                                "2 - Hans", "3 - ", "4 - Hauptstr. 1", "1 - Müller", "2 - Hans"));
    });
    ShowDialog();
}

TEST_F(WindowSettingsSample, OneFieldCanBeTakenForSeveralItems) {
    Drive([this] {
        ClickSampleLine(3);
        ClickItem(2);
        EXPECT_EQ(Sample()->currentRow(), 3);
        ClickItem(9);
        EXPECT_EQ(FieldNumbers(), "1,2,4,4,0,,,,,4");
    });
    ShowDialog();
}

TEST_F(WindowSettingsSample, TheKeyboardAloneMapsAField) {
    Drive([this] {
        Find<QWidget>("ScrollSyncFile")->setFocus();
        QTest::keyClick(SampleChoice(), Qt::Key_Tab);
        ASSERT_TRUE(Sample()->hasFocus());
        QTest::keyClick(Sample(), Qt::Key_Down);
        QTest::keyClick(Sample(), Qt::Key_End);
        QTest::keyClick(Sample(), Qt::Key_Tab);
        ASSERT_TRUE(Find<QWidget>("itemexpl(7)")->hasFocus());
        QTest::keyClick(Find<QWidget>("itemexpl(7)"), Qt::Key_Space);
        EXPECT_EQ(TextOfValue(3), "4");
        EXPECT_EQ(TextOfOutput(0), "4 - Hauptstr. 1");
    });
    ShowDialog();
}

TEST_F(WindowSettingsSample, TheReturnKeyOnALabelMapsTheFieldAndStoresNothing) {
    const std::string before = FileText("norvik.ini");
    Dialogs.DriveToItsEnd([this](QDialog& dialog) {
        ClickSampleLine(3);
        Find<QWidget>("itemexpl(7)")->setFocus(Qt::TabFocusReason);
        QTest::keyClick(Find<QWidget>("itemexpl(7)"), Qt::Key_Return);
        EXPECT_EQ(TextOfValue(3), "4");
        EXPECT_TRUE(dialog.isVisible());
        dialog.close();
    });
    ShowDialog();
    EXPECT_EQ(FileText("norvik.ini"), before);
}

TEST_F(WindowSettingsSample, ClickingALabelWithNoFieldSelectedStoresZero) {
    Store([this] {
        ClickItem(0);
        EXPECT_EQ(TextOfValue(3), "0");
        EXPECT_EQ(TextOfOutput(0), "");
    });
    ShowDialog();
    EXPECT_THAT(FileText("norvik.ini"), testing::HasSubstr("\r\nSyncName=0\r\n"));
}

TEST_F(WindowSettingsSample, WalkingThroughTheListWithTheTabKeySelectsNoField) {
    Drive([this] {
        SampleChoice()->setFocus();
        QTest::keyClick(SampleChoice(), Qt::Key_Tab);
        ASSERT_TRUE(Sample()->hasFocus());
        QTest::keyClick(Sample(), Qt::Key_Tab);
        EXPECT_THAT(Sample()->selectedItems(), IsEmpty());
        QTest::keyClick(Find<QWidget>("itemexpl(7)"), Qt::Key_Space);
        EXPECT_EQ(TextOfValue(3), "0");
        EXPECT_EQ(TextOfOutput(0), "");
        EXPECT_THAT(Sample()->selectedItems(), IsEmpty());
    });
    ShowDialog();
}

TEST_F(WindowSettingsSample, AFieldThatIsNoLongerSelectedIsNotTaken) {
    Drive([this] {
        ClickSampleLine(1);
        ClickSampleLine(1, Qt::ControlModifier);
        ASSERT_THAT(Sample()->selectedItems(), IsEmpty());
        ClickItem(0);
        EXPECT_EQ(TextOfValue(3), "0");
    });
    ShowDialog();
}

TEST_F(WindowSettingsSample, AnotherRecordSelectsNoField) {
    Drive([this] {
        ClickSampleLine(1);
        SampleChoice()->setValue(2);
        EXPECT_EQ(Sample()->currentRow(), -1);
        ClickItem(1);
        EXPECT_EQ(TextOfValue(4), "0");
    });
    ShowDialog();
}

TEST_F(WindowSettingsSample, AChosenLoadFileAndARefusedLanguageLeaveTheSelection) {
    Drive([this] {
        ClickSampleLine(3);
        Click("btnChangeLoadfile");
        auto* languages = Find<QComboBox>("DDSprache");
        QTest::keyClick(languages, Qt::Key_Down);
        ClickItem(0);
        EXPECT_EQ(TextOfValue(3), "4");
    });
    Dialogs.Cancel().Click(QMessageBox::Ok);
    ShowDialog();
}

TEST_F(WindowSettingsSample, AMappedFieldIsShownInTheNextRecordWithoutItsNumber) {
    Drive([this] {
        ClickSampleLine(1);
        ClickItem(9);
        EXPECT_EQ(TextOfOutput(9), "2 - Hans");
        PressOnBar(Qt::Key_Right);
        EXPECT_EQ(TextOfOutput(9), "<b>Otto</b>");
    });
    ShowDialog();
}

TEST_F(WindowSettingsSample, ATypedFieldNumberIsUsedForTheNextRecord) {
    Drive([this] {
        Replace(ValueName(5), "3");
        PressOnBar(Qt::Key_Right);
        EXPECT_EQ(TextOfOutput(2), "drei");
        EXPECT_EQ(TextOfValue(5), "3");
    });
    ShowDialog();
}

TEST_F(WindowSettingsSample, FieldsOfAnyLengthLeaveTheDialogUsable) {
    Folder.Write("lang.csv", '"' + std::string(100000, 'W') + "\",\"zwei\nZeilen\"\r\n");
    Drive([this] {
        Replace("InpSyncFile", PathIn("lang.csv"));
        ASSERT_EQ(SampleLines().size(), 2U);
        EXPECT_THAT(SampleLines()[0], testing::StartsWith("1 - WWWWWWWW"));
        EXPECT_THAT(TextOfOutput(0), testing::StartsWith("WWWWWWWW"));
        ClickSampleLine(0);
        ClickItem(1);
        EXPECT_EQ(TextOfValue(4), "1");
        EXPECT_LE(Find<QDialog>("NVSET")->minimumSizeHint().width(), 800);
        EXPECT_LE(Find<QDialog>("NVSET")->width(), 800);
    });
    ShowDialog();
}

TEST_F(WindowSettingsSample, FiftyFieldsOfARecordAreShown) {
    std::string line;
    for (int field = 1; field <= 60; ++field) {
        line += "\"f" + std::to_string(field) + "\",";
    }
    Folder.Write("breit.csv", line + "\r\n");
    Drive([this] {
        Replace(ValueName(12), "50");
        Replace(ValueName(11), "51");
        Replace("InpSyncFile", PathIn("breit.csv"));
        ASSERT_EQ(SampleLines().size(), 50U);
        EXPECT_EQ(SampleLines()[49], "50 - f50");
        EXPECT_EQ(TextOfOutput(9), "f50");
        EXPECT_EQ(TextOfOutput(8), "");
        ClickSampleLine(49);
        ClickItem(7);
        EXPECT_EQ(TextOfValue(10), "50");
    });
    ShowDialog();
}

/// A database of more records than the scroll bar reaches, each with much to read.
class WindowSettingsBigSample : public WindowSettings {
  protected:
    WindowSettingsBigSample() {
        std::string file;
        for (int record = 1; record <= 1200; ++record) {
            file += "\"Name " + std::to_string(record) + "\"";
            for (int field = 2; field <= 20; ++field) {
                file += ",\"" + std::string(100, 'x') + std::to_string(field) + "\"";
            }
            file += "\r\n";
        }
        Folder.Write("gross.csv", file);
        Folder.Write("norvik.ini",
                     "SyncDatabase=" + PathIn("gross.csv").toStdString() + "\r\nSyncOther=1\r\n");
        Open();
    }
    void Press(Qt::Key key) const { QTest::keyClick(SampleChoice(), key); }
};

TEST_F(WindowSettingsBigSample, AllThousandRecordsAreShownOneAfterTheOther) {
    Drive([this] {
        for (int record = 1; record <= 1000; ++record) {
            ASSERT_EQ(SampleChoice()->value(), record);
            ASSERT_EQ(Sample()->count(), 20);
            ASSERT_EQ(Sample()->item(0)->text(), QString("1 - Name %1").arg(record));
            ASSERT_EQ(TextOfOutput(9), "Name " + std::to_string(record));
            Press(Qt::Key_Right);
        }
        EXPECT_EQ(SampleChoice()->value(), 1000);
        EXPECT_EQ(TextOfOutput(9), "Name 1000");
    });
    ShowDialog();
}

TEST_F(WindowSettingsBigSample, PageEndAndHomeKeysGoThroughTheRecords) {
    Drive([this] {
        Press(Qt::Key_PageDown);
        EXPECT_EQ(TextOfOutput(9), "Name 11");
        Press(Qt::Key_PageDown);
        EXPECT_EQ(TextOfOutput(9), "Name 21");
        Press(Qt::Key_PageUp);
        EXPECT_EQ(TextOfOutput(9), "Name 11");
        Press(Qt::Key_End);
        EXPECT_EQ(TextOfOutput(9), "Name 1000");
        EXPECT_EQ(SampleChoice()->value(), 1000);
        Press(Qt::Key_Home);
        EXPECT_EQ(TextOfOutput(9), "Name 1");
        EXPECT_EQ(SampleChoice()->value(), 1);
    });
    ShowDialog();
}

TEST_F(WindowSettingsBigSample, DraggingTheScrollBoxShowsTheRecordUnderIt) {
    Drive([this] {
        SampleChoice()->setSliderDown(true);
        SampleChoice()->setSliderPosition(500);
        EXPECT_EQ(TextOfOutput(9), "Name 500");
        SampleChoice()->setSliderDown(false);
        EXPECT_EQ(TextOfOutput(9), "Name 500");
    });
    ShowDialog();
}

}  // namespace

}  // namespace norvik::test
