#include "console/wholetarget.h"

#include "base/runtimeerror.h"
#include "tests/console/converterprocess.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

bool WriteNew(const FilePath& path) {
    OutputFile file(path);
    file.Write(Raw("'neu'"));
    file.Close();
    return true;
}

/// Writes something and fails.
bool WriteHalf(const FilePath& path) {
    OutputFile file(path);
    file.Write(Raw("'ne'"));
    throw RuntimeError(ErrorNumber::DiskFull);
}

TEST(WriteWhole, PutsTheWholeFileIntoItsPlace) {
    const TestFolder folder;
    EXPECT_EQ(WriteWhole(folder / "a", false, WriteNew), WriteResult::Written);
    folder.Write("b", "alt");
    EXPECT_EQ(WriteWhole(folder / "b", true, WriteNew), WriteResult::Written);
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a", "b"));
    EXPECT_EQ(ReadFile(folder / "a"), Raw("'neu'"));
    EXPECT_EQ(ReadFile(folder / "b"), Raw("'neu'"));
}

TEST(WriteWhole, WritesIntoTheWorkingFolder) {
    const TestFolder folder;
    const FilePath before = fs::current_path();
    fs::current_path(folder.Path());
    EXPECT_EQ(WriteWhole("a", false, WriteNew), WriteResult::Written);
    fs::current_path(before);
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a"));
}

TEST(WriteWhole, KeepsALinkAndReplacesItsFile) {
    const TestFolder folder;
    fs::create_directory(folder / "dort");
    folder.Write("dort/a", "alt");
    fs::create_symlink("dort/a", folder / "link");
    EXPECT_EQ(WriteWhole(folder / "link", true, WriteNew), WriteResult::Written);
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(ReadFile(folder / "dort/a"), Raw("'neu'"));
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("dort", "link"));
    EXPECT_THAT(FilesIn(folder / "dort"), ElementsAre("a"));
}

TEST(WriteWhole, LeavesEverythingAsItWasAfterAFailure) {
    const TestFolder folder;
    folder.Write("b", "alt");
    for (const char* const name : {"a", "b"}) {
        EXPECT_THROW(WriteWhole(folder / name, true, WriteHalf), RuntimeError);
        EXPECT_THROW(WriteWhole(folder / name, true,
                                [](const FilePath& path) -> bool {
                                    WriteNew(path);
                                    throw HardStop();
                                }),
                     HardStop);
    }
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("b"));
    EXPECT_EQ(ReadFile(folder / "b"), Raw("'alt'"));
}

TEST(WriteWhole, PutsNothingIntoItsPlaceWhenThereIsNothing) {
    const TestFolder folder;
    EXPECT_EQ(WriteWhole(folder / "a", false, [](const FilePath&) { return false; }),
              WriteResult::NothingToWrite);
    EXPECT_THAT(FilesIn(folder.Path()), testing::IsEmpty());
}

TEST(WriteWhole, ReplacesNoFileThatHasComeMeanwhile) {
    const TestFolder folder;
    EXPECT_EQ(WriteWhole(folder / "a", false,
                         [&folder](const FilePath& path) {
                             folder.Write("a", "anderer");
                             return WriteNew(path);
                         }),
              WriteResult::NameTaken);
    EXPECT_EQ(ReadFile(folder / "a"), Raw("'anderer'"));
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a"));
}

TEST(WriteWhole, CopiesAWholeFileToStandardOutput) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(WriteWhole("-", false, WriteNew), WriteResult::Written);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "neu");
    testing::internal::CaptureStdout();
    EXPECT_THROW(WriteWhole("-", false, WriteHalf), RuntimeError);
    EXPECT_EQ(WriteWhole("-", false, [](const FilePath&) { return false; }),
              WriteResult::NothingToWrite);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(IsTaken, IsNeverTrueOfStandardOutput) {
    const TestFolder folder;
    EXPECT_FALSE(IsTaken("-"));
    EXPECT_TRUE(IsTaken(folder.Path()));
    EXPECT_FALSE(IsTaken(folder / "a"));
}

}  // namespace
}  // namespace norvik::test
