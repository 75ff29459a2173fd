#include "console/pendingfile.h"

#include "base/runtimeerror.h"
#include "tests/console/converterprocess.h"
#include "tests/support/processlimits.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <optional>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// The number of the run-time error, or nothing.
std::optional<ErrorNumber> ErrorOf(const std::function<void()>& action) {
    try {
        action();
        return std::nullopt;
    } catch (const RuntimeError& error) {
        return error.Number();
    }
}

/// What makes a file of the content "neu" become `target`.
bool Replaced(const FilePath& target, bool replace) {
    PendingFile file(target.parent_path());
    OutputFile output(file.Path());
    output.Write(Raw("'neu'"));
    output.Close();
    return file.Become(target, replace);
}

TEST(PendingFile, GoesWithoutATrace) {
    const TestFolder folder;
    {
        const PendingFile file(folder.Path());
        const PendingFile other(folder.Path());
        EXPECT_NE(file.Path(), other.Path());
        EXPECT_EQ(file.Path().parent_path(), folder.Path());
        EXPECT_EQ(FilesIn(folder.Path()).size(), 2U);
        EXPECT_EQ(fs::status(file.Path()).permissions(),
                  fs::perms::owner_read | fs::perms::owner_write);
    }
    EXPECT_THAT(FilesIn(folder.Path()), IsEmpty());
}

TEST(PendingFile, BecomesANewFile) {
    const TestFolder folder;
    EXPECT_TRUE(Replaced(folder / "a", false));
    EXPECT_TRUE(Replaced(folder / "b", true));
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a", "b"));
    EXPECT_EQ(ReadFile(folder / "a"), Raw("'neu'"));
    EXPECT_EQ(ReadFile(folder / "b"), Raw("'neu'"));
    // Such as any other new file.
    const fs::perms usual = fs::status(folder.Write("c", "")).permissions();
    EXPECT_EQ(fs::status(folder / "a").permissions(), usual);
    EXPECT_EQ(fs::status(folder / "b").permissions(), usual);
}

TEST(PendingFile, LeavesAnExistingFileAlone) {
    const TestFolder folder;
    folder.Write("a", "alt");
    EXPECT_FALSE(Replaced(folder / "a", false));
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a"));
    EXPECT_EQ(ReadFile(folder / "a"), Raw("'alt'"));
}

TEST(PendingFile, ReplacesAFileAndKeepsItsPermissions) {
    const TestFolder folder;
    const FilePath path = folder.Write("a", "alt");
    fs::permissions(path, fs::perms::owner_read | fs::perms::group_read);
    EXPECT_TRUE(Replaced(path, true));
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a"));
    EXPECT_EQ(ReadFile(path), Raw("'neu'"));
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::group_read);
}

TEST(FileToReplace, IsNoWriteProtectedOne) {
    const TestFolder folder;
    fs::permissions(folder.Path(), fs::perms(0777));
    const FilePath path = folder.Write("a", "alt");
    fs::permissions(path, fs::perms(0444));
    const AsAnyUser anyUser;
    EXPECT_EQ(ErrorOf([&] { FileToReplace(path); }), ErrorNumber::AccessDenied);
}

TEST(PendingFile, KeepsTheOwnerOfTheFileThatItReplaces) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root may give files away";
    }
    const TestFolder folder;
    const FilePath path = folder.Write("a", "alt");
    ASSERT_EQ(chown(path.c_str(), 12345, 54321), 0);
    EXPECT_TRUE(Replaced(path, true));
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 12345U);
    EXPECT_EQ(status.st_gid, 54321U);
}

TEST(PendingFile, RaisesWhatTheSystemSays) {
    const TestFolder folder;
    EXPECT_EQ(ErrorOf([&] { const PendingFile file(folder / "fehlt"); }),
              ErrorNumber::PathNotFound);
    fs::create_directory(folder / "ordner");
    EXPECT_EQ(ErrorOf([&] { Replaced(folder / "ordner", true); }), ErrorNumber::PathAccessError);
    EXPECT_FALSE(Replaced(folder / "ordner", false));
    const std::string tooLong(300, 'x');
    EXPECT_EQ(ErrorOf([&] { Replaced(folder / tooLong, true); }), ErrorNumber::BadFileName);
    EXPECT_EQ(ErrorOf([&] { Replaced(folder / tooLong, false); }), ErrorNumber::BadFileName);
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("ordner"));
}

TEST(PendingFile, NeedsAFolderThatTheUserMayWrite) {
    const TestFolder folder;
    fs::permissions(folder.Path(),
                    fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
    const AsAnyUser user;
    EXPECT_EQ(ErrorOf([&] { const PendingFile file(folder.Path()); }), ErrorNumber::AccessDenied);
}

TEST(Exists, IsTrueOfWhateverBearsTheName) {
    const TestFolder folder;
    fs::create_symlink("nirgends", folder / "link");
    EXPECT_TRUE(Exists(folder.Write("a", "")));
    EXPECT_TRUE(Exists(folder.Path()));
    EXPECT_TRUE(Exists(folder / "link"));
    EXPECT_TRUE(Exists("/dev/null"));
    EXPECT_FALSE(Exists(folder / "b"));
    EXPECT_FALSE(Exists(folder / "fehlt" / "b"));
    EXPECT_FALSE(Exists(folder / "a" / "b"));
}

TEST(Exists, RaisesWhatKeepsItFromLooking) {
    const TestFolder folder;
    fs::create_directory(folder / "zu");
    fs::permissions(folder / "zu", fs::perms::owner_all);
    fs::permissions(folder.Path(), fs::perms::all);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(Exists(folder / std::string(300, 'x'))); }),
              ErrorNumber::BadFileName);
    const AsAnyUser user;
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(Exists(folder / "zu" / "a")); }),
              ErrorNumber::AccessDenied);
}

TEST(FileToReplace, IsTheFileAtTheEndOfTheLinks) {
    const TestFolder folder;
    const FilePath file = folder.Write("a", "");
    fs::create_symlink(file, folder / "b");
    fs::create_symlink("b", folder / "c");
    fs::create_symlink("nirgends", folder / "d");
    EXPECT_EQ(FileToReplace(file), file);
    EXPECT_EQ(FileToReplace(folder / "c"), fs::canonical(file));
    EXPECT_EQ(FileToReplace(folder / "d"), folder / "d");
    EXPECT_EQ(FileToReplace(folder / "e"), folder / "e");
}

TEST(FileToReplace, IsNoFolderDeviceOrPipe) {
    const TestFolder folder;
    fs::create_symlink("/dev/null", folder / "null");
    for (const FilePath& path : {folder.Path(), FilePath("/dev/null"), folder / "null"}) {
        EXPECT_EQ(ErrorOf([&] { FileToReplace(path); }), ErrorNumber::PathAccessError);
    }
}

}  // namespace
}  // namespace norvik::test
