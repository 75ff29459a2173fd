// A process that is killed at any moment of a save leaves the old register file or the new one.
#include "formats/registerfile/registerfile.h"

#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <random>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace norvik::test {
namespace {

/// How often is killed; the environment may ask for more.
int Kills() {
    constexpr int Usual = 30;
    const char* const wanted = std::getenv("NORVIK_KILLS");
    return wanted == nullptr ? Usual : std::atoi(wanted);
}

/// 2000 full entries.
RegisterState FullRegister(char16_t letter) {
    RegisterState state;
    for (int place = 1; place <= RegisterPlaces; ++place) {
        state.Register(place).Name = Text(21, letter);
        state.Register(place).Tel = Text(21, u'1');
        state.Register(place).Info = Text(126, letter);
    }
    SetCount(state, RegisterPlaces);
    return state;
}

TEST(RegisterFile, KilledAtAnyMomentOfASaveIsTheOldOneOrTheNewOne) {
    const TestFolder folder;
    const FilePath path = folder / "a.t9t";
    RegisterState one = FullRegister(u'a');
    RegisterState other = FullRegister(u'b');
    ScriptedDesktop desktop;
    WriteRegisterFile195(other, path, desktop);
    const Bytes otherFile = ReadFile(path);
    const auto start = std::chrono::steady_clock::now();
    WriteRegisterFile195(one, path, desktop);
    const auto whole = std::chrono::steady_clock::now() - start;
    const Bytes oneFile = ReadFile(path);
    std::mt19937 random(1);
    bool seenOne = false;
    bool seenOther = false;
    for (int i = 0; i < Kills(); ++i) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            for (;;) {
                WriteRegisterFile195(other, path, desktop);
                WriteRegisterFile195(one, path, desktop);
                desktop.Transcript.clear();
            }
        }
        std::this_thread::sleep_for(whole * std::uniform_real_distribution<>(0, 4)(random));
        kill(child, SIGKILL);
        ASSERT_EQ(waitpid(child, nullptr, 0), child);
        const Bytes found = ReadFile(path);
        ASSERT_TRUE(found == oneFile || found == otherFile) << "after kill " << i;
        seenOne = seenOne || found == oneFile;
        seenOther = seenOther || found == otherFile;
    }
    EXPECT_TRUE(seenOne && seenOther) << "the child did not write";
}

}  // namespace
}  // namespace norvik::test
