// TnImage::Get(TnFixed, TnFixed).

#include "tests/port/sampling/SmallPictures.h"

#include "TnGraphics/port/StDisregardAlphaInGet.h"

#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr TnImagePixel kOutside = 0x00FFFFFF;
constexpr TnFixed kLowest = {std::numeric_limits<std::int32_t>::min()};
constexpr TnFixed kHighest = {std::numeric_limits<std::int32_t>::max()};

TEST(ImageBetweenPixels, KeepsVisiblePixelsAtWholePositions) {
    TnImage image({4, 3});
    PaintNumbers(image);
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 4; ++x) {
            EXPECT_EQ(image.Get(At(x), At(y)), TnImagePixel(NumberOf(x, y)));
        }
    }
}

TEST(ImageBetweenPixels, WeighsTheFourNeighbors) {
    const auto image = SurfaceOf<TnImage>({{0xFF00000A, 0xFF000014}, {0xFF00001E, 0xFF000028}});
    EXPECT_EQ(image.Get(At(0.25), At(0.5)), TnImagePixel(0xFF000016));  // 22.5
    EXPECT_EQ(image.Get(At(0.25), At(0)), TnImagePixel(0xFF00000C));    // 12.5
    EXPECT_EQ(image.Get(At(0), At(0.75)), TnImagePixel(0xFF000019));    // 25
    EXPECT_EQ(image.Get(At(0.75), At(0.75)), TnImagePixel(0xFF000020)); // 32.5
}

TEST(ImageBetweenPixels, TruncatesEachChannelByItself) {
    const auto image = SurfaceOf<TnImage>({{0xFFFF0001, 0x01000200}});
    EXPECT_EQ(image.Get(At(0.5), At(0)), TnImagePixel(0x807F0100));
    EXPECT_EQ(image.Get(Raw(1 << 8), At(0)), TnImagePixel(0xFEFE0000));
}

TEST(ImageBetweenPixels, CountsOnlyTheUpperEightBitsOfTheFraction) {
    const auto image = SurfaceOf<TnImage>({{0xFF000000, 0xFFFFFFFF}, {0xFF000000, 0xFFFFFFFF}});
    EXPECT_EQ(image.Get(Raw(0x00FF), Raw(0x00FF)), TnImagePixel(0xFF000000));
    EXPECT_EQ(image.Get(Raw(0x0200), At(0)), TnImagePixel(0xFF010101));
    EXPECT_EQ(image.Get(Raw(0x02FF), At(0)), TnImagePixel(0xFF010101));
    EXPECT_EQ(image.Get(Raw(0xFFFF), At(0)), TnImagePixel(0xFFFEFEFE));
}

TEST(ImageBetweenPixels, RepeatsTheLastColumnAndTheLastRow) {
    TnImage image({3, 2});
    PaintNumbers(image);
    EXPECT_EQ(image.Get(At(2.5), At(0)), TnImagePixel(NumberOf(2, 0)));
    EXPECT_EQ(image.Get(Raw(3 * 65536 - 1), At(0)), TnImagePixel(NumberOf(2, 0)));
    EXPECT_EQ(image.Get(At(1), At(1.5)), TnImagePixel(NumberOf(1, 1)));
    EXPECT_EQ(image.Get(At(1.5), At(1.5)), TnImagePixel(NumberOf(1, 1)));
    EXPECT_EQ(image.Get(Raw(3 * 65536 - 1), Raw(2 * 65536 - 1)), TnImagePixel(NumberOf(2, 1)));
}

TEST(ImageBetweenPixels, AreOutsideBeforeTheFirstAndPastTheLastPixel) {
    TnImage image({3, 2});
    PaintNumbers(image);
    for (const TnFixed bad : {TnFixed{-1}, At(-0.5), At(-1), At(3), At(300), kLowest, kHighest}) {
        EXPECT_EQ(image.Get(bad, At(0)), kOutside) << bad.raw;
        EXPECT_EQ(image.Get(At(0), bad), kOutside) << bad.raw;
    }
    EXPECT_EQ(image.Get(At(0), At(2)), kOutside);
}

TEST(ImageBetweenPixels, LeaveTheColorsOfTransparentPixelsOut) {
    const auto image = SurfaceOf<TnImage>({{0xFFFF0000, 0x000000FF}});
    EXPECT_EQ(image.Get(At(0.5), At(0)), TnImagePixel(0x7FFF0000));
    EXPECT_EQ(image.Get(At(0.75), At(0)), TnImagePixel(0x3FFF0000));
}

TEST(ImageBetweenPixels, InterpolateAllChannelsPlainlyInAScope) {
    const auto image = SurfaceOf<TnImage>({{0xFFFF0000, 0x000000FF}});
    const StDisregardAlphaInGet scope(image, kOutside);
    EXPECT_EQ(image.Get(At(0.5), At(0)), TnImagePixel(0x7F7F007F));
}

TEST(ImageBetweenPixels, AreNothingAmongTransparentPixels) {
    const auto image = SurfaceOf<TnImage>({{0x00102030, 0x00FFFFFF}, {0x00000001, 0x00ABCDEF}});
    EXPECT_EQ(image.Get(At(0), At(0)), TnImagePixel(0));
    EXPECT_EQ(image.Get(At(0.5), At(0.5)), TnImagePixel(0));
    EXPECT_EQ(image.Get(At(1.5), At(1.5)), TnImagePixel(0));
    const StDisregardAlphaInGet scope(image, kOutside);
    EXPECT_EQ(image.Get(At(0), At(0)), TnImagePixel(0x00102030));
}

// 0 of the visible weight: its sums are taken as they are.
TEST(ImageBetweenPixels, AreNothingWhereTheVisiblePixelsHaveNoWeight) {
    const auto image = SurfaceOf<TnImage>({{0x00102030, 0xFF445566}});
    EXPECT_EQ(image.Get(At(0), At(0)), TnImagePixel(0));
}

TEST(ImageBetweenPixels, DivideByTheVisibleWeights) {
    const auto image = SurfaceOf<TnImage>({{0x80000064, 0x00FFFFFF}, {0x40000032, 0x00FFFFFF}});
    EXPECT_EQ(image.Get(At(0.5), At(0.25)), TnImagePixel(0x38000057));  // 87.5 and an alpha of 56
    EXPECT_EQ(image.Get(Raw(0xFF00), At(0)), TnImagePixel(0x00000064)); // visible by 1 in 256, alpha 0.5
}

} // namespace
} // namespace tn::test
