// Windows' own error numbers.
#include "base/systemerrors.h"

#include "tests/support/testfolder.h"
#include "tests/support/windowsheader.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

int NumberOf(DWORD code, const FilePath& path = "a") {
    return static_cast<int>(
        NumberOfSystemError(std::error_code(static_cast<int>(code), std::system_category()), path));
}

TEST(NumberOfSystemError, KnowsThoseOfWindows) {
    const TestFolder folder;
    for (const DWORD code : {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND}) {
        EXPECT_EQ(NumberOf(code, folder / "a"), 53) << code;
        EXPECT_EQ(NumberOf(code, folder / "fehlt" / "a"), 76) << code;
    }
    EXPECT_EQ(NumberOf(ERROR_BAD_NETPATH, L"\\\\rechner\\freigabe\\a"), 76);
    for (const DWORD code : {ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION,
                             ERROR_WRITE_PROTECT, ERROR_USER_MAPPED_FILE}) {
        EXPECT_EQ(NumberOf(code), 70) << code;
    }
    for (const DWORD code : {ERROR_FILE_EXISTS, ERROR_ALREADY_EXISTS, ERROR_DIR_NOT_EMPTY}) {
        EXPECT_EQ(NumberOf(code), 75) << code;
    }
    for (const DWORD code : {ERROR_INVALID_NAME, ERROR_BAD_PATHNAME, ERROR_FILENAME_EXCED_RANGE}) {
        EXPECT_EQ(NumberOf(code), 64) << code;
    }
    for (const DWORD code : {ERROR_DISK_FULL, ERROR_HANDLE_DISK_FULL, 1295L}) {
        EXPECT_EQ(NumberOf(code), 61) << code;
    }
    EXPECT_EQ(NumberOf(ERROR_NOT_ENOUGH_MEMORY), 7);
    for (const DWORD code : {ERROR_CRC, ERROR_NOT_READY, ERROR_GEN_FAILURE}) {
        EXPECT_EQ(NumberOf(code), 57) << code;
    }
}

}  // namespace
}  // namespace norvik::test
