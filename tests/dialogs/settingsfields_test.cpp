// The settings dialog: opening, language, files, sample record, mapping and keyboard.
#include "dialogs/settingsfields.h"

#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace norvik::test {
namespace {

using testing::Each;
using testing::IsEmpty;

using Texts = std::vector<Text>;
using Lines = std::vector<std::string>;
using Outputs = std::array<Text, SyncItems>;

constexpr std::string_view Anna = "\"Adler\",\"Anna\";\"\"\t\"Am Markt 1\" "
                                  "\"10115\"x\"Berlin\",\"030 1\",\"030 2\",\"\",\"0171\"\r\n";
constexpr std::string_view Bernd = "\"B\xE4r\",\"Bernd\",\"B\xFCro Nord\"\r\n";

/// The fields with a file of the given bytes as their database, its first record shown.
SettingsFields Showing(const TestFolder& folder, std::string_view bytes) {
    SettingsFields fields;
    fields.InpSyncFile = TextFromPath(folder.Write("adressen.csv", bytes));
    ShowSampleRecord(fields);
    return fields;
}

// Opening

TEST(SettingsLoad, CountsARelativePathFromTheFolderOfTheSettings) {
    const TestFolder folder;
    const TestFolder elsewhere;
    const WorkingFolder working(elsewhere.Path());
    elsewhere.Write("a.csv", Bernd);
    folder.Write("A.csv", "\"Adler\"\r\n");
    folder.Write("norvik.ini", "SyncDatabase=a.csv\r\n");
    Settings settings;
    ReadSettingsFile(folder.Path(), settings.Table);
    SettingsFields fields = NVSET_Load(settings);
    EXPECT_EQ(fields.ListSyncFileItems, Texts{u"1 - Adler"});
    fields.InpSyncFile = u"./A.csv";
    ShowSampleRecord(fields);
    EXPECT_EQ(fields.ListSyncFileItems, Texts{u"1 - Adler"});
}

TEST(SettingsLoad, ShowsTheStoredValues) {
    Settings settings;
    const std::array<Setting, SyncItems> items = {
        Setting::SyncName, Setting::SyncGiven, Setting::SyncCompany,  Setting::SyncAdd,
        Setting::SyncZip,  Setting::SyncCity,  Setting::SyncBusiness, Setting::SyncPrivate,
        Setting::SyncFax,  Setting::SyncOther};
    for (std::size_t item = 0; item < SyncItems; ++item) {
        settings.Table.SetValue(items.at(item), u"f" + Decimal(static_cast<int>(item)));
    }
    settings.Table.SetValue(Setting::LoadFile, u"c:\\büro.t9t");
    settings.Table.SetValue(Setting::CountryCode, u"49");
    settings.Table.SetValue(Setting::RegionCode, u"30");
    settings.Table.SetValue(Setting::Unit, u"0,12");
    settings.Table.SetValue(Setting::SyncDatabase, u"c:\\adressen.csv");
    settings.Table.SetValue(Setting::LoadSyncOnStart, u"yes");

    const SettingsFields fields = NVSET_Load(settings);

    EXPECT_EQ(fields.InpLoadfile, u"c:\\büro.t9t");
    EXPECT_EQ(fields.InpSyncFile, u"c:\\adressen.csv");
    EXPECT_TRUE(fields.chkLoadSyncOnStart);
    EXPECT_EQ(fields.SetValue,
              (std::array<Text, SettingValues>{u"49", u"30", u"0,12", u"f0", u"f1", u"f2", u"f3",
                                               u"f4", u"f5", u"f6", u"f7", u"f8", u"f9"}));
}

TEST(SettingsLoad, WithoutSettingsShowsEmptyFields) {
    const SettingsFields fields = NVSET_Load(Settings());
    EXPECT_EQ(fields.InpLoadfile, u"");
    EXPECT_EQ(fields.InpSyncFile, u"");
    EXPECT_FALSE(fields.chkLoadSyncOnStart);
    EXPECT_THAT(fields.SetValue, Each(Text()));
    EXPECT_THAT(fields.Testausgabe, Each(Text()));
    EXPECT_THAT(fields.ListSyncFileItems, IsEmpty());
    EXPECT_EQ(fields.SelectedItem, -1);
    EXPECT_EQ(fields.ScrollSyncFile, 1);
}

TEST(SettingsLoad, ShowsGermanWhateverIsStored) {
    for (const TextView language : {u"", u"deutsch", u"english", u"klingonisch"}) {
        Settings settings;
        settings.Table.SetValue(Setting::Language, language);
        EXPECT_EQ(NVSET_Load(settings).DDSprache, German) << Utf8(language);
    }
}

TEST(SettingsLoad, TheBoxIsTickedWhenTheStoredTextIsYes) {
    for (const TextView value : {u"", u"no", u"ja", u"1", u"yes!", u"y", u"yes"}) {
        Settings settings;
        settings.Table.SetValue(Setting::LoadSyncOnStart, value);
        EXPECT_EQ(NVSET_Load(settings).chkLoadSyncOnStart, value == u"yes") << Utf8(value);
    }
}

TEST(SettingsLoad, ShowsTheFirstSampleRecordAndWhatTheItemsAreMappedTo) {
    const TestFolder folder;
    Settings settings;
    settings.Table.SetValue(Setting::SyncDatabase,
                            TextFromPath(folder.Write("a.csv", std::string(Anna) + Bernd.data())));
    settings.Table.SetValue(Setting::SyncName, u"1");
    settings.Table.SetValue(Setting::SyncOther, u"10");
    const SettingsFields fields = NVSET_Load(settings);
    EXPECT_EQ(fields.ListSyncFileItems.at(0), u"1 - Adler");
    EXPECT_EQ(fields.Testausgabe,
              (Outputs{u"Adler", u"", u"", u"", u"", u"", u"", u"", u"", u"0171"}));
}

TEST(SettingsLoad, TheScrollBarReachesAllRecordsOfADatabase) {
    EXPECT_EQ(FirstSampleRecord, 1);
    EXPECT_EQ(LastSampleRecord, 1000);
}

// Language

TEST(DDSprache, ChoosingEnglishShowsTheRefusalAndLeavesDeutschSelected) {
    SettingsFields fields;
    fields.DDSprache = English;
    ScriptedDesktop desktop;
    DDSprache_Click(fields, desktop);
    EXPECT_EQ(desktop.Transcript,
              Lines{"box \"Andere Sprachen als Deutsch werden noch nicht unterstützt!\" title "
                    "\"NORVIK\" icon None buttons Ok default Ok -> Ok"});
    EXPECT_EQ(fields.DDSprache, German);
}

TEST(DDSprache, ChoosingDeutschIsSilent) {
    SettingsFields fields;
    ScriptedDesktop desktop;
    DDSprache_Click(fields, desktop);
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    EXPECT_EQ(fields.DDSprache, German);
}

// Choosing files

const std::string OpenLoadfile = "open \"NV-195-Datei|*.t9t|Alle Dateien|*.*\" ending .t9t -> ";
const std::string OpenSyncfile =
    "open \"CSV-Datei|*.csv|Textdatei|*.txt|Alle Dateien|*.*|vCard-Datei|*.vcf\" ending .csv -> ";

TEST(BtnChangeLoadfile, ShowsTheChosenPath) {
    SettingsFields fields;
    fields.InpLoadfile = u"alt";
    ScriptedDesktop desktop;
    desktop.AnswerFile(u8"/Daten/Büro.CSV");
    btnChangeLoadfile_Click(fields, desktop);
    EXPECT_EQ(desktop.Transcript, Lines{OpenLoadfile + "/Daten/Büro.CSV"});
    EXPECT_EQ(fields.InpLoadfile, u"/Daten/Büro.CSV");
}

TEST(BtnChangeLoadfile, ANameWithoutADotGetsT9t) {
    SettingsFields fields;
    ScriptedDesktop desktop;
    desktop.AnswerFile(u8"/Daten v1.2/büro").AnswerFile("/d/a.").AnswerFile("/d/.a");
    btnChangeLoadfile_Click(fields, desktop);
    EXPECT_EQ(fields.InpLoadfile, u"/Daten v1.2/büro.t9t");
    btnChangeLoadfile_Click(fields, desktop);
    EXPECT_EQ(fields.InpLoadfile, u"/d/a.");
    btnChangeLoadfile_Click(fields, desktop);
    EXPECT_EQ(fields.InpLoadfile, u"/d/.a");
}

TEST(BtnChangeLoadfile, CancelKeepsThePath) {
    SettingsFields fields;
    fields.InpLoadfile = u"alt";
    ScriptedDesktop desktop;
    desktop.AnswerFile(std::nullopt);
    btnChangeLoadfile_Click(fields, desktop);
    EXPECT_EQ(desktop.Transcript, Lines{OpenLoadfile + "cancel"});
    EXPECT_EQ(fields.InpLoadfile, u"alt");
}

TEST(BtnChangeLoadfile, CharactersThatATextCannotHoldBecomeQuestionMarks) {
    SettingsFields fields;
    ScriptedDesktop desktop;
    desktop.AnswerFile(u8"/d/Имя.t9t");
    btnChangeLoadfile_Click(fields, desktop);
    EXPECT_EQ(fields.InpLoadfile, u"/d/???.t9t");
}

TEST(BtnChangeSyncfile, ShowsTheChosenPathAndItsSampleRecord) {
    const TestFolder folder;
    const FilePath path = folder.Write("adressen.txt", Bernd);
    SettingsFields fields;
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);
    btnChangeSyncfile_Click(fields, desktop);
    EXPECT_EQ(desktop.Transcript, Lines{OpenSyncfile + path.string()});
    EXPECT_EQ(fields.InpSyncFile, TextFromPath(path));
    EXPECT_EQ(fields.ListSyncFileItems, (Texts{u"1 - Bär", u"2 - Bernd", u"3 - Büro Nord"}));
}

TEST(BtnChangeSyncfile, ANameWithoutADotGetsCsv) {
    const TestFolder folder;
    folder.Write("adressen.csv", Bernd);
    SettingsFields fields;
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "adressen");
    btnChangeSyncfile_Click(fields, desktop);
    EXPECT_EQ(fields.InpSyncFile, TextFromPath(folder / "adressen.csv"));
    EXPECT_EQ(fields.ListSyncFileItems.size(), 3U);
}

TEST(BtnChangeSyncfile, CancelKeepsThePathTheSelectionAndTheOutputs) {
    const TestFolder folder;
    SettingsFields fields = Showing(folder, Bernd);
    const Text path = fields.InpSyncFile;
    fields.SelectedItem = 1;
    itemexpl_Click(fields, 8);
    ScriptedDesktop desktop;
    desktop.AnswerFile(std::nullopt);

    btnChangeSyncfile_Click(fields, desktop);

    EXPECT_EQ(desktop.Transcript, Lines{OpenSyncfile + "cancel"});
    EXPECT_EQ(fields.InpSyncFile, path);
    EXPECT_EQ(fields.ListSyncFileItems.size(), 3U);
    EXPECT_EQ(fields.SelectedItem, 1);
    EXPECT_EQ(fields.Testausgabe.at(1), u"2 - Bernd");
}

// The sample record

TEST(SetSyncItemList, ListsNumberAndTextOfEachFieldWhateverStandsBetweenThem) {
    const TestFolder folder;
    EXPECT_EQ(Showing(folder, Anna).ListSyncFileItems,
              (Texts{u"1 - Adler", u"2 - Anna", u"3 - ", u"4 - Am Markt 1", u"5 - 10115",
                     u"6 - Berlin", u"7 - 030 1", u"8 - 030 2", u"9 - ", u"10 - 0171"}));
}

TEST(SetSyncItemList, EmptiesTheListForAnEmptyName) {
    const TestFolder folder;
    SettingsFields fields = Showing(folder, Bernd);
    fields.SelectedItem = 2;
    fields.Testausgabe.at(0) = u"bleibt";
    SetSyncItemList(fields, u"", 1);
    EXPECT_THAT(fields.ListSyncFileItems, IsEmpty());
    EXPECT_EQ(fields.SelectedItem, -1);
    EXPECT_EQ(fields.Testausgabe.at(0), u"bleibt");
}

TEST(SetSyncItemList, AMissingFileGivesOneLineInThePlaceOfTheFields) {
    const TestFolder folder;
    SettingsFields fields = Showing(folder, Bernd);
    fields.SelectedItem = 2;
    fields.SetValue.at(FirstItemValue) = u"1";
    fields.Testausgabe.at(0) = u"bleibt";
    SetSyncItemList(fields, TextFromPath(folder / "fehlt.csv"), 1);
    EXPECT_EQ(fields.ListSyncFileItems, Texts{u"SyncDatei n. gefunden"});
    EXPECT_EQ(fields.SelectedItem, -1);
    EXPECT_EQ(fields.Testausgabe.at(0), u"bleibt");
}

TEST(SetSyncItemList, ShowsTheRecordOfTheNumber) {
    const TestFolder folder;
    SettingsFields fields = Showing(folder, std::string(Anna) + Bernd.data());
    SetSyncItemList(fields, Text(fields.InpSyncFile), 2);
    EXPECT_EQ(fields.ListSyncFileItems, (Texts{u"1 - Bär", u"2 - Bernd", u"3 - Büro Nord"}));
}

TEST(SetSyncItemList, ASampleRecordNumberBeyondTheEndOfTheFileShowsTheLastLineRead) {
    const TestFolder folder;
    SettingsFields fields = Showing(folder, std::string(Anna) + Bernd.data());
    for (const int record : {3, 999, 1000}) {
        SetSyncItemList(fields, Text(fields.InpSyncFile), record);
        EXPECT_EQ(fields.ListSyncFileItems.at(0), u"1 - Bär") << record;
    }
}

TEST(SetSyncItemList, OfMoreThan50FieldsThe50FirstAreListed) {
    std::string line;
    for (int field = 1; field <= 60; ++field) {
        line += "\"f" + std::to_string(field) + "\",";
    }
    const TestFolder folder;
    SettingsFields fields = Showing(folder, line + "\r\n");
    ASSERT_EQ(fields.ListSyncFileItems.size(), 50U);
    EXPECT_EQ(fields.ListSyncFileItems.back(), u"50 - f50");

    fields.Testausgabe.fill(u"vorher");
    fields.SetValue.at(FirstItemValue) = u"50";
    fields.SetValue.at(FirstItemValue + 1) = u"51";
    ShowSampleRecord(fields);
    EXPECT_EQ(fields.Testausgabe.at(0), u"f50");
    EXPECT_EQ(fields.Testausgabe.at(1), u"");
}

TEST(SetSyncItemList, ALineWithoutAQuotedFieldHasNone) {
    const TestFolder folder;
    for (const char* line : {"", "\r\n", "Adler;Anna\r\n", "\"offen\r\n"}) {
        SettingsFields fields;
        fields.SetValue.at(FirstItemValue) = u"1";
        fields.Testausgabe.fill(u"vorher");
        SetSyncItemList(fields, TextFromPath(folder.Write("a.csv", line)), 1);
        EXPECT_THAT(fields.ListSyncFileItems, IsEmpty()) << line;
        EXPECT_EQ(fields.Testausgabe.at(0), u"") << line;
        EXPECT_EQ(fields.Testausgabe.at(1), u"vorher") << line;
    }
}

TEST(SetSyncItemList, ShowsTheFieldOfEachItemThatHoldsAFieldNumber) {
    const TestFolder folder;
    SettingsFields fields = Showing(folder, Anna);
    fields.Testausgabe.fill(u"vorher");
    const std::array<Text, SyncItems> numbers = {u"10", u" 2 ", u"+4", u"005", u"6.9",
                                                 u"7x", u"0",   u"",   u"abc", u"-1"};
    std::copy(numbers.begin(), numbers.end(), fields.SetValue.begin() + FirstItemValue);

    ShowSampleRecord(fields);

    EXPECT_EQ(fields.Testausgabe, (Outputs{u"0171", u"Anna", u"Am Markt 1", u"10115", u"Berlin",
                                           u"030 1", u"vorher", u"vorher", u"vorher", u"vorher"}));
}

TEST(SetSyncItemList, AFieldNumberBeyondTheRecordShowsAnEmptyText) {
    const TestFolder folder;
    for (const TextView number : {u"4", u"51", u"12345678901234567890"}) {
        SettingsFields fields = Showing(folder, Bernd);
        fields.Testausgabe.fill(u"vorher");
        fields.SetValue.at(FirstItemValue + 9) = number;
        ShowSampleRecord(fields);
        EXPECT_EQ(fields.Testausgabe.at(9), u"") << Utf8(number);
    }
}

TEST(ShowSampleRecord, FollowsThePathAndTheScrollBar) {
    const TestFolder folder;
    SettingsFields fields = Showing(folder, std::string(Anna) + Bernd.data());
    fields.SelectedItem = 1;
    fields.ScrollSyncFile = 2;
    ShowSampleRecord(fields);
    EXPECT_EQ(fields.ListSyncFileItems.at(1), u"2 - Bernd");
    EXPECT_EQ(fields.SelectedItem, -1);

    fields.InpSyncFile.pop_back();
    ShowSampleRecord(fields);
    EXPECT_EQ(fields.ListSyncFileItems, Texts{u"SyncDatei n. gefunden"});

    fields.InpSyncFile.push_back(u'v');
    ShowSampleRecord(fields);
    EXPECT_EQ(fields.ListSyncFileItems.at(1), u"2 - Bernd");
}

}  // namespace
}  // namespace norvik::test
