// Loading a register file of 2000 entries, against a pass over the same bytes in memory that builds
// the same strings by table lookup and does nothing else.
#include "benchmarks/registers.h"
#include "devicefiles/registerfile.h"
#include "tests/support/idledesktop.h"

#include <benchmark/benchmark.h>

#include <array>

namespace norvik::benchmarks {

namespace {

FilePath BenchmarkFile() {
    static const FilePath path = [] {
        FilePath file = std::filesystem::temp_directory_path() / "norvik-benchmark.t9t";
        RegisterState state = RandomRegister(RegisterPlaces);
        test::IdleDesktop desktop;
        WriteRegisterFile195(state, file, desktop);
        return file;
    }();
    return path;
}

void LoadRegister(benchmark::State& run) {
    const FilePath path = BenchmarkFile();
    test::IdleDesktop desktop;
    RegisterState state;
    for (auto _ : run) {
        LoadRegisterFile(state, path, desktop);
        benchmark::DoNotOptimize(state);
    }
    run.SetItemsProcessed(run.iterations() * state.AnzGes);
}
BENCHMARK(LoadRegister)->Unit(benchmark::kMicrosecond);

/// A value item of the file as the baseline sees it: either a number or the place of its text.
void LoadRegister_Baseline(benchmark::State& run) {
    const Bytes file = ReadWholeFile(BenchmarkFile());
    std::array<char16_t, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        table[byte] = CharacterOf(static_cast<Byte>(byte));
    }
    constexpr std::size_t Texts = std::size_t{3} * RegisterPlaces;
    for (auto _ : run) {
        std::vector<Text> texts;
        texts.reserve(Texts);
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
BENCHMARK(LoadRegister_Baseline)->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace norvik::benchmarks
