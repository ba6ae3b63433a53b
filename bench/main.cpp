// Runs every comparison at the processor's best level and at AVX2, and prints them as a table.
#include "Comparison.h"

#include "TnGraphics/rows/RowKernels.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>

namespace tn::bench {
namespace {

enum class Role { kOurs, kReference, kPeer };

std::string BenchmarkName(const Comparison& comparison, ProcessorLevel level, Role role) {
    const char* const roles[] = {"ours", "reference", "peer"};
    return comparison.name + "/" + NameOf(level) + "/" + roles[static_cast<int>(role)];
}

void Register(const Comparison& comparison, ProcessorLevel level, Role role, const Work& work) {
    if (!work) {
        return;
    }
    benchmark::RegisterBenchmark(BenchmarkName(comparison, level, role).c_str(), [=](benchmark::State& state) {
        ForceLevel(level);
        for (auto unused : state) {
            static_cast<void>(unused);
            work();
            benchmark::ClobberMemory();
        }
    });
}

/// Keeps the best time of each benchmark: on a shared machine the least disturbed run says most.
class BestTimes : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
                const double nanoseconds = 1e9 * run.real_accumulated_time / static_cast<double>(run.iterations);
                const auto [best, isNew] = best_.try_emplace(run.run_name.function_name, nanoseconds);
                best->second = std::min(best->second, nanoseconds);
            }
        }
    }

    /// Nanoseconds, 0 when the benchmark did not run.
    double Of(const Comparison& comparison, ProcessorLevel level, Role role) const {
        const auto found = best_.find(BenchmarkName(comparison, level, role));
        return found == best_.end() ? 0.0 : found->second;
    }

private:
    std::map<std::string, double> best_;
};

void PrintLine(const Comparison& comparison, ProcessorLevel level, const BestTimes& times) {
    const double ours = times.Of(comparison, level, Role::kOurs);
    const double reference = times.Of(comparison, level, Role::kReference);
    const double peer = times.Of(comparison, level, Role::kPeer);
    if (ours <= 0.0 || reference <= 0.0) {
        return;
    }
    std::printf("| %s | %s | %.3f | %s %.3f | %.2f | %.2f |", comparison.name.c_str(), NameOf(level),
                ours / comparison.items, comparison.referenceName.c_str(), reference / comparison.items,
                ours / reference, comparison.referenceLimit);
    if (peer > 0.0) {
        std::printf(" %s %.3f | %.2f |\n", comparison.peerName.c_str(), peer / comparison.items, ours / peer);
    } else {
        std::printf(" | |\n");
    }
}

std::vector<ProcessorLevel> MeasuredLevels() {
    std::vector<ProcessorLevel> levels = {BestLevel()};
    if (BestLevel() > ProcessorLevel::kAvx2) {
        levels.push_back(ProcessorLevel::kAvx2);
    }
    return levels;
}

std::vector<Comparison> AllComparisons() {
    std::vector<Comparison> all = FillComparisons();
    std::ranges::move(WalkComparisons(), std::back_inserter(all));
    return all;
}

void Run() {
    const std::vector<Comparison> comparisons = AllComparisons();
    const std::vector<ProcessorLevel> levels = MeasuredLevels();
    for (const Comparison& comparison : comparisons) {
        for (const ProcessorLevel level : levels) {
            Register(comparison, level, Role::kOurs, comparison.ours);
            Register(comparison, level, Role::kReference, comparison.reference);
            Register(comparison, level, Role::kPeer, comparison.peer);
        }
    }
    BestTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);
    std::printf("\n| work | level | ours, ns | reference, ns | ratio | limit | peer, ns | ratio |\n"
                "|---|---|---|---|---|---|---|---|\n");
    for (const Comparison& comparison : comparisons) {
        for (const ProcessorLevel level : levels) {
            PrintLine(comparison, level, times);
        }
    }
}

} // namespace
} // namespace tn::bench

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    tn::bench::Run();
}
