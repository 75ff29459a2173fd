// Constructing, showing and starting the main window against an empty QMainWindow, both shown and
// painted once.
#include "benchmarks/ratios.h"
#include "qt/application.h"
#include "qt/mainwindow.h"

#include <benchmark/benchmark.h>

#include <QApplication>

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

void WindowStartUp(benchmark::State& run) {
    const FilePath folder = BenchmarkFolder();
    for (auto _ : run) {
        MainWindow window(folder, [] {});
        window.show();
        window.Start(QString());
        QApplication::processEvents();
    }
}
BENCHMARK(WindowStartUp)->Unit(benchmark::kMillisecond);

void WindowStartUp_Baseline(benchmark::State& run) {
    for (auto _ : run) {
        QMainWindow window;
        window.show();
        QApplication::processEvents();
    }
}
BENCHMARK(WindowStartUp_Baseline)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace norvik::benchmarks

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    norvik::PrepareApplication(application);
    return norvik::benchmarks::RunWithRatios(argc, argv);
}
