// What the status line costs on a real screen: loading a register, whose sort sets two texts a
// pass, and storing an entry that moves from the end to the front, against the same in a window
// that is not shown. Does nothing where there is no screen.
#include "benchmarks/ratios.h"
#include "benchmarks/registers.h"
#include "formats/registerfile/registerfile.h"
#include "qt/application.h"
#include "qt/mainwindow.h"
#include "tests/support/idledesktop.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>

#include <filesystem>
#include <fstream>
#include <iostream>

namespace norvik::benchmarks {

namespace {

FilePath Folder() {
    const FilePath folder = std::filesystem::temp_directory_path() / "norvik-screen-benchmark";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "norvik.ini") << "[common]\r\nUnit=0,12\r\n[end]\r\n";
    return folder;
}

/// A register file of as many entries as the run's argument says.
FilePath RegisterFile(const FilePath& folder, const benchmark::State& run) {
    FilePath file = folder / "register.t9t";
    RegisterState state = RandomRegister(static_cast<int>(run.range(0)));
    test::IdleDesktop desktop;
    WriteRegisterFile195(state, file, desktop);
    return file;
}

/// Lets the screen show everything.
void Settle() {
    QApplication::processEvents();
    QGuiApplication::sync();
}

void Load(benchmark::State& run, bool shown) {
    const FilePath folder = Folder();
    const FilePath file = RegisterFile(folder, run);
    MainWindow window(folder, [] {});
    window.setVisible(shown);
    Settle();
    for (auto _ : run) {
        window.Start(QString(), file);
        Settle();
    }
}

void Store(benchmark::State& run, bool shown) {
    const FilePath folder = Folder();
    MainWindow window(folder, [] {});
    window.setVisible(shown);
    window.Start(QString(), RegisterFile(folder, run));
    Settle();
    auto* position = window.findChild<QScrollBar*>(QStringLiteral("Satzwahl"));
    auto* name = window.findChild<QLineEdit*>(QStringLiteral("Anzeigefeld(0)"));
    auto* store = window.findChild<QPushButton*>(QStringLiteral("btnSaveChange"));
    int number = 1'000'000;
    for (auto _ : run) {
        position->setValue(position->maximum());
        name->setText(QStringLiteral("!%1").arg(--number));  // before all others
        store->click();
        Settle();
    }
}

void ScreenLoad(benchmark::State& run) {
    Load(run, true);
}
BENCHMARK(ScreenLoad)->Apply(EntryCounts);

void ScreenLoad_Baseline(benchmark::State& run) {
    Load(run, false);
}
BENCHMARK(ScreenLoad_Baseline)->Apply(EntryCounts);

void ScreenStore(benchmark::State& run) {
    Store(run, true);
}
BENCHMARK(ScreenStore)->Apply(EntryCounts);

void ScreenStore_Baseline(benchmark::State& run) {
    Store(run, false);
}
BENCHMARK(ScreenStore_Baseline)->Apply(EntryCounts);

}  // namespace

}  // namespace norvik::benchmarks

int main(int argc, char* argv[]) {
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
        std::cerr << "There is no screen to measure.\n";
        return 0;
    }
    QApplication application(argc, argv);
    norvik::PrepareApplication(application);
    return norvik::benchmarks::RunWithRatios(argc, argv);
}
