// The sample lines of an address file, whatever the file is and becomes.
#include "dialogs/syncsample.h"

#include "sync/synctables.h"
#include "tests/support/processlimits.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace norvik::test {
namespace {

namespace fs = std::filesystem;

using Line = std::optional<Text>;

/// Line `record` of a file that is looked at for the first time.
Line FirstLook(const FilePath& path, int record = 1) {
    return SyncSample().Line(TextFromPath(path), record);
}

/// Line `record` of a file of the given bytes.
Line LineOf(std::string_view bytes, int record) {
    const TestFolder folder;
    return FirstLook(folder.Write("adressen.csv", bytes), record);
}

void ChangeDate(const FilePath& path, std::chrono::seconds by) {
    fs::last_write_time(path, fs::last_write_time(path) + by);
}

// Which line

TEST(SyncSample, CountsLinesFrom1) {
    const std::string file = "\"eins\"\r\n\"zwei\"\r\n\"drei\"\r\n";
    EXPECT_EQ(LineOf(file, 1), Line(u"\"eins\""));
    EXPECT_EQ(LineOf(file, 2), Line(u"\"zwei\""));
    EXPECT_EQ(LineOf(file, 3), Line(u"\"drei\""));
}

TEST(SyncSample, ShowsUtf8AsItIsLoaded) {
    EXPECT_EQ(LineOf("\xEF\xBB\xBF\"eins\"\n\"Wa\xC5\x82\xC4\x99sa\"\n", 1), Line(u"\"eins\""));
    EXPECT_EQ(LineOf("\"M\xC3\xBCller\"\n\"Wa\xC5\x82\xC4\x99sa\"\n", 2), Line(u"\"Walesa\""));
    EXPECT_EQ(LineOf("\"M\xC3\xBCller\"\n\"K\xF6nig\"\n", 1), Line(u"\"MÃ¼ller\""));
}

TEST(SyncSample, ARecordBeyondTheEndIsTheLastLine) {
    const std::string file = "\"eins\"\r\n\"zwei\"\r\n";
    for (const int record : {3, 4, 1000, std::numeric_limits<int>::max()}) {
        EXPECT_EQ(LineOf(file, record), Line(u"\"zwei\"")) << record;
    }
}

TEST(SyncSample, ARecordBeforeTheFirstIsTheFirstLine) {
    const std::string file = "\"eins\"\r\n\"zwei\"\r\n";
    for (const int record : {0, -1, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(LineOf(file, record), Line(u"\"eins\"")) << record;
    }
}

TEST(SyncSample, AnEmptyFileHasAnEmptyLine) {
    EXPECT_EQ(LineOf("", 1), Line(u""));
    EXPECT_EQ(LineOf("", 1000), Line(u""));
}

TEST(SyncSample, AFileOfOneLineNeedsNoLineEnd) {
    EXPECT_EQ(LineOf("\"eins\"", 1), Line(u"\"eins\""));
    EXPECT_EQ(LineOf("\"eins\"", 2), Line(u"\"eins\""));
}

TEST(SyncSample, EmptyLinesCount) {
    const std::string file = "\r\n\"zwei\"\r\n\r\n";
    EXPECT_EQ(LineOf(file, 1), Line(u""));
    EXPECT_EQ(LineOf(file, 2), Line(u"\"zwei\""));
    EXPECT_EQ(LineOf(file, 3), Line(u""));
    EXPECT_EQ(LineOf(file, 4), Line(u""));
}

TEST(SyncSample, ALineEndsAtCarriageReturnAloneToo) {
    EXPECT_EQ(LineOf("\"eins\"\r\"zwei\"\r", 2), Line(u"\"zwei\""));
    EXPECT_EQ(LineOf("\"ei\nns\"\r\n\"zwei\"\r\n", 1), Line(u"\"ei\nns\""));
}

TEST(SyncSample, AFileOfAnotherSystemEndsItsLinesWithLineFeeds) {
    EXPECT_EQ(LineOf("\"eins\"\n\"zwei\"\n", 2), Line(u"\"zwei\""));
}

TEST(SyncSample, ALineIsNotContinuedByTheNextOne) {
    EXPECT_EQ(LineOf("\"Anna\",\"Am Markt\r\n1\"\r\n", 1), Line(u"\"Anna\",\"Am Markt"));
    EXPECT_EQ(LineOf("\"Anna\",\"Am Markt\r\n1\"\r\n", 2), Line(u"1\""));
}

TEST(SyncSample, ReadsWindows1252) {
    EXPECT_EQ(LineOf("\"Stra\xDF"
                     "e \x80 \x81 \xFC\"\r\n",
                     1),
              Line(u"\"Straße € \u0081 ü\""));
}

TEST(SyncSample, OfAFileOf1200LinesThe1000thIsTheLast) {
    const TestFolder folder;
    std::string file;
    for (int line = 1; line <= 1200; ++line) {
        file += "\"" + std::to_string(line) + "\"\r\n";
    }
    const FilePath path = folder.Write("adressen.csv", file);
    SyncSample sample;
    EXPECT_EQ(sample.Line(TextFromPath(path), 1), Line(u"\"1\""));
    EXPECT_EQ(sample.Line(TextFromPath(path), 999), Line(u"\"999\""));
    EXPECT_EQ(sample.Line(TextFromPath(path), 1000), Line(u"\"1000\""));
}

TEST(SyncSample, GoingThroughTheRecordsOfABigFileIsFast) {
    const TestFolder folder;
    const std::string line = "\"" + std::string(8000, 'x') + "\"\r\n";
    std::string file;
    for (std::size_t i = 0; i < SyncRecords; ++i) {
        file += line;
    }
    const Text path = TextFromPath(folder.Write("adressen.csv", file));
    SyncSample sample;
    const auto start = std::chrono::steady_clock::now();
    for (int record = 1; record <= static_cast<int>(SyncRecords); ++record) {
        ASSERT_EQ(sample.Line(path, record)->size(), 8002U);
    }
    // Reading the file for each record would take minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(15));
}

// What the path names

TEST(SyncSample, AMissingFileOrFolderHasNoLine) {
    const TestFolder folder;
    EXPECT_EQ(FirstLook(folder / "fehlt.csv"), std::nullopt);
    EXPECT_EQ(FirstLook(folder / "fehlt" / "adressen.csv"), std::nullopt);
    EXPECT_EQ(FirstLook(folder.Write("datei", "") / "adressen.csv"), std::nullopt);
}

TEST(SyncSample, AFolderHasNoLine) {
    const TestFolder folder;
    EXPECT_EQ(FirstLook(folder.Path()), std::nullopt);
    EXPECT_EQ(FirstLook("/"), std::nullopt);
}

TEST(SyncSample, AnImpossibleNameHasNoLine) {
    const TestFolder folder;
    const FilePath path = folder.Write("adressen.csv", "\"eins\"\r\n");
    EXPECT_EQ(SyncSample().Line(u"", 1), std::nullopt);
    EXPECT_EQ(SyncSample().Line(TextFromPath(path) + Text(1, u'\0') + u"x", 1), std::nullopt);
    EXPECT_EQ(SyncSample().Line(TextFromPath(folder / std::string(300, 'x')), 1), std::nullopt);
    EXPECT_EQ(SyncSample().Line(Text(10000, u'/') + u"?*<>|", 1), std::nullopt);
}

TEST(SyncSample, AFileOf65MegabytesHasNoLine) {
    const TestFolder folder;
    const FilePath path = folder.Write("adressen.csv", "\"eins\"\r\n");
    fs::resize_file(path, std::uintmax_t{65} * 1024 * 1024);
    EXPECT_EQ(FirstLook(path), std::nullopt);
}

#ifndef _WIN32
TEST(SyncSample, ADeviceHasNoLine) {
    EXPECT_EQ(FirstLook("/dev/zero"), std::nullopt);
    EXPECT_EQ(FirstLook("/dev/null"), std::nullopt);
}

TEST(SyncSample, APipeWithoutAWriterHasNoLineAndDoesNotWait) {
    const TestFolder folder;
    const FilePath path = folder / "adressen.csv";
    ASSERT_EQ(mkfifo(path.c_str(), 0666), 0);
    EXPECT_EQ(FirstLook(path), std::nullopt);
}

TEST(SyncSample, AFileThatMayNotBeReadHasNoLine) {
    const TestFolder folder;
    const FilePath path = folder.Write("adressen.csv", "\"eins\"\r\n");
    const FilePath locked = folder.Write("zu/adressen.csv", "\"eins\"\r\n");
    fs::permissions(path, fs::perms(0));
    fs::permissions(locked.parent_path(), fs::perms(0));
    {
        const AsAnyUser anyUser;
        EXPECT_EQ(FirstLook(path), std::nullopt);
        EXPECT_EQ(FirstLook(locked), std::nullopt);
    }
    fs::permissions(locked.parent_path(), fs::perms(0755));
}

TEST(SyncSample, ALinkThatLeadsToItselfHasNoLine) {
    const TestFolder folder;
    fs::create_symlink("adressen.csv", folder / "adressen.csv");
    EXPECT_EQ(FirstLook(folder / "adressen.csv"), std::nullopt);
}
#endif

TEST(SyncSample, FindsAPathInOtherCase) {
    const TestFolder folder;
    folder.Write(u8"Büro Süd/Adressen.CSV", "\"eins\"\r\n");
    EXPECT_EQ(FirstLook(folder / u8"büro süd" / "adressen.csv"), Line(u"\"eins\""));
    EXPECT_EQ(FirstLook(folder / u8"BÜRO SÜD" / "ADRESSEN.CSV"), Line(u"\"eins\""));
}

TEST(SyncSample, TheExactCaseGoesFirst) {
    const TestFolder folder;
    folder.Write("Adressen.csv", "\"groß\"\r\n");
    const FilePath exact = folder.Write("adressen.csv", "\"klein\"\r\n");
    EXPECT_EQ(FirstLook(exact), Line(u"\"klein\""));
}

TEST(SyncSample, TakesPathsWithBlanksQuotesAndSigns) {
    const TestFolder folder;
    std::vector<FilePath> names = {" a b .csv", "a'b;c,d.csv", "$(touch x).csv", u8"ä%20ß.csv"};
#ifndef _WIN32
    names.insert(names.end(), {"a\"b'c.csv", "a;b|c.csv"});
#endif
    for (const FilePath& name : names) {
        EXPECT_EQ(FirstLook(folder.Write(name, "\"eins\"\r\n")), Line(u"\"eins\"")) << name;
    }
}

// A file that changes between two looks

TEST(SyncSample, AChangedFileIsReadAnew) {
    const TestFolder folder;
    const FilePath path = folder.Write("adressen.csv", "\"alt\"\r\n\"alt 2\"\r\n");
    SyncSample sample;
    EXPECT_EQ(sample.Line(TextFromPath(path), 2), Line(u"\"alt 2\""));

    folder.Write("adressen.csv", "\"neu\"\r\n");
    ChangeDate(path, std::chrono::seconds(1));

    EXPECT_EQ(sample.Line(TextFromPath(path), 2), Line(u"\"neu\""));
    EXPECT_EQ(sample.Line(TextFromPath(path), 1), Line(u"\"neu\""));
}

TEST(SyncSample, AnOlderFileInItsPlaceIsReadToo) {
    const TestFolder folder;
    const FilePath path = folder.Write("adressen.csv", "\"neu\"\r\n");
    SyncSample sample;
    sample.Line(TextFromPath(path), 1);

    folder.Write("adressen.csv", "\"alt\"\r\n");
    ChangeDate(path, -std::chrono::hours(24));

    EXPECT_EQ(sample.Line(TextFromPath(path), 1), Line(u"\"alt\""));
}

TEST(SyncSample, AnotherFileOfTheSameDateInItsPlaceIsReadToo) {
    const TestFolder folder;
    const FilePath path = folder.Write("adressen.csv", "\"alt\"\r\n");
    const auto date = fs::last_write_time(path);
    SyncSample sample;
    sample.Line(TextFromPath(path), 1);

    folder.Write("adressen.csv", "\"ganz neu\"\r\n");
    fs::last_write_time(path, date);

    EXPECT_EQ(sample.Line(TextFromPath(path), 1), Line(u"\"ganz neu\""));
}

TEST(SyncSample, AFileThatIsThereAgainIsReadAnew) {
    const TestFolder folder;
    const FilePath path = folder.Write("adressen.csv", "\"alt\"\r\n");
    const auto date = fs::last_write_time(path);
    SyncSample sample;
    sample.Line(TextFromPath(path), 1);

    fs::remove(path);
    EXPECT_EQ(sample.Line(TextFromPath(path), 1), std::nullopt);

    folder.Write("adressen.csv", "\"neu\"\r\n");
    fs::last_write_time(path, date);
    EXPECT_EQ(sample.Line(TextFromPath(path), 1), Line(u"\"neu\""));
}

TEST(SyncSample, AFileThatBecameAFolderHasNoLine) {
    const TestFolder folder;
    const FilePath path = folder.Write("adressen.csv", "\"alt\"\r\n");
    const auto date = fs::last_write_time(path);
    SyncSample sample;
    sample.Line(TextFromPath(path), 1);

    fs::remove(path);
    fs::create_directory(path);
    fs::last_write_time(path, date + std::chrono::seconds(1));

    EXPECT_EQ(sample.Line(TextFromPath(path), 1), std::nullopt);
}

TEST(SyncSample, TwoFilesInTurnGiveTheirOwnLines) {
    const TestFolder folder;
    const FilePath a = folder.Write("a.csv", "\"a\"\r\n");
    const FilePath b = folder.Write("b.csv", "\"b\"\r\n");
    fs::last_write_time(b, fs::last_write_time(a));
    SyncSample sample;
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(sample.Line(TextFromPath(a), 1), Line(u"\"a\""));
        EXPECT_EQ(sample.Line(TextFromPath(b), 1), Line(u"\"b\""));
        EXPECT_EQ(sample.Line(TextFromPath(folder / "c.csv"), 1), std::nullopt);
    }
}

}  // namespace
}  // namespace norvik::test
