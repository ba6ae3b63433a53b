// Transforms of distinct surfaces in several threads at once.

#include "tests/models/ResamplingModels.h"
#include "tests/port/sampling/ReadSurfaces.h"
#include "tests/support/Levels.h"
#include "tests/support/PixelDiff.h"
#include "tests/transform/Calls.h"
#include "tests/transform/RandomMatrices.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

namespace tn::test {
namespace {

constexpr std::size_t kThreads = 4;
constexpr int kRounds = 60;

template <class SourceType, class DestinationType> std::string FirstDifference(Random& random) {
    const RandomSource<SourceType> source(random, {random.Between(1, 40), random.Between(1, 20)});
    Picture<DestinationType> destination(random, random.Size(), Backing::kOwnStorage);
    const TnPoint size = destination.Surface().Size();
    const model::Elements elements = RandomMatrix(random, source.Surface().Size(), size).Any();
    const InterpolationType type = random.OneIn(2) ? kNearest : kSmooth;
    auto expected = destination.Snapshot();
    model::Resample(CallOf(MatrixOf(elements), type), source.Snapshot(), expected);
    Transform(source.Surface(), destination.Surface(), MatrixOf(elements), type);
    const auto result = SamePixels(expected, destination.Snapshot());
    return result ? "" : ::testing::PrintToString(elements) + ": " + result.message();
}

// Assertions belong to the main thread, so the others say what they found.
void RunRounds(std::uint64_t seed, std::string& finding) {
    Random random(seed);
    for (int round = 0; round < kRounds && finding.empty(); ++round) {
        finding = FirstDifference<TnImage, TnImage>(random) + FirstDifference<TnMatte, TnMatte>(random) +
                  FirstDifference<TnImage, TnMatte>(random);
    }
}

TEST(Transform, OfDistinctSurfacesCanBeDoneInSeveralThreadsAtOnce) {
    ForEachSupportedLevel([](ProcessorLevel) {
        std::vector<std::string> findings(kThreads);
        std::vector<std::thread> threads;
        for (std::size_t i = 0; i < kThreads; ++i) {
            threads.emplace_back(RunRounds, i, std::ref(findings[i]));
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_EQ(findings, std::vector<std::string>(kThreads));
    });
}

} // namespace
} // namespace tn::test
