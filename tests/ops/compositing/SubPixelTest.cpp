#include "tests/ops/compositing/Requests.h"
#include "tests/support/Cases.h"
#include "tests/support/Pictures.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/Compositing.h"

#include <gtest/gtest.h>
#include <vector>

namespace tn::test {
namespace {

constexpr int kCases = 1500;

using Words = std::vector<std::uint32_t>;
using RowsOfWords = std::vector<Words>;

constexpr TnFixedPoint At(double x, double y) {
    return {{static_cast<std::int32_t>(x * 65536)}, {static_cast<std::int32_t>(y * 65536)}};
}

TnImage ImageOf(const RowsOfWords& rows) {
    TnImage image({static_cast<int>(rows.front().size()), static_cast<int>(rows.size())});
    for (int y = 0; y < image.Size().y; ++y) {
        for (int x = 0; x < image.Size().x; ++x) {
            SetPixel(image, x, y, rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]);
        }
    }
    return image;
}

// What is sampled, seen through a pre-blend, which copies pixels that are not transparent onto a transparent ground.
TnImage SampledAt(const TnFixedPoint& at, const TnImage& source, const TnPoint& size = {4, 3}) {
    TnImage destination(size, true);
    PreBlendImageAndAlpha(source, {}, 255, destination, at, destination.Bounds());
    return destination;
}

Words FirstRowAt(const TnFixedPoint& at, const RowsOfWords& source) {
    const TnImage sampled = SampledAt(at, ImageOf(source));
    Words row;
    for (int x = 0; x < sampled.Size().x; ++x) {
        row.push_back(PixelAt(sampled, x, 0));
    }
    return row;
}

std::uint32_t CornerAt(const TnFixedPoint& at, const RowsOfWords& source) { return FirstRowAt(at, source)[0]; }

TEST(SubPixel, HalfAPixelWeighsEachOfTwoNeighboursByOneHalf) {
    const Words row = FirstRowAt(At(0.5, 0), {{0xFFC86400, 0xFF6432FF}});
    EXPECT_EQ(row[1], 0xFF964B7FU); // 150, 75 and 127.5
}

TEST(SubPixel, TheFirstColumnKeepsItsColorAndLosesAlpha) {
    EXPECT_EQ(CornerAt(At(0.5, 0), {{0xFFC86400}}), 0x7FC86400U); // 127.5
    EXPECT_EQ(CornerAt(At(0, 0.5), {{0xFFC86400}}), 0x7FC86400U);
    EXPECT_EQ(CornerAt(At(0.5, 0.5), {{0xFFC86400}}), 0x3FC86400U); // 63.75
}

TEST(SubPixel, TheFractionalColumnAndRowPastTheSourceAreNotDrawn) {
    const TnImage source = ImageOf({{0xFF000001, 0xFF000001}});
    EXPECT_TRUE(SamePixels(ContentOf(SampledAt(At(0.5, 0.5), source)),
                           ContentOf(ImageOf({{0x3F000001, 0x7F000001, 0, 0}, {0, 0, 0, 0}, {0, 0, 0, 0}}))));
}

TEST(SubPixel, TheLeftNeighbourGainsWhatTheFractionMovesRight) {
    const Words row = FirstRowAt(At(0.25, 0), {{0xFF000000, 0xFFFFFFFF}});
    EXPECT_EQ(row[0], 0xBF000000U); // 255 x 3 / 4 = 191.25
    EXPECT_EQ(row[1], 0xFFBFBFBFU);
}

TEST(SubPixel, WeighsAllFourNeighbours) {
    // weights of 12288, 36864, 4096 and 12288: 1474560 / 65536 = 22.5
    EXPECT_EQ(CornerAt(At(-1 + 0.25, -1 + 0.75), {{0xFF00000A, 0xFF000014}, {0xFF00001E, 0xFF000028}}), 0xFF000016U);
}

TEST(SubPixel, LeavesTransparentNeighboursOutOfTheColor) {
    // weights of 36864, 4096 and 12288: 1351680 / 53248 = 25.4, and 255 x 53248 / 65536 = 207.2
    EXPECT_EQ(CornerAt(At(-1 + 0.25, -1 + 0.75), {{0x00FFFFFF, 0xFF000014}, {0xFF00001E, 0xFF000028}}), 0xCF000019U);
    // a weight of 36864 alone
    EXPECT_EQ(CornerAt(At(-1 + 0.25, -1 + 0.75), {{0x00FFFFFF, 0xFF000014}, {0x00FFFFFF, 0x00FFFFFF}}), 0x8F000014U);
}

TEST(SubPixel, AFractionOfOneGivesTheWeight255) {
    const TnFixedPoint oneRight = {{1}, {0}};
    const Words row = FirstRowAt(oneRight, {{0xFF000000, 0xFFFFFFFF}});
    EXPECT_EQ(row[0], 0xFE000000U); // 255 x 255 / 256 = 254.004
    EXPECT_EQ(row[1], 0xFFFEFEFEU);
    EXPECT_EQ(FirstRowAt({{0}, {1}}, {{0xFF000000}})[0], 0xFE000000U);
}

TEST(SubPixel, AFractionOf256GivesTheWeight255Too) {
    EXPECT_EQ(FirstRowAt({{256}, {0}}, {{0xFF000000, 0xFFFFFFFF}})[1], 0xFFFEFEFEU);
    EXPECT_EQ(FirstRowAt({{257}, {0}}, {{0xFF000000, 0xFFFFFFFF}})[1], 0xFFFDFDFDU);
}

// What a transform makes of a sample shows its colour although it is transparent.
std::uint32_t MadeOpaqueAt(const TnFixedPoint& at, const RowsOfWords& source) {
    const TnColorTransform opaque = {{}, {}, {}, {0, 255}};
    TnImage destination({1, 1}, true);
    BlendImage(ImageOf(source), opaque, 255, destination, at, destination.Bounds());
    return PixelAt(destination, 0, 0);
}

TEST(SubPixel, ASampleOfTransparentPixelsIsBlack) {
    EXPECT_EQ(MadeOpaqueAt(At(0.5, 0), {{0x00FFFFFF}}), 0xFF000000U);
    EXPECT_EQ(MadeOpaqueAt(At(-0.5, -0.5), {{0x00FFFFFF, 0x00FFFFFF}, {0x00FFFFFF, 0x00FFFFFF}}), 0xFF000000U);
}

TEST(SubPixel, ASampleWhoseVisiblePixelsWeighNothingIsBlack) {
    EXPECT_EQ(MadeOpaqueAt({{65535}, {0}}, {{0xFFFFFFFF}}), 0xFF000000U);
    EXPECT_EQ(MadeOpaqueAt({{0}, {65535}}, {{0xFFFFFFFF}}), 0xFF000000U);
    EXPECT_EQ(MadeOpaqueAt({{65535}, {65535}}, {{0xFFFFFFFF}}), 0xFF000000U);
    EXPECT_EQ(MadeOpaqueAt({{65281}, {0}}, {{0xFFFFFFFF}}), 0xFF000000U);
    EXPECT_EQ(MadeOpaqueAt({{65280}, {0}}, {{0xFFFFFFFF}}), 0xFFFFFFFFU); // weighs 1 of 256
}

TEST(SubPixel, TransformsAndScalesTheSampleAndNotThePixels) {
    const TnColorTransform inverted = {{-256, 255}, {-256, 255}, {-256, 255}, {512, 0}};
    TnImage destination({2, 1}, true);
    PreBlendImageAndAlpha(ImageOf({{0xFF000000, 0x01FF0000}}), inverted, 128, destination, At(0.5, 0),
                          destination.Bounds());
    // alpha 127 doubled is 254, by 128 / 255 127; the inverted black is white
    EXPECT_EQ(PixelAt(destination, 0, 0), TnImagePixel(0x7FFFFFFF));
    EXPECT_EQ(PixelAt(destination, 1, 0), TnImagePixel(0x8080FFFF)); // the sample is 0x807F0000
}

TEST(SubPixel, ANegativeOffsetIsRoundedDown) {
    const Words row = FirstRowAt(At(-0.5, 0), {{0xFF000000, 0xFFFFFFFF, 0xFF000000}});
    EXPECT_EQ(row[0], 0xFF7F7F7FU);
    EXPECT_EQ(row[1], 0xFF7F7F7FU);
    EXPECT_EQ(row[2], 0U);
}

TEST(SubPixel, PixelsOutsideTheContentAreTransparent) {
    TnImage source = ImageOf({{0xFFFFFFFF, 0xFFFFFFFF}, {0xFFFFFFFF, 0xFF000000}});
    source.Content({1, 1, 1, 1});
    EXPECT_EQ(PixelAt(SampledAt(At(0.5, 0.5), source), 0, 0), TnImagePixel(0x3F000000));
}

TEST(SubPixel, PixelsOutsideTheClipAreRead) {
    const TnImage source = ImageOf({{0xFF000000, 0xFFFFFFFF}});
    TnImage destination({2, 1}, true);
    BlendImage(source, {}, 255, destination, At(0.5, 0), {1, 0, 1, 1});
    EXPECT_EQ(PixelAt(destination, 0, 0), TnImagePixel(0));
    EXPECT_EQ(PixelAt(destination, 1, 0), TnImagePixel(0xFF7F7F7F));
}

using BlendForm = void (*)(const TnImage& source, TnImage& destination, const Request& request);

constexpr BlendForm kForms[] = {
    [](const TnImage& s, TnImage& d, const Request& r) {
        BlendImage(s, r.transform, r.opacity, d, r.subPixelAt, r.clip);
    },
    [](const TnImage& s, TnImage& d, const Request& r) {
        PreBlendImageAndAlpha(s, r.transform, r.opacity, d, r.subPixelAt, r.clip);
    },
    [](const TnImage& s, TnImage& d, const Request& r) {
        SubtractAlpha(s, r.transform, r.opacity, d, r.subPixelAt, r.clip);
    },
    [](const TnImage& s, TnImage& d, const Request& r) {
        XORAlpha(s, r.transform, r.opacity, d, r.subPixelAt, r.clip);
    },
};

std::vector<TnRect> RandomTiles(Random& random, const TnPoint& size) {
    const TnPoint tile = {random.Between(1, 40), random.Between(1, 4)};
    std::vector<TnRect> tiles;
    for (int y = 0; y < size.y; y += tile.y) {
        for (int x = 0; x < size.x; x += tile.x) {
            tiles.push_back({x, y, tile.x, tile.y});
        }
    }
    return tiles;
}

TEST(SubPixel, TilesGiveNoSeams) {
    ForEachCase(kCases, [](Random& random) {
        const Picture<TnImage> source(random);
        Picture<TnImage> destination(random);
        const TnPoint size = destination.Surface().Size();
        Request request = RandomRequest(random, source.Surface().Size(), size);
        request.clip = {0, 0, size.x, size.y};
        for (const BlendForm form : kForms) {
            const ModelImage before = destination.Snapshot();
            form(source.Surface(), destination.Surface(), request);
            const ModelImage atOnce = destination.Snapshot();
            destination.Restore(before);
            Request tiled = request;
            for (const TnRect& tile : RandomTiles(random, size)) {
                tiled.clip = tile;
                form(source.Surface(), destination.Surface(), tiled);
            }
            EXPECT_TRUE(SamePixels(atOnce, destination.Snapshot()));
        }
    });
}

// The offset without a fraction is a whole one.
TEST(SubPixel, WithoutAFractionEqualsTheWholeOffset) {
    ForEachCase(kCases, [](Random& random) {
        const Picture<TnImage> source(random);
        Picture<TnImage> destination(random);
        const ModelImage before = destination.Snapshot();
        const Request request = RandomRequest(random, source.Surface().Size(), destination.Surface().Size());
        const TnFixedPoint at = {{model::FixedOffset(request.at.x)}, {model::FixedOffset(request.at.y)}};
        const TnImage& from = source.Surface();
        XORAlpha(from, request.transform, request.opacity, destination.Surface(), request.at, request.clip);
        IntersectAlpha(from, request.transform, request.opacity, destination.Surface(), request.at, request.clip);
        const ModelImage whole = destination.Snapshot();
        destination.Restore(before);
        XORAlpha(from, request.transform, request.opacity, destination.Surface(), at, request.clip);
        IntersectAlpha(from, request.transform, request.opacity, destination.Surface(), at, request.clip);
        EXPECT_TRUE(SamePixels(whole, destination.Snapshot()));
    });
}

} // namespace
} // namespace tn::test
