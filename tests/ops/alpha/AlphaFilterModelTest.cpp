// The filter of alphas equals its model at every level.

#include "tests/ops/alpha/AlphaFilterPictures.h"
#include "tests/support/Cases.h"
#include "tests/support/Levels.h"
#include "tests/support/PixelDiff.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr int kCases = 6000;
constexpr int kWideCases = 400;
constexpr int kEdgeCases = 800;

int RandomMode(Random& random) { return random.Between(-1, 6); }

// A line change after every 32nd row, then after every 32nd column.
int PollsIn(const TnPoint& size) { return size.x == 0 || size.y == 0 ? 0 : size.y / 32 + size.x / 32; }

template <class SurfaceType> void ExpectFilteredLikeModel(PictureToFilter<SurfaceType>& picture, AlphaFilter filter) {
    const auto before = picture.Snapshot();
    auto expected = before;
    filter.Model(expected);
    const int polls = PollsIn(picture.Surface().Size());
    ForEachSupportedLevel([&](ProcessorLevel) {
        SCOPED_TRACE(filter.Text());
        picture.Restore(before);
        const PollWatch watch;
        filter.Run(picture.Surface());
        EXPECT_EQ(watch.Polls(), polls);
        EXPECT_EQ(picture.Surface().Clients(), 0U);
        EXPECT_TRUE(SamePixels(expected, picture.Snapshot()));
    });
}

// Every length of line comes with every radius. The other side is short, but now and then long enough for both passes
// to meet long runs.
TnPoint SizeOfSmallPicture(Random& random) {
    constexpr int kLongest = 90;
    const int along = random.Between(0, kLongest);
    const int across = random.OneIn(6) ? random.Between(0, kLongest) : random.Between(0, 7);
    return random.OneIn(2) ? TnPoint{along, across} : TnPoint{across, along};
}

template <class SurfaceType> void ExpectSmallPicturesLikeModel() {
    ForEachCase(kCases, [](Random& random) {
        PictureToFilter<SurfaceType> picture(random, SizeOfSmallPicture(random));
        const int radius = random.OneIn(2) ? random.Between(0, 40) : random.Between(0, 8);
        ExpectFilteredLikeModel(picture, {RandomMode(random), radius});
    });
}

TEST(ProcessAlphaChannel, EqualsItsModelInRandomImages) { ExpectSmallPicturesLikeModel<TnImage>(); }

TEST(ProcessAlphaChannel, EqualsItsModelInRandomMattes) { ExpectSmallPicturesLikeModel<TnMatte>(); }

template <class SurfaceType> void ExpectWidePicturesLikeModel() {
    ForEachCase(kWideCases, [](Random& random) {
        const int along = random.Between(91, 300);
        const int across = random.Between(1, 20);
        const TnPoint size = random.OneIn(2) ? TnPoint{along, across} : TnPoint{across, along};
        PictureToFilter<SurfaceType> picture(random, size);
        ExpectFilteredLikeModel(picture, {RandomMode(random), random.Between(0, 140)});
    });
}

TEST(ProcessAlphaChannel, EqualsItsModelInLongLinesOfImages) { ExpectWidePicturesLikeModel<TnImage>(); }

TEST(ProcessAlphaChannel, EqualsItsModelInLongLinesOfMattes) { ExpectWidePicturesLikeModel<TnMatte>(); }

// Where weights or their sums outgrow a number of bits, and beyond every line.
template <class SurfaceType> void ExpectEdgeRadiiLikeModel() {
    constexpr int kHighest = std::numeric_limits<int>::max();
    constexpr std::array<int, 22> kRadii = {
        0, 1, 2, 6, 7, 14, 15, 16, 17, 125, 126, 127, 128, 254, 255, 256, 4095, 4096, 32767, 65535, 65536, 16777216,
    };
    constexpr std::array<int, 4> kHuge = {kHighest, kHighest - 1, kHighest / 2, kHighest / 2 + 1};
    ForEachCase(kEdgeCases, [&](Random& random) {
        const int along = random.Between(1, random.OneIn(4) ? 280 : 40);
        const int across = random.Between(1, 5);
        const TnPoint size = random.OneIn(2) ? TnPoint{along, across} : TnPoint{across, along};
        PictureToFilter<SurfaceType> picture(random, size);
        const int radius = random.OneIn(6) ? random.OneOf(kHuge) : random.OneOf(kRadii);
        ExpectFilteredLikeModel(picture, {RandomMode(random), radius});
    });
}

TEST(ProcessAlphaChannel, EqualsItsModelAtTheEdgesOfItsArithmeticInImages) { ExpectEdgeRadiiLikeModel<TnImage>(); }

TEST(ProcessAlphaChannel, EqualsItsModelAtTheEdgesOfItsArithmeticInMattes) { ExpectEdgeRadiiLikeModel<TnMatte>(); }

// Both sides long enough for runs of 255 that outlast the radius along rows and along columns.
template <class SurfaceType> void ExpectLargePicturesLikeModel() {
    constexpr std::array<int, 4> kOtherModes = {-1, 0, 5, 6};
    ForEachCase(kWideCases, [&](Random& random) {
        const int radius = random.Between(0, 20);
        const TnPoint size = {random.Between(0, 3 * radius + 30), random.Between(0, 3 * radius + 30)};
        PictureToFilter<SurfaceType> picture(random, size);
        ExpectFilteredLikeModel(picture, {random.OneOf(kOtherModes), radius});
    });
}

TEST(ProcessAlphaChannel, EqualsItsModelInImagesWithRunsBothWays) { ExpectLargePicturesLikeModel<TnImage>(); }

TEST(ProcessAlphaChannel, EqualsItsModelInMattesWithRunsBothWays) { ExpectLargePicturesLikeModel<TnMatte>(); }

} // namespace
} // namespace tn::test
