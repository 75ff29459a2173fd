// The address database that start-up loads.

#include "mainwindow/startup.h"

#include "mainwindow/handlers.h"
#include "tests/mainwindow/startuptranscript.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;

const std::string Loading = "status \"Lade Adress-Synchronisationsdaten...\"";
const std::string NotLoaded = "status \"Adress-Synchronisationsdaten nicht geladen\"";
const std::string NotFound =
    "box \"SyncDatei nicht gefunden, bitte prüfen!\" title \"Laden\" icon Critical buttons Ok "
    "default Ok -> Ok";

class StartSync : public testing::Test {
  protected:
    StartSync() { program.Folder = folder.Path(); }

    /// Starts with the given lines and the path of the database in the settings file.
    Lines Start(const std::string& settings, const std::string& name = "adressen.csv",
                TextView commandLine = u"") {
        folder.Write("norvik.ini", "SyncDatabase=" + (folder / name).string() +
                                       "\r\nSyncName=2\r\nSyncOther=1\r\n" + settings + "\r\n");
        StartUp(program, commandLine, desktop);
        return desktop.Transcript;
    }

    /// A start without a start file, with `lines` where the database is loaded.
    static Lines StartWith(const Lines& lines) {
        Lines start = BeforeStartFile;
        start.insert(start.end(), lines.begin(), lines.end());
        start.emplace_back("status \"OK\"");
        return start;
    }

    TestFolder folder;
    Program program;
    ScriptedDesktop desktop;
};

TEST_F(StartSync, LoadsTheDatabaseBeforeTheLastStatus) {
    folder.Write("adressen.csv", "\"030 1\",\"Meier\"\r\n\"030 2\",\"Kunz\"\r\n");
    EXPECT_EQ(Start("LoadSyncOnStart=yes"),
              StartWith({Loading, "status \"2 Adress-Einträge importiert\""}));
    EXPECT_TRUE(program.Sync.SyncLoaded);
    EXPECT_EQ(program.Sync.Tables.SyncNameTable[1][SyncTables::Surname], u"Meier");
    EXPECT_EQ(program.Sync.Tables.SyncPhoneTable[2][SyncTables::Other], u"030 2");
    EXPECT_TRUE(program.State.WarnLineAccessZero);
}

TEST_F(StartSync, TheSettingIsReadWhateverItsCase) {
    folder.Write("Adressen.CSV", "\"030 1\",\"Meier\"\r\n");
    EXPECT_EQ(Start(" LOADSYNCONSTART = YES "),
              StartWith({Loading, "status \"1 Adress-Einträge importiert\""}));
}

TEST_F(StartSync, LoadsAVCardWithoutAskingForFieldNumbers) {
    folder.Write("Kontakte.VCF", "BEGIN:VCARD\r\nVERSION:4.0\r\nN:Meier;Hans;;;\r\n"
                                 "TEL;VALUE=uri;TYPE=work:tel:+49-30-1\r\nTEL:0171 2\r\n"
                                 "END:VCARD\r\nBEGIN:VCARD\r\nN:Kunz\r\nEND:VCARD");
    EXPECT_EQ(Start("LoadSyncOnStart=yes", "kontakte.vcf"),
              StartWith({Loading, "status \"2 Adress-Einträge importiert\""}));
    EXPECT_TRUE(program.Sync.SyncLoaded);
    EXPECT_EQ(program.Sync.Tables.SyncNameTable[1][SyncTables::Surname], u"Meier");
    EXPECT_EQ(program.Sync.Tables.SyncPhoneTable[1][SyncTables::Business], u"+49-30-1");
    EXPECT_EQ(program.Sync.Tables.SyncPhoneTable[1][SyncTables::Other], u"0171 2");
    EXPECT_EQ(program.Sync.Tables.SyncNameTable[2][SyncTables::Surname], u"Kunz");
}

TEST_F(StartSync, AMissingVCardIsReportedAndTheStartGoesOn) {
    EXPECT_EQ(Start("LoadSyncOnStart=yes", "kontakte.vcf"),
              StartWith({Loading, NotFound, NotLoaded}));
    EXPECT_FALSE(program.Sync.SyncLoaded);
}

TEST_F(StartSync, AnyOtherSettingLoadsNothing) {
    folder.Write("adressen.csv", "\"030 1\",\"Meier\"\r\n");
    for (const char* setting : {"", "LoadSyncOnStart=", "LoadSyncOnStart=no", "LoadSyncOnStart=ja",
                                "LoadSyncOnStart=yes!", "LoadSyncOnStart=1"}) {
        desktop.Transcript.clear();
        EXPECT_EQ(Start(setting), StartWith({})) << setting;
        EXPECT_FALSE(program.Sync.SyncLoaded);
    }
}

TEST_F(StartSync, WithoutASettingsFileNothingIsLoaded) {
    StartUp(program, u"", desktop);
    EXPECT_EQ(desktop.Statuses().back(), "OK");
    EXPECT_EQ(desktop.Transcript.size(), StartWith({}).size() + 1);  // the missing file's box
    EXPECT_FALSE(program.Sync.SyncLoaded);
}

TEST_F(StartSync, AMissingDatabaseIsReportedAndTheStartGoesOn) {
    EXPECT_EQ(Start("LoadSyncOnStart=yes"), StartWith({Loading, NotFound, NotLoaded}));
    EXPECT_FALSE(program.Sync.SyncLoaded);
    EXPECT_TRUE(program.State.WarnLineAccessZero);
    EXPECT_EQ(program.State.AnzGes, 1);
}

TEST_F(StartSync, WithoutAPathTheDatabaseIsMissing) {
    folder.Write("norvik.ini", "LoadSyncOnStart=yes\r\n");
    StartUp(program, u"", desktop);
    EXPECT_EQ(desktop.Transcript, StartWith({Loading, NotFound, NotLoaded}));
}

TEST_F(StartSync, ADatabaseThatIsAFolderCountsAsEmpty) {
    std::filesystem::create_directory(folder / "adressen.csv");
    EXPECT_EQ(Start("LoadSyncOnStart=yes"),
              StartWith({Loading, "status \"0 Adress-Einträge importiert\""}));
    EXPECT_TRUE(program.Sync.SyncLoaded);
}

TEST_F(StartSync, TheDatabaseIsLoadedBehindTheStartFile) {
    folder.Write("adressen.csv", "\"030 1\",\"Meier\"\r\n");
    folder.Write("reg.t9t", Raw("06 0D 'TStCollection' 02 64 01"
                                "02 00 02 01 06 05 'Bernd' 06 03 '222' 06 00 02 00 02 0F 02 00 "
                                "02 00 00"));
    const Lines start = Start("LoadSyncOnStart=yes\r\nLoadFile=" + (folder / "reg.t9t").string());
    ASSERT_GT(start.size(), 5U);
    EXPECT_EQ(Lines(start.end() - 5, start.end()),
              (Lines{"entry", "list", Loading, "status \"1 Adress-Einträge importiert\"",
                     "status \"OK\""}));
    EXPECT_EQ(program.State.Register(1).Name, u"Bernd");
}

TEST_F(StartSync, TheDatabaseIsLoadedBehindAStartFileThatFails) {
    folder.Write("adressen.csv", "\"030 1\",\"Meier\"\r\n");
    const Lines start = Start("LoadSyncOnStart=yes", "adressen.csv", u"/lx.txt");
    ASSERT_GT(start.size(), 6U);
    EXPECT_EQ(Lines(start.end() - 6, start.end()),
              (Lines{OkBox(u"x.txt kann nicht automatisch geladen werden", u"Autoload", "Critical"),
                     "entry", "list", Loading, "status \"1 Adress-Einträge importiert\"",
                     "status \"OK\""}));
}

TEST_F(StartSync, TheDatabaseIsLoadedAsTheMenuItemDoes) {
    folder.Write("adressen.csv", "\"030 1\",\"Meier\"\r\n\"030 2");
    Start("LoadSyncOnStart=yes");
    const Lines ofTheStart(desktop.Transcript.end() - 3, desktop.Transcript.end() - 1);
    desktop.Transcript.clear();

    mnuDateiLoadSync(program, desktop);

    EXPECT_EQ(desktop.Transcript, ofTheStart);
    ASSERT_EQ(desktop.Transcript, (Lines{Loading, "status \"2 Adress-Einträge importiert\""}));
    EXPECT_EQ(program.Sync.Tables.SyncNameTable[1][SyncTables::Surname], u"Meier");
}

TEST_F(StartSync, TheFirstSearchWarnsAndFindsTheRecord) {
    folder.Write("adressen.csv", "\"030 1\",\"Meier\"\r\n");
    Start("LoadSyncOnStart=yes\r\nSyncCity=2\r\nCountryCode=49\r\nRegionCode=30");
    program.State.Register(1).Tel = u"1";
    desktop.Transcript.clear();
    desktop.AnswerBox(Button::Ignore).AnswerBox(Button::Yes);

    mnuSyncAdd(program, desktop);

    const Lines questions = desktop.Questions();
    ASSERT_EQ(questions.size(), 4U);
    EXPECT_TRUE(questions[0].starts_with("box \"ACHTUNG! ")) << questions[0];
    EXPECT_TRUE(questions[1].starts_with("box \"Suche nach 0049301, gefunden:")) << questions[1];
    EXPECT_EQ(program.State.Register(1).Info, u"                      Meier               ");
    EXPECT_FALSE(program.State.WarnLineAccessZero);
}

}  // namespace
}  // namespace norvik::test
