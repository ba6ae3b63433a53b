#include "tests/models/FillModels.h"
#include "tests/models/TextureModels.h"
#include "tests/support/Cases.h"
#include "tests/support/Differential.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/DownSample.h"

#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr int kCases = 3000;
constexpr TnColor kColor = {0x77, 0x12, 0x34, 0x56};

void SetMaskPixel(TnMask& mask, int x, int y) {
    mask.AddClient();
    std::uint8_t* const row = mask.PixelAddress() + static_cast<std::size_t>(y) * mask.RowBytes();
    row[x / 8] = static_cast<std::uint8_t>(row[x / 8] | (0x80 >> (x % 8)));
    mask.RemoveClient();
}

// A mask of one cell with the first pixels set.
TnMask CellWith(int setPixels) {
    TnMask mask({4, 4}, true);
    for (int n = 0; n < setPixels; ++n) {
        SetMaskPixel(mask, n % 4, n / 4);
    }
    return mask;
}

int CoverageOfCell(int setPixels) {
    TnMatte matte({1, 1});
    DownSample(CellWith(setPixels), matte, {0, 0});
    return PixelAt(matte, 0, 0);
}

TEST(DownSample, CoversByTheNumberOfSetPixels) {
    const std::vector<int> coverage = {0, 0, 0, 0, 64, 78, 96, 112, 128, 143, 159, 175, 191, 207, 223, 239, 255};
    for (int setPixels = 0; setPixels <= 16; ++setPixels) {
        EXPECT_EQ(CoverageOfCell(setPixels), coverage[static_cast<std::size_t>(setPixels)]) << setPixels;
    }
}

TEST(DownSample, TakesTheLeftCellFromTheUpperFourBitsOfAByte) {
    TnMask mask({8, 4}, true);
    for (int n = 0; n < 16; ++n) {
        SetMaskPixel(mask, n % 4, n / 4);
    }
    TnMatte matte({2, 1});
    DownSample(mask, matte, {0, 0});
    EXPECT_EQ(PixelAt(matte, 0, 0), 255);
    EXPECT_EQ(PixelAt(matte, 1, 0), 0);
}

TEST(DownSample, IgnoresColumnsAndRowsThatFillNoCell) {
    TnMask mask({7, 7}, true);
    for (int n = 0; n < 49; ++n) {
        SetMaskPixel(mask, n % 7, n / 7);
    }
    TnMatte matte({3, 3}, true);
    DownSample(mask, matte, {0, 0});
    EXPECT_EQ(PixelAt(matte, 0, 0), 255);
    EXPECT_EQ(PixelAt(matte, 1, 0), 0);
    EXPECT_EQ(PixelAt(matte, 0, 1), 0);
}

TEST(DownSample, OfAMaskNarrowerThanACellChangesNothing) {
    TnMatte matte({2, 2});
    SetAll(matte, 9);
    DownSample(TnMask({3, 100}, true), matte, {0, 0});
    DownSample(TnMask({100, 3}, true), matte, {0, 0});
    DownSample(TnMask({0, 0}, true), matte, {0, 0});
    EXPECT_TRUE(SamePixels(UniformPicture<std::uint8_t>(2, 2, 9), matte));
}

TEST(DownSample, ReplacesPixelsOfAnImageByTheColorWithTheCoverage) {
    TnImage image({2, 1});
    SetAll(image, 0xFFFFFFFF);
    DownSample(CellWith(5), image, kColor, {1, 0});
    EXPECT_EQ(PixelAt(image, 0, 0), 0xFFFFFFFFU);
    EXPECT_EQ(PixelAt(image, 1, 0), 0x4E123456U);
}

TEST(DownSample, OutsideTheDestinationChangesNothing) {
    constexpr int kFar = std::numeric_limits<int>::max();
    TnMatte matte({2, 2});
    SetAll(matte, 9);
    for (const TnPoint at : {TnPoint{2, 0}, TnPoint{0, -1}, TnPoint{kFar, kFar}, TnPoint{-kFar - 1, 0}}) {
        DownSample(CellWith(16), matte, at);
    }
    EXPECT_TRUE(SamePixels(UniformPicture<std::uint8_t>(2, 2, 9), matte));
}

TEST(DownSample, LeavesNoLocks) {
    const TnMask mask({8, 8}, true);
    TnMatte matte({2, 2});
    DownSample(mask, matte, {0, 0});
    EXPECT_EQ(mask.Clients(), 0U);
    EXPECT_EQ(matte.Clients(), 0U);
}

TEST(DownSample, ThrowsForADestinationWithoutStorage) {
    TnMatte matte(nullptr, {2, 2});
    const TnMask mask({8, 8}, true);
    EXPECT_THROW(DownSample(mask, matte, {0, 0}), std::bad_alloc);
    EXPECT_EQ(mask.Clients(), 0U);
}

// A random mask and its model. Whole rows are set or empty at times, so that full cells occur.
struct RandomMask {
    TnMask mask;
    model::ModelMask bits;

    explicit RandomMask(Random& random)
        : mask({random.Between(0, random.OneIn(4) ? 600 : 70), random.Between(0, random.OneIn(8) ? 300 : 20)}, true),
          bits{mask.Size(), {}} {
        const int density = random.Between(0, 4);
        for (int y = 0; y < bits.size.y; ++y) {
            for (int x = 0; x < bits.size.x; ++x) {
                const bool isSet = random.Between(1, 4) <= density;
                bits.bits.push_back(isSet);
                if (isSet) {
                    SetMaskPixel(mask, x, y);
                }
            }
        }
    }
};

TnPoint RandomPlace(Random& random, const TnPoint& size) {
    return {random.Between(-size.x / 2 - 3, size.x), random.Between(-size.y / 2 - 3, size.y)};
}

model::Walks WalksOfCoverage(const RandomMask& mask, const TnPoint& size, const TnPoint& at) {
    const TnPoint cells = {mask.bits.size.x / 4, mask.bits.size.y / 4};
    return model::WalksOfFill(size, {at.x, at.y, cells.x, cells.y});
}

TEST(DownSample, EqualsItsModelInRandomMattes) {
    ForEachCase(kCases, [](Random& random) {
        const RandomMask mask(random);
        Picture<TnMatte> picture(random);
        const TnPoint size = picture.Surface().Size();
        const TnPoint at = RandomPlace(random, size);
        ExpectLikeModel(
            picture, [&](TnMatte& matte) { DownSample(mask.mask, matte, at); },
            [&](ModelMatte& expected) {
                model::ForEachCovered(mask.bits, size, at, [&expected](int x, int y, int coverage) {
                    expected.At(x, y) = static_cast<std::uint8_t>(coverage);
                });
            },
            WalksOfCoverage(mask, size, at));
        EXPECT_EQ(mask.mask.Clients(), 0U);
    });
}

TEST(DownSample, EqualsItsModelInRandomImages) {
    ForEachCase(kCases, [](Random& random) {
        const RandomMask mask(random);
        Picture<TnImage> picture(random);
        const TnPoint size = picture.Surface().Size();
        const TnPoint at = RandomPlace(random, size);
        const TnColor color = random.Color();
        ExpectLikeModel(
            picture, [&](TnImage& image) { DownSample(mask.mask, image, color, at); },
            [&](ModelImage& expected) {
                model::ForEachCovered(mask.bits, size, at, [&](int x, int y, int coverage) {
                    expected.At(x, y) = model::WithAlpha(model::WordOf(color), static_cast<std::uint8_t>(coverage));
                });
            },
            WalksOfCoverage(mask, size, at));
    });
}

} // namespace
} // namespace tn::test
