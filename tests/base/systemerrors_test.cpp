#include "base/systemerrors.h"

#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace norvik::test {
namespace {

int NumberOf(int error, const FilePath& path = "a") {
    return static_cast<int>(
        NumberOfSystemError(std::error_code(error, std::generic_category()), path));
}

TEST(NumberOfSystemError, TellsAMissingFileFromAMissingFolder) {
    const TestFolder folder;
    EXPECT_EQ(NumberOf(ENOENT, folder / "a"), 53);
    EXPECT_EQ(NumberOf(ENOENT, "a"), 53);
    EXPECT_EQ(NumberOf(ENOENT, folder / "fehlt/a"), 76);
    EXPECT_EQ(NumberOf(ENOTDIR, folder / "a"), 76);
}

TEST(NumberOfSystemError, KnowsTheOthersByTheirKind) {
    for (const int error : {EACCES, EPERM, EROFS}) {
        EXPECT_EQ(NumberOf(error), 70) << error;
    }
    for (const int error : {EISDIR, EEXIST, ENOTEMPTY}) {
        EXPECT_EQ(NumberOf(error), 75) << error;
    }
    for (const int error : {ENAMETOOLONG, EINVAL, EILSEQ, ELOOP}) {
        EXPECT_EQ(NumberOf(error), 64) << error;
    }
    EXPECT_EQ(NumberOf(ENOMEM), 7);
    EXPECT_EQ(NumberOf(ENOSPC), 61);
    for (const int error : {EIO, EFBIG, EPIPE, EBADF, 0}) {
        EXPECT_EQ(NumberOf(error), 57) << error;
    }
}

#ifndef _WIN32
TEST(NumberOfSystemError, TheUsersShareOfTheDiskIsADiskToo) {
    EXPECT_EQ(NumberOf(EDQUOT), 61);
}

TEST(NumberOfSystemError, IsTheSameForTheSystemsOwnCategory) {
    const auto number = [](int error) {
        return static_cast<int>(
            NumberOfSystemError(std::error_code(error, std::system_category()), "a"));
    };
    EXPECT_EQ(number(EACCES), 70);
    EXPECT_EQ(number(EDQUOT), 61);
    EXPECT_EQ(number(ELOOP), 64);
}
#endif

TEST(RaiseIfFailed, RaisesOnlyThen) {
    RaiseIfFailed({}, "a");
    EXPECT_THROW(RaiseIfFailed(std::make_error_code(std::errc::io_error), "a"), RuntimeError);
    errno = EIO;
    EXPECT_EQ(LastError(), std::errc::io_error);
}

TEST(EnsurePossibleName, RefusesWhatNoSystemTakes) {
    EXPECT_THROW(EnsurePossibleName({}), RuntimeError);
    EXPECT_THROW(EnsurePossibleName(std::string("a\0b", 3)), RuntimeError);
    EnsurePossibleName("a");
}

}  // namespace
}  // namespace norvik::test
