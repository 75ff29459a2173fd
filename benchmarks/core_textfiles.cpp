// Loading and saving entries as CSV and as a 175 phonebook file, against reading the same file
// line by line and writing the same bytes at once; loading a vCard file against loading a CSV file
// of the same entries.
#include "base/lines.h"
#include "benchmarks/registers.h"
#include "formats/csv/csvformat.h"
#include "formats/phonebook175/phonebookfile.h"
#include "formats/vcard/vcard.h"
#include "tests/support/idledesktop.h"

#include <benchmark/benchmark.h>

namespace norvik::benchmarks {

namespace {

FilePath FileNamed(const char* name) {
    return std::filesystem::temp_directory_path() / name;
}

/// As many entries as the run's argument says.
RegisterState Entries(const benchmark::State& run) {
    return RandomRegister(static_cast<int>(run.range(0)));
}

FilePath CsvFile(const benchmark::State& run) {
    const FilePath path = FileNamed("norvik-benchmark.csv");
    RegisterState state = Entries(run);
    test::IdleDesktop desktop;
    SaveCSV(state, path, desktop);
    return path;
}

FilePath PhonebookFile(const benchmark::State& run) {
    const FilePath path = FileNamed("norvik-benchmark.pbo");
    RegisterState state = Entries(run);
    test::IdleDesktop desktop;
    WritePhonebookFile(state, path, desktop);
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
    const FilePath path = CsvFile(run);
    const Settings settings;
    test::IdleDesktop desktop;
    RegisterState state;
    for (auto _ : run) {
        LoadCSV(state, path, settings, desktop);
    }
}
BENCHMARK(LoadCsv)->Apply(EntryCounts);

void LoadCsv_Baseline(benchmark::State& run) {
    ReadLines(run, CsvFile(run));
}
BENCHMARK(LoadCsv_Baseline)->Apply(EntryCounts);

/// A file of equal lines, of which all but one are left out.
FilePath DoubledFile() {
    const FilePath path = FileNamed("norvik-benchmark-doubled.csv");
    constexpr int Lines = 500'000;
    Text file = u"Name;Tel\r\n";
    for (int line = 0; line < Lines; ++line) {
        file += u"Anna;1\r\n";
    }
    OutputFile output(path);
    output.Write(BytesFromText(file));
    output.Close();
    return path;
}

void LoadDoubledCsv(benchmark::State& run) {
    const SourceFile file = ReadSourceFile(DoubledFile());
    const Settings settings;
    test::IdleDesktop desktop;
    RegisterState state;
    for (auto _ : run) {
        LoadCSV(state, file, {.AvoidDoubles = true}, settings, desktop);
    }
}
BENCHMARK(LoadDoubledCsv)->Unit(benchmark::kMicrosecond);

void LoadDoubledCsv_Baseline(benchmark::State& run) {
    const Bytes file = ReadWholeFile(DoubledFile());
    for (auto _ : run) {
        LineReader lines(file);
        while (!lines.AtEnd()) {
            benchmark::DoNotOptimize(lines.Next());
        }
    }
}
BENCHMARK(LoadDoubledCsv_Baseline)->Unit(benchmark::kMicrosecond);

/// A card for each of so many persons, each with a number, in the manner of a telephone.
FilePath VCardFile(const benchmark::State& run) {
    const FilePath path = FileNamed("norvik-benchmark.vcf");
    std::string cards;
    for (std::int64_t person = 0; person < run.range(0); ++person) {
        const std::string number = std::to_string(person);
        cards += "BEGIN:VCARD\r\nVERSION:3.0\r\nN:M\xC3\xBCller" + number +
                 ";Anna;;;\r\nFN:Anna M\xC3\xBCller" + number + "\r\nTEL;TYPE=CELL:+49 40 1234-" +
                 number +
                 "\r\nADR;TYPE=HOME:;;Lange Stra\xC3\x9F"
                 "e " +
                 number + ";Hamburg;;20095;\r\nNOTE:Kegelverein\r\nEND:VCARD\r\n";
    }
    OutputFile output(path);
    output.Write(Bytes(cards.begin(), cards.end()));
    output.Close();
    return path;
}

void LoadVCardFile(RegisterState& state, const FilePath& path, Desktop& desktop) {
    Settings settings;
    settings.InternationalPrefix = u"0049";
    norvik::LoadVCard(state, OpenSourceFile(path), settings, desktop);
}

void LoadVCard(benchmark::State& run) {
    const FilePath path = VCardFile(run);
    test::IdleDesktop desktop;
    RegisterState state;
    for (auto _ : run) {
        LoadVCardFile(state, path, desktop);
    }
}
BENCHMARK(LoadVCard)->Apply(EntryCounts);

void LoadVCard_Baseline(benchmark::State& run) {
    const FilePath path = FileNamed("norvik-benchmark-cards.csv");
    const Settings settings;
    test::IdleDesktop desktop;
    RegisterState state;
    LoadVCardFile(state, VCardFile(run), desktop);
    SaveCSV(state, path, desktop);
    for (auto _ : run) {
        LoadCSV(state, path, settings, desktop);
    }
}
BENCHMARK(LoadVCard_Baseline)->Apply(EntryCounts);

void SaveCsv(benchmark::State& run) {
    RegisterState state = Entries(run);
    test::IdleDesktop desktop;
    for (auto _ : run) {
        SaveCSV(state, FileNamed("norvik-benchmark.out"), desktop);
    }
}
BENCHMARK(SaveCsv)->Apply(EntryCounts);

void SaveCsv_Baseline(benchmark::State& run) {
    WriteBytes(run, CsvFile(run));
}
BENCHMARK(SaveCsv_Baseline)->Apply(EntryCounts);

void LoadPhonebook(benchmark::State& run) {
    const FilePath path = PhonebookFile(run);
    test::IdleDesktop desktop;
    RegisterState state;
    for (auto _ : run) {
        LoadPhonebookFile(state, path, desktop);
    }
}
BENCHMARK(LoadPhonebook)->Apply(EntryCounts);

void LoadPhonebook_Baseline(benchmark::State& run) {
    ReadLines(run, PhonebookFile(run));
}
BENCHMARK(LoadPhonebook_Baseline)->Apply(EntryCounts);

void SavePhonebook(benchmark::State& run) {
    RegisterState state = Entries(run);
    test::IdleDesktop desktop;
    for (auto _ : run) {
        WritePhonebookFile(state, FileNamed("norvik-benchmark.out"), desktop);
    }
}
BENCHMARK(SavePhonebook)->Apply(EntryCounts);

void SavePhonebook_Baseline(benchmark::State& run) {
    WriteBytes(run, PhonebookFile(run));
}
BENCHMARK(SavePhonebook_Baseline)->Apply(EntryCounts);

}  // namespace

}  // namespace norvik::benchmarks
