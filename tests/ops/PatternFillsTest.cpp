#include "tests/models/FillModels.h"
#include "tests/support/Cases.h"
#include "tests/support/Differential.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/Fills.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

constexpr TnColor kGround = {0, 1, 2, 3}; // the alphas of the colours are ignored
constexpr TnColor kLine = {7, 250, 251, 252};
constexpr std::uint32_t kOpaqueGround = 0xFF010203;
constexpr std::uint32_t kOpaqueLine = 0xFFFAFBFC;
constexpr int kCases = 2500;

Rows DrawingOf(const TnImage& image) { return Drawing(ContentOf(image), kOpaqueLine, kOpaqueGround); }

Rows DrawingOfX(const TnPoint& size, const TnRect& rect) {
    TnImage image(size, true);
    XFill(image, rect, kGround, kLine);
    return DrawingOf(image);
}

Rows DrawingOfHatch(const TnPoint& size, const TnRect& rect, long sizeExponent) {
    TnImage image(size, true);
    CrossHatchFill(image, rect, kGround, kLine, sizeExponent);
    return DrawingOf(image);
}

TEST(XFill, DrawsTwoLinesFromTheTopCornersOfTheRectangle) {
    TnImage image({40, 30}, true);
    XFill(image, {10, 20, 5, 3}, kGround, kLine);
    image.Content({10, 20, 5, 3});
    EXPECT_EQ(DrawingOf(image), (Rows{"#...#", ".#.#.", "..#.."}));
}

TEST(XFill, WritesNothingOutsideTheRectangle) {
    EXPECT_EQ(DrawingOfX({7, 5}, {1, 1, 5, 3}), (Rows{"???????", "?#...#?", "?.#.#.?", "?..#..?", "???????"}));
}

TEST(XFill, DrawsTheDiagonalsOfASquare) {
    EXPECT_EQ(DrawingOfX({4, 4}, {0, 0, 4, 4}), (Rows{"#..#", ".##.", ".##.", "#..#"}));
    EXPECT_EQ(DrawingOfX({5, 5}, {0, 0, 5, 5}), (Rows{"#...#", ".#.#.", "..#..", ".#.#.", "#...#"}));
}

TEST(XFill, StopsAtTheBottomOfAWideRectangle) {
    EXPECT_EQ(DrawingOfX({9, 3}, {0, 0, 9, 3}), (Rows{"#.......#", ".#.....#.", "..#...#.."}));
}

TEST(XFill, LeavesTheGroundBelowTheCrossOfATallRectangle) {
    EXPECT_EQ(DrawingOfX({3, 5}, {0, 0, 3, 5}), (Rows{"#.#", ".#.", "#.#", "...", "..."}));
}

TEST(XFill, PlacesTheCrossByTheRectangleAsGivenWhenTheLeftSideIsCut) {
    EXPECT_EQ(DrawingOfX({5, 5}, {-2, 0, 5, 5}), (Rows{"..#??", ".#.??", "#..??", ".#.??", "..#??"}));
}

TEST(XFill, PlacesTheCrossByTheRectangleAsGivenWhenTheRightSideIsCut) {
    EXPECT_EQ(DrawingOfX({5, 3}, {2, 0, 5, 3}), (Rows{"??#..", "??.#.", "??..#"}));
}

TEST(XFill, PlacesTheCrossByTheRectangleAsGivenWhenTheTopIsCut) {
    EXPECT_EQ(DrawingOfX({4, 3}, {0, -1, 4, 4}), (Rows{".##.", ".##.", "#..#"}));
}

TEST(XFill, PlacesTheCrossByTheRectangleAsGivenWhenItReachesBeyondAllCoordinates) {
    EXPECT_EQ(DrawingOfX({6, 4}, {-2000000000, -2000000001, 2147483647, 2147483647}),
              (Rows{".#....", "..#...", "...#..", "....#."}));
}

TEST(XFill, CountsPositionsFromTheContentCorner) {
    TnImage image({6, 5}, true);
    image.Content({2, 1, 3, 3});
    XFill(image, {0, 0, 3, 3}, kGround, kLine);
    EXPECT_EQ(DrawingOf(image), (Rows{"#.#", ".#.", "#.#"}));
}

TEST(XFill, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        Picture<TnImage> picture(random);
        const TnPoint size = picture.Surface().Size();
        const TnRect rect = random.Rect(size);
        const TnColor ground = random.Color();
        const TnColor line = random.Color();
        ExpectLikeModel(
            picture, [&](TnImage& image) { XFill(image, rect, ground, line); },
            [&](ModelImage& image) { model::XFill(image, rect, ground, line); }, model::WalksOfFill(size, rect));
    });
}

const Rows kCellsOfFour = {"#..##..#", ".##..##.", ".##..##.", "#..##..#",
                           "#..##..#", ".##..##.", ".##..##.", "#..##..#"};

TEST(CrossHatchFill, DrawsACrossInEachCell) { EXPECT_EQ(DrawingOfHatch({8, 8}, {0, 0, 8, 8}, 2), kCellsOfFour); }

TEST(CrossHatchFill, DrawsCellsOfEight) {
    EXPECT_EQ(DrawingOfHatch({8, 8}, {0, 0, 8, 8}, 3),
              (Rows{"#......#", ".#....#.", "..#..#..", "...##...", "...##...", "..#..#..", ".#....#.", "#......#"}));
}

TEST(CrossHatchFill, FillsWithTheLineColorWhenCellsAreOnePixel) {
    EXPECT_EQ(DrawingOfHatch({3, 2}, {0, 0, 3, 2}, 0), (Rows{"###", "###"}));
}

TEST(CrossHatchFill, FillsWithTheLineColorWhenCellsAreTwoPixels) {
    EXPECT_EQ(DrawingOfHatch({3, 2}, {0, 0, 3, 2}, 1), (Rows{"###", "###"}));
}

TEST(CrossHatchFill, UsesFiveBitsOfTheExponent) {
    EXPECT_EQ(DrawingOfHatch({8, 8}, {0, 0, 8, 8}, 34), kCellsOfFour);
    EXPECT_EQ(DrawingOfHatch({8, 8}, {0, 0, 8, 8}, -30), kCellsOfFour);
    EXPECT_EQ(DrawingOfHatch({3, 2}, {0, 0, 3, 2}, 32), (Rows{"###", "###"}));
}

TEST(CrossHatchFill, DrawsOneLineWhenTheCellIsLargerThanAnyPicture) {
    EXPECT_EQ(DrawingOfHatch({4, 3}, {0, 0, 4, 3}, 31), (Rows{"#...", ".#..", "..#."}));
    EXPECT_EQ(DrawingOfHatch({4, 3}, {0, 0, 4, 3}, -1), (Rows{"#...", ".#..", "..#."}));
}

TEST(CrossHatchFill, StartsTheLatticeAtTheCornerOfTheRectangle) {
    EXPECT_EQ(DrawingOfHatch({8, 5}, {3, 1, 4, 4}, 2),
              (Rows{"????????", "???#..#?", "???.##.?", "???.##.?", "???#..#?"}));
}

TEST(CrossHatchFill, StartsTheLatticeAtTheCornerAsGivenWhenTheRectangleIsCut) {
    EXPECT_EQ(DrawingOfHatch({4, 4}, {-1, -2, 9, 9}, 2), (Rows{"##..", "..##", "..##", "##.."}));
    EXPECT_EQ(DrawingOfHatch({4, 4}, {-1000001, -1000002, 2000000, 2000000}, 2),
              (Rows{"##..", "..##", "..##", "##.."}));
}

TEST(CrossHatchFill, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        Picture<TnImage> picture(random);
        const TnPoint size = picture.Surface().Size();
        const TnRect rect = random.Rect(size);
        const TnColor ground = random.Color();
        const TnColor line = random.Color();
        const long exponent = random.OneIn(2) ? random.Between(0, 6) : random.Between(-70, 70);
        ExpectLikeModel(
            picture, [&](TnImage& image) { CrossHatchFill(image, rect, ground, line, exponent); },
            [&](ModelImage& image) { model::CrossHatchFill(image, rect, ground, line, exponent); },
            model::WalksOfFill(size, rect));
    });
}

} // namespace
} // namespace tn::test
