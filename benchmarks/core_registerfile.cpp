// Loading a register file, against a pass over the same bytes in memory that builds the same
// strings by table lookup and does nothing else.
#include "benchmarks/registers.h"
#include "formats/registerfile/registerfile.h"
#include "tests/support/idledesktop.h"

#include <benchmark/benchmark.h>

#include <array>

namespace norvik::benchmarks {

namespace {

/// A register file of as many entries as the run's argument says.
FilePath BenchmarkFile(const benchmark::State& run) {
    FilePath file = std::filesystem::temp_directory_path() / "norvik-benchmark.t9t";
    RegisterState state = RandomRegister(static_cast<int>(run.range(0)));
    test::IdleDesktop desktop;
    WriteRegisterFile195(state, file, desktop);
    return file;
}

void LoadRegister(benchmark::State& run) {
    const FilePath path = BenchmarkFile(run);
    test::IdleDesktop desktop;
    RegisterState state;
    for (auto _ : run) {
        LoadRegisterFile(state, path, desktop);
        benchmark::DoNotOptimize(state);
    }
    run.SetItemsProcessed(run.iterations() * state.AnzGes);
}
BENCHMARK(LoadRegister)->Apply(EntryCounts);

/// A value item of the file as the baseline sees it: either a number or the place of its text.
void LoadRegister_Baseline(benchmark::State& run) {
    const Bytes file = ReadWholeFile(BenchmarkFile(run));
    std::array<char16_t, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        table[byte] = CharacterOf(static_cast<Byte>(byte));
    }
    const auto textCount = 3 * static_cast<std::size_t>(run.range(0));
    for (auto _ : run) {
        std::vector<Text> texts;
        texts.reserve(textCount);
        unsigned sum = 0;
        for (std::size_t i = RegisterFileHeader.size(); file[i] != registerfile::EndOfList;) {
            const Byte tag = file[i];
            ++i;
            if (tag == registerfile::ShortString) {
                const std::size_t length = file[i];
                Text& text = texts.emplace_back(length, u'\0');
                for (std::size_t k = 0; k < length; ++k) {
                    text[k] = table[file[i + 1 + k]];
                }
                i += 1 + length;
            } else {
                for (int k = 1; k < tag; ++k) {
                    sum += file[i];
                    ++i;
                }
            }
        }
        benchmark::DoNotOptimize(texts);
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(LoadRegister_Baseline)->Apply(EntryCounts);

}  // namespace

}  // namespace norvik::benchmarks
