// The filter of alphas on distinct surfaces in several threads at once.

#include "tests/ops/alpha/AlphaFilterPictures.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/Threads.h"

#include <gtest/gtest.h>
#include <string>

namespace tn::test {
namespace {

constexpr int kRounds = 60;

template <class SurfaceType> std::string FirstDifference(Random& random) {
    PictureToFilter<SurfaceType> picture(random, {random.Between(0, 90), random.Between(0, 40)});
    const AlphaFilter filter = {random.Between(0, 5), random.OneIn(8) ? 127 : random.Between(0, 20)};
    auto expected = picture.Snapshot();
    filter.Model(expected);
    filter.Run(picture.Surface());
    const auto result = SamePixels(expected, picture.Snapshot());
    return result ? "" : filter.Text() + ": " + result.message();
}

TEST(ProcessAlphaChannel, OfDistinctSurfacesCanBeDoneInSeveralThreadsAtOnce) {
    ExpectNoFindingsInThreads(
        kRounds, [](Random& random) { return FirstDifference<TnImage>(random) + FirstDifference<TnMatte>(random); });
}

} // namespace
} // namespace tn::test
