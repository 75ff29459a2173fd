// A converter that is killed at any moment leaves the old target or the new one.
#include "tests/console/converterprocess.h"
#include "tests/support/places.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

namespace norvik::test {
namespace {

/// 2000 entries, so that a conversion takes a while.
Bytes FullRegisterFile() {
    Bytes source = Raw("06 0D 'TStCollection' 02 64 01");
    for (int i = 0; i < 2000; ++i) {
        const Bytes record = Raw("0200 0201 06 04 'Anna' 06 03 '030' 06 00 0200 020F 0200 0200");
        source.insert(source.end(), record.begin(), record.end());
    }
    source.push_back(0);
    return source;
}

pid_t StartConverter(const FilePath& source, const FilePath& target) {
    const std::string program = ConverterProgramFile().string();
    const pid_t child = fork();
    if (child == 0) {
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDERR_FILENO);
        CountAside();
        execl(program.c_str(), program.c_str(), "--ueberschreiben", source.c_str(), target.c_str(),
              nullptr);
        _exit(127);
    }
    return child;
}

TEST(Konverter, KilledAtAnyMomentLeavesTheOldTargetOrTheNewOne) {
    const TestFolder folder;
    const FilePath from = folder.Write("a.t9t", FullRegisterFile());
    const FilePath to = folder.Write("a.csv", "alt");
    int status = 0;
    const auto start = std::chrono::steady_clock::now();
    ASSERT_EQ(waitpid(StartConverter(from, to), &status, 0) > 0, true);
    const auto whole = std::chrono::steady_clock::now() - start;
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) <= 1) << status;
    const Bytes converted = ReadFile(to);
    ASSERT_GT(converted.size(), 2000U);

    std::mt19937 random(1);
    bool killed = false;
    for (int i = 0; i < 30; ++i) {
        folder.Write("a.csv", "alt");
        const pid_t child = StartConverter(from, to);
        std::this_thread::sleep_for(whole * std::uniform_real_distribution<>(0, 1.1)(random));
        kill(child, SIGKILL);
        ASSERT_EQ(waitpid(child, &status, 0), child);
        killed = killed || WIFSIGNALED(status);
        const Bytes found = ReadFile(to);
        ASSERT_TRUE(found == Raw("'alt'") || found == converted) << "after kill " << i;
    }
    EXPECT_TRUE(killed) << "every run was over before its signal";
}

TEST(Konverter, InterruptedAtAnyMomentLeavesNothingBeside) {
    const TestFolder folder;
    const FilePath from = folder.Write("a.t9t", FullRegisterFile());
    std::mt19937 random(1);
    bool ended = false;
    for (int i = 0; i < 40; ++i) {
        folder.Write("a.csv", "alt");
        const pid_t child = StartConverter(from, folder / "a.csv");
        std::this_thread::sleep_for(
            std::chrono::microseconds(std::uniform_int_distribution<>(0, 150000)(random)));
        constexpr std::array<int, 4> Signals = {SIGTERM, SIGINT, SIGHUP, SIGQUIT};
        kill(child, Signals.at(static_cast<std::size_t>(i) % Signals.size()));
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ended = ended || WIFSIGNALED(status);
        EXPECT_THAT(FilesIn(folder.Path()), testing::ElementsAre("a.csv", "a.t9t"));
    }
    EXPECT_TRUE(ended) << "every run was over before its signal";
}

}  // namespace
}  // namespace norvik::test
