// What a save keeps of a file's attributes, and what stays of it when somebody else has it open.
#include "base/outputfile.h"

#include "tests/support/errors.h"
#include "tests/support/testfolder.h"
#include "tests/support/windowsheader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class OutputFileOnWindows : public testing::Test {
  protected:
    /// The number of the run-time error that saving raises.
    int SaveError() {
        OutputTarget target(path);
        target.BeforeOverwriting = [this](const FilePath& file) { overwritten = file; };
        return ErrorOf([&] { ReplaceFile(target, Raw("'new'")); });
    }
    [[nodiscard]] DWORD Attributes() const { return GetFileAttributesW(path.c_str()); }

    const TestFolder folder;
    const FilePath path = folder.Write(u8"B\u00FCro \u03A9.t9t", "a longer old text");
    FilePath overwritten;
};

/// Somebody else has the file open.
class OpenElsewhere {
  public:
    OpenElsewhere(const FilePath& path, DWORD share)
        : file_(
              CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr)) {
        EXPECT_NE(file_, INVALID_HANDLE_VALUE);
    }
    OpenElsewhere(const OpenElsewhere&) = delete;
    OpenElsewhere& operator=(const OpenElsewhere&) = delete;
    OpenElsewhere(OpenElsewhere&&) = delete;
    OpenElsewhere& operator=(OpenElsewhere&&) = delete;
    ~OpenElsewhere() { CloseHandle(file_); }

  private:
    HANDLE file_;
};

TEST_F(OutputFileOnWindows, AWriteProtectedFileRaises70AndStays) {
    ASSERT_NE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY), 0);
    EXPECT_EQ(SaveError(), 70);
    EXPECT_EQ(ReadFile(path), Raw("'a longer old text'"));
    EXPECT_EQ(Attributes() & FILE_ATTRIBUTE_READONLY, DWORD{FILE_ATTRIBUTE_READONLY});
    EXPECT_EQ(FilesIn(folder.Path()).size(), 1U);
    ASSERT_NE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL), 0);
    EXPECT_EQ(SaveError(), 0);
    EXPECT_EQ(ReadFile(path), Raw("'new'"));
}

TEST_F(OutputFileOnWindows, AHiddenFileStaysHiddenAndNoOtherBecomesSo) {
    ASSERT_NE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_HIDDEN), 0);
    if ((Attributes() & FILE_ATTRIBUTE_HIDDEN) == 0) {
        FAIL() << "nothing can be hidden on this disk";
    }
    EXPECT_EQ(SaveError(), 0);
    EXPECT_NE(Attributes() & FILE_ATTRIBUTE_HIDDEN, 0U);
    ASSERT_NE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL), 0);
    EXPECT_EQ(SaveError(), 0);
    EXPECT_EQ(Attributes() & FILE_ATTRIBUTE_HIDDEN, 0U);
    const FilePath fresh = folder / "neu.t9t";
    ReplaceFile(fresh, Raw("'x'"));
    EXPECT_EQ(GetFileAttributesW(fresh.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
}

TEST_F(OutputFileOnWindows, AFileThatNobodyElseMayWriteRaises70AndStays) {
    {
        const OpenElsewhere reader(path, FILE_SHARE_READ);
        EXPECT_EQ(SaveError(), 70);
    }
    EXPECT_EQ(ReadFile(path), Raw("'a longer old text'"));
    EXPECT_EQ(FilesIn(folder.Path()).size(), 1U);
}

TEST_F(OutputFileOnWindows, AFileThatIsOpenElsewhereIsWrittenWhereItStands) {
    {
        const OpenElsewhere reader(path, FILE_SHARE_READ | FILE_SHARE_WRITE);
        EXPECT_EQ(SaveError(), 0);
    }
    EXPECT_EQ(ReadFile(path), Raw("'new'"));
    EXPECT_EQ(overwritten, path);
    EXPECT_EQ(FilesIn(folder.Path()).size(), 1U);
}

TEST_F(OutputFileOnWindows, OurOwnReadersKeepNobodyFromReplacing) {
    InputStream reader = OpenFile(path);
    EXPECT_EQ(SaveError(), 0);
    EXPECT_EQ(ReadFile(path), Raw("'new'"));
}

TEST_F(OutputFileOnWindows, TheUnfinishedFileIsHiddenAndGoesWithItsHandle) {
    std::error_code error;
    const FilePath beside = folder / ".norvik-x.neu";
    const platform::NewFile file = platform::CreateBeside(beside, path, error);
    ASSERT_FALSE(error) << error;
    BY_HANDLE_FILE_INFORMATION info{};
    EXPECT_NE(GetFileInformationByHandle(reinterpret_cast<HANDLE>(file.File), &info), 0);
    EXPECT_NE(info.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN, 0U);
    EXPECT_EQ(FilesIn(folder.Path()).size(), 2U);
    platform::RemoveIfClosed(beside);
    EXPECT_EQ(FilesIn(folder.Path()).size(), 2U);
    platform::Close(file.File, error);
    EXPECT_FALSE(error) << error;
    EXPECT_EQ(FilesIn(folder.Path()).size(), 1U);
}

TEST_F(OutputFileOnWindows, TheUnfinishedFileStaysOnceItIsKept) {
    std::error_code error;
    const FilePath beside = folder / ".norvik-x.neu";
    const platform::NewFile file = platform::CreateBeside(beside, {}, error);
    ASSERT_FALSE(error) << error;
    platform::Write(file.File, Raw("'x'"), error);
    platform::Keep(file, error);
    EXPECT_FALSE(error) << error;
    platform::Close(file.File, error);
    EXPECT_EQ(ReadFile(beside), Raw("'x'"));
    platform::RemoveIfClosed(beside);
    EXPECT_EQ(FilesIn(folder.Path()).size(), 1U);
}

/// Where the system does not allow long paths, or asks the program for a manifest that these tests
/// do not have, it is an error like that of a missing folder; nothing else may come of it.
TEST_F(OutputFileOnWindows, AFileInADeepFolderIsSavedOrRaisesAnError) {
    FilePath deep = folder.Path();
    while (deep.native().size() < 300) {
        deep /= std::wstring(40, L'o');
    }
    const FilePath file = deep / L"a.t9t";
    const int number = ErrorOf([&] { ReplaceFile(file, Raw("'x'")); });
    EXPECT_THAT(number, testing::AnyOf(0, 76));
    if (number == 0) {
        ReplaceFile(file, Raw("'new'"));
        EXPECT_EQ(ReadWholeFile(file), Raw("'new'"));
    } else {
        EXPECT_EQ(ErrorOf([&] { ReadWholeFile(file); }), 76);
    }
}

TEST_F(OutputFileOnWindows, BothSlashesPartFolders) {
    ReplaceFile(folder / L"eins\\zwei/drei.t9t", Raw("'x'"));
    EXPECT_EQ(ReadFile(folder / L"eins/zwei\\drei.t9t"), Raw("'x'"));
    EXPECT_THAT(FilesIn(folder / "eins" / "zwei"), ElementsAre("drei.t9t"));
}

TEST_F(OutputFileOnWindows, ADeviceIsWrittenDirectlyButIsNoFile) {
    OutputTarget device(FilePath("NUL"));
    EXPECT_EQ(ErrorOf([&] {
                  OutputFile file(device);
                  file.Write(Raw("'x'"));
                  file.Close();
              }),
              0);
    device.OnlyFiles = true;
    EXPECT_EQ(ErrorOf([&] { const OutputFile file(device); }), 75);
    EXPECT_EQ(ErrorOf([] { ReadWholeFile("NUL"); }), 75);
}

TEST_F(OutputFileOnWindows, NamesThatTheSystemForbidsRaise64) {
    for (const wchar_t* const name :
         {L"a?b", L"a*b", L"a|b", L"a<b", L"a>b", L"a\"b", L"a\nb", L"or?dner\\a"}) {
        EXPECT_EQ(ErrorOf([&] { ReplaceFile(folder / name, Raw("'x'")); }), 64);
        EXPECT_EQ(ErrorOf([&] { ReadWholeFile(folder / name); }), 64);
    }
    EXPECT_EQ(FilesIn(folder.Path()).size(), 1U);
}

/// A name with half of a surrogate pair, which the system takes and UTF-16 does not.
TEST_F(OutputFileOnWindows, ANameThatIsNoUtf16DisturbsNothing) {
    const std::wstring name = {L'a', static_cast<wchar_t>(0xD800), L'.', L't', L'9', L't'};
    EXPECT_EQ(ErrorOf([&] { ReplaceFile(folder / name, Raw("'x'")); }), 0);
    EXPECT_EQ(ReadWholeFile(folder / name), Raw("'x'"));
    EXPECT_EQ(TextFromPath(name), u"a?\?\?.t9t");
}

TEST_F(OutputFileOnWindows, NoOtherSpellingIsLookedFor) {
    EXPECT_EQ(FindIgnoringCase(folder / "FEHLT.t9t"), folder / "FEHLT.t9t");
    EXPECT_EQ(FindIgnoringCase(folder / u8"B\u00DCRO \u03C9.T9T"),
              folder / u8"B\u00DCRO \u03C9.T9T");
    EXPECT_EQ(ReadWholeFile(folder / u8"B\u00DCRO \u03C9.T9T"), Raw("'a longer old text'"));
}

TEST_F(OutputFileOnWindows, ALockedFileIsHeldAndCanBeRemoved) {
    const FilePath lock = folder / "sperre";
    {
        const platform::FileLock held(lock);
        EXPECT_TRUE(held.IsHeld());
        const platform::FileLock other(lock);
        EXPECT_FALSE(other.IsHeld());
        EXPECT_TRUE(other.IsHeldElsewhere());
        std::error_code error;
        EXPECT_TRUE(std::filesystem::remove(lock, error)) << error;
    }
    EXPECT_EQ(FilesIn(folder.Path()).size(), 1U);
    EXPECT_FALSE(platform::FileLock(folder / "fehlt" / "sperre").IsHeldElsewhere());
}

}  // namespace
}  // namespace norvik::test
