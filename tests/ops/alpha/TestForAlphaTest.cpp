#include "tests/ops/alpha/Questions.h"
#include "tests/support/Cases.h"
#include "tests/support/SparseStorage.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/AlphaAnalysis.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

constexpr int kCases = 3000;

TnImage TransparentWhite(const TnPoint& size) {
    TnImage image(size, false, &PollWatch::Proc);
    SetAll(image, 0x00FFFFFF);
    return image;
}

TEST(TestForAlpha, FindsNoneInATransparentImage) { EXPECT_FALSE(TestForAlpha(TransparentWhite({70, 3}))); }

TEST(TestForAlpha, FindsTheLeastAlphaWhereverItIs) {
    constexpr TnPoint kSize = {67, 3};
    ForEachSupportedLevel([&](ProcessorLevel) {
        for (int x = 0; x < kSize.x; ++x) {
            TnImage image = TransparentWhite(kSize);
            SetPixel(image, x, x % kSize.y, 0x01000000);
            EXPECT_TRUE(TestForAlpha(image)) << x;
        }
    });
}

TEST(TestForAlpha, FindsEveryAlpha) {
    for (std::uint32_t alpha = 0; alpha < 256; ++alpha) {
        EXPECT_EQ(TestForAlpha(OnePixelImage(alpha << 24)), alpha != 0) << alpha;
    }
}

TEST(TestForAlpha, FindsTheLastPixel) {
    TnImage image = TransparentWhite({20, 20});
    SetPixel(image, 19, 19, 0x01FFFFFF);
    EXPECT_TRUE(TestForAlpha(image));
}

TEST(TestForAlpha, FindsNoneWithoutPixels) {
    for (const TnPoint size : {TnPoint{0, 0}, {0, 9}, {9, 0}}) {
        EXPECT_FALSE(TestForAlpha(TnImage(size)));
    }
}

TEST(TestForAlpha, LooksOnlyIntoTheContent) {
    TnImage image({9, 9});
    SetAll(image, 0xFFFFFFFF);
    image.Content({3, 3, 4, 4});
    SetAll(image, 0x00FFFFFF);
    EXPECT_FALSE(TestForAlpha(image));
    SetPixel(image, 3, 3, 0x01FFFFFF);
    EXPECT_TRUE(TestForAlpha(image));
}

TEST(TestForAlpha, PollsOnceEvery32RowsUpToTheFirstThatHasOne) {
    const auto pollsWithAlphaIn = [](int row) {
        TnImage image = TransparentWhite({5, 100});
        SetPixel(image, 4, row, 0x01000000);
        return PollsDuring([&] { EXPECT_TRUE(TestForAlpha(image)); });
    };
    EXPECT_EQ(pollsWithAlphaIn(0), 0);
    EXPECT_EQ(pollsWithAlphaIn(31), 0);
    EXPECT_EQ(pollsWithAlphaIn(32), 1);
    EXPECT_EQ(pollsWithAlphaIn(99), 3);
}

TEST(TestForAlpha, PollsAlsoOnTheStepPastTheLastRow) {
    for (const int rows : {31, 32, 63, 64, 100}) {
        const TnImage image = TransparentWhite({5, rows});
        EXPECT_EQ(PollsDuring([&] { EXPECT_FALSE(TestForAlpha(image)); }), rows / 32) << rows << " rows";
    }
}

TEST(TestForAlpha, FindsAnAlphaInRowsThatLieFarApart) {
    constexpr TnPoint kSize = {21, 6};
    TnImage image(new SparseStorage(kSize, sizeof(TnImagePixel), 0x40000040), kSize);
    ForEachSupportedLevel([&](ProcessorLevel) {
        SetPixel(image, 20, 5, 0);
        EXPECT_FALSE(TestForAlpha(image));
        SetPixel(image, 20, 5, 0x01000000);
        EXPECT_TRUE(TestForAlpha(image));
    });
}

TEST(TestForAlpha, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        SparseImage picture(random);
        ExpectAnswer(picture, &TestForAlpha, model::HasAlpha(picture.Snapshot()));
    });
}

} // namespace
} // namespace tn::test
