// Disks that fail at every byte and at every call of the system, and a process that ends at every
// call: there is the whole old file or the whole new one, and after a failure nothing else.
#include "base/outputfile.h"

#include "tests/support/processlimits.h"
#include "tests/support/smalldisk.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <functional>
#include <string>

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;

const Bytes Old = Raw("'the old text'");
const Bytes New = Raw("'a new text that is longer than the old one'");

/// What the write is to do.
struct Case {
    const char* What;
    std::function<void(const TestFolder&)> Prepare;
    bool Replace = true;
    bool WhereItStands = false;  ///< an end of the process in the midst may cut the file
    bool EachError = false;      ///< by the error of a call it may go another way
};

void PlantOld(const TestFolder& folder) {
    folder.Write("a", Old);
}

void PlantLink(const TestFolder& folder) {
    folder.Write("dort", Old);
    fs::create_symlink("dort", folder / "a");
}

void PlantTwoNames(const TestFolder& folder) {
    folder.Write("a", Old);
    fs::create_hard_link(folder / "a", folder / "b");
}

const std::vector<Case> Cases = {
    {.What = "a new file", .Prepare = [](const TestFolder& /*folder*/) {}},
    {.What = "an old file", .Prepare = PlantOld, .EachError = true},
    {.What = "a link", .Prepare = PlantLink},
    {.What = "two names", .Prepare = PlantTwoNames, .WhereItStands = true, .EachError = true},
    {.What = "a new file only", .Prepare = [](const TestFolder& /*folder*/) {}, .Replace = false}};

bool Writes(const FilePath& path, bool replace) {
    try {
        OutputTarget target(path);
        target.Replace = replace;
        OutputFile file(std::move(target));
        file.Write(New);
        file.Close();
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

TEST(OutputFileFaults, ADiskThatEndsAtAnyByteLeavesTheOldFile) {
    for (const Case& example : Cases) {
        for (std::size_t room = 0; room <= New.size(); ++room) {
            const TestFolder folder;
            example.Prepare(folder);
            const std::vector<std::string> before = FilesIn(folder.Path());
            bool done = false;
            {
                const FileSizeLimit limit(room);
                done = Writes(folder / "a", example.Replace);
            }
            EXPECT_EQ(done, room == New.size()) << example.What << room;
            if (!done) {
                EXPECT_EQ(FilesIn(folder.Path()), before) << example.What << room;
            }
            if (done || !before.empty()) {
                EXPECT_EQ(ReadFile(folder / "a"), done ? New : Old) << example.What << room;
            }
        }
    }
}

#if defined(__linux__) && defined(__x86_64__)

/// What happens at a call of the system.
enum class Fault { Failure, End };

constexpr int Untraceable = 77;
constexpr int Refused = 3;

/// What a process is stopped at, and what it is to meet there.
class FaultyCalls {
  public:
    FaultyCalls(pid_t child, int number, Fault fault, int error)
        : child_(child), number_(number), fault_(fault), error_(error) {}

    /// At each beginning and each end of a call.
    void Stop() {
        ptrace(PTRACE_GETREGS, child_, nullptr, &registers_);
        if (entering_) {
            Enter();
        } else if (failing_) {
            failing_ = false;
            registers_.rax = static_cast<unsigned long long>(-error_);
            ptrace(PTRACE_SETREGS, child_, nullptr, &registers_);
            resume_ = withoutMemory_ ? PTRACE_SYSCALL : PTRACE_CONT;
        }
        entering_ = !entering_;
    }

    /// From here on the calls are no part of the write.
    void EndOfWrite() { resume_ = PTRACE_CONT; }
    void Resume() const { ptrace(resume_, child_, nullptr, nullptr); }

    int Seen = 0;  ///< the calls up to the fault

  private:
    void Enter() {
        if (withoutMemory_) {
            EndWithoutMemory();
        } else if (Seen++ == number_) {
            failing_ = true;
            withoutMemory_ = registers_.orig_rax == SYS_mmap;
            if (fault_ == Fault::End) {
                kill(child_, SIGKILL);
            } else {
                registers_.orig_rax = ~0ULL;  // no call at all
                ptrace(PTRACE_SETREGS, child_, nullptr, &registers_);
            }
        }
    }

    /// A runtime that gets no memory has nothing left but to tell so, at great length and with the
    /// help of a program that looks up names.
    void EndWithoutMemory() {
        if (registers_.orig_rax == SYS_write && registers_.rdi == STDERR_FILENO) {
            kill(child_, SIGKILL);
        }
    }

    pid_t child_;
    int number_;
    Fault fault_;
    int error_;
    user_regs_struct registers_{};
    bool entering_ = true;
    bool failing_ = false;
    bool withoutMemory_ = false;
    __ptrace_request resume_ = PTRACE_SYSCALL;
};

/// Runs the write in a process whose call number `number`, counted from 0, fails or is its last; a
/// negative number is none. Gives the status that waitpid() gives; `calls` is how many calls were
/// seen up to the fault.
int StatusOfFaulty(const FilePath& path, bool replace, int number, Fault fault, int error,
                   int& calls) {
    const pid_t child = fork();
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
            _exit(Untraceable);
        }
        raise(SIGSTOP);
        const bool done = Writes(path, replace);
        raise(SIGSTOP);  // from here on nothing is counted
        _exit(done ? 0 : Refused);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFEXITED(status)) {
        return status;
    }
    ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    FaultyCalls faulty(child, number, fault, error);
    faulty.Resume();
    while (waitpid(child, &status, 0) == child && WIFSTOPPED(status)) {
        if (WSTOPSIG(status) == (SIGTRAP | 0x80)) {
            faulty.Stop();
        } else if (WSTOPSIG(status) == SIGSTOP) {
            faulty.EndOfWrite();
        }
        faulty.Resume();
    }
    calls = faulty.Seen;
    return status;
}

void ExpectWholeFile(const TestFolder& folder, const Case& example, bool done, bool failed,
                     const std::string& where) {
    const FilePath path = folder / "a";
    if (!fs::exists(path)) {
        EXPECT_FALSE(done) << where;
        return;
    }
    const Bytes found = ReadFile(path);
    if (done) {
        EXPECT_EQ(found, New) << where;
    } else if (failed || !example.WhereItStands) {
        EXPECT_TRUE(found == Old || found == New) << where;
    }
}

TEST(OutputFileFaults, ACallThatFailsLeavesAWholeFile) {
    int seen = 0;
    for (const Case& example : Cases) {
        const std::vector<int> errors =
            example.EachError ? std::vector<int>{EIO, ENOSPC, EACCES} : std::vector<int>{EIO};
        for (const int error : errors) {
            int calls = 0;
            for (int number = 0; calls >= number; ++number) {  // as long as there was such a call
                const TestFolder folder;
                example.Prepare(folder);
                const std::string where = std::string(example.What) + ", call " +
                                          std::to_string(number) + ", error " +
                                          std::to_string(error);
                const int status = StatusOfFaulty(folder / "a", example.Replace, number,
                                                  Fault::Failure, error, calls);
                if (WIFEXITED(status) && WEXITSTATUS(status) == Untraceable) {
                    GTEST_SKIP() << "this process may trace no other";
                }
                // A failing call of the memory or of the runtime may end the process.
                const bool done = WIFEXITED(status) && WEXITSTATUS(status) == 0;
                const bool refused = WIFEXITED(status) && WEXITSTATUS(status) == Refused;
                ExpectWholeFile(folder, example, done, refused, where);
                ++seen;
            }
        }
    }
    EXPECT_GT(seen, 150);
}

TEST(OutputFileFaults, AProcessThatEndsAtAnyCallLeavesAWholeFile) {
    int seen = 0;
    for (const Case& example : Cases) {
        int calls = 0;
        for (int number = -1; number < calls; ++number) {
            const TestFolder folder;
            example.Prepare(folder);
            int reached = 0;
            const int status =
                StatusOfFaulty(folder / "a", example.Replace, number, Fault::End, 0, reached);
            if (WIFEXITED(status) && WEXITSTATUS(status) == Untraceable) {
                GTEST_SKIP() << "this process may trace no other";
            }
            calls = std::max(calls, reached);  // the first goes through to its end
            ExpectWholeFile(folder, example, WIFEXITED(status), false,
                            std::string(example.What) + ", call " + std::to_string(number));
            ++seen;
        }
    }
    EXPECT_GT(seen, 50);
}

#endif

TEST(OutputFileFaults, AFullDiskLeavesTheOldFile) {
    const TestFolder folder;
    fs::create_directory(folder / "disk");
    const SmallDisk disk(folder / "disk");
    if (!disk.IsMounted()) {
        GTEST_SKIP() << "no disk may be mounted here";
    }
    folder.Write("disk/a", Old);
    folder.Write("disk/b", Old);
    fs::create_hard_link(folder / "disk/b", folder / "disk/c");
    for (const char* const name : {"disk/a", "disk/b", "disk/neu"}) {
        try {
            OutputFile file(folder / name);
            file.Write(Bytes(100'000, 'n'));
            file.Close();
            ADD_FAILURE() << name;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::DiskFull) << name;
        }
    }
    EXPECT_EQ(FilesIn(folder / "disk"), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(ReadFile(folder / "disk/a"), Old);
    EXPECT_EQ(ReadFile(folder / "disk/c"), Old);
}

}  // namespace
}  // namespace norvik::test
