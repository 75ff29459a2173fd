// Registers to measure with.
#pragma once

#include "register/register.h"

#include <benchmark/benchmark.h>

namespace norvik::benchmarks {

/// `count` entries with random names of 5 to 20 letters, numbers, up to six info lines and all
/// other values a 195 file can hold. The same for every run.
RegisterState RandomRegister(int count);

/// Measures with 250, 500, 1000 and 2000 entries, so that the growth shows, in microseconds.
void EntryCounts(benchmark::internal::Benchmark* measured);

}  // namespace norvik::benchmarks
