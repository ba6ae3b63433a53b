#include "tests/models/AlphaModels.h"
#include "tests/port/SurfaceKinds.h"
#include "tests/port/sampling/ReadSurfaces.h"
#include "tests/support/CancelAtPoll.h"
#include "tests/support/Cases.h"
#include "tests/support/Levels.h"
#include "tests/support/SharedStorage.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/AlphaAnalysis.h"
#include "TnGraphics/port/StDisregardAlphaInGet.h"

#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace tn::test {
namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();
constexpr int kCases = 2500;
constexpr int kHitsOfACase = 12;

template <class SurfaceType> class Hitting : public ::testing::Test {
protected:
    using Pixel = typename SurfaceType::Pixel;

    static constexpr TnPoint kSize = {20, 20};
    static constexpr TnPoint kMiddle = {10, 9};

    // Invisible, though not 0 in an image, and one pixel that can just be seen.
    static constexpr Pixel kNothing = sizeof(Pixel) == 4 ? 0x00FFFFFF : 0;
    static constexpr Pixel kSomething = sizeof(Pixel) == 4 ? 0x01000000 : 1;

    Hitting() : surface_(kSize, false, &PollWatch::Proc) { SetAll(surface_, kNothing); }

    bool IsHit(const TnPoint& point, int radius) const { return TestForHit<SurfaceType>(surface_, point, radius); }
    bool IsHitWith(const TnPoint& spot, const TnPoint& point, int radius) {
        SetPixel(surface_, spot.x, spot.y, kSomething);
        const bool isHit = IsHit(point, radius);
        SetPixel(surface_, spot.x, spot.y, kNothing);
        return isHit;
    }

    SurfaceType surface_;
};
TYPED_TEST_SUITE(Hitting, SurfaceKinds);

TYPED_TEST(Hitting, TestsThePointAloneWithoutARadius) {
    for (const int radius : {0, -1, kLowest}) {
        EXPECT_TRUE(this->IsHitWith({10, 9}, this->kMiddle, radius));
        EXPECT_FALSE(this->IsHitWith({11, 9}, this->kMiddle, radius));
        EXPECT_FALSE(this->IsHitWith({10, 8}, this->kMiddle, radius));
        EXPECT_FALSE(this->IsHit(this->kMiddle, radius));
    }
}

TYPED_TEST(Hitting, TestsASquareAndNoDisc) {
    EXPECT_TRUE(this->IsHitWith({12, 7}, this->kMiddle, 2));
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 20; ++x) {
            const bool isInSquare = 8 <= x && x <= 12 && 7 <= y && y <= 11;
            EXPECT_EQ(this->IsHitWith({x, y}, this->kMiddle, 2), isInSquare) << x << ", " << y;
        }
    }
}

TYPED_TEST(Hitting, ReachesInFromBeside) {
    EXPECT_TRUE(this->IsHitWith({0, 0}, {-3, -3}, 3));
    EXPECT_FALSE(this->IsHitWith({0, 0}, {-3, -3}, 2));
    EXPECT_TRUE(this->IsHitWith({19, 19}, {22, 20}, 3));
    EXPECT_FALSE(this->IsHitWith({19, 19}, {22, 20}, 2));
}

TYPED_TEST(Hitting, HasNothingBesideASurfaceOfItsOwn) {
    EXPECT_FALSE(this->IsHit({-1, 0}, 0));
    EXPECT_FALSE(this->IsHit({20, 19}, 0));
    EXPECT_FALSE(this->IsHit(this->kMiddle, 100));
}

TYPED_TEST(Hitting, TakesPointsAndRadiiAtTheEndsOfTheirRange) {
    for (const int x : {kLowest, kLowest + 1, -1, 10, kHighest}) {
        for (const int y : {kLowest, 10, kHighest - 1, kHighest}) {
            for (const int radius : {0, 1, 2000000000, kHighest}) {
                EXPECT_FALSE(this->IsHit({x, y}, radius));
            }
        }
    }
}

TYPED_TEST(Hitting, SeesASpotFromFarAway) {
    EXPECT_TRUE(this->IsHitWith({19, 19}, {0, 0}, kHighest));
    EXPECT_TRUE(this->IsHitWith({19, 19}, {-2000000000, 2000000000}, 2000000019));
    EXPECT_FALSE(this->IsHitWith({19, 19}, {-2000000000, 2000000000}, 2000000018));
    EXPECT_TRUE(this->IsHitWith({0, 0}, {kHighest, kHighest}, kHighest));
    EXPECT_FALSE(this->IsHitWith({0, 0}, {kLowest, 0}, kHighest)); // reaches to -1
    EXPECT_TRUE(this->IsHitWith({0, 0}, {kLowest + 1, 0}, kHighest));
}

TYPED_TEST(Hitting, NeverPollsAndLeavesNoLock) {
    TypeParam surface({4, 200}, true, &PollWatch::Proc);
    const PollWatch watch;
    EXPECT_FALSE((TestForHit<TypeParam>(surface, {2, 100}, 300)));
    EXPECT_EQ(watch.Polls(), 0);
    EXPECT_EQ(surface.Clients(), 0U);
}

TYPED_TEST(Hitting, ReadsBesideTheContentWhereGetDoes) {
    SetPixel(this->surface_, 12, 12, this->kSomething);
    this->surface_.Content({5, 5, 3, 3});
    EXPECT_TRUE(this->IsHit({7, 7}, 0));
    EXPECT_TRUE(this->IsHit({2, 2}, 5));
    EXPECT_FALSE(this->IsHit({2, 2}, 4));
    EXPECT_FALSE(this->IsHit({12, 12}, 1));
}

TYPED_TEST(Hitting, NeedsNoStorageBesideTheSurfaceAndThrowsWithinIt) {
    TypeParam surface(this->kSize);
    EXPECT_THROW(surface.ReInit({20, kHighest}), std::bad_alloc);
    EXPECT_FALSE((TestForHit<TypeParam>(surface, {-2, 5}, 1)));
    EXPECT_THROW((TestForHit<TypeParam>(surface, {-2, 5}, 2)), std::bad_alloc);
    EXPECT_THROW((TestForHit<TypeParam>(surface, {0, 0}, 0)), std::bad_alloc);
    EXPECT_EQ(surface.Clients(), 0U);
}

TYPED_TEST(Hitting, FindsNothingInASurfaceOfNoSize) {
    for (const TnPoint size : {TnPoint{0, 0}, {0, 9}, {9, 0}}) {
        EXPECT_FALSE((TestForHit<TypeParam>(TypeParam(size), {0, 0}, kHighest)));
    }
}

TEST(HittingBesideAMatteOnGivenStorage, IsAHit) {
    std::vector<std::uint8_t> bytes(100);
    const TnMatte matte(new SharedStorage(bytes, 0, 10), {10, 10});
    ASSERT_EQ(matte.OutsidePixel(), TnMattePixel(255));
    EXPECT_FALSE(TestForHit<TnMatte>(matte, {0, 0}, 0));
    EXPECT_TRUE(TestForHit<TnMatte>(matte, {-1, 0}, 0));
    EXPECT_TRUE(TestForHit<TnMatte>(matte, {0, 5}, 1));
    EXPECT_FALSE(TestForHit<TnMatte>(matte, {4, 5}, 4));
    EXPECT_TRUE(TestForHit<TnMatte>(matte, {4, 5}, 5));
    EXPECT_TRUE(TestForHit<TnMatte>(matte, {kHighest, kLowest}, 0));
    EXPECT_TRUE(TestForHit<TnMatte>(matte, {5, 5}, kHighest));
}

TEST(HittingBesideAnImage, IsAHitInAScopeWithAVisibleOutsidePixel) {
    const TnImage image({10, 10}, true);
    {
        const StDisregardAlphaInGet scope(image, 0x01000000);
        EXPECT_TRUE(TestForHit<TnImage>(image, {10, 0}, 0));
        EXPECT_TRUE(TestForHit<TnImage>(image, {9, 5}, 1));
        EXPECT_FALSE(TestForHit<TnImage>(image, {5, 5}, 4));
        EXPECT_TRUE(TestForHit<TnImage>(image, {5, 5}, 5));
        EXPECT_EQ(image.Clients(), 1U);
    }
    EXPECT_FALSE(TestForHit<TnImage>(image, {10, 0}, 0));
}

// Where the content's corner leads positions out of the block, there is the outside pixel too.
TEST(HittingBehindTheBlock, IsAHitWithAVisibleOutsidePixel) {
    std::vector<std::uint8_t> bytes(100);
    TnMatte matte(new SharedStorage(bytes, 0, 10), {10, 10});
    matte.Content({5, 5, 3, 3});
    EXPECT_FALSE(TestForHit<TnMatte>(matte, {2, 2}, 2)); // up to (9, 9) of the block
    EXPECT_TRUE(TestForHit<TnMatte>(matte, {4, 5}, 0));  // behind its last row
    EXPECT_TRUE(TestForHit<TnMatte>(matte, {3, 3}, 2));
    EXPECT_FALSE(TestForHit<TnMatte>(matte, {9, 3}, 0)); // (4, 9), since the row before it goes on there
    EXPECT_TRUE(TestForHit<TnMatte>(matte, {5, 4}, 0));  // which the last row does not
}

template <class SurfaceType> class RandomHits : public ::testing::Test {
protected:
    static typename SurfaceType::Pixel RandomPixel(Random& random, int oneIn) {
        const std::uint32_t visible = random.OneIn(oneIn) ? static_cast<std::uint32_t>(random.Between(1, 255)) : 0;
        if constexpr (sizeof(ValueOf<SurfaceType>) == 4) {
            return visible << 24 | (random.Word() & 0x00FFFFFF);
        } else {
            return static_cast<std::uint8_t>(visible);
        }
    }

    // Few of the pixels are visible, or none. What lies beside the rows is often so.
    static void PaintSparsely(Random& random, SurfaceType& surface) {
        if (surface.Storage() == nullptr) {
            return;
        }
        const TnRect content = surface.Content();
        constexpr std::array<int, 4> kOneIn = {20, 200, 2000, kHighest};
        const int oneIn = random.OneOf(kOneIn);
        surface.Content({0, 0, surface.StorageSize().x, surface.StorageSize().y});
        for (auto& pixel : surface) {
            pixel = RandomPixel(random, oneIn);
        }
        surface.Content(content);
    }

    static int Position(Random& random, int side) {
        constexpr std::array<int, 6> kFar = {kLowest, kLowest + 1, -2000000000, 2000000000, kHighest - 1, kHighest};
        return random.OneIn(12) ? random.OneOf(kFar) : random.Between(-4, side + 3);
    }

    static int Radius(Random& random) {
        constexpr std::array<int, 8> kFar = {kLowest,       -1,           1999999990, 2000000000, 2000000010,
                                             kHighest - 20, kHighest - 1, kHighest};
        return random.OneIn(5) ? random.OneOf(kFar) : random.Between(0, random.OneIn(4) ? 40 : 6);
    }

    static void ExpectHitsLikeModel(Random& random, const SurfaceType& surface, const model::ReadSurface& read) {
        for (int i = 0; i < kHitsOfACase; ++i) {
            const TnPoint point = {Position(random, read.size.x), Position(random, read.size.y)};
            const int radius = Radius(random);
            EXPECT_EQ(TestForHit<SurfaceType>(surface, point, radius), model::HasHit(read, point, radius))
                << point.x << ", " << point.y << ", radius " << radius;
        }
    }
};
TYPED_TEST_SUITE(RandomHits, SurfaceKinds);

TYPED_TEST(RandomHits, EqualTheirModel) {
    ForEachCase(kCases, [](Random& random) {
        RandomSource<TypeParam> source(random, {random.Between(0, 40), random.Between(0, 20)});
        TestFixture::PaintSparsely(random, source.Surface());
        const model::ReadSurface read = source.Snapshot();
        const TypeParam& surface = source.Surface();
        ForEachSupportedLevel([&](ProcessorLevel) { TestFixture::ExpectHitsLikeModel(random, surface, read); });
        EXPECT_EQ(surface.Clients(), 0U);
        EXPECT_TRUE(SamePixels(read, source.Snapshot()));
    });
}

TEST(RandomHitsInAScope, EqualTheirModel) {
    ForEachCase(kCases / 2, [](Random& random) {
        const RandomSource<TnImage> source(random, {random.Between(1, 30), random.Between(1, 20)});
        const StDisregardAlphaInGet scope(source.Surface(), random.Pixel());
        const model::ReadSurface read = source.Snapshot();
        for (int i = 0; i < kHitsOfACase; ++i) {
            const TnPoint point = {random.Between(-3, 32), random.Between(-3, 22)};
            const int radius = random.Between(-1, 9);
            EXPECT_EQ(TestForHit<TnImage>(source.Surface(), point, radius), model::HasHit(read, point, radius));
        }
    });
}

} // namespace
} // namespace tn::test
