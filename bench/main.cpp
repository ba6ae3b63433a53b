// Runs every comparison, ours at the processor's best level and at AVX2, and prints the tables.
#include "Tables.h"
#include "peers/Peers.h"

#include "TnEngines/vec/paint/Levels.h"
#include "TnGraphics/rows/RowKernels.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <iterator>
#include <map>

namespace tn::bench {
namespace {

vec::Level ForEngine(ProcessorLevel level) {
    switch (level) {
    case ProcessorLevel::kAvx512:
        return vec::Level::kAvx512;
    case ProcessorLevel::kAvx2:
        return vec::Level::kAvx2;
    case ProcessorLevel::kBaseline:
    case ProcessorLevel::kPortable:
        break;
    }
    return vec::Level::kBaseline;
}

void UseLevel(ProcessorLevel level) {
    ForceLevel(level);
    vec::ForceLevel(ForEngine(level));
}

void Register(const std::string& name, const Work& work, ProcessorLevel level) {
    benchmark::RegisterBenchmark(name.c_str(), [work, level](benchmark::State& state) {
        UseLevel(level);
        for (auto unused : state) {
            static_cast<void>(unused);
            work();
            benchmark::ClobberMemory();
        }
    });
}

void Register(const Comparison& comparison, const std::vector<ProcessorLevel>& levels) {
    for (const ProcessorLevel level : levels) {
        Register(OursName(comparison.name, level), comparison.ours, level);
    }
    for (const Rival& rival : comparison.rivals) {
        if (rival.work) {
            Register(RivalName(comparison, rival), rival.work, BestLevel());
        }
    }
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

    std::optional<double> Of(const std::string& benchmark) const {
        const auto found = best_.find(benchmark);
        return found == best_.end() ? std::nullopt : std::optional(found->second);
    }

private:
    std::map<std::string, double> best_;
};

std::vector<ProcessorLevel> MeasuredLevels() {
    std::vector<ProcessorLevel> levels = {BestLevel()};
    if (BestLevel() > ProcessorLevel::kAvx2) {
        levels.push_back(ProcessorLevel::kAvx2);
    }
    return levels;
}

std::vector<Section> AllSections() {
    std::vector<Section> sections = {FillComparisons(),        WalkComparisons(),        CopyComparisons(),
                                     BlendComparisons(),       OperatorComparisons(),    TransformComparisons(),
                                     AlphaFilterComparisons(), ContentAreaComparisons(), DownSampleComparisons(),
                                     TextureComparisons()};
    std::ranges::move(DrawComparisons(), std::back_inserter(sections));
    return sections;
}

void Run() {
    const std::vector<Section> sections = AllSections();
    const std::vector<ProcessorLevel> levels = MeasuredLevels();
    for (const Section& section : sections) {
        for (const Comparison& comparison : section.comparisons) {
            Register(comparison, levels);
        }
    }
    BestTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);
    for (const Section& section : sections) {
        PrintSection(section, levels, [&times](const std::string& benchmark) { return times.Of(benchmark); });
    }
}

} // namespace
} // namespace tn::bench

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    tn::bench::RunOnOneThread(tn::bench::Run);
}
