// Benchmarks that are read as ratios: a benchmark NAME[/ARGUMENT] is compared with the benchmark
// NAME_Baseline[/ARGUMENT] of the same run.
#pragma once

namespace norvik::benchmarks {

/// Runs the registered benchmarks and prints the usual table and a table of the ratios.
int RunWithRatios(int argc, char* argv[]);

}  // namespace norvik::benchmarks
