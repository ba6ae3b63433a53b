#include "tests/public/Pixels.h"
#include "tests/support/CancelAtPoll.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>

namespace tn::test {
namespace {

template <class SurfaceType> class PublicWalk : public testing::Test {
protected:
    SurfaceType surface_{{12, 70}, true, &PollWatch::Proc};
};
using SurfaceTypes = testing::Types<TnImage, TnMatte>;
TYPED_TEST_SUITE(PublicWalk, SurfaceTypes);

TYPED_TEST(PublicWalk, GoesRowByRow) {
    std::uint8_t number = 0;
    for (auto walk = this->surface_.begin({2, 3, 4, 5}); walk != this->surface_.end({2, 3, 4, 5}); ++walk) {
        *walk = ++number;
    }
    EXPECT_EQ(PixelAt(this->surface_, 2, 3), typename TypeParam::Pixel(1));
    EXPECT_EQ(PixelAt(this->surface_, 3, 3), typename TypeParam::Pixel(2));
    EXPECT_EQ(PixelAt(this->surface_, 5, 7), typename TypeParam::Pixel(20));
}

TYPED_TEST(PublicWalk, GoesColumnByColumn) {
    std::uint8_t number = 0;
    const auto end = this->surface_.endVertical({2, 3, 4, 5});
    for (auto walk = this->surface_.beginVertical({2, 3, 4, 5}); walk != end; ++walk) {
        *walk = ++number;
    }
    EXPECT_EQ(PixelAt(this->surface_, 2, 3), typename TypeParam::Pixel(1));
    EXPECT_EQ(PixelAt(this->surface_, 2, 4), typename TypeParam::Pixel(2));
    EXPECT_EQ(PixelAt(this->surface_, 5, 7), typename TypeParam::Pixel(20));
}

TYPED_TEST(PublicWalk, CoversTheContentWithoutARectangle) {
    EXPECT_EQ(std::distance(this->surface_.begin(), this->surface_.end()), 12 * 70);
    EXPECT_EQ(std::distance(this->surface_.beginVertical(), this->surface_.endVertical()), 12 * 70);
}

TYPED_TEST(PublicWalk, TellsItsPosition) {
    EXPECT_EQ(this->surface_.begin({3, 2, 5, 5}).Position(), (TnPoint{3, 2}));
    EXPECT_EQ(this->surface_.beginVertical({3, 2, 5, 5}).Position(), (TnPoint{3, 2}));
    EXPECT_EQ(this->surface_.end().Position(), (TnPoint{0x7FFFFFFF, 0x7FFFFFFF}));
    EXPECT_EQ(this->surface_.endVertical().Position(), (TnPoint{0x7FFFFFFF, 0x7FFFFFFF}));
}

TYPED_TEST(PublicWalk, ServesStandardAlgorithms) {
    PixelAt(this->surface_, 4, 40) = 9;
    const auto found = std::find(this->surface_.begin(), this->surface_.end(), typename TypeParam::Pixel(9));
    EXPECT_EQ(found.Position(), (TnPoint{4, 40}));
    std::reverse(this->surface_.begin(), this->surface_.end());
    EXPECT_EQ(PixelAt(this->surface_, 7, 29), typename TypeParam::Pixel(9));
}

TYPED_TEST(PublicWalk, LooksAtNeighbors) {
    PixelAt(this->surface_, 4, 5) = 9;
    auto walk = this->surface_.begin({3, 4, 5, 5});
    EXPECT_EQ((walk[TnPoint{1, 1}]), typename TypeParam::Pixel(9));
    EXPECT_EQ(walk.UncheckedNeighbor(1, 1), typename TypeParam::Pixel(9));
}

TYPED_TEST(PublicWalk, PollsEvery32Rows) {
    const PollWatch watch;
    std::fill(this->surface_.begin(), this->surface_.end(), typename TypeParam::Pixel(1));
    EXPECT_EQ(watch.Polls(), 2);
    EXPECT_EQ(this->surface_.Clients(), 0U);
}

} // namespace
} // namespace tn::test
