// The phone list as a PDF file in memory, against the same register as CSV in memory.
#include "benchmarks/registers.h"
#include "formats/csv/csvformat.h"
#include "paper/pdf.h"
#include "paper/phonelist.h"

#include <benchmark/benchmark.h>

namespace norvik::benchmarks {

namespace {

void PhoneList(benchmark::State& run) {
    const RegisterState state = RandomRegister(static_cast<int>(run.range(0)));
    Bytes bytes;
    OutputTarget target("");
    target.Memory = &bytes;
    for (auto _ : run) {
        WritePdf(LayOutPhoneList(state, {}, FileTime()), target);
    }
    run.SetItemsProcessed(run.iterations() * state.AnzGes);
}
BENCHMARK(PhoneList)->Apply(EntryCounts);

void PhoneList_Baseline(benchmark::State& run) {
    RegisterState state = RandomRegister(static_cast<int>(run.range(0)));
    Bytes bytes;
    OutputTarget target("");
    target.Memory = &bytes;
    for (auto _ : run) {
        WriteCSV(state, target, false);
    }
}
BENCHMARK(PhoneList_Baseline)->Apply(EntryCounts);

}  // namespace

}  // namespace norvik::benchmarks
