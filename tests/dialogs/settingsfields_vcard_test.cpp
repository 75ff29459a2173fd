// The settings dialog with a vCard as its address file, which needs no field numbers.
#include "dialogs/settingsfields.h"

#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

using Texts = std::vector<Text>;
using Outputs = std::array<Text, SyncItems>;

const Text NotNeeded = u"Keine Feldnummern nötig";
const Text FromVCard = u"aus der vCard";
const Text NotFound = u"SyncDatei n. gefunden";

class SettingsVCard : public testing::Test {
  protected:
    SettingsVCard() {
        folder.Write("a.vcf", "BEGIN:VCARD\r\nN:Adler;Anna\r\nEND:VCARD\r\n");
        folder.Write("a.csv", "\"Meier\",\"Hans\"\r\n\"Kunz\"\r\n");
        fields.SetValue.at(FirstItemValue) = u"1";
        fields.SetValue.at(FirstItemValue + 1) = u"2";
        fields.SetValue.at(FirstItemValue + 9) = u"41";
    }

    void Show(const FilePath& name) {
        fields.InpSyncFile = TextFromPath(folder / name);
        ShowSampleRecord(fields);
    }

    TestFolder folder;
    SettingsFields fields;
    ScriptedDesktop desktop;
};

TEST_F(SettingsVCard, SaysThatNoFieldNumbersAreNeededInPlaceOfTheSamples) {
    for (const int record : {1, 2, 1000}) {
        fields.ScrollSyncFile = record;
        Show("a.vcf");
        EXPECT_EQ(fields.ListSyncFileItems, Texts{NotNeeded});
        EXPECT_THAT(fields.Testausgabe, Each(FromVCard));
        EXPECT_EQ(fields.SelectedItem, -1);
        EXPECT_TRUE(fields.SyncFileIsVCard);
    }
    EXPECT_EQ(fields.SetValue.at(FirstItemValue), u"1");
    EXPECT_EQ(fields.SetValue.at(FirstItemValue + 9), u"41");
}

TEST_F(SettingsVCard, SoItDoesAtOpeningWhateverTheCaseOfTheEnding) {
    folder.Write("norvik.ini", "SyncDatabase=A.VCF\r\nSyncName=3\r\n");
    Settings settings;
    ReadSettingsFile(folder.Path(), settings.Table);
    const SettingsFields opened = NVSET_Load(settings);
    EXPECT_EQ(opened.ListSyncFileItems, Texts{NotNeeded});
    EXPECT_THAT(opened.Testausgabe, Each(FromVCard));
    EXPECT_EQ(opened.SetValue.at(FirstItemValue), u"3");
    EXPECT_TRUE(opened.SyncFileIsVCard);
}

TEST_F(SettingsVCard, AMissingVCardIsNotFound) {
    Show("fehlt.vcf");
    EXPECT_EQ(fields.ListSyncFileItems, Texts{NotFound});
    EXPECT_TRUE(fields.SyncFileIsVCard);
    std::filesystem::create_directory(folder / "ordner.vcf");
    Show("ordner.vcf");
    EXPECT_EQ(fields.ListSyncFileItems, Texts{NotFound});
    SetSyncItemList(fields, Text(10000, u'/') + u"?*<>|.vcf", 1);
    EXPECT_EQ(fields.ListSyncFileItems, Texts{NotFound});
}

TEST_F(SettingsVCard, ATextFileBehindItShowsItsSamplesAlone) {
    Show("a.vcf");
    Show("a.csv");
    EXPECT_EQ(fields.ListSyncFileItems, (Texts{u"1 - Meier", u"2 - Hans"}));
    EXPECT_EQ(fields.Testausgabe, (Outputs{u"Meier", u"Hans"}));
    EXPECT_FALSE(fields.SyncFileIsVCard);
    Show("a.vcf");
    EXPECT_THAT(fields.Testausgabe, Each(FromVCard));
    Show("fehlt.csv");
    EXPECT_EQ(fields.ListSyncFileItems, Texts{NotFound});
    EXPECT_THAT(fields.Testausgabe, Each(Text()));
    Show("a.vcf");
    fields.InpSyncFile.clear();
    ShowSampleRecord(fields);
    EXPECT_THAT(fields.ListSyncFileItems, IsEmpty());
    EXPECT_THAT(fields.Testausgabe, Each(Text()));
}

TEST_F(SettingsVCard, NeitherAClickNorATypedNumberMapsAField) {
    Show("a.vcf");
    fields.SelectedItem = 0;
    itemexpl_Click(fields, 7);
    EXPECT_EQ(fields.SetValue.at(FirstItemValue), u"1");
    fields.SelectedItem = -1;
    itemexpl_Click(fields, 8);
    EXPECT_EQ(fields.SetValue.at(FirstItemValue + 1), u"2");
    ShowMappedField(fields, FirstItemValue + 1);
    EXPECT_THAT(fields.Testausgabe, Each(FromVCard));
}

TEST_F(SettingsVCard, TheFileDialogOffersVCardsBehindAllOtherFiles) {
    desktop.AnswerFile(folder / "a.vcf");
    btnChangeSyncfile_Click(fields, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre("open \"CSV-Datei|*.csv|Textdatei|*.txt|Alle "
                                                "Dateien|*.*|vCard-Datei|*.vcf\" ending .csv -> " +
                                                (folder / "a.vcf").string()));
    EXPECT_EQ(fields.InpSyncFile, TextFromPath(folder / "a.vcf"));
    EXPECT_EQ(fields.ListSyncFileItems, Texts{NotNeeded});
}

TEST_F(SettingsVCard, TheFieldNumbersAreStoredAsTheyWere) {
    Show("a.vcf");
    const TestFolder stored;
    Settings settings;
    btnMakeChanges_Click(fields, settings, stored.Path(), desktop);
    EXPECT_EQ(settings.Table.Value(Setting::SyncDatabase), TextFromPath(folder / "a.vcf"));
    EXPECT_EQ(settings.Table.Value(Setting::SyncName), u"1");
    EXPECT_EQ(settings.Table.Value(Setting::SyncGiven), u"2");
    EXPECT_EQ(settings.Table.Value(Setting::SyncCompany), u"");
    EXPECT_EQ(settings.Table.Value(Setting::SyncOther), u"41");
}

}  // namespace
}  // namespace norvik::test
