#include "tests/port/SurfaceKinds.h"
#include "tests/support/Levels.h"
#include "tests/support/PairWatch.h"
#include "tests/support/Pictures.h"
#include "tests/support/SparseStorage.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/AlphaAnalysis.h"

#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr int kHighest = std::numeric_limits<int>::max();
constexpr int kLowest = std::numeric_limits<int>::min();
constexpr TnPoint kLongRows = {67, 2}; // longer than a vector of bytes

template <class SurfaceType> class Equality : public ::testing::Test {
protected:
    using Value = ValueOf<SurfaceType>;

    // No two pixels of it are equal, as far as a byte can tell.
    static SurfaceType Numbered(const TnPoint& size) {
        SurfaceType surface(size);
        for (int y = 0; y < size.y; ++y) {
            for (int x = 0; x < size.x; ++x) {
                SetPixel(surface, x, y, static_cast<Value>(0x01010101 * (x + size.x * y + 1)));
            }
        }
        return surface;
    }

    static SurfaceType Uniform(const TnPoint& size, Value value) {
        SurfaceType surface(size);
        SetAll(surface, value);
        return surface;
    }

    static bool AreEqual(const SurfaceType& a, SurfaceType& b, const TnPoint& at) {
        return TnIsEqual<SurfaceType>(a, b, at);
    }
};
TYPED_TEST_SUITE(Equality, SurfaceKinds);

TYPED_TEST(Equality, IsThatOfACopy) {
    const TypeParam a = this->Numbered({9, 7});
    TypeParam b = a;
    EXPECT_TRUE(this->AreEqual(a, b, {0, 0}));
    EXPECT_TRUE(this->AreEqual(b, b, {0, 0}));
    EXPECT_FALSE(this->AreEqual(a, b, {1, 0}));
    EXPECT_FALSE(this->AreEqual(a, b, {0, -1}));
}

TYPED_TEST(Equality, EndsWithEveryBitOfEveryPixel) {
    const TypeParam a = this->Uniform(kLongRows, 0);
    TypeParam b = a;
    ForEachSupportedLevel([&](ProcessorLevel) {
        for (int x = 0; x < kLongRows.x; ++x) {
            for (unsigned bit = 0; bit < 8 * sizeof(ValueOf<TypeParam>); ++bit) {
                SetPixel(b, x, 1, static_cast<ValueOf<TypeParam>>(1U << bit));
                EXPECT_FALSE(this->AreEqual(a, b, {0, 0})) << "bit " << bit << " at " << x;
            }
            SetPixel(b, x, 1, 0);
        }
        EXPECT_TRUE(this->AreEqual(a, b, {0, 0}));
    });
}

TYPED_TEST(Equality, IsFoundAtAnyPlace) {
    TypeParam b = this->Numbered({9, 7});
    TypeParam part({3, 2});
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 3; ++x) {
            SetPixel(part, x, y, PixelAt(b, x + 4, y + 5));
        }
    }
    EXPECT_TRUE(this->AreEqual(part, b, {4, 5}));
    EXPECT_FALSE(this->AreEqual(part, b, {4, 4}));
    EXPECT_TRUE(this->AreEqual(b, part, {-4, -5}));
    EXPECT_FALSE(this->AreEqual(b, part, {-3, -5}));
}

TYPED_TEST(Equality, IsThatOfTheOverlapAlone) {
    TypeParam a = this->Uniform({5, 5}, 9);
    TypeParam b = this->Uniform({5, 5}, 9);
    SetPixel(a, 0, 4, 8);
    SetPixel(b, 4, 0, 7);
    EXPECT_FALSE(this->AreEqual(a, b, {0, 0}));
    EXPECT_TRUE(this->AreEqual(a, b, {-1, 1}));
    EXPECT_FALSE(this->AreEqual(a, b, {4, -4})); // one pixel of each, and they differ
    EXPECT_TRUE(this->AreEqual(a, b, {-4, 4}));
}

TYPED_TEST(Equality, IsGivenWithoutAnOverlap) {
    const TypeParam a = this->Uniform({5, 5}, 1);
    TypeParam b = this->Uniform({5, 5}, 2);
    for (const TnPoint at : {TnPoint{5, 0},
                             {0, 5},
                             {-5, 0},
                             {0, -5},
                             {kHighest, 0},
                             {0, kHighest},
                             {kLowest, 0},
                             {kLowest, kLowest},
                             {kHighest, kHighest}}) {
        EXPECT_TRUE(this->AreEqual(a, b, at)) << at.x << ", " << at.y;
    }
    EXPECT_FALSE(this->AreEqual(a, b, {4, 4}));
    EXPECT_FALSE(this->AreEqual(a, b, {-4, -4}));
}

TYPED_TEST(Equality, IsGivenWithoutPixels) {
    for (const TnPoint size : {TnPoint{0, 0}, {0, 9}, {9, 0}}) {
        TypeParam none(size);
        TypeParam some = this->Uniform({5, 5}, 1);
        EXPECT_TRUE(this->AreEqual(none, some, {0, 0}));
        EXPECT_TRUE(this->AreEqual(some, none, {0, 0}));
        EXPECT_TRUE(this->AreEqual(none, none, {0, 0}));
    }
}

TYPED_TEST(Equality, IsThatOfTheContents) {
    TypeParam a = this->Uniform({9, 9}, 1);
    a.Content({2, 3, 4, 3});
    SetAll(a, 5);
    TypeParam b = this->Uniform({9, 9}, 2);
    b.Content({4, 1, 3, 4});
    SetAll(b, 5);
    for (int y = -4; y <= 4; ++y) {
        for (int x = -4; x <= 4; ++x) {
            EXPECT_TRUE(this->AreEqual(a, b, {x, y})) << x << ", " << y;
        }
    }
}

TYPED_TEST(Equality, OfASurfaceWithItselfElsewhereShowsItsPeriod) {
    TypeParam stripes({12, 12});
    for (int y = 0; y < 12; ++y) {
        for (int x = 0; x < 12; ++x) {
            SetPixel(stripes, x, y, static_cast<ValueOf<TypeParam>>(x % 3));
        }
    }
    EXPECT_TRUE(this->AreEqual(stripes, stripes, {3, 1}));
    EXPECT_TRUE(this->AreEqual(stripes, stripes, {-6, -5}));
    EXPECT_FALSE(this->AreEqual(stripes, stripes, {2, 0}));
    EXPECT_EQ(stripes.Clients(), 0U);
}

TYPED_TEST(Equality, OfASurfaceWithoutStorageThrowsWithAnOverlapOnly) {
    TypeParam none({5, 5});
    EXPECT_THROW(none.ReInit({5, kHighest}), std::bad_alloc);
    TypeParam some = this->Uniform({5, 5}, 1);
    EXPECT_THROW(this->AreEqual(none, some, {0, 0}), std::bad_alloc);
    EXPECT_THROW(this->AreEqual(some, none, {4, 4}), std::bad_alloc);
    EXPECT_TRUE(this->AreEqual(none, some, {5, 0}));
    EXPECT_TRUE(this->AreEqual(some, none, {-5, 0}));
    EXPECT_EQ(none.Clients(), 0U);
    EXPECT_EQ(some.Clients(), 0U);
}

TYPED_TEST(Equality, OfRowsThatLieFarApart) {
    constexpr TnPoint kSize = {21, 6};
    TypeParam far(new SparseStorage(kSize, sizeof(ValueOf<TypeParam>), 0x40000040), kSize);
    TypeParam near = this->Numbered(kSize);
    for (int y = 0; y < kSize.y; ++y) {
        for (int x = 0; x < kSize.x; ++x) {
            SetPixel(far, x, y, PixelAt(near, x, y));
        }
    }
    EXPECT_TRUE(this->AreEqual(far, near, {0, 0}));
    EXPECT_TRUE(this->AreEqual(near, far, {0, 0}));
    SetPixel(far, 20, 5, static_cast<ValueOf<TypeParam>>(~PixelAt(far, 20, 5)));
    EXPECT_FALSE(this->AreEqual(far, near, {0, 0}));
    EXPECT_FALSE(this->AreEqual(near, far, {0, 0}));
}

TYPED_TEST(Equality, PollsBothUpToTheFirstDifference) {
    const auto pollsWithDifferenceIn = [](int row) {
        const TypeParam a({3, 100}, true, &PairWatch::SourceProc);
        TypeParam b({3, 100}, true, &PairWatch::DestinationProc);
        SetPixel(b, 2, row, 1);
        const PairWatch watch;
        EXPECT_FALSE((TnIsEqual<TypeParam>(a, b, {0, 0})));
        return watch.Polls().size();
    };
    EXPECT_EQ(pollsWithDifferenceIn(0), 0U);
    EXPECT_EQ(pollsWithDifferenceIn(31), 0U);
    EXPECT_EQ(pollsWithDifferenceIn(32), 2U);
    EXPECT_EQ(pollsWithDifferenceIn(99), 6U);
}

} // namespace
} // namespace tn::test
