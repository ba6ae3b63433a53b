#include "tests/support/PixelDiff.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/Compositing.h"
#include "TnGraphics/ops/Copies.h"

#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();
constexpr std::uint32_t kNew = 0xFF000001;
constexpr std::uint32_t kOld = 0xFF000002;

Rows DrawingOf(const TnImage& image) { return Drawing<std::uint32_t>(ContentOf(image), kNew, kOld); }

TnImage Filled(const TnPoint& size, std::uint32_t pixel) {
    TnImage image(size);
    SetAll(image, pixel);
    return image;
}

// A 2 x 2 source, copied into 5 x 4.
Rows CopiedAt(const TnPoint& at) {
    TnImage destination = Filled({5, 4}, kOld);
    TnCopy(Filled({2, 2}, kNew), destination, at);
    return DrawingOf(destination);
}

Rows BlendedIn(const TnPoint& at, const TnRect& clip) {
    TnImage destination = Filled({5, 4}, kOld);
    BlendImage(Filled({2, 2}, kNew), {}, 255, destination, at, clip);
    return DrawingOf(destination);
}

const Rows kUntouched = {".....", ".....", ".....", "....."};
const Rows kErased = {"?????", "?????", "?????", "?????"};

TEST(Placement, PutsTheSourcesCornerAtTheOffset) {
    EXPECT_EQ(CopiedAt({0, 0}), (Rows{"##...", "##...", ".....", "....."}));
    EXPECT_EQ(CopiedAt({2, 1}), (Rows{".....", "..##.", "..##.", "....."}));
}

TEST(Placement, CutsTheSourceAtTheEdges) {
    EXPECT_EQ(CopiedAt({-1, -1}), (Rows{"#....", ".....", ".....", "....."}));
    EXPECT_EQ(CopiedAt({4, 3}), (Rows{".....", ".....", ".....", "....#"}));
}

TEST(Placement, TakesTheRightPartOfACutSource) {
    TnImage source({3, 2});
    for (int x = 0; x < 3; ++x) {
        SetPixel(source, x, 0, static_cast<std::uint32_t>(x));
        SetPixel(source, x, 1, static_cast<std::uint32_t>(x + 10));
    }
    TnImage destination = Filled({2, 2}, kOld);
    TnCopy(source, destination, {-1, -1});
    EXPECT_EQ(PixelAt(destination, 0, 0), TnImagePixel(11));
    EXPECT_EQ(PixelAt(destination, 1, 0), TnImagePixel(12));
    EXPECT_EQ(PixelAt(destination, 0, 1), TnImagePixel(kOld));
}

TEST(Placement, ChangesNothingOutside) {
    for (const TnPoint at : {TnPoint{5, 0}, {0, 4}, {-2, 0}, {0, -2}, {32767, 32767}, {-32768, -32768}}) {
        EXPECT_EQ(CopiedAt(at), kUntouched) << at.x << ", " << at.y;
    }
}

TEST(Placement, ChangesNothingOutsideTheClip) {
    EXPECT_EQ(BlendedIn({0, 0}, {2, 0, 3, 4}), kUntouched);
    EXPECT_EQ(BlendedIn({0, 0}, {0, 2, 5, 2}), kUntouched);
    EXPECT_EQ(BlendedIn({0, 0}, {-9, -9, 9, 9}), kUntouched);
}

TEST(Placement, ChangesNothingInAnEmptyClip) {
    EXPECT_EQ(BlendedIn({0, 0}, {0, 0, 0, 4}), kUntouched);
    EXPECT_EQ(BlendedIn({0, 0}, {0, 0, 5, -1}), kUntouched);
    EXPECT_EQ(BlendedIn({0, 0}, {0, 0, kLowest, kLowest}), kUntouched);
}

TEST(Placement, CutsAtTheClip) {
    EXPECT_EQ(BlendedIn({1, 1}, {2, 1, 9, 1}), (Rows{".....", "..#..", ".....", "....."}));
    EXPECT_EQ(BlendedIn({1, 1}, {-3, -3, 6, 5}), (Rows{".....", ".##..", ".....", "....."}));
}

TEST(Placement, TakesAHugeClipForEverything) {
    const Rows placed = {".....", ".##..", ".##..", "....."};
    EXPECT_EQ(BlendedIn({1, 1}, {0, 0, kHighest, kHighest}), placed);
    EXPECT_EQ(BlendedIn({1, 1}, {-7, -7, kHighest, kHighest}), placed);
    EXPECT_EQ(BlendedIn({1, 1}, {1, 1, kHighest, kHighest}), placed);
    EXPECT_EQ(BlendedIn({1, 1}, {kLowest, kLowest, kHighest, kHighest}), kUntouched);
}

// The shift to 16.16 keeps 32 bits.
TEST(Placement, WrapsWholeOffsetsBeyond16Bits) {
    const Rows placed = {".....", "..##.", "..##.", "....."};
    for (const TnPoint at : {TnPoint{65538, 1}, {2, 65537}, {2 - 65536, 1 - 65536}, {kLowest + 2, kLowest + 1}}) {
        EXPECT_EQ(CopiedAt(at), placed) << at.x << ", " << at.y;
    }
    EXPECT_EQ(CopiedAt({kHighest, kHighest}), (Rows{"#....", ".....", ".....", "....."})); // as -1
    EXPECT_EQ(CopiedAt({32768, 0}), kUntouched);
}

TEST(Placement, IsThatOfTheContentsOfBothSurfaces) {
    TnImage source = Filled({6, 6}, kOld);
    source.Content({2, 2, 2, 2});
    SetAll(source, kNew);
    TnImage destination = Filled({7, 6}, kOld);
    destination.Content({1, 1, 5, 4});
    TnCopy(source, destination, {4, 3});
    destination.Content({0, 0, 7, 6});
    EXPECT_EQ(DrawingOf(destination), (Rows{".......", ".......", ".......", ".......", ".....#.", "......."}));
}

Rows IntersectedAt(const TnPoint& at, const TnRect& clip) {
    TnImage destination = Filled({5, 4}, kOld);
    IntersectAlpha(Filled({2, 2}, kNew), {}, 255, destination, at, clip);
    return DrawingOf(destination);
}

TEST(PlacementOfAnIntersection, ClearsEverythingOutsideTheOverlap) {
    EXPECT_EQ(IntersectedAt({1, 1}, {0, 0, 5, 4}), (Rows{"?????", "?##??", "?##??", "?????"}));
    EXPECT_EQ(IntersectedAt({-1, 3}, {0, 0, 5, 4}), (Rows{"?????", "?????", "?????", "#????"}));
}

TEST(PlacementOfAnIntersection, ClearsOutsideTheClipToo) {
    EXPECT_EQ(IntersectedAt({1, 1}, {2, 0, 1, 9}), (Rows{"?????", "??#??", "??#??", "?????"}));
}

TEST(PlacementOfAnIntersection, ClearsEverythingWithoutAnOverlap) {
    EXPECT_EQ(IntersectedAt({5, 0}, {0, 0, 5, 4}), kErased);
    EXPECT_EQ(IntersectedAt({1, 1}, {3, 3, 5, 5}), kErased);
    EXPECT_EQ(IntersectedAt({1, 1}, {1, 1, 0, 5}), kErased);
}

TEST(PlacementOfAnIntersection, ClearsToTransparentBlack) {
    TnImage destination = Filled({3, 3}, 0xFFFFFFFF);
    IntersectAlpha(Filled({1, 1}, kNew), 255, destination, {9, 9});
    EXPECT_TRUE(SamePixels(UniformPicture<std::uint32_t>(3, 3, 0), destination));
}

// Without a source no pixel is common.
TEST(PlacementOfAnIntersection, ClearsEverythingForAnEmptySource) {
    const TnImage empty;
    TnImage image = Filled({5, 4}, kOld);
    IntersectAlphaNoColor(empty, 255, image, {0, 0});
    EXPECT_EQ(DrawingOf(image), kErased);
    const TnMatte emptyMatte({0, 7});
    TnMatte matte({5, 4});
    SetAll(matte, 9);
    IntersectAlpha(emptyMatte, 255, matte, {0, 0});
    EXPECT_TRUE(SamePixels(UniformPicture<std::uint8_t>(5, 4, 0), matte));
}

class IntersectAlphaNoColorIgnores : public ::testing::Test {
protected:
    static constexpr TnColorTransform kTransform = {{0, 9}, {0, 9}, {0, 9}, {0, 9}};

    TnImage source_ = Filled({2, 2}, kNew);
};

TEST_F(IntersectAlphaNoColorIgnores, TransformAndClip) {
    TnImage expected = Filled({5, 4}, kOld);
    IntersectAlphaNoColor(source_, 100, expected, {1, 1});
    EXPECT_EQ(PixelAt(expected, 1, 1), TnImagePixel(0x64000002));
    constexpr TnPoint kAt = {1, 1};
    for (const TnRect clip : {TnRect{0, 0, 5, 4}, {2, 2, 1, 1}, {0, 0, 0, 0}, {9, 9, 9, 9}}) {
        TnImage destination = Filled({5, 4}, kOld);
        IntersectAlphaNoColor(source_, kTransform, 100, destination, kAt, clip);
        EXPECT_TRUE(SamePixels(expected, destination));
    }
}

TEST_F(IntersectAlphaNoColorIgnores, TheFractionOfTheOffset) {
    for (const int x : {1, 0, -1}) {
        TnImage expected = Filled({5, 4}, kOld);
        IntersectAlphaNoColor(source_, 100, expected, {x, 1});
        for (const int fraction : {0, 1, 32768, 65535}) {
            TnImage destination = Filled({5, 4}, kOld);
            const TnFixedPoint at = {{x * 65536 + fraction}, {65536 + fraction}};
            IntersectAlphaNoColor(source_, kTransform, 100, destination, at, {0, 0, 0, 0});
            EXPECT_TRUE(SamePixels(expected, destination)) << x << " and " << fraction;
        }
    }
}

} // namespace
} // namespace tn::test
