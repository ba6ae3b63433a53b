// Transforms of distinct surfaces in several threads at once.

#include "tests/models/ResamplingModels.h"
#include "tests/port/sampling/ReadSurfaces.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/Threads.h"
#include "tests/transform/Calls.h"
#include "tests/transform/RandomMatrices.h"

#include <gtest/gtest.h>
#include <string>

namespace tn::test {
namespace {

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

TEST(Transform, OfDistinctSurfacesCanBeDoneInSeveralThreadsAtOnce) {
    ExpectNoFindingsInThreads(kRounds, [](Random& random) {
        return FirstDifference<TnImage, TnImage>(random) + FirstDifference<TnMatte, TnMatte>(random) +
               FirstDifference<TnImage, TnMatte>(random);
    });
}

} // namespace
} // namespace tn::test
