// The program itself, as a process of its own.
#include "tests/qt/windowfixture.h"
#include "tests/support/places.h"

#include <QProcess>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace norvik::test {

namespace {

#ifdef __linux__

/// Whether every thread of a process sleeps; "(name) S" stands in the file of each.
bool Sleeps(qint64 process) {
    const FilePath threads = FilePath("/proc") / std::to_string(process) / "task";
    std::error_code error;
    std::vector<char> states;
    std::filesystem::directory_iterator thread(threads, error);
    for (; !error && thread != end(thread); thread.increment(error)) {
        std::ifstream file(thread->path() / "stat");
        std::string line;
        std::getline(file, line);
        const std::size_t name = line.rfind(") ");
        states.push_back(name == std::string::npos ? '?' : line[name + 2]);
    }
    return !error && !states.empty() &&
           std::all_of(states.begin(), states.end(), [](char state) { return state == 'S'; });
}

/// Waits until a process has nothing to do for a while, so that it waits for its user; false when
/// it ends before.
bool ComesToWait(qint64 process) {
    constexpr int LongEnough = 30;
    constexpr int Longest = 6000;
    const FilePath program = FilePath("/proc") / std::to_string(process) / "exe";
    std::error_code error;
    bool runs = true;  // one that has ended has no program
    int asleep = 0;
    for (int i = 0; i < Longest && asleep < LongEnough && runs; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        asleep = Sleeps(process) ? asleep + 1 : 0;
        runs = !std::filesystem::read_symlink(program, error).empty();
    }
    return asleep == LongEnough;
}

#else

bool ComesToWait(qint64 /*process*/) {
    std::this_thread::sleep_for(std::chrono::seconds(3));
    return true;
}

#endif

class WindowProcess : public testing::Test {
  protected:
    WindowProcess() {
        executable_ = Folder / "norvik-telefonregister";
        std::filesystem::copy_file(EditorProgramFile(), executable_);
    }

    /// Runs the program to its end and gives its exit status.
    int Run(const QStringList& arguments = {}) {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        process.setProcessEnvironment(environment);
        process.start(QString::fromStdString(executable_.string()), arguments);
        constexpr int LongestRun = 60000;
        if (!process.waitForFinished(LongestRun)) {
            ADD_FAILURE() << "the program did not end";
            process.kill();
            process.waitForFinished();
        }
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return process.exitCode();
    }

    /// Whether the program shows a box that waits for an answer instead of coming to its end.
    bool Waits(const QStringList& arguments) {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        process.setProcessEnvironment(environment);
        process.start(QString::fromStdString(executable_.string()), arguments);
        const bool waits = process.waitForStarted() && ComesToWait(process.processId()) &&
                           !process.waitForFinished(0);
        process.kill();
        process.waitForFinished();
        return waits;
    }

#ifndef _WIN32
    /// Starts the program, sends it a signal when it waits for its user, and gives the signal that
    /// ended it.
    int SignalThatEnded(int signal) {
        const pid_t child = fork();
        if (child == 0) {
            setenv("QT_QPA_PLATFORM", "offscreen", 1);
            execl(executable_.c_str(), executable_.c_str(), nullptr);
            _exit(127);
        }
        EXPECT_TRUE(ComesToWait(child)) << "the program did not start";
        kill(child, signal);
        int status = 0;
        waitpid(child, &status, 0);
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }
#endif

    void WriteBroken(const char* name) const {
        Folder.Write(name, Join({Raw("06 0D 'TStCollection' 02 64 01"),
                                 Raw("02 00 02 01 06 04 'Anna' 07 01 '2'")}));
    }

    TestFolder Folder;

  private:
    FilePath executable_;
};

TEST_F(WindowProcess, AWrongTagInTheStartFileEndsItWithStatusOne) {
    WriteBroken("kaputt.t9t");
    Folder.Write("norvik.ini", "LoadFile=" + (Folder / "kaputt.t9t").string() + "\r\n");
    EXPECT_EQ(Run(), 1);
}

TEST_F(WindowProcess, AWrongTagInAFileOfTheCommandLineEndsItWithStatusOne) {
    WriteBroken("kaputt.t9t");
    Folder.Write("norvik.ini", "[common]\r\n");
    EXPECT_EQ(Run({"/g0,15", "/l" + QString::fromStdString((Folder / "kaputt.t9t").string())}), 1);
}

#ifndef _WIN32
TEST_F(WindowProcess, ASignalEndsItAndTheNextStartIsTold) {
    Folder.Write("norvik.ini", "[common]\r\n");
    EXPECT_EQ(SignalThatEnded(SIGTERM), SIGTERM);
    EXPECT_EQ(SignalThatEnded(SIGHUP), SIGHUP);
    EXPECT_THAT(FilesIn(Folder / "staende"), testing::ElementsAre("abbruch"));
}
#endif

TEST_F(WindowProcess, AHardStopIsToldToTheNextStart) {
    WriteBroken("kaputt.t9t");
    Folder.Write("norvik.ini", "LoadFile=" + (Folder / "kaputt.t9t").string() + "\r\n");
    EXPECT_EQ(Run(), 1);
    EXPECT_THAT(FilesIn(Folder / "staende"), testing::ElementsAre("abbruch"));
}

TEST_F(WindowProcess, TheToolkitTakesNoWordOfTheCommandLine) {
    WriteBroken("kaputt.t9t");
    Folder.Write("norvik.ini", "[common]\r\n");
    const QString start = "/l" + QString::fromStdString((Folder / "kaputt.t9t").string());
    for (const QStringList& words : {QStringList{"-style", "fusion"}, QStringList{"-reverse"},
                                     QStringList{"-stylesheet", "x"}}) {
        EXPECT_TRUE(Waits(words + QStringList{start})) << words.join(u' ').toStdString();
    }
}

}  // namespace

}  // namespace norvik::test
