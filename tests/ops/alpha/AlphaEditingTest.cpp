#include "tests/models/AlphaModels.h"
#include "tests/models/FillModels.h"
#include "tests/support/Cases.h"
#include "tests/support/Differential.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/AlphaEditing.h"

#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr int kHighest = std::numeric_limits<int>::max();
constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kCases = 3000;
constexpr TnColor kBlack = {0, 0, 0, 0};
constexpr TnColor kKey = {0, 0x12, 0x34, 0x56};
constexpr std::uint32_t kKeyWord = 0x00123456;

std::uint32_t Built(std::uint32_t pixel, const TnColor& key) {
    OnePixelImage image(pixel);
    BuildAlpha(image, key);
    return image.Word();
}

TEST(BuildAlpha, LeavesBlackTransparentForABlackKeyAndMakesTheRestOpaque) {
    TnImage image({3, 2}, true);
    SetPixel(image, 1, 0, 0x00000001);
    SetPixel(image, 2, 1, 0x00FFFFFF);
    BuildAlpha(image, kBlack);
    EXPECT_EQ(PixelAt(image, 0, 0), 0U);
    EXPECT_EQ(PixelAt(image, 1, 0), 0xFF000001U);
    EXPECT_EQ(PixelAt(image, 2, 1), 0xFFFFFFFFU);
    EXPECT_EQ(PixelAt(image, 1, 1), 0U);
}

TEST(BuildAlpha, ComparesEachChannelWithTheKey) {
    EXPECT_EQ(Built(kKeyWord, kKey), kKeyWord);
    for (int bit = 0; bit < 24; ++bit) {
        const std::uint32_t other = kKeyWord ^ 1U << bit;
        EXPECT_EQ(Built(other, kKey), 0xFF000000 | other) << bit;
    }
}

TEST(BuildAlpha, TakesNoNoticeOfTheKeysAlpha) {
    for (const std::uint8_t alpha : std::array<std::uint8_t, 4>{0, 1, 128, 255}) {
        const TnColor key(alpha, 0x12, 0x34, 0x56);
        EXPECT_EQ(Built(kKeyWord, key), kKeyWord);
        EXPECT_EQ(Built(0x00563412, key), 0xFF563412U);
    }
}

TEST(BuildAlpha, ChangesNothingWhereThereIsAnyAlpha) {
    for (const TnPoint spot : {TnPoint{0, 0}, {39, 0}, {17, 2}, {39, 4}}) {
        TnImage image({40, 5});
        SetAll(image, 0x00808080);
        SetPixel(image, spot.x, spot.y, 0x01123456);
        const TnImage before = image;
        BuildAlpha(image, kBlack);
        EXPECT_TRUE(SamePixels(before, image));
    }
}

TEST(BuildAlpha, ChangesNothingASecondTime) {
    TnImage image({2, 1});
    SetPixel(image, 0, 0, kKeyWord);
    SetPixel(image, 1, 0, 0x00808080);
    BuildAlpha(image, kKey);
    BuildAlpha(image, kBlack);
    EXPECT_EQ(PixelAt(image, 0, 0), kKeyWord);
    EXPECT_EQ(PixelAt(image, 1, 0), 0xFF808080U);
}

TEST(BuildAlpha, TakesNoNoticeOfAlphasBesideTheContent) {
    TnImage image({6, 6});
    SetAll(image, 0xFFFFFFFF);
    image.Content({2, 2, 2, 2});
    SetAll(image, kKeyWord);
    BuildAlpha(image, kBlack);
    EXPECT_TRUE(SamePixels(UniformPicture<std::uint32_t>(2, 2, 0xFF123456), image));
    image.Content({0, 0, 6, 6});
    EXPECT_EQ(PixelAt(image, 1, 2), 0xFFFFFFFFU);
    EXPECT_EQ(PixelAt(image, 4, 3), 0xFFFFFFFFU);
}

// One walk looks for alphas, another makes them.
TEST(BuildAlpha, PollsInBothWalks) {
    TnImage image({3, 100}, true, &PollWatch::Proc);
    const PollWatch whole;
    BuildAlpha(image, kKey);
    EXPECT_EQ(whole.Polls(), 3 + 3);
    const PollWatch search;
    BuildAlpha(image, kKey);
    EXPECT_EQ(search.Polls(), 0);
}

TEST(BuildAlpha, ThatIsCancelledWhileItLooksChangesNothing) {
    TnImage image({3, 100}, true, &PollWatch::Proc);
    for (const int poll : {1, 2, 3}) {
        const CancelAtPoll cancel(poll);
        EXPECT_THROW(BuildAlpha(image, kKey), Cancelled);
        EXPECT_TRUE(SamePixels(UniformPicture<std::uint32_t>(3, 100, 0), image));
    }
}

TEST(SetAlphaRect, MakesTheRectangleOpaqueAndKeepsColors) {
    TnImage image({4, 3});
    SetAll(image, 0x40123456);
    SetAlphaRect(image, {1, 1, 2, 1});
    EXPECT_EQ(Drawing<std::uint32_t>(ContentOf(image), 0xFF123456, 0x40123456), (Rows{"....", ".##.", "...."}));
    SetAlphaRect(image, {2, 1, kHighest, kHighest});
    EXPECT_EQ(Drawing<std::uint32_t>(ContentOf(image), 0xFF123456, 0x40123456), (Rows{"....", ".###", "..##"}));
}

TEST(SetAlphaRect, ChangesNothingInEmptyAndOutsideRectangles) {
    TnImage image({4, 3});
    SetAll(image, 0x40123456);
    for (const TnRect rect : {TnRect{0, 0, 0, 0},
                              {1, 1, 0, 2},
                              {1, 1, 2, -1},
                              {4, 0, 2, 2},
                              {-2, -2, 2, 2},
                              {kHighest, kHighest, kHighest, kHighest},
                              {kLowest, kLowest, kHighest, kHighest}}) {
        SetAlphaRect(image, rect);
    }
    EXPECT_TRUE(SamePixels(UniformPicture<std::uint32_t>(4, 3, 0x40123456), image));
}

TEST(InvertAlpha, MakesEveryValueItsDistanceFrom255) {
    TnMatte matte({256, 1});
    for (int value = 0; value < 256; ++value) {
        SetPixel(matte, value, 0, static_cast<std::uint8_t>(value));
    }
    ForEachSupportedLevel([&](ProcessorLevel) {
        InvertAlpha<TnMatte>(matte);
        for (int value = 0; value < 256; ++value) {
            EXPECT_EQ(PixelAt(matte, value, 0), 255 - value);
        }
        InvertAlpha<TnMatte>(matte);
        for (int value = 0; value < 256; ++value) {
            EXPECT_EQ(PixelAt(matte, value, 0), value);
        }
    });
}

TEST(InvertAlpha, ChangesOnlyTheContent) {
    TnMatte matte({5, 3});
    SetAll(matte, 10);
    matte.Content({1, 1, 3, 1});
    InvertAlpha<TnMatte>(matte);
    matte.Content({0, 0, 5, 3});
    EXPECT_EQ(Drawing<std::uint8_t>(ContentOf(matte), 245, 10), (Rows{".....", ".###.", "....."}));
}

// An image without an alpha or with one in some place, and with the key's colour in about half of its pixels.
void PaintForBuilding(Random& random, Picture<TnImage>& picture, std::uint32_t key) {
    ModelImage model = picture.Snapshot();
    for (int y = 0; y < model.Height(); ++y) {
        for (int x = 0; x < model.Width(); ++x) {
            const std::uint32_t near = random.OneIn(2) ? 0 : 1U << random.Between(0, 23);
            model.At(x, y) = random.OneIn(3) ? random.Word() & 0x00FFFFFF : key ^ near;
        }
    }
    if (random.OneIn(4) && model.Width() > 0 && model.Height() > 0) {
        const std::uint32_t alpha = static_cast<std::uint32_t>(random.Between(1, 255)) << 24;
        model.At(random.Between(0, model.Width() - 1), random.Between(0, model.Height() - 1)) |= alpha;
    }
    picture.Restore(model);
}

TEST(BuildAlpha, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        Picture<TnImage> picture(random, random.Size(), &PollWatch::Proc);
        const TnColor key = random.Color();
        PaintForBuilding(random, picture, model::WordOf(key) & 0x00FFFFFF);
        ExpectLikeModel(
            picture, [&](TnImage& image) { BuildAlpha(image, key); },
            [&](ModelImage& expected) { model::BuildAlpha(expected, key); },
            model::WalksOfBuildingAlpha(picture.Snapshot()));
    });
}

TEST(SetAlphaRect, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        Picture<TnImage> picture(random, random.Size(), &PollWatch::Proc);
        const TnPoint size = picture.Surface().Size();
        const TnRect rect = random.Rect(size);
        ExpectLikeModel(
            picture, [&](TnImage& image) { SetAlphaRect(image, rect); },
            [&](ModelImage& expected) { model::SetAlphaRect(expected, rect); }, model::WalksOfFill(size, rect));
    });
}

TEST(InvertAlpha, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        Picture<TnMatte> picture(random, random.Size(), &PollWatch::Proc);
        const TnPoint size = picture.Surface().Size();
        ExpectLikeModel(
            picture, [](TnMatte& matte) { InvertAlpha<TnMatte>(matte); },
            [](ModelMatte& expected) { model::InvertAlpha(expected); },
            model::WalksOfFill(size, picture.Surface().Bounds()));
    });
}

} // namespace
} // namespace tn::test
