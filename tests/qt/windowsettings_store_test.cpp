#include "tests/qt/windowsettings.h"
#include "tests/support/processlimits.h"

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const std::string Head = ";NORVIK.EXE Konfigurationsdatei\r\n"
                         ";NORVIK.EXE configuration file\r\n"
                         ";changing this file is allowed, but\r\n"
                         ";it will be regenerated\r\n"
                         ";if settings are changed by the program\r\n"
                         "\r\n";

/// The dialog with a setting in every row of the settings file.
class WindowSettingsStored : public WindowSettings {
  protected:
    WindowSettingsStored()
        : WindowSettings("Language=english\r\nGlobalizeNumber=yes\r\nDataSeparator=|\r\n"
                         "SyncDatabase=/FEHLT.csv\r\nLoadSyncOnStart=no\r\n"
                         "SyncName=1\r\nSyncGiven=2\r\nSyncCompany=3\r\nSyncAdd=5\r\n"
                         "SyncZip=6\r\nSyncCity=7\r\nSyncBusiness=9\r\nSyncPrivate=10\r\n"
                         "SyncFax=11\r\nSyncOther=12\r\n") {}
};

TEST_F(WindowSettingsStored, TheStoredValuesAreShown) {
    Drive([this] {
        EXPECT_EQ(TextOf("DDSprache"), "Deutsch");
        EXPECT_EQ(TextOf("InpLoadfile"), "");
        EXPECT_EQ(TextOfValue(0), "49");
        EXPECT_EQ(TextOfValue(1), "30");
        EXPECT_EQ(TextOfValue(2), "0,12");
        EXPECT_EQ(TextOf("InpSyncFile"), "/fehlt.csv");
        EXPECT_FALSE(IsChecked("chkLoadSyncOnStart"));
        EXPECT_EQ(FieldNumbers(), "1,2,3,5,6,7,9,10,11,12");
        EXPECT_EQ(SampleChoice()->value(), 1);
        EXPECT_THAT(SampleLines(), ElementsAre("SyncDatei n. gefunden"));
    });
    ShowDialog();
}

TEST_F(WindowSettingsStored, StoringWritesTheSettingsFileClosesTheDialogAndTellsIt) {
    Store([this] {
        Replace("InpLoadfile", "/daten/Büro & Co.t9t");
        Replace(ValueName(0), "43");
        Replace(ValueName(1), "0662");
        Replace(ValueName(2), "0,25");
        Replace("InpSyncFile", "/daten/Adressen.csv");
        Click("chkLoadSyncOnStart");
        for (int number = 3; number <= 12; ++number) {
            Replace(ValueName(number), QString::number(43 - number));
        }
    });
    ShowDialog();
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenedSettings));
    EXPECT_EQ(TextOf("Status"), "Einstellungen gespeichert");
    EXPECT_EQ(Window->findChild<QDialog*>("NVSET"), nullptr);
    EXPECT_EQ(FileText("norvik.ini"), Head + "[common]\r\n"
                                             "Language=deutsch\r\n"
                                             "LoadFile=/daten/B\xFCro & Co.t9t\r\n"
                                             "Unit=0,25\r\n"
                                             "\r\n[location]\r\n"
                                             "CountryCode=43\r\n"
                                             "RegionCode=662\r\n"
                                             "\r\n[export flags]\r\n"
                                             "GlobalizeNumber=yes\r\n"
                                             "DataSeparator=|\r\n"
                                             "\r\n[sync settings]\r\n"
                                             "SyncDatabase=/daten/Adressen.csv\r\n"
                                             "SyncName=40\r\nSyncGiven=39\r\nSyncCompany=38\r\n"
                                             "SyncAdd=37\r\nSyncZip=36\r\nSyncCity=35\r\n"
                                             "SyncBusiness=34\r\nSyncPrivate=33\r\n"
                                             "SyncFax=32\r\nSyncOther=31\r\n"
                                             "LoadSyncOnStart=yes\r\n"
                                             "\r\n[end]\r\n");
    EXPECT_TRUE(Window->close());
}

TEST_F(WindowSettingsStored, StoringWithoutAChangeWritesTheSameValuesAndTheLanguage) {
    Store([] {});
    ShowDialog();
    EXPECT_EQ(FileText("norvik.ini"), Head + "[common]\r\n"
                                             "Language=deutsch\r\n"
                                             "Unit=0,12\r\n"
                                             "\r\n[location]\r\n"
                                             "CountryCode=49\r\n"
                                             "RegionCode=30\r\n"
                                             "\r\n[export flags]\r\n"
                                             "GlobalizeNumber=yes\r\n"
                                             "DataSeparator=|\r\n"
                                             "\r\n[sync settings]\r\n"
                                             "SyncDatabase=/fehlt.csv\r\n"
                                             "SyncName=1\r\nSyncGiven=2\r\nSyncCompany=3\r\n"
                                             "SyncAdd=5\r\nSyncZip=6\r\nSyncCity=7\r\n"
                                             "SyncBusiness=9\r\nSyncPrivate=10\r\n"
                                             "SyncFax=11\r\nSyncOther=12\r\n"
                                             "LoadSyncOnStart=no\r\n"
                                             "\r\n[end]\r\n");
}

TEST_F(WindowSettings, TheDefaultButtonStores) {
    Dialogs.DriveToItsEnd([this](QDialog& dialog) {
        EXPECT_TRUE(Find<QPushButton>("btnMakeChanges")->isDefault());
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    ShowDialog();
    EXPECT_EQ(TextOf("Status"), "Einstellungen gespeichert");
}

TEST_F(WindowSettings, ThePriceIsInUseAtOnce) {
    EXPECT_EQ(TextOf("AnzGeb"), "12,00");
    Store([this] { Replace(ValueName(2), "0,5"); });
    ShowDialog();
    EXPECT_EQ(TextOf("AnzGeb"), "50,00");
    Selector()->setValue(2);
    Selector()->setValue(1);
    EXPECT_EQ(TextOf("AnzGeb"), "50,00");
}

TEST_F(WindowSettings, AChargeThatWasClearedButNotStoredStaysCleared) {
    Click("btnEraseCharge");
    Store([this] { Replace(ValueName(2), "0,5"); });
    ShowDialog();
    EXPECT_EQ(TextOf("AnzGeb"), "0,00");
    EXPECT_EQ(ButtonColour(), Pending);
}

TEST_F(WindowSettings, ARegisterWithoutEntriesShowsNoPrice) {
    Folder.Write("leer.t9t", RegisterFile({}));
    Open("/l" + PathIn("leer.t9t"));
    Store([this] { Replace(ValueName(2), "0,5"); });
    ShowDialog();
    EXPECT_EQ(TextOf("AnzGeb"), "0,00");
    EXPECT_EQ(TextOf("Status"), "Einstellungen gespeichert");
}

TEST_F(WindowSettings, ThePrefixesAreInUseAtOnce) {
    Store([this] {
        Replace(ValueName(0), "43");
        Replace(ValueName(1), "662");
    });
    ShowDialog();
    Drive([this] {
        EXPECT_EQ(TextOf("AnzLand"), "0043");
        EXPECT_EQ(TextOf("AnzVorwahl"), "0662");
    });
    Trigger("mnuDateiHandyexp");
}

/// What is typed as a code and what is stored of it.
struct Code {
    const char* typed;
    const char* stored;
};

class WindowSettingsCode : public WindowSettings, public testing::WithParamInterface<Code> {};

INSTANTIATE_TEST_SUITE_P(Codes, WindowSettingsCode,
                         testing::Values(Code{"49 ", "49"}, Code{" 49", "49"}, Code{"0049", "49"},
                                         Code{"abc", "0"}, Code{"", "0"}, Code{"4a9", "4"},
                                         Code{"1234567890", "1234567890"}));

TEST_P(WindowSettingsCode, IsStoredAsANumberWithoutBlanks) {
    Store([this] {
        Replace(ValueName(0), GetParam().typed);
        Replace(ValueName(1), GetParam().typed);
    });
    ShowDialog();
    const std::string stored = GetParam().stored;
    EXPECT_THAT(FileText("norvik.ini"),
                HasSubstr("\r\nCountryCode=" + stored + "\r\nRegionCode=" + stored + "\r\n"));
    Drive([&] {
        EXPECT_EQ(TextOfValue(0), stored);
        EXPECT_EQ(TextOfValue(1), stored);
    });
    ShowDialog();
    Drive([&] {
        EXPECT_EQ(TextOf("AnzLand"), "00" + stored);
        EXPECT_EQ(TextOf("AnzVorwahl"), "0" + stored);
    });
    Trigger("mnuDateiHandyexp");
}

TEST_F(WindowSettings, AStoredLoadFileIsLoadedAtTheNextStart) {
    Folder.Write("Neu.T9T", RegisterFile({{.name = "Berta", .tel = "5"}}));
    Store([this] { Click("btnChangeLoadfile"); });
    Dialogs.ChooseFile(PathIn("Neu.T9T"));
    ShowDialog();
    Open();
    EXPECT_EQ(TextOfField(0), "Berta");
}

TEST_F(WindowSettings, WithoutASettingsFileTheDialogIsEmptyAndStoringMakesTheFile) {
    std::filesystem::remove(Folder / "norvik.ini");
    Dialogs.Click(QMessageBox::Ok);
    Open();
    Store([this] {
        for (int number = 0; number <= 12; ++number) {
            EXPECT_EQ(TextOfValue(number), "") << number;
        }
        EXPECT_EQ(TextOf("InpSyncFile"), "");
        EXPECT_TRUE(SampleLines().empty());
        Replace(ValueName(2), "0,12");
    });
    ShowDialog();
    EXPECT_EQ(FileText("norvik.ini"), Head + "[common]\r\nLanguage=deutsch\r\nUnit=0,12\r\n"
                                             "\r\n[location]\r\nCountryCode=0\r\nRegionCode=0\r\n"
                                             "\r\n[export flags]\r\n"
                                             "\r\n[sync settings]\r\nLoadSyncOnStart=no\r\n"
                                             "\r\n[end]\r\n");
}

TEST_F(WindowSettings, DiscardingEscapeAndTheCloseBoxStoreNothingAndTellIt) {
    const std::string before = FileText("norvik.ini");
    const auto change = [this](QDialog&) {
        Replace(ValueName(0), "1");
        Replace(ValueName(2), "9");
        Replace("InpLoadfile", "getippt");
        Click("chkLoadSyncOnStart");
    };
    Dialogs.Drive(change);
    ShowDialog();
    EXPECT_EQ(TextOf("Status"), "Einstellungen nicht gespeichert.");
    Click("btnSaveChange");
    Dialogs.Look(change).Press(Qt::Key_Escape);
    ShowDialog();
    EXPECT_EQ(TextOf("Status"), "Einstellungen nicht gespeichert.");
    Click("btnSaveChange");
    Dialogs.Look(change).Close();
    ShowDialog();
    EXPECT_EQ(TextOf("Status"), "Einstellungen nicht gespeichert.");
    Drive([this] {
        EXPECT_EQ(TextOfValue(0), "49");
        EXPECT_EQ(TextOfValue(2), "0,12");
        EXPECT_EQ(TextOf("InpLoadfile"), "");
        EXPECT_FALSE(IsChecked("chkLoadSyncOnStart"));
    });
    ShowDialog();
    EXPECT_EQ(FileText("norvik.ini"), before);
    EXPECT_EQ(TextOf("AnzGeb"), "12,00");
}

TEST_F(WindowSettings, TheReturnKeyOnVerwerfenDiscards) {
    const std::string before = FileText("norvik.ini");
    Dialogs.DriveToItsEnd([this](QDialog& dialog) {
        Replace(ValueName(0), "1");
        auto* cancel = Find<QPushButton>("btnCancel");
        cancel->setFocus(Qt::TabFocusReason);
        QTest::keyClick(cancel, Qt::Key_Return);
        EXPECT_FALSE(dialog.isVisible());
    });
    ShowDialog();
    EXPECT_EQ(TextOf("Status"), "Einstellungen nicht gespeichert.");
    EXPECT_EQ(FileText("norvik.ini"), before);
}

#ifndef _WIN32
TEST_F(WindowSettings, ASettingsFolderThatIsNotWritableIsARuntimeErrorAndTheDialogStays) {
    const std::string before = FileText("norvik.ini");
    std::filesystem::permissions(Folder.Path(), std::filesystem::perms(0555));
    Dialogs
        .DriveToItsEnd([this](QDialog& dialog) {
            Replace(ValueName(0), "43");
            {
                const AsAnyUser anyUser;
                Click("btnMakeChanges");
            }
            ASSERT_TRUE(dialog.isVisible());
            EXPECT_EQ(TextOfValue(0), "43");
            EXPECT_EQ(TextOf("Status"), "Sortieren beendet");
            std::filesystem::permissions(Folder.Path(), std::filesystem::perms::owner_all);
            Click("btnMakeChanges");
        })
        .Look([&](QDialog&) { EXPECT_EQ(FileText("norvik.ini"), before); })
        .Click(QMessageBox::Ok);
    ShowDialog();
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OpenedSettings, RuntimeErrorBox(70, "Zugriff verweigert")));
    EXPECT_EQ(TextOf("Status"), "Einstellungen gespeichert");
    EXPECT_THAT(FileText("norvik.ini"), HasSubstr("\r\nCountryCode=43\r\n"));
}

TEST_F(WindowSettings, WhatCouldNotBeWrittenAndWasDiscardedIsNotInUse) {
    std::filesystem::permissions(Folder.Path(), std::filesystem::perms(0555));
    Drive([this] {
        Replace(ValueName(0), "43");
        Replace(ValueName(2), "0,5");
        const AsAnyUser anyUser;
        Click("btnMakeChanges");
    });
    Dialogs.Click(QMessageBox::Ok);
    ShowDialog();
    std::filesystem::permissions(Folder.Path(), std::filesystem::perms::owner_all);
    EXPECT_EQ(TextOf("Status"), "Einstellungen nicht gespeichert.");
    Selector()->setValue(2);
    Selector()->setValue(1);
    EXPECT_EQ(TextOf("AnzGeb"), "12,00");
    Drive([this] {
        EXPECT_EQ(TextOfValue(0), "49");
        EXPECT_EQ(TextOfValue(2), "0,12");
    });
    ShowDialog();
}
#endif

TEST_F(WindowSettings, VeryLongValuesAreStoredWhole) {
    const QString path = u'/' + QString(20000, u'x');
    Store([&] {
        Find<QLineEdit>("InpLoadfile")->setFocus();
        Paste(Find<QLineEdit>("InpLoadfile"), path);
        Paste(Find<QLineEdit>("InpSyncFile"), path);
        Paste(Value(12), QString(5000, u'7'));
        EXPECT_LE(Find<QDialog>("NVSET")->minimumSizeHint().width(), 800);
    });
    ShowDialog();
    const std::string file = FileText("norvik.ini");
    EXPECT_THAT(file, HasSubstr("\r\nLoadFile=" + path.toStdString() + "\r\n"));
    EXPECT_THAT(file, HasSubstr("\r\nSyncDatabase=" + path.toStdString() + "\r\n"));
    EXPECT_THAT(file, HasSubstr("\r\nSyncOther=" + std::string(5000, '7') + "\r\n"));
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenedSettings));
}

}  // namespace

}  // namespace norvik::test
