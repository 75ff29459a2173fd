// The program itself, as a process of its own.
#include "tests/qt/windowfixture.h"
#include "tests/support/places.h"

#include <QProcess>

#include <filesystem>

namespace norvik::test {

namespace {

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
        constexpr int LongEnough = 2000;
        const bool waits = process.waitForStarted() && !process.waitForFinished(LongEnough);
        process.kill();
        process.waitForFinished();
        return waits;
    }

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
