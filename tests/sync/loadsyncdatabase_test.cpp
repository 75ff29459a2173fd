#include "sync/loadsyncdatabase.h"

#include "tests/support/builders.h"
#include "tests/support/processlimits.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <fstream>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

const std::string Loading = "status \"Lade Adress-Synchronisationsdaten...\"";
const std::string NotLoaded = "status \"Adress-Synchronisationsdaten nicht geladen\"";
const std::string NotFound =
    "box \"SyncDatei nicht gefunden, bitte prüfen!\" title \"Laden\" icon Critical buttons Ok "
    "default Ok -> Ok";

Lines Imported(const std::string& count) {
    return {Loading, "status \"" + count + " Adress-Einträge importiert\""};
}

class LoadSync : public testing::Test {
  protected:
    LoadSync() { settings.SetValue(Setting::SyncName, u"1"); }

    /// Loads the file and gives what the desktop was asked.
    Lines Load(const FilePath& file) {
        settings.SetValue(Setting::SyncDatabase, TextFromPath(file));
        desktop.Transcript.clear();
        LoadSyncDatabase(settings, sync, desktop);
        return desktop.Transcript;
    }
    [[nodiscard]] Text Surname(std::size_t record) const {
        return Text(sync.Tables.SyncNameTable.at(record)[SyncTables::Surname]);
    }

    TestFolder folder;
    SettingsTable settings;
    SyncState sync;
    ScriptedDesktop desktop;
};

TEST_F(LoadSync, NothingIsLoadedAtStart) {
    EXPECT_FALSE(sync.SyncLoaded);
}

TEST_F(LoadSync, Utf8IsReadAsSuch) {
    EXPECT_EQ(
        Load(folder.Write("a.csv", "\xEF\xBB\xBF\"M\xC3\xBCller\"\r\n\"Ju\xCC\x88rgens\"\r\n")),
        Imported("2"));
    EXPECT_EQ(Surname(1), u"Müller");
    EXPECT_EQ(Surname(2), u"Jürgens");
}

TEST_F(LoadSync, TheStatusTellsOfReplacedCharacters) {
    const std::string one = "\"Wa\xC5\x82\xC4\x99sa\",\"\xC5\x82\"\r\n";
    EXPECT_EQ(Load(folder.Write("a.csv", "\"Anna\"\r\n" + one)),
              (Lines{Loading, "status \"2 Adress-Einträge importiert; Zeichen ersetzt: Walesa\""}));
    EXPECT_EQ(Surname(2), u"Walesa");
    EXPECT_EQ(
        Load(folder.Write("a.csv", one + "\"Bo\xC5\x82\r\n\xD0\x96\"\r\n\xC5\x82\r\n\r\n")),
        (Lines{Loading, "status \"3 Adress-Einträge importiert; Zeichen ersetzt: Walesa und 1 "
                        "weitere\""}));
    EXPECT_EQ(Surname(2), u"Bol?");
    EXPECT_EQ(Load(folder.Write("a.csv", "\"Anna\"\r\n")), Imported("1"));
}

TEST_F(LoadSync, AStatusIsShortWhateverTheFieldIs) {
    const std::string field(1000, 'x');
    EXPECT_EQ(Load(folder.Write("a.csv", "\"" + field + "\xC5\x82\"\r\n")),
              (Lines{Loading, "status \"1 Adress-Einträge importiert; Zeichen ersetzt: " +
                                  field.substr(0, 40) + "\""}));
}

TEST_F(LoadSync, ARelativePathCountsFromTheFolderOfTheSettings) {
    const TestFolder elsewhere;
    const WorkingFolder working(elsewhere.Path());
    elsewhere.Write("a.csv", "\"Falsch\"\r\n");
    folder.Write("Daten/A.csv", "\"Meier\"\r\n");
    folder.Write("norvik.ini", "SyncDatabase=daten/a.csv\r\nSyncName=1\r\n");
    ReadSettingsFile(folder.Path(), settings);
    LoadSyncDatabase(settings, sync, desktop);
    EXPECT_EQ(desktop.Transcript, Imported("1"));
    EXPECT_EQ(Surname(1), u"Meier");
}

TEST_F(LoadSync, ShowsItsStartAndTheNumberOfRecords) {
    EXPECT_EQ(Load(folder.Write("a.csv", "\"Meier\"\r\n\"Kunz\"\r\n")), Imported("2"));
    EXPECT_EQ(Surname(1), u"Meier");
    EXPECT_EQ(Surname(2), u"Kunz");
    EXPECT_EQ(Surname(3), u"");
    EXPECT_TRUE(sync.SyncLoaded);
}

TEST_F(LoadSync, TakesEachItemFromTheFieldOfItsSetting) {
    settings.SetValue(Setting::SyncName, u"2");
    settings.SetValue(Setting::SyncCity, u"1");
    settings.SetValue(Setting::SyncOther, u"3");
    Load(folder.Write("a.csv", "\"Berlin\",\"M\xFCller\",\"030 1\"\r\n"));
    EXPECT_EQ(Surname(1), u"Müller");
    EXPECT_EQ(sync.Tables.SyncAddressTable[1][SyncTables::City], u"Berlin");
    EXPECT_EQ(sync.Tables.SyncPhoneTable[1][SyncTables::Other], u"030 1");
}

TEST_F(LoadSync, AnEmptyFileIsALoadOf0Records) {
    EXPECT_EQ(Load(folder.Write("a.csv", "")), Imported("0"));
    EXPECT_TRUE(sync.SyncLoaded);
}

TEST_F(LoadSync, AnEmptyLineAndALineWithoutAQuoteCount) {
    EXPECT_EQ(Load(folder.Write("a.csv", "\"a\"\r\n\r\n")), Imported("2"));
    EXPECT_EQ(Load(folder.Write("a.csv", "\"a\"\r\nMeier")), Imported("2"));
}

TEST_F(LoadSync, AFileOf237LinesReports237Entries) {
    std::string file;
    for (int line = 0; line < 237; ++line) {
        file += "\"Meier\",\"Hans\"\r\n";
    }
    EXPECT_EQ(Load(folder.Write("a.csv", file)), Imported("237"));
}

TEST_F(LoadSync, AFileOf1200LinesReports1000Entries) {
    std::string file;
    for (int line = 1; line <= 1200; ++line) {
        file += "\"" + std::to_string(line) + "\"\r\n";
    }
    EXPECT_EQ(Load(folder.Write("a.csv", file)), Imported("1000"));
    EXPECT_EQ(Surname(1000), u"1000");
}

TEST_F(LoadSync, LoadingTwiceReplacesTheFirstLoadCompletely) {
    Load(folder.Write("a.csv", "\"A1\"\r\n\"A2\"\r\n\"A3\"\r\n"));
    EXPECT_EQ(Load(folder.Write("b.csv", "\"B1\"\r\n")), Imported("1"));
    EXPECT_EQ(Surname(1), u"B1");
    EXPECT_EQ(Surname(2), u"");
    EXPECT_EQ(Surname(3), u"");
}

TEST_F(LoadSync, AnItemThatTheSecondMappingDoesNotNameIsEmptyAfterTheSecondLoad) {
    const FilePath file = folder.Write("a.csv", "\"Meier\"\r\n");
    Load(file);
    settings.SetValue(Setting::SyncName, u"0");
    EXPECT_EQ(Load(file), Imported("1"));
    EXPECT_EQ(Surname(1), u"");
}

TEST_F(LoadSync, AMappingThatIsNoFieldNumberIsNotReported) {
    for (const TextView mapping : {u"41", u"-1", u"x", u""}) {
        settings.SetValue(Setting::SyncName, mapping);
        EXPECT_EQ(Load(folder.Write("a.csv", "\"Meier\"\r\n")), Imported("1"));
        EXPECT_EQ(Surname(1), u"");
    }
}

TEST_F(LoadSync, TheRecordsStayWhenTheFileIsGone) {
    const FilePath file = folder.Write("a.csv", "\"Meier\"\r\n");
    Load(file);
    fs::remove(file);
    EXPECT_EQ(Surname(1), u"Meier");
}

// The file is missing

TEST_F(LoadSync, AMissingFileIsReportedAndNothingIsLoaded) {
    EXPECT_EQ(Load(folder / "a.csv"), (Lines{Loading, NotFound, NotLoaded}));
    EXPECT_FALSE(sync.SyncLoaded);
    EXPECT_EQ(sync.Tables.SyncNameTable.size(), 1001U);
}

TEST_F(LoadSync, AMissingFolderIsAMissingFile) {
    EXPECT_EQ(Load(folder / "nowhere" / "a.csv"), (Lines{Loading, NotFound, NotLoaded}));
    EXPECT_FALSE(sync.SyncLoaded);
}

TEST_F(LoadSync, WithoutAPathTheFileIsMissing) {
    EXPECT_EQ(Load(""), (Lines{Loading, NotFound, NotLoaded}));
    EXPECT_FALSE(sync.SyncLoaded);
}

TEST_F(LoadSync, AFileInPlaceOfTheFolderIsAMissingFile) {
    folder.Write("a.csv", "\"Meier\"\r\n");
    EXPECT_EQ(Load(folder / "a.csv" / "b.csv"), (Lines{Loading, NotFound, NotLoaded}));
}

TEST_F(LoadSync, ANameThatNoFileCanHaveIsAMissingFile) {
    EXPECT_EQ(Load(folder / std::string(300, 'a')), (Lines{Loading, NotFound, NotLoaded}));
    EXPECT_FALSE(sync.SyncLoaded);
}

TEST_F(LoadSync, AMissingFileEmptiesTheTablesAndKeepsWhatWasLoaded) {
    Load(folder.Write("a.csv", "\"A1\"\r\n\"A2\"\r\n"));
    EXPECT_EQ(Load(folder / "b.csv"), (Lines{Loading, NotFound, NotLoaded}));
    EXPECT_EQ(Surname(1), u"");
    EXPECT_EQ(Surname(2), u"");
    EXPECT_EQ(sync.Tables.SyncNameTable.size(), 1001U);
    EXPECT_TRUE(sync.SyncLoaded);
}

// The path

TEST_F(LoadSync, FindsTheFileWhateverTheCaseOfItsPath) {
    folder.Write("Adressen/Palm-DB.CSV", "\"Meier\"\r\n");
    EXPECT_EQ(Load(folder / "adressen" / "palm-db.csv"), Imported("1"));
    EXPECT_EQ(Surname(1), u"Meier");
}

TEST_F(LoadSync, ThePathMayHoldBlanksUmlautsAndQuotes) {
    const FilePath file = folder.Write(u"mein büro's 'Adr' $(x);.csv", "\"Meier\"\r\n");
    EXPECT_EQ(Load(file), Imported("1"));
}

// Whatever the file is

#ifndef _WIN32

struct Unreadable {
    const char* What;
    void (*Make)(const FilePath& path);
};

void MakeOfSize(const FilePath& path, std::uintmax_t size) {
    { std::ofstream created(path); }
    fs::resize_file(path, size);
}

const std::vector<Unreadable> Kinds = {
    {"a sparse file of 2 GB",
     [](const FilePath& path) { MakeOfSize(path, std::uintmax_t{2} * 1024 * 1024 * 1024); }},
    {"a file of 65 MB", [](const FilePath& path) { MakeOfSize(path, 65 * 1024 * 1024); }},
    {"a file a byte too large",
     [](const FilePath& path) { MakeOfSize(path, MaximumFileSize + 1); }},
    {"a device without an end",
     [](const FilePath& path) { fs::create_symlink("/dev/zero", path); }},
    {"a device without a byte",
     [](const FilePath& path) { fs::create_symlink("/dev/null", path); }},
    {"a folder", [](const FilePath& path) { fs::create_directory(path); }},
    {"a pipe without a writer",
     [](const FilePath& path) { ASSERT_EQ(mkfifo(path.c_str(), 0600), 0); }},
    {"a file without permission", [](const FilePath& path) {
         { std::ofstream created(path); }
         fs::permissions(path, fs::perms::none);
     }}};

TEST_F(LoadSync, AFileThatCannotBeReadCountsAsEmptyWithoutAMessage) {
    const FilePath before = folder.Write("before.csv", "\"Meier\"\r\n");
    for (const Unreadable& kind : Kinds) {
        SCOPED_TRACE(kind.What);
        const TestFolder own;
        kind.Make(own / "a.csv");
        Load(before);
        sync.SyncLoaded = false;
        {
            const AsAnyUser anyUser;
            EXPECT_EQ(Load(own / "a.csv"), Imported("0"));
        }
        EXPECT_EQ(Surname(1), u"");
        EXPECT_TRUE(sync.SyncLoaded);
    }
}

TEST_F(LoadSync, ALinkToNothingOrToItselfIsAMissingFile) {
    fs::create_symlink("nirgends", folder / "a.csv");
    EXPECT_EQ(Load(folder / "a.csv"), (Lines{Loading, NotFound, NotLoaded}));
    fs::create_symlink("b.csv", folder / "b.csv");
    EXPECT_EQ(Load(folder / "b.csv"), (Lines{Loading, NotFound, NotLoaded}));
}

TEST_F(LoadSync, ALinkToADatabaseIsReadLikeIt) {
    folder.Write("real.csv", "\"Meier\"\r\n");
    fs::create_symlink("real.csv", folder / "a.csv");
    EXPECT_EQ(Load(folder / "a.csv"), Imported("1"));
}

#endif

TEST_F(LoadSync, AFileAsLargeAsFilesMayBeIsRead) {
    const FilePath file = folder.Write("a.csv", "\"Meier\"\r\n");
    fs::resize_file(file, MaximumFileSize);
    EXPECT_EQ(Load(file), Imported("2"));  // the zeros behind it are a line without quotes
    EXPECT_EQ(Surname(1), u"Meier");
    EXPECT_EQ(Surname(2), u"");
}

}  // namespace
}  // namespace norvik::test
