#include "tests/ops/alpha/Questions.h"
#include "tests/support/Cases.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/AlphaAnalysis.h"

#include <array>
#include <gtest/gtest.h>

namespace tn::test {
namespace {

constexpr int kCases = 3000;
constexpr int kColors = 4000;
constexpr std::uint32_t kWhite = 0x00FFFFFF;
constexpr std::uint32_t kBlack = 0xFF000000;
constexpr std::uint32_t kMidGrey = 0x80808080;

TnImage Uniform(const TnPoint& size, std::uint32_t pixel) {
    TnImage image(size, false, &PollWatch::Proc);
    SetAll(image, pixel);
    return image;
}

int BrightnessOfUniform(const TnPoint& size, std::uint32_t pixel) {
    return GetRepresentativeBrightness(Uniform(size, pixel));
}

// Sets so many pixels, the outermost left out, from the given one on.
void SetInner(TnImage& image, int first, int count, std::uint32_t pixel) {
    const int columns = image.Size().x - 2;
    for (int n = first; n < first + count; ++n) {
        SetPixel(image, 1 + n % columns, 1 + n / columns, pixel);
    }
}

TEST(Brightness, IsThatOfAUniformImage) {
    EXPECT_EQ(BrightnessOfUniform({10, 10}, kWhite), 99);
    EXPECT_EQ(BrightnessOfUniform({10, 10}, kBlack), 0);
    EXPECT_EQ(BrightnessOfUniform({10, 10}, kMidGrey), 50);
}

TEST(Brightness, IsALumaInPercent) {
    EXPECT_EQ(BrightnessOfUniform({10, 10}, 0x00FF0000), 29); // 29.9
    EXPECT_EQ(BrightnessOfUniform({10, 10}, 0x0000FF00), 58); // 58.7
    EXPECT_EQ(BrightnessOfUniform({10, 10}, 0x000000FF), 11); // 11.4
    EXPECT_EQ(BrightnessOfUniform({10, 10}, 0x00FFFF00), 88); // 88.6
}

TEST(Brightness, OfEveryGreyIsTruncated) {
    for (std::uint32_t grey = 0; grey < 256; ++grey) {
        EXPECT_EQ(BrightnessOfUniform({10, 10}, grey * 0x010101), static_cast<int>(grey * 25700 / 65536)) << grey;
    }
}

TEST(Brightness, TakesNoNoticeOfAlphas) {
    EXPECT_EQ(BrightnessOfUniform({10, 10}, 0x00646464), 39);
    EXPECT_EQ(BrightnessOfUniform({10, 10}, 0xFF646464), 39);
}

TEST(Brightness, IsTheHighestWhereNoPixelIsNeeded) {
    for (const TnPoint size : {TnPoint{2, 2}, {1, 1}, {1, 3}, {3, 1}, {0, 4}, {4, 0}, {0, 0}, {1, 2}}) {
        EXPECT_EQ(BrightnessOfUniform(size, kBlack), 100) << size.x << " x " << size.y;
    }
}

// The number that is needed counts the width and the height less 2 even where that is negative.
TEST(Brightness, IsTheLowestWherePixelsAreNeededButThereAreNone) {
    for (const TnPoint size : {TnPoint{10, 1}, {1, 10}, {10, 2}, {2, 3}, {3, 2}, {0, 5}, {5, 0}, {1, 4}}) {
        EXPECT_EQ(BrightnessOfUniform(size, kWhite), 0) << size.x << " x " << size.y;
    }
}

TEST(Brightness, IsTheLowestWhereThereAreFewerPixelsThanNeeded) {
    EXPECT_EQ(BrightnessOfUniform({3, 3}, kWhite), 0); // 1 of 4
    EXPECT_EQ(BrightnessOfUniform({5, 5}, kWhite), 0); // 9 of 12
    EXPECT_EQ(BrightnessOfUniform({6, 6}, kWhite), 99);
    EXPECT_EQ(BrightnessOfUniform({100, 4}, kWhite), 0);  // 196 of 200
    EXPECT_EQ(BrightnessOfUniform({100, 5}, kWhite), 99); // 294 of 202
}

TEST(Brightness, LeavesOutTheOutermostPixels) {
    TnImage image = Uniform({12, 12}, kWhite);
    SetInner(image, 0, 100, kBlack);
    EXPECT_EQ(GetRepresentativeBrightness(image), 0);
    SetAll(image, kBlack);
    SetInner(image, 0, 100, kWhite);
    EXPECT_EQ(GetRepresentativeBrightness(image), 99);
}

TEST(Brightness, IsReachedByTwiceTheInnerWidthAndHeight) {
    TnImage image = Uniform({10, 10}, kBlack);
    SetInner(image, 0, 31, kWhite);
    EXPECT_EQ(GetRepresentativeBrightness(image), 0);
    SetInner(image, 31, 1, kWhite);
    EXPECT_EQ(GetRepresentativeBrightness(image), 99);
}

TEST(Brightness, AddsUpFromTheBrightestDown) {
    TnImage image = Uniform({10, 10}, kBlack);
    SetInner(image, 0, 20, kWhite);
    SetInner(image, 20, 12, kMidGrey);
    EXPECT_EQ(GetRepresentativeBrightness(image), 50);
    SetInner(image, 31, 1, 0x00202020);
    EXPECT_EQ(GetRepresentativeBrightness(image), 12);
}

TEST(Brightness, IsThatOfTheContent) {
    TnImage image = Uniform({20, 20}, kWhite);
    image.Content({5, 5, 10, 10});
    SetInner(image, 0, 64, kMidGrey);
    EXPECT_EQ(GetRepresentativeBrightness(image), 50);
}

TEST(Brightness, PollsOnceEvery32InnerRows) {
    for (const int rows : {32, 33, 34, 65, 66, 100}) {
        const TnImage image = Uniform({5, rows}, kWhite);
        EXPECT_EQ(PollsDuring([&] { GetRepresentativeBrightness(image); }), (rows - 2) / 32) << rows << " rows";
    }
    const TnImage narrow = Uniform({2, 100}, kWhite);
    EXPECT_EQ(PollsDuring([&] { GetRepresentativeBrightness(narrow); }), 0);
}

// A colour and the nearest one above it in blue that has another level, if there is one.
TEST(Brightness, ChangesExactlyWhereTheLumaReachesAPercent) {
    ForEachCase(kColors, [](Random& random) {
        const std::uint32_t redAndGreen = random.Word() & 0x00FFFF00;
        std::uint32_t color = redAndGreen;
        while ((color & 0xFF) < 0xFF && model::LevelOf(color) == model::LevelOf(redAndGreen)) {
            ++color;
        }
        const TnPoint size = {random.Between(6, 23), 6};
        const TnImage above = Uniform(size, color);
        const TnImage below = Uniform(size, color - 1);
        ForEachSupportedLevel([&](ProcessorLevel) {
            EXPECT_EQ(GetRepresentativeBrightness(above), model::LevelOf(color)) << std::hex << color;
            EXPECT_EQ(GetRepresentativeBrightness(below), model::LevelOf(color - 1)) << std::hex << color - 1;
        });
    });
}

TEST(Brightness, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        Picture<TnImage> picture(random, random.Size(), &PollWatch::Proc);
        ExpectAnswer(picture, &GetRepresentativeBrightness, model::RepresentativeBrightness(picture.Snapshot()));
    });
}

// Of few colours, so that the counters decide.
TEST(Brightness, EqualsItsModelInRandomPicturesOfFewColors) {
    ForEachCase(kCases, [](Random& random) {
        const TnPoint size = {random.Side(), random.Between(0, random.OneIn(8) ? 140 : 12)};
        Picture<TnImage> picture(random, size, Backing::kOwnStorage);
        ModelImage model = picture.Snapshot();
        const std::array<std::uint32_t, 3> colors = {random.Word(), random.Word(), random.Word()};
        const int last = random.Between(0, 2);
        for (std::uint32_t& value : model.values) {
            value = random.OneIn(8) ? kWhite : colors[static_cast<std::size_t>(random.Between(0, last))];
        }
        picture.Restore(model);
        ExpectAnswer(picture, &GetRepresentativeBrightness, model::RepresentativeBrightness(picture.Snapshot()));
    });
}

} // namespace
} // namespace tn::test
