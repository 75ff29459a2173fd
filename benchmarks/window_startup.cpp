// Constructing, showing and starting the main window, without a start file and with one, against an
// empty QMainWindow, both shown and painted once; and a load and an operation on all entries in a
// window that stands, which keeps what was there, against the same in one that keeps nothing.
#include "benchmarks/ratios.h"
#include "benchmarks/registers.h"
#include "formats/registerfile/registerfile.h"
#include "qt/application.h"
#include "qt/mainwindow.h"
#include "tests/support/idledesktop.h"

#include <benchmark/benchmark.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <fstream>

namespace norvik::benchmarks {

namespace {

/// A program's folder with a settings file, so that no message box waits for an answer.
FilePath BenchmarkFolder() {
    const FilePath folder = std::filesystem::temp_directory_path() / "norvik-benchmark";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "norvik.ini") << "[common]\r\nUnit=0,12\r\n[end]\r\n";
    return folder;
}

/// The start file with as many entries as the run's argument says; none for 0.
FilePath StartFile(const FilePath& folder, const benchmark::State& run) {
    const int count = static_cast<int>(run.range(0));
    if (count == 0) {
        return {};
    }
    FilePath file = folder / "start.t9t";
    RegisterState state = RandomRegister(count);
    test::IdleDesktop desktop;
    WriteRegisterFile195(state, file, desktop);
    return file;
}

void StartFileCounts(benchmark::internal::Benchmark* measured) {
    measured->Arg(0)->Apply(EntryCounts);
}

void WindowStartUp(benchmark::State& run) {
    const FilePath folder = BenchmarkFolder();
    const FilePath file = StartFile(folder, run);
    for (auto _ : run) {
        MainWindow window(folder, [] {});
        window.show();
        window.Start(QString(), file);
        QApplication::processEvents();
    }
}
BENCHMARK(WindowStartUp)->Apply(StartFileCounts);

void WindowStartUp_Baseline(benchmark::State& run) {
    for (auto _ : run) {
        QMainWindow window;
        window.show();
        QApplication::processEvents();
    }
}
BENCHMARK(WindowStartUp_Baseline)->Apply(StartFileCounts);

/// Loads a register that no file holds any longer, time and again.
void Load(benchmark::State& run, const FilePath& versionFolder) {
    const FilePath folder = BenchmarkFolder();
    const FilePath file = StartFile(folder, run);
    MainWindow window(
        folder, [] {}, {}, versionFolder);
    window.show();
    window.Start(QString(), file);
    auto* const mark = window.findChild<QCheckBox*>(QStringLiteral("chkExport"));
    for (auto _ : run) {
        run.PauseTiming();
        mark->click();
        QApplication::processEvents();
        run.ResumeTiming();
        window.Start(QString(), file);
        QApplication::processEvents();
    }
}

void WindowLoad(benchmark::State& run) {
    Load(run, BenchmarkFolder() / "staende");
    std::filesystem::remove_all(BenchmarkFolder() / "staende");
}
BENCHMARK(WindowLoad)->Apply(EntryCounts);

void WindowLoad_Baseline(benchmark::State& run) {
    Load(run, {});
}
BENCHMARK(WindowLoad_Baseline)->Apply(EntryCounts);

/// Answers the question that is open, when it is there to be seen.
void AnswerOk() {
    QTimer::singleShot(0, [] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) {
            AnswerOk();
            return;
        }
        QApplication::processEvents();  // its first painting
        box->button(QMessageBox::Ok)->click();
    });
}

/// Clears the charges of all entries, question and all, and takes it back, time and again.
void ClearAll(benchmark::State& run, const FilePath& versionFolder) {
    const FilePath folder = BenchmarkFolder();
    MainWindow window(
        folder, [] {}, {}, versionFolder);
    window.show();
    window.Start(QString(), StartFile(folder, run));
    auto* const clear = window.findChild<QAction*>(QStringLiteral("mnuGebDelete"));
    auto* const undo = window.findChild<QAction*>(QStringLiteral("mnuBearbeitenUndo"));
    for (auto _ : run) {
        AnswerOk();
        clear->trigger();
        QApplication::processEvents();
        run.PauseTiming();
        undo->trigger();
        QApplication::processEvents();
        run.ResumeTiming();
    }
}

void WindowClearAll(benchmark::State& run) {
    ClearAll(run, BenchmarkFolder() / "staende");
    std::filesystem::remove_all(BenchmarkFolder() / "staende");
}
BENCHMARK(WindowClearAll)->Apply(EntryCounts);

void WindowClearAll_Baseline(benchmark::State& run) {
    ClearAll(run, {});
}
BENCHMARK(WindowClearAll_Baseline)->Apply(EntryCounts);

}  // namespace

}  // namespace norvik::benchmarks

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    norvik::PrepareApplication(application);
    return norvik::benchmarks::RunWithRatios(argc, argv);
}
