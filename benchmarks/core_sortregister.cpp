// Sorting random names, with all its passes' texts, against std::stable_sort on the lowered names.
#include "benchmarks/registers.h"
#include "registertools/sortregister.h"
#include "tests/support/idledesktop.h"

#include <benchmark/benchmark.h>

#include <algorithm>

namespace norvik::benchmarks {

namespace {

void Sort(benchmark::State& run) {
    const RegisterState unsorted = RandomRegister(static_cast<int>(run.range(0)));
    RegisterState state = unsorted;
    test::IdleDesktop desktop;
    for (auto _ : run) {
        run.PauseTiming();
        state.RegisterOrder = unsorted.RegisterOrder;
        run.ResumeTiming();
        int place = 1;
        SortRegister(state, place, desktop);
        benchmark::DoNotOptimize(place);
    }
}
BENCHMARK(Sort)->Apply(EntryCounts);

void Sort_Baseline(benchmark::State& run) {
    const RegisterState unsorted = RandomRegister(static_cast<int>(run.range(0)));
    std::vector<Text> lowered;
    for (int position = 1; position <= unsorted.AnzGes; ++position) {
        lowered.push_back(LowerCase(EntryAt(unsorted, position).Name));
    }
    for (auto _ : run) {
        run.PauseTiming();
        std::vector<Text> keys = lowered;
        run.ResumeTiming();
        std::stable_sort(keys.begin(), keys.end());
        benchmark::DoNotOptimize(keys);
    }
}
BENCHMARK(Sort_Baseline)->Apply(EntryCounts);

}  // namespace

}  // namespace norvik::benchmarks
