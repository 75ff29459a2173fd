#include "benchmarks/ratios.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace norvik::benchmarks {

namespace {

constexpr const char* BaselineMark = "_Baseline";

class RatioReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration) {
                const std::string name = run.benchmark_name();
                nanoseconds_[name] =
                    run.real_accumulated_time / static_cast<double>(run.iterations) * 1e9;
                names_.push_back(name);
            }
        }
    }

    void Finalize() override {
        ConsoleReporter::Finalize();
        std::printf("\n%-44s %14s %14s %8s\n", "figure", "ns", "baseline ns", "ratio");
        for (const std::string& name : names_) {
            const auto baseline = nanoseconds_.find(BaselineOf(name));
            if (baseline != nanoseconds_.end() && baseline->first != name) {
                std::printf("%-44s %14.0f %14.0f %8.2f\n", name.c_str(), nanoseconds_[name],
                            baseline->second, nanoseconds_[name] / baseline->second);
            }
        }
    }

  private:
    /// "Sort/2000" is measured against "Sort_Baseline/2000".
    static std::string BaselineOf(const std::string& name) {
        std::string baseline = name;
        return baseline.insert(std::min(name.find('/'), name.size()), BaselineMark);
    }

    std::map<std::string, double> nanoseconds_;
    std::vector<std::string> names_;
};

}  // namespace

int RunWithRatios(int argc, char* argv[]) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}

}  // namespace norvik::benchmarks
