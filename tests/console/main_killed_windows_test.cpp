// A converter that is ended at any moment leaves the old target or the new one, and nothing beside.
#include "base/platform.h"
#include "tests/support/places.h"
#include "tests/support/testfolder.h"
#include "tests/support/windowsheader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
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

HANDLE StartConverter(const FilePath& source, const FilePath& target) {
    std::wstring line = L"\"" + ConverterProgramFile().native() +
                        L"\" --ueberschreiben --still \"" + source.native() + L"\" \"" +
                        target.native() + L"\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    EXPECT_NE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW,
                             nullptr, nullptr, &startup, &process),
              0);
    CloseHandle(process.hThread);
    return process.hProcess;
}

TEST(Konverter, EndedAtAnyMomentLeavesTheOldTargetOrTheNewOneAndNothingBeside) {
    constexpr UINT Ended = 99;
    const TestFolder folder;
    const FilePath from = folder.Write("a.t9t", FullRegisterFile());
    const FilePath to = folder.Write("a.csv", "alt");
    const auto start = std::chrono::steady_clock::now();
    const HANDLE first = StartConverter(from, to);
    WaitForSingleObject(first, INFINITE);
    CloseHandle(first);
    const auto whole = std::chrono::steady_clock::now() - start;
    const Bytes converted = ReadFile(to);
    ASSERT_GT(converted.size(), 2000U);

    std::mt19937 random(1);
    int ended = 0;
    for (int i = 0; i < 20; ++i) {
        folder.Write("a.csv", "alt");
        const HANDLE process = StartConverter(from, to);
        std::this_thread::sleep_for(whole * std::uniform_real_distribution<>(0.2, 1.1)(random));
        TerminateProcess(process, Ended);
        WaitForSingleObject(process, INFINITE);
        DWORD status = 0;
        GetExitCodeProcess(process, &status);
        CloseHandle(process);
        ended += status == Ended ? 1 : 0;
        const Bytes found = ReadFile(to);
        ASSERT_TRUE(found == Raw("'alt'") || found == converted) << "after end " << i;
        const std::vector<std::string> names = FilesIn(folder.Path());
        EXPECT_LE(names.size(), 3U);  // between its being whole and the move it may stay
    }
    EXPECT_GT(ended, 0) << "every run was over before its end";
}

}  // namespace
}  // namespace norvik::test
