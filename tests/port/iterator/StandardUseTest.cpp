#include "tests/port/WalkKinds.h"

#include <algorithm>
#include <iterator>
#include <type_traits>

namespace tn::test {
namespace {

template <class Walk> class WalkStandardUse : public WalkTest<Walk> {
protected:
    using Iterator = typename Walk::Iterator;
    using Traits = std::iterator_traits<Iterator>;
    using Pixel = typename Walk::Surface::Pixel;

    static_assert(std::bidirectional_iterator<Iterator>);
    static_assert(std::is_same_v<typename Traits::iterator_category, std::bidirectional_iterator_tag>);
    static_assert(std::is_same_v<typename Traits::value_type, Pixel>);
    static_assert(std::is_same_v<typename Traits::difference_type, std::int64_t>);
    static_assert(std::is_same_v<typename Traits::pointer, Pixel*>);
    static_assert(std::is_same_v<typename Traits::reference, Pixel&>);

    // What the pixels of kBounds hold, line by line.
    std::vector<Pixel> PixelsInBounds() const {
        std::vector<Pixel> pixels;
        for (const Pixel* pixel : this->LineByLine()) {
            pixels.push_back(*pixel);
        }
        return pixels;
    }
};
TYPED_TEST_SUITE(WalkStandardUse, WalkKinds);

TYPED_TEST(WalkStandardUse, DistanceCountsThePixels) {
    EXPECT_EQ(std::distance(this->Begin(this->kBounds), this->End(this->kBounds)), 12);
    EXPECT_EQ(std::distance(this->Begin({0, 0, 1, 1}), this->End({0, 0, 1, 1})), 1);
}

TYPED_TEST(WalkStandardUse, CopiesLineByLine) {
    EXPECT_EQ((std::vector<typename TestFixture::Pixel>(this->Begin(this->kBounds), this->End(this->kBounds))),
              this->PixelsInBounds());
}

TYPED_TEST(WalkStandardUse, FindsAPixel) {
    const auto end = this->End(this->kBounds);
    std::fill(this->Begin(this->kBounds), end, typename TestFixture::Pixel(1));
    *this->InBounds(1, 2) = 2;
    const auto found = std::find(this->Begin(this->kBounds), end, typename TestFixture::Pixel(2));
    EXPECT_EQ(PixelOf(found), this->InBounds(1, 2));
    EXPECT_TRUE(std::find(this->Begin(this->kBounds), end, typename TestFixture::Pixel(3)) == end);
}

TYPED_TEST(WalkStandardUse, FillsTheBoundsAlone) {
    std::vector<std::uint8_t> expected = BytesOf(*this->surface_.Storage());
    const auto* block = static_cast<const std::uint8_t*>(this->surface_.Storage()->BaseAddr());
    for (const auto* pixel : this->LineByLine()) {
        const auto offset = reinterpret_cast<const std::uint8_t*>(pixel) - block;
        std::fill_n(expected.begin() + offset, sizeof(*pixel), std::uint8_t{0});
    }
    std::fill(this->Begin(this->kBounds), this->End(this->kBounds), typename TestFixture::Pixel(0));
    EXPECT_EQ(BytesOf(*this->surface_.Storage()), expected);
}

TYPED_TEST(WalkStandardUse, ReversesInPlace) {
    auto expected = this->PixelsInBounds();
    std::reverse(expected.begin(), expected.end());
    std::reverse(this->Begin(this->kBounds), this->End(this->kBounds));
    EXPECT_EQ(this->PixelsInBounds(), expected);
}

TYPED_TEST(WalkStandardUse, RunsBackwardsThroughReverseIterators) {
    auto expected = this->PixelsInBounds();
    std::reverse(expected.begin(), expected.end());
    const auto first = std::make_reverse_iterator(this->End(this->kBounds));
    const auto last = std::make_reverse_iterator(this->Begin(this->kBounds));
    EXPECT_EQ((std::vector<typename TestFixture::Pixel>(first, last)), expected);
}

TYPED_TEST(WalkStandardUse, LeavesNoLockBehind) {
    std::reverse(this->Begin(this->kBounds), this->End(this->kBounds));
    std::fill(this->Begin(this->kBounds), this->End(this->kBounds), typename TestFixture::Pixel(0));
    EXPECT_EQ(this->surface_.Clients(), 0U);
}

TYPED_TEST(WalkStandardUse, SurfaceIsARangeOfItsContent) {
    this->surface_.Content({4, 5, 7, 8});
    int pixels = 0;
    for (auto& pixel : this->surface_) {
        pixel = 0;
        ++pixels;
    }
    EXPECT_EQ(pixels, 56);
    EXPECT_EQ(*this->PixelAt({10, 12}), typename TestFixture::Pixel(0));
    EXPECT_EQ(this->surface_.Clients(), 0U);
}

} // namespace
} // namespace tn::test
