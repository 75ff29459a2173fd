// A process that is killed at any moment leaves the old settings file or the new one.
#include "register/settings.h"

#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

namespace norvik::test {
namespace {

SettingsTable WithLoadFile(TextView path) {
    SettingsTable table;
    table.SetValue(Setting::LoadFile, path);
    return table;
}

/// Writes the one and the other settings in turn until it is killed.
[[noreturn]] void WriteForEver(const FilePath& folder) {
    const SettingsTable one = WithLoadFile(u"eins.t9t");
    const SettingsTable other = WithLoadFile(Text(5000, u'x'));
    for (;;) {
        WriteSettingsFile(folder, one);
        WriteSettingsFile(folder, other);
    }
}

TEST(WriteSettingsFile, KilledAtAnyMomentLeavesTheOldFileOrTheNewOne) {
    const TestFolder folder;
    WriteSettingsFile(folder.Path(), WithLoadFile(Text(5000, u'x')));
    const Bytes other = ReadFile(folder / "norvik.ini");
    WriteSettingsFile(folder.Path(), WithLoadFile(u"eins.t9t"));
    const Bytes one = ReadFile(folder / "norvik.ini");
    std::mt19937 random(1);
    std::uniform_int_distribution<int> moment(0, 20000);
    bool seenOne = false;
    bool seenOther = false;
    for (int i = 0; i < 100; ++i) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            WriteForEver(folder.Path());
        }
        std::this_thread::sleep_for(std::chrono::microseconds(moment(random)));
        kill(child, SIGKILL);
        ASSERT_EQ(waitpid(child, nullptr, 0), child);
        const Bytes found = ReadFile(folder / "norvik.ini");
        ASSERT_TRUE(found == one || found == other) << "after kill " << i;
        seenOne = seenOne || found == one;
        seenOther = seenOther || found == other;
    }
    EXPECT_TRUE(seenOne && seenOther) << "the child did not write";
}

}  // namespace
}  // namespace norvik::test
