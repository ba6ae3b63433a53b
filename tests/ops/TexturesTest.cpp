#include "tests/models/FillModels.h"
#include "tests/models/TextureModels.h"
#include "tests/support/Cases.h"
#include "tests/support/Differential.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/Textures.h"

#include <array>
#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr int kCases = 3000;

// A texture whose pixels tell their column and row.
TnImage Numbered(const TnPoint& size) {
    TnImage texture(size);
    for (int y = 0; y < size.y; ++y) {
        for (int x = 0; x < size.x; ++x) {
            SetPixel(texture, x, y, 0x55000000U + static_cast<std::uint32_t>(x + 256 * y));
        }
    }
    return texture;
}

TEST(CopyTexture, TilesFromTheOriginAndKeepsAlphas) {
    TnImage image({5, 3});
    SetAll(image, 0x80FFFFFF);
    CopyTexture(Numbered({2, 2}), image, {1, 1}, image.Bounds());
    EXPECT_EQ(PixelAt(image, 1, 1), 0x80000000U);
    EXPECT_EQ(PixelAt(image, 2, 1), 0x80000001U);
    EXPECT_EQ(PixelAt(image, 3, 1), 0x80000000U);
    EXPECT_EQ(PixelAt(image, 0, 0), 0x80000101U);
    EXPECT_EQ(PixelAt(image, 4, 2), 0x80000101U);
}

TEST(CopyTexture, StartsInsideTheTextureWhenTheOriginLiesRightOfTheArea) {
    TnImage image({3, 1}, true);
    CopyTexture(Numbered({8, 1}), image, {1, 0}, image.Bounds());
    EXPECT_EQ(PixelAt(image, 0, 0), 7U);
    EXPECT_EQ(PixelAt(image, 1, 0), 0U);
}

TEST(CopyTexture, OfOnePixelFillsWithItsColor) {
    TnImage image({70, 2}, true);
    TnImage texture({1, 1});
    SetAll(texture, 0x12345678);
    CopyTexture(texture, image, {9, 9}, image.Bounds());
    EXPECT_TRUE(SamePixels(UniformPicture<std::uint32_t>(70, 2, 0x00345678), image));
}

TEST(CopyTexture, GivesThePhaseOfTheAreaToTheFirstPixelThatIsLeftOfIt) {
    TnImage image({2, 1}, true);
    CopyTexture(Numbered({8, 1}), image, {-3, 0}, {-3, 0, 8, 1});
    EXPECT_EQ(PixelAt(image, 0, 0), 0U);
    EXPECT_EQ(PixelAt(image, 1, 0), 1U);
}

TEST(CopyTexture, KeepsTheLow32BitsOfDistances) {
    constexpr int kLowest = std::numeric_limits<int>::min();
    TnImage image({1, 1}, true);
    CopyTexture(Numbered({8, 8}), image, {kLowest, kLowest}, {0, 0, 1, 1});
    EXPECT_EQ(PixelAt(image, 0, 0), 0U); // the distance is 2^31, which wraps to -2^31, a multiple of 8
}

TEST(CopyTextureZeroAlpha, LeavesEveryPixelOfTheAreaWithAlpha0) {
    TnImage image({3, 1});
    SetAll(image, 0xFFFFFFFF);
    CopyTextureZeroAlpha(Numbered({2, 1}), image, {0, 0}, {0, 0, 2, 1});
    EXPECT_EQ(PixelAt(image, 0, 0), 0U);
    EXPECT_EQ(PixelAt(image, 1, 0), 1U);
    EXPECT_EQ(PixelAt(image, 2, 0), 0xFFFFFFFFU);
}

TEST(BlendTexture, ChangesNothingWhereTheDestinationIsTransparent) {
    TnImage image({9, 2});
    SetAll(image, 0x00ABCDEF);
    BlendTexture(Numbered({4, 4}), image, image.Bounds());
    EXPECT_TRUE(SamePixels(UniformPicture<std::uint32_t>(9, 2, 0x00ABCDEF), image));
}

TEST(BlendTexture, EqualsCopyTextureOverAnOpaqueDestination) {
    TnImage blended({9, 5});
    SetAll(blended, 0xFFABCDEF);
    TnImage copied = blended;
    BlendTexture(Numbered({4, 4}), blended, {2, 1, 6, 3});
    CopyTexture(Numbered({4, 4}), copied, {2, 1}, {2, 1, 6, 3});
    EXPECT_TRUE(SamePixels(copied, blended));
}

TEST(BlendTexture, MixesByTheAlphaOfTheDestination) {
    TnImage image({1, 1});
    SetAll(image, 0x80FF0000);
    TnImage texture({1, 1});
    SetAll(texture, 0x0000FF00);
    BlendTexture(texture, image, image.Bounds());
    EXPECT_EQ(PixelAt(image, 0, 0), 0x807F8000U); // 255 x 127 / 255 and 255 x 128 / 255
}

TEST(Textures, WithoutColumnsOrRowsChangeNothing) {
    for (const TnPoint size : {TnPoint{0, 0}, TnPoint{0, 3}, TnPoint{3, 0}}) {
        TnImage image({2, 2});
        SetAll(image, 0x12345678);
        const TnImage texture(size);
        CopyTexture(texture, image, {0, 0}, image.Bounds());
        CopyTextureZeroAlpha(texture, image, {0, 0}, image.Bounds());
        BlendTexture(texture, image, image.Bounds());
        EXPECT_TRUE(SamePixels(UniformPicture<std::uint32_t>(2, 2, 0x12345678), image));
    }
}

TEST(Textures, WithoutStorageThrow) {
    const TnImage texture(nullptr, {2, 2});
    TnImage image({2, 2}, true);
    EXPECT_THROW(CopyTexture(texture, image, {0, 0}, image.Bounds()), std::bad_alloc);
    EXPECT_EQ(image.Clients(), 0U);
    EXPECT_EQ(texture.Clients(), 0U);
}

TEST(Textures, OfTheDestinationItselfAreReadInStep) {
    TnImage image({6, 1});
    for (int x = 0; x < 6; ++x) {
        SetPixel(image, x, 0, static_cast<std::uint32_t>(x));
    }
    CopyTexture(image, image, {0, 0}, {1, 0, 5, 1}); // each pixel takes what the next one held
    EXPECT_EQ(PixelAt(image, 1, 0), 1U);
    CopyTexture(image, image, {2, 0}, {1, 0, 5, 1});
    EXPECT_EQ(PixelAt(image, 1, 0), 5U);
    EXPECT_EQ(PixelAt(image, 2, 0), 0U);
    EXPECT_EQ(PixelAt(image, 3, 0), 5U);
}

// A random texture, its origin and its area.
struct Tiling {
    Picture<TnImage> texture;
    TnPoint origin;
    TnRect area;

    Tiling(Random& random, const TnPoint& size)
        : texture(random, {random.Between(0, random.OneIn(2) ? 9 : 140), random.Between(0, 9)}, Backing::kGuardAfter),
          origin{random.Between(-300, 300), random.Between(-300, 300)}, area(random.Rect(size)) {
        if (random.OneIn(10)) {
            origin = {static_cast<int>(random.Word()), static_cast<int>(random.Word())};
        }
    }
};

template <class Operation, class Change>
void ExpectTiledLikeModel(Random& random, const Operation& operation, const Change& change, bool hasOrigin) {
    Picture<TnImage> picture(random);
    const TnPoint size = picture.Surface().Size();
    Tiling tiling(random, size);
    if (!hasOrigin) {
        tiling.origin = {tiling.area.left, tiling.area.top};
    }
    const ModelImage texture = tiling.texture.Snapshot();
    const bool isEmpty = texture.Width() == 0 || texture.Height() == 0;
    ExpectLikeModel(
        picture, [&](TnImage& image) { operation(tiling.texture.Surface(), image, tiling.origin, tiling.area); },
        [&](ModelImage& expected) { model::ForEachTiled(texture, expected, tiling.origin, tiling.area, change); },
        isEmpty ? model::Walks{} : model::WalksOfFill(size, tiling.area));
    EXPECT_TRUE(SamePixels(texture, tiling.texture.Snapshot()));
    EXPECT_EQ(tiling.texture.Surface().Clients(), 0U);
}

TEST(CopyTexture, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) { ExpectTiledLikeModel(random, &CopyTexture, &model::WithColorOf, true); });
}

TEST(CopyTextureZeroAlpha, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        const auto change = [](std::uint32_t, std::uint32_t texture) { return texture & 0x00FFFFFF; };
        ExpectTiledLikeModel(random, &CopyTextureZeroAlpha, change, true);
    });
}

TEST(BlendTexture, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        const auto operation = [](const TnImage& texture, TnImage& image, const TnPoint&, const TnRect& area) {
            BlendTexture(texture, image, area);
        };
        ExpectTiledLikeModel(random, operation, &model::PaintedThroughAlpha, false);
    });
}

} // namespace
} // namespace tn::test
