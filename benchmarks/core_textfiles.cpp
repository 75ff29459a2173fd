// Loading and saving 2000 entries as CSV and as a 175 phonebook file, against reading the same file
// line by line and writing the same bytes at once.
#include "base/lines.h"
#include "benchmarks/registers.h"
#include "devicefiles/phonebookfile.h"
#include "tests/support/idledesktop.h"
#include "textformats/csvformat.h"

#include <benchmark/benchmark.h>

namespace norvik::benchmarks {

namespace {

FilePath FileNamed(const char* name) {
    return std::filesystem::temp_directory_path() / name;
}

FilePath CsvFile() {
    static const FilePath path = [] {
        RegisterState state = RandomRegister(RegisterPlaces);
        test::IdleDesktop desktop;
        SaveCSV(state, FileNamed("norvik-benchmark.csv"), desktop);
        return FileNamed("norvik-benchmark.csv");
    }();
    return path;
}

FilePath PhonebookFile() {
    static const FilePath path = [] {
        RegisterState state = RandomRegister(RegisterPlaces);
        test::IdleDesktop desktop;
        WritePhonebookFile(state, FileNamed("norvik-benchmark.pbo"), desktop);
        return FileNamed("norvik-benchmark.pbo");
    }();
    return path;
}

void ReadLines(benchmark::State& run, const FilePath& path) {
    for (auto _ : run) {
        const Bytes file = ReadWholeFile(path);
        LineReader lines(file);
        while (!lines.AtEnd()) {
            benchmark::DoNotOptimize(lines.Next());
        }
    }
}

void WriteBytes(benchmark::State& run, const FilePath& source) {
    const Bytes bytes = ReadWholeFile(source);
    for (auto _ : run) {
        OutputFile file(FileNamed("norvik-benchmark.out"));
        file.Write(bytes);
        file.Close();
    }
}

void LoadCsv(benchmark::State& run) {
    const FilePath path = CsvFile();
    const Settings settings;
    test::IdleDesktop desktop;
    RegisterState state;
    for (auto _ : run) {
        LoadCSV(state, path, settings, desktop);
    }
}
BENCHMARK(LoadCsv)->Unit(benchmark::kMicrosecond);

void LoadCsv_Baseline(benchmark::State& run) {
    ReadLines(run, CsvFile());
}
BENCHMARK(LoadCsv_Baseline)->Unit(benchmark::kMicrosecond);

void SaveCsv(benchmark::State& run) {
    RegisterState state = RandomRegister(RegisterPlaces);
    test::IdleDesktop desktop;
    for (auto _ : run) {
        SaveCSV(state, FileNamed("norvik-benchmark.out"), desktop);
    }
}
BENCHMARK(SaveCsv)->Unit(benchmark::kMicrosecond);

void SaveCsv_Baseline(benchmark::State& run) {
    WriteBytes(run, CsvFile());
}
BENCHMARK(SaveCsv_Baseline)->Unit(benchmark::kMicrosecond);

void LoadPhonebook(benchmark::State& run) {
    const FilePath path = PhonebookFile();
    test::IdleDesktop desktop;
    RegisterState state;
    for (auto _ : run) {
        LoadPhonebookFile(state, path, desktop);
    }
}
BENCHMARK(LoadPhonebook)->Unit(benchmark::kMicrosecond);

void LoadPhonebook_Baseline(benchmark::State& run) {
    ReadLines(run, PhonebookFile());
}
BENCHMARK(LoadPhonebook_Baseline)->Unit(benchmark::kMicrosecond);

void SavePhonebook(benchmark::State& run) {
    RegisterState state = RandomRegister(RegisterPlaces);
    test::IdleDesktop desktop;
    for (auto _ : run) {
        WritePhonebookFile(state, FileNamed("norvik-benchmark.out"), desktop);
    }
}
BENCHMARK(SavePhonebook)->Unit(benchmark::kMicrosecond);

void SavePhonebook_Baseline(benchmark::State& run) {
    WriteBytes(run, PhonebookFile());
}
BENCHMARK(SavePhonebook_Baseline)->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace norvik::benchmarks
