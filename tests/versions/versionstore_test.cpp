#include "versions/versionstore.h"

#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <thread>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

class VersionStore : public testing::Test {
  protected:
    /// A version of "/a.t9t" that holds `content`.
    static Version Of(std::int64_t when, std::string_view content) {
        return {.When = when,
                .Why = VersionReason::Replaced,
                .Original = "/a.t9t",
                .Content = Bytes(content.begin(), content.end())};
    }

    [[nodiscard]] std::vector<std::int64_t> Times() const {
        std::vector<std::int64_t> times;
        for (const Version& version : ListVersions(store)) {
            times.push_back(version.When);
        }
        return times;
    }

    TestFolder folder;
    FilePath store = folder.Path() / "tief" / "staende";
};

TEST_F(VersionStore, WritesTheseBytes) {
    Version version = Of(0x5F, "abc");
    version.Why = VersionReason::NotSavedAtQuit;
    version.IsRegister = true;
    const Bytes bytes = EncodeVersion(version);
    EXPECT_EQ(bytes, Raw("'NORVIKST' 02 03 5F00000000000000 01 06000000 '/a.t9t' 03000000 'abc'"
                         "CCA351028C4BC0AF"));
    const std::optional<Version> read = DecodeVersion(bytes);
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->When, 0x5F);
    EXPECT_EQ(read->Why, VersionReason::NotSavedAtQuit);
    EXPECT_TRUE(read->IsRegister);
    EXPECT_EQ(read->Original, "/a.t9t");
    EXPECT_EQ(read->Content, Raw("'abc'"));
}

TEST_F(VersionStore, ReadsTheFirstForm) {
    Bytes bytes = Raw("'NORVIKST' 01 03 5F00000000000000 01 06000000 '/a.t9t' 03000000 'abc'"
                      "9D05DCDA8C39F18D");
    const std::optional<Version> read = DecodeVersion(bytes);
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->When, 0x5F);
    EXPECT_EQ(read->Content, Raw("'abc'"));
    bytes[8] = 2;  // whose hash is another
    EXPECT_FALSE(DecodeVersion(bytes).has_value());
    bytes[8] = 3;
    EXPECT_FALSE(DecodeVersion(bytes).has_value());
}

TEST_F(VersionStore, RefusesEveryCutAndEveryChangedByte) {
    const Bytes bytes = EncodeVersion(Of(1, "abc"));
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        ASSERT_FALSE(DecodeVersion(ByteView(bytes).first(i)).has_value()) << i;
        Bytes damaged = bytes;
        damaged[i] = static_cast<Byte>(damaged[i] ^ 0x10U);
        ASSERT_FALSE(DecodeVersion(damaged).has_value()) << i;
    }
}

TEST_F(VersionStore, KeepsAVersionForTheUserAlone) {
    ASSERT_TRUE(KeepVersion(store, Of(1700000000, "abc")));
    const std::vector<Version> versions = ListVersions(store);
    ASSERT_EQ(versions.size(), 1U);
    EXPECT_EQ(versions[0].When, 1700000000);
    EXPECT_EQ(versions[0].Original, "/a.t9t");
    EXPECT_THAT(versions[0].Content, IsEmpty());
    EXPECT_EQ(ReadVersion(versions[0].File)->Content, Raw("'abc'"));
    EXPECT_EQ(fs::status(store).permissions(), fs::perms::owner_all);
    EXPECT_EQ(fs::status(versions[0].File).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(VersionStore, ListsTheNewestFirst) {
    KeepVersion(store, Of(2, "b"));
    KeepVersion(store, Of(10000000000, "c"));
    KeepVersion(store, Of(1, "a"));
    EXPECT_THAT(Times(), ElementsAre(10000000000, 2, 1));
}

TEST_F(VersionStore, KnowsTheOrderOfTwoVersionsOfOneSecond) {
    for (const char* const content : {"a", "b", "c", "d", "e"}) {
        Version version = Of(7, content);
        version.Original = content;
        KeepVersion(store, version);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));  // the file system's clock
    }
    std::vector<FilePath> originals;
    for (const Version& version : ListVersions(store)) {
        originals.push_back(version.Original);
    }
    EXPECT_THAT(originals, ElementsAre("e", "d", "c", "b", "a"));
}

TEST_F(VersionStore, KeepsEqualContentOnce) {
    KeepVersion(store, Of(1, "gleich"));
    KeepVersion(store, Of(2, "anders"));
    Version again = Of(3, "gleich");
    again.Original = "/b.t9t";
    KeepVersion(store, again);
    EXPECT_THAT(Times(), ElementsAre(3, 2));
    EXPECT_EQ(ListVersions(store).front().Original, "/b.t9t");
    Version isRegister = Of(4, "gleich");
    isRegister.IsRegister = true;  // the same bytes mean something else
    KeepVersion(store, isRegister);
    EXPECT_THAT(Times(), ElementsAre(4, 3, 2));
}

TEST_F(VersionStore, DropsTheOldestOfMoreThanAHundred) {
    for (int i = 1; i <= 103; ++i) {
        ASSERT_TRUE(KeepVersion(store, Of(i, std::to_string(i))));
    }
    const std::vector<std::int64_t> times = Times();
    EXPECT_EQ(times.size(), MostVersions);
    EXPECT_EQ(times.front(), 103);
    EXPECT_EQ(times.back(), 4);
}

TEST_F(VersionStore, DropsTheOldestOfMoreThanFiftyMegabytes) {
    const std::string large(std::size_t{20} * 1024 * 1024, 'x');
    KeepVersion(store, Of(1, large + "1"));
    KeepVersion(store, Of(2, large + "2"));
    KeepVersion(store, Of(3, large + "3"));
    EXPECT_THAT(Times(), ElementsAre(3, 2));
}

TEST_F(VersionStore, KeepsTheNewestHoweverLarge) {
    KeepVersion(store, Of(1, "klein"));
    KeepVersion(store, Of(2, std::string(std::size_t{52} * 1024 * 1024, 'x')));
    EXPECT_THAT(Times(), ElementsAre(2));
}

TEST_F(VersionStore, PassesOverDamagedAndForeignFiles) {
    KeepVersion(store, Of(1, "a"));
    const FilePath good = ListVersions(store).front().File;
    fs::copy_file(good, store / "999999999999-0000000000000000.stand.neu");
    fs::copy_file(good, store / "sitzung.stand");
    std::ofstream(store / "000000000009-0000000000000000.stand") << "NORVIKST";
    EXPECT_THAT(Times(), ElementsAre(1));
    EXPECT_FALSE(ReadVersion(store / "fehlt.stand").has_value());
}

TEST_F(VersionStore, SaysWhenNothingCanBeKept) {
    folder.Write("tief", std::string_view("eine Datei, kein Ordner"));
    EXPECT_FALSE(KeepVersion(store, Of(1, "a")));
    EXPECT_THAT(ListVersions(store), IsEmpty());
}

TEST_F(VersionStore, AFolderThatIsThereIsTaken) {
    fs::create_directories(store);
    EXPECT_TRUE(KeepVersion(store, Of(1, "a")));
    EXPECT_THAT(Times(), ElementsAre(1));
}

TEST_F(VersionStore, TellsWhy) {
    EXPECT_EQ(DescriptionOf(VersionReason::Replaced), u"ersetzt");
    EXPECT_EQ(DescriptionOf(VersionReason::NotSavedAtLoad), u"beim Laden nicht gesichert");
    EXPECT_EQ(DescriptionOf(VersionReason::NotSavedAtQuit), u"beim Beenden nicht gesichert");
    EXPECT_EQ(DescriptionOf(VersionReason::Aborted), u"Programmabbruch");
}

TEST_F(VersionStore, AVersionThatGoesToTheDiskAtOnceIsLikeAnyOther) {
    ASSERT_TRUE(KeepVersion(store, Of(1, "abc"), Flush::Now));
    EXPECT_EQ(Times(), std::vector<std::int64_t>{1});
    EXPECT_EQ(fs::status(ListVersions(store).front().File).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(VersionStore, WhatAProcessLeftThatDiedInTheMidstIsNoHindrance) {
    ASSERT_TRUE(KeepVersion(store, Of(1, "abc")));
    const FilePath file = ListVersions(store).front().File;
    fs::rename(file, FilePath(file) += ".neu");
    ASSERT_TRUE(KeepVersion(store, Of(1, "abc")));
    EXPECT_EQ(Times(), std::vector<std::int64_t>{1});
    EXPECT_EQ(FilesIn(store).size(), 1U);
}

TEST_F(VersionStore, RemovesWhatWasLeftUnfinishedLongAgo) {
    ASSERT_TRUE(KeepVersion(store, Of(1, "abc")));
    for (const char* const name : {"alt.stand.neu", "jung.stand.neu", "alt.txt"}) {
        std::ofstream(store / name) << "x";
        if (name[0] == 'a') {
            fs::last_write_time(store / name,
                                fs::file_time_type::clock::now() - std::chrono::hours(1));
        }
    }
    RemoveUnfinishedVersions(store);
    EXPECT_THAT(FilesIn(store),
                testing::UnorderedElementsAre(ListVersions(store).front().File.filename().string(),
                                              "alt.txt", "jung.stand.neu"));
}

TEST_F(VersionStore, KnowsWhatLiesInAFolder) {
    ASSERT_TRUE(PrepareVersionFolder(store));
    fs::create_directory_symlink(store, folder / "link");
    for (const FilePath& inside :
         {store, store / "", store / "a.stand", store / "fehlt" / "a", folder / "link",
          folder / "link" / "a.stand", folder / "tief" / "." / "staende",
          store / ".." / "staende" / "a"}) {
        EXPECT_TRUE(IsInFolder(inside, store)) << inside;
        EXPECT_TRUE(IsInFolder(inside, folder / "link")) << inside;
    }
    for (const FilePath& outside :
         {folder.Path(), folder / "tief", folder / "tief" / "staende2", store / "..",
          store / ".." / "a.t9t", FilePath("/"), FilePath("staende"), FilePath()}) {
        EXPECT_FALSE(IsInFolder(outside, store)) << outside;
    }
    EXPECT_TRUE(IsInFolder(folder / "noch nicht" / "a", folder / "noch nicht"));
    EXPECT_FALSE(IsInFolder(store / "a", FilePath()));
}

}  // namespace
}  // namespace norvik::test
