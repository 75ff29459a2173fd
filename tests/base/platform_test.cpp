// What can be seen of the system's calls in themselves; the rest is seen in what is made of them.
#include "base/platform.h"

#include "tests/support/processlimits.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;

TEST(Platform, CreatesNoFileThroughALinkNorTwice) {
    const TestFolder folder;
    fs::create_symlink(folder / "dort", folder / "link");
    std::error_code error;
    EXPECT_EQ(platform::CreateBeside(folder / "link", {}, error).File, platform::NoHandle);
    EXPECT_EQ(error, std::errc::file_exists);
    EXPECT_FALSE(fs::exists(folder / "dort"));
    EXPECT_EQ(platform::CreateBeside(folder.Write("a", "x"), {}, error).File, platform::NoHandle);
    EXPECT_EQ(error, std::errc::file_exists);
    EXPECT_EQ(ReadFile(folder / "a"), Raw("'x'"));
}

TEST(Platform, RenamesToAFreeNameOnly) {
    const TestFolder folder;
    folder.Write("a", "a");
    folder.Write("b", "b");
    std::error_code error;
    platform::RenameToFree(folder / "a", folder / "b", error);
    EXPECT_EQ(error, std::errc::file_exists);
    EXPECT_EQ(ReadFile(folder / "b"), Raw("'b'"));
    platform::RenameToFree(folder / "a", folder / "c", error);
    EXPECT_FALSE(error);
    EXPECT_EQ(FilesIn(folder.Path()), (std::vector<std::string>{"b", "c"}));
    platform::RenameToFree(folder / "c", folder / "fehlt/c", error);
    EXPECT_EQ(error, std::errc::no_such_file_or_directory);
}

#ifndef _WIN32
TEST(Platform, PassesOverAFolderThatMayNotBeRead) {
    const TestFolder folder;
    fs::permissions(folder.Path(), fs::perms(0311));
    std::error_code error = std::make_error_code(std::errc::io_error);
    {
        const AsAnyUser user;
        platform::SynchroniseFolder(folder.Path(), error);
    }
    EXPECT_FALSE(error);
    platform::SynchroniseFolder(folder.Path(), error);
    EXPECT_FALSE(error);
}

TEST(Platform, IsProtectedMeansWritingNotMissing) {
    const TestFolder folder;
    EXPECT_FALSE(platform::IsProtected(folder / "fehlt"));
    const FilePath path = folder.Write("a", "");
    EXPECT_FALSE(platform::IsProtected(path));
    fs::permissions(path, fs::perms(0444));
    fs::permissions(folder.Path(), fs::perms(0755));
    const AsAnyUser user;
    EXPECT_TRUE(platform::IsProtected(path));
}

#endif

}  // namespace
}  // namespace norvik::test
