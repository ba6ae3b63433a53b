// Get and Set at whole positions.

#include "tests/port/SurfaceKinds.h"
#include "tests/port/sampling/SmallPictures.h"
#include "tests/support/PixelDiff.h"

#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr long kLowest = std::numeric_limits<long>::min();
constexpr long kHighest = std::numeric_limits<long>::max();

template <class SurfaceType> class WholePosition : public ::testing::Test {
protected:
    using Pixel = typename SurfaceType::Pixel;

    static constexpr TnPoint kSize = {5, 3};
    static constexpr Pixel kNew = 0x42;

    // Positions beside the surface, far from it, and beyond 32 bits where a long holds more.
    template <class Body> static void ForEachPositionOutside(const Body& body) {
        for (const long bad : {-1L, 5L, 6L, -65536L, 2147483647L, -2147483647L - 1, kLowest, kHighest, kLowest + 2,
                               kHighest / 2 + 1, kLowest / 2}) {
            body(bad, 0L);
            body(0L, bad);
            body(bad, bad);
        }
        body(4L, 3L);
        if constexpr (sizeof(long) > sizeof(std::int32_t)) {
            const long words = kHighest / 0x7FFFFFFF; // 2^32 and a little
            body(words - words % 65536, 0L);
            body(0L, words - words % 65536);
        }
    }

    SurfaceType surface_{kSize};
};
TYPED_TEST_SUITE(WholePosition, SurfaceKinds);

TYPED_TEST(WholePosition, GetsThePixelThere) {
    PaintNumbers(this->surface_);
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 5; ++x) {
            const auto expected = static_cast<ValueOf<TypeParam>>(NumberOf(x, y));
            EXPECT_EQ(this->surface_.Get(x, y).value, expected);
            EXPECT_EQ(this->surface_.Get(long{x}, long{y}).value, expected);
        }
    }
}

TYPED_TEST(WholePosition, GetsTheOutsidePixelOutside) {
    PaintNumbers(this->surface_);
    this->ForEachPositionOutside([this](long x, long y) {
        EXPECT_EQ(this->surface_.Get(x, y), KindOf<TypeParam>::kOutsideOwnStorage) << x << ", " << y;
    });
    EXPECT_EQ(this->surface_.Get(-1, 0), KindOf<TypeParam>::kOutsideOwnStorage);
}

TYPED_TEST(WholePosition, GetsAnotherPixelOutsideAMatteOverGivenStorage) {
    StorageProbe probe;
    const TypeParam surface(NewRecordingStorage<TypeParam>(probe, this->kSize), this->kSize);
    EXPECT_EQ(surface.Get(0, 3), KindOf<TypeParam>::kOutsideGivenStorage);
    EXPECT_EQ(surface.Get(0, 2), typename TypeParam::Pixel(0));
}

TYPED_TEST(WholePosition, SetsOnlyThePixelThere) {
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 5; ++x) {
            PaintNumbers(this->surface_);
            auto expected = ContentOf(this->surface_);
            expected.At(x, y) = this->kNew.value;
            this->surface_.Set(this->kNew, x, y);
            EXPECT_TRUE(SamePixels(expected, this->surface_));
        }
    }
    this->surface_.Set(this->kNew, 0L, 0L);
    EXPECT_EQ(PixelAt(this->surface_, 0, 0), this->kNew.value);
}

TYPED_TEST(WholePosition, SetsNothingOutside) {
    Paint(*this->surface_.Storage());
    const auto before = BytesOf(*this->surface_.Storage());
    this->ForEachPositionOutside([this](long x, long y) { this->surface_.Set(this->kNew, x, y); });
    EXPECT_EQ(BytesOf(*this->surface_.Storage()), before);
}

TYPED_TEST(WholePosition, IsOutsideASurfaceWithoutColumnsOrRows) {
    for (const TnPoint size : {TnPoint{0, 0}, {0, 5}, {5, 0}}) {
        TypeParam surface(size);
        surface.Set(this->kNew, 0, 0);
        EXPECT_EQ(surface.Get(0, 0), KindOf<TypeParam>::kOutsideOwnStorage);
        EXPECT_EQ(surface.Get(TnFixed{0}, TnFixed{0}), KindOf<TypeParam>::kOutsideOwnStorage);
    }
}

} // namespace
} // namespace tn::test
