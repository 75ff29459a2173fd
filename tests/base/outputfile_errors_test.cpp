// The run-time errors of writing. What they need of the system (pipes, devices, another user) is
// POSIX's.
#include "base/outputfile.h"

#include "tests/support/errors.h"
#include "tests/support/processlimits.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <string>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace norvik::test {
namespace {

namespace fs = std::filesystem;

int WriteError(const FilePath& path) {
    return ErrorOf([&] {
        OutputFile file(path);
        file.Write(Raw("'x'"));
        file.Close();
    });
}

int ReplaceError(const FilePath& path) {
    return ErrorOf([&] { ReplaceFile(path, Raw("'new'")); });
}

#ifndef _WIN32
void MakeReadOnly(const FilePath& path) {
    fs::permissions(path, fs::is_directory(path) ? fs::perms(0555) : fs::perms(0444));
}
#endif

FilePath WithNul() {
    return std::string("/tmp/a\0b", 8);
}

FilePath TooLong(const TestFolder& folder) {
    return folder / std::string(300, 'a');
}

TEST(WritingAFile, IntoAMissingFolderRaises76) {
    const TestFolder folder;
    EXPECT_EQ(WriteError(folder / "fehlt/a.t9t"), 76);
    folder.Write("datei", "x");
    EXPECT_EQ(WriteError(folder / "datei/a.t9t"), 76);
}

TEST(WritingAFile, ThatIsAFolderRaises75) {
    const TestFolder folder;
    EXPECT_EQ(WriteError(folder.Path()), 75);
}

#ifndef _WIN32
TEST(WritingAFile, ThatIsAPipeRaises75) {
    const TestFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(WriteError(folder / "pipe"), 75);
}
#endif

TEST(WritingAFile, WithAnImpossibleNameRaises64) {
    const TestFolder folder;
    EXPECT_EQ(WriteError(""), 64);
    EXPECT_EQ(WriteError(WithNul()), 64);
    EXPECT_EQ(WriteError(TooLong(folder)), 64);
}

#ifndef _WIN32
TEST(WritingAFile, WithoutPermissionRaises70AndLeavesItAsItIs) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.t9t", "alt");
    MakeReadOnly(path);
    const AsAnyUser user;
    EXPECT_EQ(WriteError(path), 70);
    EXPECT_EQ(ReadFile(path), Raw("'alt'"));
}

TEST(WritingAFile, IntoAFolderWithoutPermissionRaises70) {
    const TestFolder folder;
    MakeReadOnly(folder.Path());
    const AsAnyUser user;
    EXPECT_EQ(WriteError(folder / "a.t9t"), 70);
}

TEST(WritingAFile, OnAFullDiskRaises61AtTheLatestOnClosing) {
    OutputFile file(FilePath("/dev/full"));
    EXPECT_EQ(ErrorOf([&] { file.Write(Raw("'x'")); }), 0);
    EXPECT_EQ(ErrorOf([&] { file.Close(); }), 61);
}

TEST(WritingAFile, OnAFullDiskRaises61WhenMuchIsWritten) {
    OutputFile file(FilePath("/dev/full"));
    EXPECT_EQ(ErrorOf([&] { file.Write(Bytes(1000000, 'x')); }), 61);
}

TEST(WritingAFile, OnADeviceThatTakesEverythingRaisesNothing) {
    EXPECT_EQ(WriteError("/dev/null"), 0);
}

TEST(WritingAFile, ThatMayGrowNoFurtherRaises57) {
    const TestFolder folder;
    const FileSizeLimit limit(1000);
    OutputFile file(folder / "a.t9t");
    EXPECT_EQ(ErrorOf([&] {
                  file.Write(Bytes(1001, 'x'));
                  file.Close();
              }),
              57);
}
#endif

TEST(WritingAFile, InACircleOfLinksRaises64) {
    const TestFolder folder;
    fs::create_symlink("b", folder / "a");
    fs::create_symlink("a", folder / "b");
    EXPECT_EQ(WriteError(folder / "a"), 64);
}

TEST(WritingAFile, WhoseFolderDisappearsRaises76) {
    const TestFolder folder;
    fs::create_directory(folder / "dort");
    OutputFile file(folder / "dort/a.t9t");
    file.Write(Raw("'x'"));
    fs::remove_all(folder / "dort");
    EXPECT_EQ(ErrorOf([&] { file.Close(); }), 76);
}

#ifndef _WIN32
TEST(WritingAFile, OnlyRaises75ForADevice) {
    OutputTarget target(FilePath("/dev/null"));
    target.OnlyFiles = true;
    EXPECT_EQ(ErrorOf([&] { const OutputFile file(target); }), 75);
}

TEST(ReplaceFile, AFailedWriteLeavesTheOldFileAndNothingBeside) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.ini", "old");
    {
        const FileSizeLimit limit(1000);
        EXPECT_EQ(ErrorOf([&] { ReplaceFile(path, Bytes(100000, 'x')); }), 57);
    }
    EXPECT_EQ(ReadFile(path), Raw("'old'"));
    EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{"a.ini"});
}
#endif

TEST(ReplaceFile, AFolderOfThatNameRaises75AndStays) {
    const TestFolder folder;
    folder.Write("a.ini/inhalt", "x");
    EXPECT_EQ(ReplaceError(folder / "a.ini"), 75);
    EXPECT_EQ(ReadFile(folder / "a.ini/inhalt"), Raw("'x'"));
    EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{"a.ini"});
}

#ifndef _WIN32
TEST(ReplaceFile, WithoutPermissionRaises70AndLeavesTheOldFile) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.ini", "old");
    MakeReadOnly(folder.Path());
    {
        const AsAnyUser user;
        EXPECT_EQ(ReplaceError(path), 70);
        EXPECT_EQ(ReadFile(path), Raw("'old'"));
    }
    fs::permissions(folder.Path(), fs::perms::owner_all);
}

TEST(ReplaceFile, AWriteProtectedFileRaises70AndStays) {
    const TestFolder folder;
    fs::permissions(folder.Path(), fs::perms(0777));
    const FilePath path = folder.Write("a.ini", "old");
    fs::permissions(path, fs::perms(0444));
    {
        const AsAnyUser anyUser;
        EXPECT_EQ(ErrorOf([&] { ReplaceFile(path, Raw("'new'")); }), 70);
    }
    EXPECT_EQ(ReadFile(path), Raw("'old'"));
}
#endif

TEST(ReplaceFile, AFolderThatCannotBeMadeRaises76) {
    const TestFolder folder;
    folder.Write("datei", "x");
    EXPECT_EQ(ReplaceError(folder / "datei/norvik/a.ini"), 76);
    EXPECT_EQ(ReadFile(folder / "datei"), Raw("'x'"));
}

TEST(ReplaceFile, AnImpossibleNameRaises64) {
    const TestFolder folder;
    EXPECT_EQ(ReplaceError(""), 64);
    EXPECT_EQ(ReplaceError(WithNul()), 64);
    EXPECT_EQ(ReplaceError(TooLong(folder)), 64);
}

#ifndef _WIN32
TEST(IsNameTaken, RaisesWhatKeepsItFromLooking) {
    const TestFolder folder;
    fs::create_directory(folder / "zu");
    fs::permissions(folder / "zu", fs::perms::owner_all);
    fs::permissions(folder.Path(), fs::perms::all);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(IsNameTaken(TooLong(folder))); }), 64);
    const AsAnyUser user;
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(IsNameTaken(folder / "zu" / "a")); }), 70);
}
#endif

}  // namespace
}  // namespace norvik::test
