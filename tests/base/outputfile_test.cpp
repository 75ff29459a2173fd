// A file that is whole or as it was: what is kept, what is written where it stands, what stays
// behind.
#include "base/outputfile.h"

#include "tests/support/processlimits.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#include <sys/wait.h>
#endif

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

void WriteTo(OutputTarget target, const Bytes& bytes = Raw("'new'")) {
    OutputFile file(std::move(target));
    file.Write(bytes);
    file.Close();
}

#ifndef _WIN32
/// A folder in which other users may do what they like.
TestFolder& OpenToAll(TestFolder& folder) {
    fs::permissions(folder.Path(), fs::perms::all);
    return folder;
}
#endif

TEST(OutputFile, CreatesTheFile) {
    const TestFolder folder;
    OutputFile file(folder / "a.txt");
    file.Write(Raw("'ab' 00"));
    file.Write(Raw("FF 0D 0A"));
    file.Close();
    EXPECT_EQ(ReadFile(folder / "a.txt"), Raw("'ab' 00 FF 0D 0A"));
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a.txt"));
}

TEST(OutputFile, WritesAnySize) {
    const TestFolder folder;
    for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 300'000U}) {
        Bytes bytes(size);
        for (std::size_t i = 0; i < size; ++i) {
            bytes[i] = static_cast<Byte>(i % 251);
        }
        WriteTo(folder / "a.txt", bytes);
        EXPECT_TRUE(ReadFile(folder / "a.txt") == bytes) << size;
    }
}

TEST(OutputFile, WritingNoBytesAddsNone) {
    const TestFolder folder;
    OutputFile file(folder / "a.txt");
    file.Write(Bytes());
    file.Write(Raw("'a'"));
    file.Write(Bytes());
    file.Close();
    EXPECT_EQ(ReadFile(folder / "a.txt"), Raw("'a'"));
}

TEST(OutputFile, LeavesTheOldFileWholeUntilTheNewOneIs) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.txt", "a longer old text");
    OutputFile file(path);
    file.Write(Bytes(100'000, 'n'));
    EXPECT_EQ(ReadFile(path), Raw("'a longer old text'"));
    file.Close();
    EXPECT_EQ(ReadFile(path), Bytes(100'000, 'n'));
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a.txt"));
}

TEST(OutputFile, WithoutClosingNothingHasHappened) {
    const TestFolder folder;
    folder.Write("alt.txt", "old");
    for (const char* const name : {"alt.txt", "neu.txt"}) {
        try {
            OutputFile file(folder / name);
            file.Write(Bytes(100'000, 'n'));
            throw HardStop();
        } catch (const HardStop&) {
            EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("alt.txt"));
            EXPECT_EQ(ReadFile(folder / "alt.txt"), Raw("'old'"));
        }
    }
}

TEST(OutputFile, IsUnfinishedUnderANameThatNobodyGuessesAndForTheUserAlone) {
    const TestFolder folder;
    const FilePath old = folder.Write("alt.txt", "old");
    fs::permissions(old, fs::perms(0644));
    for (const FilePath& path : {old, folder / "neu.txt"}) {
        const OutputFile one(path);
        const OutputFile other(path);
        const std::vector<std::string> names = FilesIn(folder.Path());
        ASSERT_EQ(names.size(), 3U);
        for (std::size_t i = 0; i < 2; ++i) {
            EXPECT_THAT(names[i], testing::MatchesRegex("\\.norvik-[0-9a-f]+\\.neu"));
            EXPECT_EQ(names[i].size(), std::string(".norvik-.neu").size() + 32);
            EXPECT_EQ(fs::status(folder / names[i]).permissions(), fs::perms(0600));
        }
        EXPECT_NE(names[0], names[1]);
    }
}

TEST(OutputFile, FollowsNoLinkThatSomebodyPutBesideIt) {
    const TestFolder folder;
    const FilePath strange = folder.Write("fremd.txt", "fremd");
    fs::create_symlink(strange, folder / "norvik.ini.neu");
    ReplaceFile(folder / "norvik.ini", Raw("'x'"));
    EXPECT_EQ(ReadFile(strange), Raw("'fremd'"));
    EXPECT_TRUE(fs::is_symlink(folder / "norvik.ini.neu"));
}

TEST(OutputFile, IsAsAnyNewFile) {
    const TestFolder folder;
    WriteTo(folder / "a");
    EXPECT_EQ(fs::status(folder / "a").permissions(),
              fs::status(folder.Write("b", "")).permissions());
}

TEST(OutputFile, KeepsThePermissions) {
    const TestFolder folder;
    const FilePath path = folder.Write("a", "old");
    for (const unsigned bits : {0600U, 0640U, 0666U, 0755U}) {
        fs::permissions(path, fs::perms(bits));
        WriteTo(path);
        EXPECT_EQ(fs::status(path).permissions(), fs::perms(bits));
    }
}

#ifndef _WIN32
TEST(OutputFile, KeepsTheOwner) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root may give files away";
    }
    const TestFolder folder;
    const FilePath path = folder.Write("a", "old");
    ASSERT_EQ(chown(path.c_str(), 12345, 54321), 0);
    fs::permissions(path, fs::perms(0640));
    WriteTo(path);
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 12345U);
    EXPECT_EQ(status.st_gid, 54321U);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
}
#endif

TEST(OutputFile, KeepsALinkAndWritesItsFile) {
    const TestFolder folder;
    folder.Write("dort/a", "old");
    fs::create_symlink("dort/a", folder / "b");
    fs::create_symlink(folder / "b", folder / "c");
    WriteTo(folder / "c");
    EXPECT_TRUE(fs::is_symlink(folder / "b"));
    EXPECT_TRUE(fs::is_symlink(folder / "c"));
    EXPECT_FALSE(fs::is_symlink(folder / "dort/a"));
    EXPECT_EQ(ReadFile(folder / "dort/a"), Raw("'new'"));
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("b", "c", "dort"));
    EXPECT_THAT(FilesIn(folder / "dort"), ElementsAre("a"));
}

TEST(OutputFile, MakesTheFileThatALinkLeadsToInVain) {
    const TestFolder folder;
    fs::create_directory(folder / "dort");
    fs::create_symlink("dort/neu", folder / "a");
    WriteTo(folder / "a");
    EXPECT_TRUE(fs::is_symlink(folder / "a"));
    EXPECT_EQ(ReadFile(folder / "dort/neu"), Raw("'new'"));
}

TEST(OutputFile, KeepsAllNamesOfAFile) {
    const TestFolder folder;
    const FilePath path = folder.Write("a", "a longer old text");
    fs::create_hard_link(path, folder / "b");
    Bytes kept;
    OutputTarget target(path);
    target.BeforeOverwriting = [&kept](const FilePath& file) { kept = ReadFile(file); };
    WriteTo(target);
    EXPECT_EQ(ReadFile(folder / "b"), Raw("'new'"));
    EXPECT_TRUE(platform::HasSeveralNames(path));
    EXPECT_EQ(kept, Raw("'a longer old text'"));
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a", "b"));
}

#ifndef _WIN32
TEST(OutputFile, WithSeveralNamesIsAsItWasWhenItHasNoRoom) {
    const TestFolder folder;
    const FilePath path = folder.Write("a", "old");
    fs::create_hard_link(path, folder / "b");
    {
        const FileSizeLimit limit(1000);
        EXPECT_THROW(WriteTo(path, Bytes(1001, 'n')), RuntimeError);
        EXPECT_EQ(ReadFile(path), Raw("'old'"));
        WriteTo(path, Bytes(1000, 'n'));
    }
    EXPECT_EQ(ReadFile(folder / "b"), Bytes(1000, 'n'));
}
#endif

TEST(OutputFile, WithSeveralNamesIsNotTouchedBeforeItIsClosed) {
    const TestFolder folder;
    const FilePath path = folder.Write("a", "old");
    fs::create_hard_link(path, folder / "b");
    {
        OutputFile file(path);
        file.Write(Bytes(200'000, 'n'));
    }
    EXPECT_EQ(ReadFile(path), Raw("'old'"));
}

#ifndef _WIN32
TEST(OutputFile, IsWrittenWhereItStandsInAFolderThatIsReadOnly) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs root to make a file of another user";
    }
    const TestFolder folder;
    const FilePath path = folder.Write("a", "old");
    fs::permissions(path, fs::perms(0666));
    fs::permissions(folder.Path(), fs::perms(0555));
    bool kept = false;
    {
        const AsAnyUser user;
        OutputTarget target(path);
        target.BeforeOverwriting = [&kept](const FilePath&) { kept = true; };
        WriteTo(target);
    }
    EXPECT_EQ(ReadFile(path), Raw("'new'"));
    EXPECT_TRUE(kept);
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a"));
}

TEST(OutputFile, IsWrittenWhereItStandsWhenItsOwnerCannotBeKept) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs root to make a file of another user";
    }
    TestFolder folder;
    OpenToAll(folder);
    const FilePath path = folder.Write("a", "old");
    ASSERT_EQ(chown(path.c_str(), 12345, 54321), 0);
    fs::permissions(path, fs::perms(0666));
    {
        const AsAnyUser user;
        WriteTo(path);
    }
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 12345U);
    EXPECT_EQ(status.st_gid, 54321U);
    EXPECT_EQ(ReadFile(path), Raw("'new'"));
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a"));
}
#endif

TEST(OutputFile, ReplacesNothingWhereThatIsNotWanted) {
    const TestFolder folder;
    folder.Write("a", "old");
    fs::create_symlink("nirgends", folder / "link");
    for (const char* const name : {"a", "link"}) {
        OutputTarget target(folder / name);
        target.Replace = false;
        EXPECT_THROW(WriteTo(target), FileExists);
    }
    EXPECT_EQ(ReadFile(folder / "a"), Raw("'old'"));
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a", "link"));
}

TEST(OutputFile, ReplacesNothingThatHasComeMeanwhile) {
    const TestFolder folder;
    OutputTarget target(folder / "a");
    target.Replace = false;
    {
        OutputFile file(target);
        file.Write(Raw("'new'"));
        folder.Write("a", "anderer");
        EXPECT_THROW(file.Close(), FileExists);
    }
    EXPECT_EQ(ReadFile(folder / "a"), Raw("'anderer'"));
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a"));
}

TEST(OutputFile, MakesANewFileWhereNothingIsToBeReplaced) {
    const TestFolder folder;
    OutputTarget target(folder / "a");
    target.Replace = false;
    WriteTo(target);
    EXPECT_EQ(ReadFile(folder / "a"), Raw("'new'"));
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a"));
}

TEST(OutputFile, GoesIntoMemoryAsAWhole) {
    Bytes bytes = Raw("'old'");
    OutputTarget target(FilePath("-"));
    target.Memory = &bytes;
    {
        OutputFile file(target);
        file.Write(Bytes(100'000, 'n'));
    }
    EXPECT_EQ(bytes, Raw("'old'"));
    WriteTo(target, Bytes(100'000, 'n'));
    EXPECT_EQ(bytes, Bytes(100'000, 'n'));
    EXPECT_FALSE(fs::exists("-"));
}

#ifndef _WIN32
/// Ends a process that is writing into the folder and gives how it ended.
template <typename End>
int StatusOfEnded(const TestFolder& folder, End end) {
    const pid_t child = fork();
    if (child == 0) {
        OutputFile file(folder / "a");
        const OutputFile other(folder / "b");
        file.Write(Bytes(100'000, 'n'));
        end();
        _exit(99);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

TEST(OutputFile, LeavesNothingBehindWhenASignalEndsTheProcess) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
        const TestFolder folder;
        folder.Write("a", "old");
        const int status = StatusOfEnded(folder, [signal] { raise(signal); });
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal);
        EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a"));
        EXPECT_EQ(ReadFile(folder / "a"), Raw("'old'"));
    }
}

TEST(OutputFile, LeavesNothingBehindWhenTheProcessExits) {
    const TestFolder folder;
    const int status = StatusOfEnded(folder, [] {
        fclose(stderr);
        std::exit(3);
    });
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 3);
    EXPECT_THAT(FilesIn(folder.Path()), IsEmpty());
}

TEST(OutputFile, LeavesSignalsAloneForWhichThereAreOtherPlans) {
    const TestFolder folder;
    const auto before = std::signal(SIGHUP, SIG_IGN);
    const int status = StatusOfEnded(folder, [] { raise(SIGHUP); });
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 99);
    std::signal(SIGHUP, before);
    {
        const OutputFile file(folder / "c");
        EXPECT_NE(std::signal(SIGTERM, SIG_DFL), SIG_DFL);
    }
    EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_DFL);
    WriteTo(folder / "c");
    EXPECT_EQ(std::signal(SIGINT, SIG_DFL), SIG_DFL);
}
#endif

TEST(ReplaceFile, MakesANewFile) {
    const TestFolder folder;
    ReplaceFile(folder / "a.ini", Raw("'x' 0D 0A"));
    EXPECT_EQ(ReadFile(folder / "a.ini"), Raw("'x' 0D 0A"));
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a.ini"));
}

TEST(ReplaceFile, PutsTheNewFileInTheOldOnesPlaceAndLeavesNothingBeside) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.ini", "an old text that was longer");
    ReplaceFile(path, Raw("'new'"));
    EXPECT_EQ(ReadFile(path), Raw("'new'"));
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a.ini"));
}

TEST(ReplaceFile, MakesAMissingFolder) {
    const TestFolder folder;
    ReplaceFile(folder / "share/norvik/a.ini", Raw("'x'"));
    EXPECT_EQ(ReadFile(folder / "share/norvik/a.ini"), Raw("'x'"));
}

TEST(ReplaceFile, ANameWithoutAFolderIsOneInTheWorkingFolder) {
    const TestFolder folder;
    const WorkingFolder working(folder.Path());
    ReplaceFile(FilePath("a.ini"), Raw("'x'"));
    EXPECT_EQ(ReadFile(folder / "a.ini"), Raw("'x'"));
}

TEST(IsNameTaken, IsTrueOfWhateverBearsTheName) {
    const TestFolder folder;
    fs::create_symlink("nirgends", folder / "link");
    EXPECT_TRUE(IsNameTaken(folder.Write("a", "")));
    EXPECT_TRUE(IsNameTaken(folder.Path()));
    EXPECT_TRUE(IsNameTaken(folder / "link"));
    EXPECT_TRUE(IsNameTaken("/dev/null"));
    EXPECT_FALSE(IsNameTaken(folder / "b"));
    EXPECT_FALSE(IsNameTaken(folder / "fehlt" / "b"));
    EXPECT_FALSE(IsNameTaken(folder / "a" / "b"));
}

}  // namespace
}  // namespace norvik::test
