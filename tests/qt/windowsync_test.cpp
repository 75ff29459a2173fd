// The load of the address database from the menu and at start-up.
#include "tests/qt/windowsync.h"

#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>

#include <filesystem>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(WindowSync, WithoutALoadThereIsNoAddressMenu) {
    WriteSettings();
    WriteAddresses("\"Otto\"\r\n");
    Make();
    EXPECT_FALSE(CanSearch());
    Window->Start({});
    EXPECT_FALSE(CanSearch());
    QTest::keyClick(Window->focusWidget(), Qt::Key_S, Qt::AltModifier);
    EXPECT_FALSE(Find<QMenu>("mnuSync")->isVisible());
    EXPECT_EQ(Status(), "OK");
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowSync, LoadingTellsTheNumberOfRecordsAndEnablesTheAddressMenu) {
    WriteSettings();
    WriteAddresses("\"Otto\"\r\n\r\n\"Anna\"\r\n\"Zoe\"");
    Open();
    const PaintedTexts status(Find<QLabel>("Status"));
    Trigger("mnuDateiLoadSync");
    EXPECT_THAT(status.Texts, PaintedFrom({"Lade Adress-Synchronisationsdaten...",
                                           "3 Adress-Einträge importiert"}));
    EXPECT_EQ(Status(), "3 Adress-Einträge importiert") << "the empty line takes the one behind it";
    EXPECT_TRUE(CanSearch());
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowSync, AFileOf1200LinesReports1000) {
    WriteSettings();
    std::string file;
    for (int record = 0; record < 1200; ++record) {
        file += "\"Otto\"\r\n";
    }
    WriteAddresses(file);
    Open();
    Trigger("mnuDateiLoadSync");
    EXPECT_EQ(Status(), "1000 Adress-Einträge importiert");
}

TEST_F(WindowSync, AMissingFileIsReportedAndLeavesTheAddressMenuDisabled) {
    WriteSettings();
    Open();
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuDateiLoadSync");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(NoFile));
    EXPECT_EQ(Status(), "Adress-Synchronisationsdaten nicht geladen");
    EXPECT_FALSE(CanSearch());
}

TEST_F(WindowSync, WithoutAPathInTheSettingsTheFileIsMissing) {
    Open();
    Dialogs.Press(Qt::Key_Escape);
    Trigger("mnuDateiLoadSync");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(NoFile));
    EXPECT_FALSE(CanSearch());
}

TEST_F(WindowSync, TheStartUpLoadsTheAddressesWhenTheSettingIsOn) {
    WriteSettings("LoadSyncOnStart=YES\r\n");
    WriteAddresses("\"Otto\"\r\n");
    Make();
    const PaintedTexts status(Find<QLabel>("Status"));
    Window->Start({});
    EXPECT_THAT(status.Texts,
                PaintedFrom({"Lade Konstanten...", "Lade Ini-Datei...", "Lade Oberfläche...",
                             "Lade Klingeltöne...", "Lade Startdatei...",
                             "Lade Adress-Synchronisationsdaten...", "1 Adress-Einträge importiert",
                             "OK"}));
    EXPECT_TRUE(CanSearch());
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowSync, AMissingFileAtTheStartIsReportedAndTheStartGoesOn) {
    WriteSettings("LoadSyncOnStart=yes\r\n");
    Dialogs.Click(QMessageBox::Ok);
    Open();
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(NoFile));
    EXPECT_EQ(Status(), "OK");
    EXPECT_FALSE(CanSearch());
}

TEST_F(WindowSync, AMissingFileAfterALoadLeavesTheMenuEnabledButNothingToFind) {
    WriteSettings();
    WriteAddresses("\"Otto\",\"\",\"\",\"Weg 1\",\"\",\"\",\"123\"\r\n");
    Load({{.name = "Anna", .tel = "123"}});
    Trigger("mnuDateiLoadSync");
    std::filesystem::remove(Folder / "adressen.csv");
    Dialogs.Click(QMessageBox::Ok).Click(QMessageBox::Ignore);
    Trigger("mnuDateiLoadSync");
    EXPECT_TRUE(CanSearch());
    Trigger("mnuSyncAdd");
    EXPECT_EQ(Status(), "Keine passenden Daten gefunden");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(NoFile, Warning));
}

TEST_F(WindowSync, TheSettingsDialogNamesTheFileForTheNextLoad) {
    Folder.Write("Neu.CSV", "\"Weg 7\";\"Berlin\";\"+49 30 123\"\r\n");
    Load({{.name = "Anna", .tel = "123"}});
    Dialogs.DriveToItsEnd([this](QDialog&) {
        TypeText(Find<QLineEdit>("InpSyncFile"), PathIn("Neu.CSV"));
        TypeText(Find<QLineEdit>("SetValue(0)"), "49");
        TypeText(Find<QLineEdit>("SetValue(1)"), "30");
        TypeText(Find<QLineEdit>("SetValue(6)"), "1");
        TypeText(Find<QLineEdit>("SetValue(8)"), "2");
        TypeText(Find<QLineEdit>("SetValue(12)"), "3");
        Click("btnMakeChanges");
    });
    Trigger("mnuSettingsBasic");
    Trigger("mnuDateiLoadSync");
    EXPECT_EQ(Status(), "1 Adress-Einträge importiert");
    Dialogs.Click(QMessageBox::Ignore).Click(QMessageBox::Yes);
    Trigger("mnuSyncAdd");
    EXPECT_EQ(TextOfField(8), Line("Weg 7"));
    EXPECT_EQ(TextOfField(9), Line(" Berlin"));
}

TEST_F(WindowSync, AVCardNeedsNoFieldNumbersFromTheDialogToTheTakeOver) {
    Folder.Write("Kontakte.vcf", "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Otto;Anna;;;\r\n"
                                 "ADR:;;Weg 7;Berlin;;10115;\r\nTEL;TYPE=cell:0171 9\r\n"
                                 "TEL;TYPE=cell:+49 (0)30 1234567\r\nEND:VCARD\r\n");
    WriteSettings();
    Load({{.name = "Anna", .tel = "1234567"}});
    Dialogs.DriveToItsEnd([this](QDialog&) {
        EXPECT_TRUE(Find<QLineEdit>("SetValue(3)")->isEnabled());
        QLineEdit* file = Find<QLineEdit>("InpSyncFile");
        file->selectAll();
        TypeText(file, PathIn("Kontakte.vcf"));
        EXPECT_THAT(RowsOf(*Find<QListWidget>("ListSyncFileItems")),
                    ElementsAre("Keine Feldnummern nötig"));
        for (int item = 0; item < 10; ++item) {
            EXPECT_EQ(TextOf(QString("Testausgabe(%1)").arg(item)), "aus der vCard");
            EXPECT_FALSE(Find<QLineEdit>(QString("SetValue(%1)").arg(item + 3))->isEnabled());
            EXPECT_FALSE(Find<QPushButton>(QString("itemexpl(%1)").arg(item + 7))->isEnabled());
        }
        EXPECT_FALSE(Find<QScrollBar>("ScrollSyncFile")->isEnabled());
        Find<QLineEdit>("SetValue(2)")->setFocus();
        QTest::keyClick(Find<QLineEdit>("SetValue(2)"), Qt::Key_Down);
        EXPECT_TRUE(Find<QLineEdit>("SetValue(0)")->hasFocus());
        QTest::keyClick(Find<QLineEdit>("SetValue(0)"), Qt::Key_Up);
        EXPECT_TRUE(Find<QLineEdit>("SetValue(2)")->hasFocus());
        Click("btnMakeChanges");
    });
    Trigger("mnuSettingsBasic");
    const Bytes ini = ReadFile(Folder / "norvik.ini");
    EXPECT_THAT(std::string(ini.begin(), ini.end()),
                HasSubstr("Kontakte.vcf\r\nSyncName=1\r\nSyncGiven=2\r\n"));
    Trigger("mnuDateiLoadSync");
    EXPECT_EQ(Status(), "1 Adress-Einträge importiert");
    Dialogs.Click(QMessageBox::Ignore).Click(QMessageBox::Yes);
    Trigger("mnuSyncAdd");
    EXPECT_EQ(Dialogs.Transcript.back(),
              Hit("Suche nach 9301234567, gefunden:\nAnna Otto\nWeg 7                \n"
                  "10115 Berlin         \nA+49 (0)30 1234567\n"));
    EXPECT_EQ(TextOfField(8), Line("Weg 7"));
    EXPECT_EQ(TextOfField(9), Line("10115 Berlin"));
    EXPECT_EQ(Status(), "OK");
}

}  // namespace

}  // namespace norvik::test
