// What a process leaves beside its target when it is killed in the midst of a save.
#include "base/outputfile.h"

#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#ifndef _WIN32
#include <csignal>

#include <sys/wait.h>
#include <unistd.h>
#endif

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

constexpr std::string_view Abandoned = ".norvik-0123456789abcdef0123456789abcdef.neu";

class OutputFileAbandoned : public testing::Test {
  protected:
    static void MakeOld(const FilePath& path) {
        fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::minutes(11));
    }
    /// The name of the one unfinished file in the folder.
    [[nodiscard]] FilePath Unfinished() const {
        for (const std::string& name : FilesIn(folder.Path())) {
            if (name.starts_with(".norvik-")) {
                return folder / name;
            }
        }
        return {};
    }
    void Save() const { ReplaceFile(folder / "a", Raw("'neu'")); }

    TestFolder folder;
};

#ifndef _WIN32
TEST_F(OutputFileAbandoned, TheNextSaveRemovesWhatAKilledProcessLeft) {
    const pid_t child = fork();
    if (child == 0) {
        OutputFile file(folder / "a");
        file.Write(Bytes(100'000, 'x'));
        raise(SIGKILL);
    }
    waitpid(child, nullptr, 0);
    ASSERT_FALSE(Unfinished().empty());
    Save();
    ASSERT_FALSE(Unfinished().empty()) << "it is too young to be sure";
    MakeOld(Unfinished());
    Save();
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a"));
}
#endif

TEST_F(OutputFileAbandoned, AnotherSaveIsLeftAloneHoweverLongItTakes) {
    OutputFile slow(folder / "b");
    slow.Write(Bytes(100'000, 'x'));
    MakeOld(Unfinished());
    Save();
    slow.Close();
    EXPECT_THAT(FilesIn(folder.Path()), UnorderedElementsAre("a", "b"));
    EXPECT_EQ(ReadFile(folder / "b"), Bytes(100'000, 'x'));
}

TEST_F(OutputFileAbandoned, NothingElseIsRemoved) {
    for (const char* const name : {".norvik-0123456789abcdef0123456789abcde.neu", ".norvik-.neu",
                                   "b.neu", ".neu", "x.norvik-0123456789abcdef0123456789abcdef.neu",
                                   ".norvik-0123456789abcdef0123456789abcdef.alt",
                                   ".norwik-0123456789abcdef0123456789abcdef.neu"}) {
        MakeOld(folder.Write(name, "x"));
    }
    const std::vector<std::string> before = FilesIn(folder.Path());
    Save();
    EXPECT_EQ(FilesIn(folder.Path()).size(), before.size() + 1);
}

TEST_F(OutputFileAbandoned, AFolderOrALinkOfThatNameStays) {
    fs::create_directory(folder / Abandoned);
    MakeOld(folder / Abandoned);
    Save();
    EXPECT_TRUE(fs::exists(folder / Abandoned));
    fs::remove(folder / Abandoned);
    MakeOld(folder.Write("wichtig", "x"));
    fs::create_symlink("wichtig", folder / Abandoned);
    Save();
    EXPECT_THAT(FilesIn(folder.Path()),
                UnorderedElementsAre("a", "wichtig", std::string(Abandoned)));
}

}  // namespace
}  // namespace norvik::test
