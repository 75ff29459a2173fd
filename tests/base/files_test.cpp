// Reading files, with the run-time errors of those that cannot be read. What these need of the
// system (pipes, devices, another user) is POSIX's.
#include "base/files.h"

#include "tests/support/errors.h"
#include "tests/support/processlimits.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#endif

namespace norvik::test {
namespace {

namespace fs = std::filesystem;

int ReadError(const FilePath& path) {
    return ErrorOf([&] { ReadWholeFile(path); });
}

FilePath WithNul() {
    return std::string("/tmp/a\0b", 8);
}

FilePath TooLong(const TestFolder& folder) {
    return folder / std::string(300, 'a');
}

TEST(ReadWholeFile, GivesEveryByteAsItIs) {
    const TestFolder folder;
    Bytes all;
    for (unsigned value = 0; value < 256; ++value) {
        all.push_back(static_cast<Byte>(value));
    }
    EXPECT_EQ(ReadWholeFile(folder.Write("a.bin", all)), all);
}

TEST(ReadWholeFile, AnEmptyFileGivesNoBytes) {
    const TestFolder folder;
    EXPECT_EQ(ReadWholeFile(folder.Write("a.bin", Bytes())), Bytes());
}

TEST(ReadWholeFile, FilesAroundAndBeyondTheSizeOfABlockComeWhole) {
    const TestFolder folder;
    for (const std::size_t size : {65535U, 65536U, 65537U, 131072U, 200001U}) {
        Bytes bytes(size, 'x');
        bytes.front() = 'a';
        bytes.back() = 'z';
        EXPECT_TRUE(ReadWholeFile(folder.Write("a.bin", bytes)) == bytes) << size;
    }
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

#ifndef _WIN32
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
#endif

TEST(ReadingAFile, ThatIsAFolderRaises75) {
    const TestFolder folder;
    EXPECT_EQ(ReadError(folder.Path()), 75);
    EXPECT_EQ(ReadError(folder.Path() / ""), 75);
}

#ifndef _WIN32
TEST(ReadingAFile, ThatIsAPipeRaises75) {
    const TestFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(ReadError(folder / "pipe"), 75);
}

TEST(ReadingAFile, ThatIsADeviceRaises75) {
    EXPECT_EQ(ReadError("/dev/zero"), 75);
    EXPECT_EQ(ReadError("/dev/null"), 75);
}
#endif

TEST(ReadingAFile, WithAnImpossibleNameRaises64) {
    const TestFolder folder;
    EXPECT_EQ(ReadError(""), 64);
    EXPECT_EQ(ReadError(WithNul()), 64);
    EXPECT_EQ(ReadError(TooLong(folder)), 64);
}

TEST(ReadingAFile, InACircleOfLinksRaises64) {
    const TestFolder folder;
    fs::create_symlink("b", folder / "a");
    fs::create_symlink("a", folder / "b");
    EXPECT_EQ(ReadError(folder / "a"), 64);
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

TEST(LastModified, IsTheFilesTime) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.t9t", "x");
    const auto time = FileTime(std::chrono::seconds(1258994759));
    fs::last_write_time(path, std::chrono::file_clock::from_sys(time));
    EXPECT_EQ(LastModified(path), time);
}

TEST(LastModified, OfAFileThatIsMissingOrOutOfReachIsUnknown) {
    const TestFolder folder;
    EXPECT_EQ(LastModified(folder / "fehlt.t9t"), std::nullopt);
    EXPECT_EQ(LastModified(folder / "fehlt/a.t9t"), std::nullopt);
    EXPECT_EQ(LastModified({}), std::nullopt);
    EXPECT_EQ(LastModified(TooLong(folder)), std::nullopt);
}

#ifndef _WIN32
/// A file that was changed so many seconds after 1970; nothing where the disk cannot say so.
std::optional<FilePath> ChangedAt(const TestFolder& folder, time_t seconds) {
    FilePath path = folder.Write("a.t9t", "x");
    const std::array<timespec, 2> times = {{{seconds, 250'000'000}, {seconds, 250'000'000}}};
    struct stat status {};
    if (utimensat(AT_FDCWD, path.c_str(), times.data(), 0) != 0 ||
        stat(path.c_str(), &status) != 0 || status.st_mtim.tv_sec != seconds) {
        return std::nullopt;
    }
    return path;
}

TEST(LastModified, ReachesFromTheYear1ToTheYear9999) {
    const TestFolder folder;
    int seen = 0;
    for (const long long seconds : {-62'135'596'800LL, -9'223'372'800LL, -9'223'372'037LL, -1LL,
                                    0LL, 9'223'372'037LL, 9'300'000'000LL, 253'402'300'799LL}) {
        if (const auto path = ChangedAt(folder, seconds)) {
            ++seen;
            EXPECT_EQ(LastModified(*path),
                      FileTime(std::chrono::microseconds(seconds * 1'000'000 + 250'000)))
                << seconds;
        }
    }
    EXPECT_GE(seen, 2);
}

TEST(LastModified, BeyondAllCountingIsUnknown) {
    const TestFolder folder;
    const auto path = ChangedAt(folder, std::numeric_limits<time_t>::max());
    if (!path) {
        GTEST_SKIP() << "the disk knows no such date";
    }
    EXPECT_EQ(LastModified(*path), std::nullopt);
    EXPECT_EQ(ReadWholeFile(*path), Raw("'x'"));
}
#endif

}  // namespace
}  // namespace norvik::test
