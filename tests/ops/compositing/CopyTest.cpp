#include "tests/ops/compositing/OnePixel.h"
#include "tests/support/PixelDiff.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

constexpr TnPoint kOrigin = {0, 0};

TEST(TnCopy, OfAnImageReplacesAllFourChannelsAlsoByTransparentPixels) {
    const auto copy = [](const TnImage& s, TnImage& d) { TnCopy(s, d, kOrigin); };
    EXPECT_EQ(OnPixel(0x00123456, 0xFFABCDEF, copy), 0x00123456U);
    EXPECT_EQ(OnPixel(0x80123456, 0xFFABCDEF, copy), 0x80123456U);
}

TEST(TnCopy, EqualsBlendImageOfAnOpaqueSource) {
    for (const std::uint32_t destination : {0x00ABCDEFU, 0x80ABCDEFU, 0xFFABCDEFU}) {
        EXPECT_EQ(Blended(0xFF123456, destination),
                  OnPixel(0xFF123456, destination, [](const TnImage& s, TnImage& d) { TnCopy(s, d, kOrigin); }));
    }
}

TEST(TnCopy, LowersTheCopiedAlphaByTheOpacity) {
    const TnColorTransform identity;
    const auto copy = [&](const TnImage& s, TnImage& d) { TnCopy(s, identity, 128, d, kOrigin, {0, 0, 1, 1}); };
    EXPECT_EQ(OnPixel(0xFF123456, 0x11ABCDEF, copy), 0x80123456U);
    EXPECT_EQ(OnPixel(0x64123456, 0x11ABCDEF, copy), 0x32123456U); // 12800 / 255 = 50.2
    EXPECT_EQ(OnPixel(0x01123456, 0x11ABCDEF, copy), 0x00123456U);
}

TEST(TnCopy, TransformsFirstAndScalesTheTransformedAlpha) {
    const TnColorTransform transform = {{-256, 255}, {256, 1}, {0, 7}, {512, 0}};
    const auto copy = [&](const TnImage& s, TnImage& d) { TnCopy(s, transform, 128, d, kOrigin, {0, 0, 1, 1}); };
    EXPECT_EQ(OnPixel(0x40102030, 0, copy), 0x40EF2107U); // alpha 64 becomes 128, and 128 x 128 / 255 = 64.2
    EXPECT_EQ(OnPixel(0xC0102030, 0, copy), 0x80EF2107U); // alpha 192 becomes 255
}

TEST(TnCopy, OfAMatteReplacesTheValue) {
    const OneValueMatte source(77);
    OneValueMatte destination(200);
    TnCopy<TnMatte, TnMatte>(source, destination, kOrigin);
    EXPECT_EQ(destination.Value(), 77);
}

// TnCopyAlpha is TnCopy under a second name, so both are tested alike.
TEST(TnCopyBetweenKinds, TakesTheAlphaOfAnImageIntoAMatte) {
    const OnePixelImage source(0x4D123456);
    OneValueMatte copied(200);
    TnCopy<TnImage, TnMatte>(source, copied, kOrigin);
    EXPECT_EQ(copied.Value(), 0x4D);
    OneValueMatte alphaCopied(200);
    TnCopyAlpha<TnImage, TnMatte>(source, alphaCopied, kOrigin);
    EXPECT_EQ(alphaCopied.Value(), 0x4D);
}

TEST(TnCopyBetweenKinds, PutsAMatteIntoTheAlphaOfAnImageAndKeepsItsColor) {
    const OneValueMatte source(0x4D);
    OnePixelImage copied(0xFF123456);
    TnCopy<TnMatte, TnImage>(source, copied, kOrigin);
    EXPECT_EQ(copied.Word(), 0x4D123456U);
    OnePixelImage alphaCopied(0x00123456);
    TnCopyAlpha<TnMatte, TnImage>(source, alphaCopied, kOrigin);
    EXPECT_EQ(alphaCopied.Word(), 0x4D123456U);
}

TEST(TnCopyColor, ReplacesTheColorAndKeepsTheAlpha) {
    const auto copy = [](const TnImage& s, TnImage& d) { TnCopyColor(s, d, kOrigin); };
    EXPECT_EQ(OnPixel(0xFF123456, 0x80ABCDEF, copy), 0x80123456U);
    EXPECT_EQ(OnPixel(0x00123456, 0xFFABCDEF, copy), 0xFF123456U);
    EXPECT_EQ(OnPixel(0x00123456, 0x00ABCDEF, copy), 0x00123456U);
}

TEST(TnCopy, RestrictsItselfToTheClip) {
    TnImage source({4, 3});
    TnImage destination({4, 3});
    SetAll(source, 0xFF000001);
    SetAll(destination, 0xFF000002);
    TnCopy(source, destination, kOrigin, {1, 1, 2, 9});
    EXPECT_EQ(Drawing<std::uint32_t>(ContentOf(destination), 0xFF000001, 0xFF000002), (Rows{"....", ".##.", ".##."}));
}

} // namespace
} // namespace tn::test
