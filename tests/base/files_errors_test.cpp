// The run-time errors that files raise. What they need of the system (pipes, devices, another user)
// is POSIX's.
#ifndef _WIN32

#include "base/files.h"
#include "base/runtimeerror.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;

/// The number of the run-time error that the action raises; 0 for none.
template <typename Action>
int ErrorOf(Action action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.Number());
    }
    return 0;
}

int ReadError(const FilePath& path) {
    return ErrorOf([&] { ReadWholeFile(path); });
}

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

/// While it exists, the process has no more rights than any user.
class AsAnyUser {
  public:
    AsAnyUser() : wasRoot_(geteuid() == 0) {
        if (wasRoot_) {
            EXPECT_EQ(setresuid(AnyUser, AnyUser, 0), 0);
        }
    }
    AsAnyUser(const AsAnyUser&) = delete;
    AsAnyUser& operator=(const AsAnyUser&) = delete;
    AsAnyUser(AsAnyUser&&) = delete;
    AsAnyUser& operator=(AsAnyUser&&) = delete;
    ~AsAnyUser() {
        if (wasRoot_) {
            EXPECT_EQ(setresuid(0, 0, 0), 0);
        }
    }

  private:
    static constexpr uid_t AnyUser = 65534;
    bool wasRoot_;
};

/// While it exists, no file of the process grows beyond the limit.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t limit) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit now = {limit, before_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &now), 0);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    FileSizeLimit(FileSizeLimit&&) = delete;
    FileSizeLimit& operator=(FileSizeLimit&&) = delete;
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

  private:
    void (*handler_)(int);
    rlimit before_{};
};

void MakeReadOnly(const FilePath& path) {
    fs::permissions(path, fs::is_directory(path) ? fs::perms(0555) : fs::perms(0444));
}

FilePath WithNul() {
    return std::string("/tmp/a\0b", 8);
}

FilePath TooLong(const TestFolder& folder) {
    return folder / std::string(300, 'a');
}

TEST(ReadingAFile, ThatIsMissingRaises53) {
    const TestFolder folder;
    EXPECT_EQ(ReadError(folder / "fehlt.t9t"), 53);
    EXPECT_EQ(ReadError("fehlt-ganz-bestimmt.t9t"), 53);
}

TEST(ReadingAFile, OfAMissingFolderRaises76) {
    const TestFolder folder;
    EXPECT_EQ(ReadError(folder / "fehlt/a.t9t"), 76);
}

TEST(ReadingAFile, WithAFileAmongItsFoldersRaises76) {
    const TestFolder folder;
    folder.Write("datei", "x");
    EXPECT_EQ(ReadError(folder / "datei/a.t9t"), 76);
}

TEST(ReadingAFile, BehindALinkToNowhereRaises53) {
    const TestFolder folder;
    fs::create_symlink("nirgends", folder / "a.t9t");
    EXPECT_EQ(ReadError(folder / "a.t9t"), 53);
}

TEST(ReadingAFile, WithoutPermissionRaises70) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.t9t", "x");
    fs::permissions(path, fs::perms::none);
    const AsAnyUser user;
    EXPECT_EQ(ReadError(path), 70);
}

TEST(ReadingAFile, InAFolderWithoutPermissionRaises70) {
    const TestFolder folder;
    const FilePath path = folder.Write("zu/a.t9t", "x");
    fs::permissions(folder / "zu", fs::perms::none);
    {
        const AsAnyUser user;
        EXPECT_EQ(ReadError(path), 70);
    }
    fs::permissions(folder / "zu", fs::perms::owner_all);
}

TEST(ReadingAFile, ThatIsAFolderRaises75) {
    const TestFolder folder;
    EXPECT_EQ(ReadError(folder.Path()), 75);
    EXPECT_EQ(ReadError(folder.Path() / ""), 75);
}

TEST(ReadingAFile, ThatIsAPipeRaises75) {
    const TestFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(ReadError(folder / "pipe"), 75);
}

TEST(ReadingAFile, ThatIsADeviceRaises75) {
    EXPECT_EQ(ReadError("/dev/zero"), 75);
    EXPECT_EQ(ReadError("/dev/null"), 75);
}

TEST(ReadingAFile, WithAnImpossibleNameRaises64) {
    const TestFolder folder;
    EXPECT_EQ(ReadError(""), 64);
    EXPECT_EQ(ReadError(WithNul()), 64);
    EXPECT_EQ(ReadError(TooLong(folder)), 64);
}

TEST(ReadingAFile, InACircleOfLinksRaises57) {
    const TestFolder folder;
    fs::create_symlink("b", folder / "a");
    fs::create_symlink("a", folder / "b");
    EXPECT_EQ(ReadError(folder / "a"), 57);
}

TEST(ReadingAFile, OfMoreThan64MiBRaises7) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.t9t", "x");
    fs::resize_file(path, 64 * 1024 * 1024 + 1);
    EXPECT_EQ(ReadError(path), 7);
}

TEST(ReadingAFile, OfExactly64MiBGivesItsBytes) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.t9t", "x");
    fs::resize_file(path, 64 * 1024 * 1024);
    EXPECT_EQ(ReadWholeFile(path).size(), std::size_t{64} * 1024 * 1024);
}

TEST(ReadingAFile, ThatIsReadableRaisesNothing) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.t9t", "x");
    fs::create_symlink(path, folder / "link.t9t");
    EXPECT_EQ(ReadError(path), 0);
    EXPECT_EQ(ReadError(folder / "link.t9t"), 0);
}

TEST(LastModified, OfAMissingFileRaises53AndInAMissingFolder76) {
    const TestFolder folder;
    EXPECT_EQ(ErrorOf([&] { LastModified(folder / "fehlt.t9t"); }), 53);
    EXPECT_EQ(ErrorOf([&] { LastModified(folder / "fehlt/a.t9t"); }), 76);
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

TEST(WritingAFile, ThatIsAPipeRaises75) {
    const TestFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(WriteError(folder / "pipe"), 75);
}

TEST(WritingAFile, WithAnImpossibleNameRaises64) {
    const TestFolder folder;
    EXPECT_EQ(WriteError(""), 64);
    EXPECT_EQ(WriteError(WithNul()), 64);
    EXPECT_EQ(WriteError(TooLong(folder)), 64);
}

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
    OutputFile file("/dev/full");
    EXPECT_EQ(ErrorOf([&] { file.Write(Raw("'x'")); }), 0);
    EXPECT_EQ(ErrorOf([&] { file.Close(); }), 61);
}

TEST(WritingAFile, OnAFullDiskRaises61WhenMuchIsWritten) {
    OutputFile file("/dev/full");
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

TEST(ReplaceFile, AFailedWriteLeavesTheOldFileAndNothingBeside) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.ini", "old");
    {
        const FileSizeLimit limit(1000);
        EXPECT_EQ(ErrorOf([&] { ReplaceFile(path, Bytes(100000, 'x')); }), 57);
    }
    EXPECT_EQ(ReadFile(path), Raw("'old'"));
    EXPECT_FALSE(fs::exists(folder / "a.ini.neu"));
}

TEST(ReplaceFile, AFolderOfThatNameRaises75AndStays) {
    const TestFolder folder;
    folder.Write("a.ini/inhalt", "x");
    EXPECT_EQ(ReplaceError(folder / "a.ini"), 75);
    EXPECT_EQ(ReadFile(folder / "a.ini/inhalt"), Raw("'x'"));
    EXPECT_FALSE(fs::exists(folder / "a.ini.neu"));
}

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

TEST(IsWritableFolder, TellsWhetherTheUserMayCreateFilesThere) {
    const TestFolder folder;
    fs::create_directory(folder / "fest");
    MakeReadOnly(folder / "fest");
    fs::create_directory(folder / "frei");
    fs::permissions(folder / "frei", fs::perms::all);
    const AsAnyUser user;
    EXPECT_TRUE(IsWritableFolder(folder / "frei"));
    EXPECT_FALSE(IsWritableFolder(folder / "fest"));
    EXPECT_FALSE(IsWritableFolder(folder / "fehlt"));
}

TEST(ProgramFolder, IsTheExecutablesOwnWhereTheUserMayWriteThere) {
    const TestFolder folder;
    fs::create_directory(folder / "bin");
    fs::permissions(folder / "bin", fs::perms::all);
    const AsAnyUser user;
    EXPECT_EQ(ProgramFolder(folder / "bin", folder / "share/norvik"), folder / "bin");
}

TEST(ProgramFolder, IsTheUsersDataFolderInASystemWideInstallation) {
    const TestFolder folder;
    fs::create_directory(folder / "bin");
    MakeReadOnly(folder / "bin");
    const AsAnyUser user;
    EXPECT_EQ(ProgramFolder(folder / "bin", folder / "share/norvik"), folder / "share/norvik");
    EXPECT_FALSE(fs::exists(folder / "share"));
}

}  // namespace
}  // namespace norvik::test

#endif
