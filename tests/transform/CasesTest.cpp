// Which way of sampling a matrix gets, and what it does, in worked numbers.

#include "tests/port/sampling/SmallPictures.h"
#include "tests/support/PixelDiff.h"
#include "tests/transform/Calls.h"

#include <gtest/gtest.h>
#include <vector>

namespace tn::test {
namespace {

constexpr std::uint8_t kOut = 0xEE; // what the rows below show outside

// A source of one row, made of the values; whatever the surface, these are what the results below show.
TnImage ImageRow(const std::vector<std::uint8_t>& values) {
    TnImage image({static_cast<std::int32_t>(values.size()), 1});
    for (std::size_t i = 0; i < values.size(); ++i) {
        SetPixel(image, static_cast<int>(i), 0, 0xFF000000U + values[i]);
    }
    return image;
}

using Values = std::vector<int>;

// The first row of the destination: the blue of pixels, kOut where the image's outside pixel is.
Values FirstRow(const TnImage& source, int length, const Matrix3x3& matrix, InterpolationType type) {
    const auto destination = Transformed<TnImage>(source, {length, 1}, matrix, type);
    Values values;
    for (int x = 0; x < length; ++x) {
        const TnImagePixel pixel = PixelAt(destination, x, 0);
        values.push_back(pixel == source.OutsidePixel() ? kOut : pixel.Blue());
    }
    return values;
}

class TransformCases : public ::testing::Test {
protected:
    TnImage row_ = ImageRow({10, 20, 30, 40});
};

// Affine, nearest

TEST_F(TransformCases, NearestTakesThePixelThatThePositionFallsIn) {
    EXPECT_EQ(FirstRow(row_, 5, Moving(0, 0), kNearest), (Values{10, 20, 30, 40, kOut}));
    EXPECT_EQ(FirstRow(row_, 5, Moving(0.99, 0), kNearest), (Values{10, 20, 30, 40, kOut}));
    EXPECT_EQ(FirstRow(row_, 5, Moving(1, 0), kNearest), (Values{20, 30, 40, kOut, kOut}));
}

TEST_F(TransformCases, NearestRoundsDown) {
    EXPECT_EQ(FirstRow(row_, 5, Moving(-0.5, 0), kNearest), (Values{kOut, 10, 20, 30, 40}));
    EXPECT_EQ(FirstRow(row_, 5, Moving(-0.01, 0), kNearest), (Values{kOut, 10, 20, 30, 40}));
}

TEST_F(TransformCases, NearestRepeatsPixelsOfAnEnlargement) {
    EXPECT_EQ(FirstRow(row_, 8, Scaling(0.5, 0.5), kNearest), (Values{10, 10, 20, 20, 30, 30, 40, 40}));
}

TEST_F(TransformCases, NearestSkipsPixelsOfAReduction) {
    EXPECT_EQ(FirstRow(row_, 3, Scaling(2, 2), kNearest), (Values{10, 30, kOut}));
    EXPECT_EQ(FirstRow(row_, 3, Scaling(3, 3), kNearest), (Values{10, 40, kOut}));
}

TEST_F(TransformCases, AffineMatricesAreNotDividedByTheirLastElement) {
    Matrix3x3 matrix = Moving(1, 0);
    for (const double last : {2.0, 0.0, -1.0}) {
        matrix.m[2][2] = last;
        EXPECT_EQ(FirstRow(row_, 3, matrix, kNearest), (Values{20, 30, 40}));
        EXPECT_EQ(FirstRow(row_, 3, matrix, kSmooth), (Values{20, 30, 40}));
    }
}

// Entries in 16.16

TEST_F(TransformCases, AffineEntriesAreRoundedUpwards) {
    constexpr double kStep = 1.0 / 65536;
    EXPECT_EQ(FirstRow(row_, 2, Moving(-0.5 * kStep, 0), kNearest), (Values{10, 20}));
    EXPECT_EQ(FirstRow(row_, 2, Moving(-1.49 * kStep, 0), kNearest), (Values{10, 20})); // 0.99 truncated
    EXPECT_EQ(FirstRow(row_, 2, Moving(-1.5 * kStep, 0), kNearest), (Values{kOut, 10}));
    EXPECT_EQ(FirstRow(row_, 2, Moving(1 - 0.5 * kStep, 0), kNearest), (Values{20, 30}));
    EXPECT_EQ(FirstRow(row_, 2, Moving(1 - 0.51 * kStep, 0), kNearest), (Values{10, 20}));
}

// -1 becomes -65535, so that a position gains 1/65536 with each step.
TEST_F(TransformCases, FlipsDriftByHalfA128thIn256Pixels) {
    std::vector<std::uint8_t> stripes(300);
    for (std::size_t i = 0; i < 300; i += 2) {
        stripes[i] = 255;
    }
    const Values flipped = FirstRow(ImageRow(stripes), 300, Affine(-1, 0, 299, 0, 1, 0), kSmooth);
    EXPECT_EQ(flipped[254], 0);
    EXPECT_EQ(flipped[255], 255);
    EXPECT_EQ(flipped[256], 0);   // 255/256
    EXPECT_EQ(flipped[257], 254); // 254 and a little
}

TEST_F(TransformCases, AffinePositionsWrapIn32Bits) {
    EXPECT_EQ(FirstRow(row_, 2, Moving(65536, -131072), kNearest), (Values{10, 20}));
    EXPECT_EQ(FirstRow(row_, 2, Moving(65537, 0), kSmooth), (Values{20, 30}));
    EXPECT_EQ(FirstRow(row_, 2, Moving(32768, 0), kNearest), (Values{kOut, kOut}));
    EXPECT_EQ(FirstRow(row_, 6, Scaling(16384, 1), kNearest), (Values{10, kOut, kOut, kOut, 10, kOut}));
    EXPECT_EQ(FirstRow(row_, 3, Affine(-32768, 0, 0, 0, 1, 0), kNearest), (Values{10, kOut, 10}));
}

TEST_F(TransformCases, AffineEntriesBeyond64BitsAreNone) {
    EXPECT_EQ(FirstRow(row_, 2, Moving(1e300, -1e300), kNearest), (Values{10, 20}));
    EXPECT_EQ(FirstRow(row_, 2, Moving(1e15, 0), kNearest), (Values{10, 20})); // wraps 2^32 x 10^15 / 2^16
}

// Affine, smooth

TEST_F(TransformCases, SmoothReadsBetweenPixels) {
    EXPECT_EQ(FirstRow(row_, 5, Moving(0, 0), kSmooth), (Values{10, 20, 30, 40, kOut}));
    EXPECT_EQ(FirstRow(row_, 5, Moving(0.5, 0), kSmooth), (Values{15, 25, 35, 40, kOut}));
    EXPECT_EQ(FirstRow(row_, 5, Moving(-0.25, 0), kSmooth), (Values{kOut, 17, 27, 37, 40}));
}

TEST_F(TransformCases, SmoothEnlargesBetweenPixels) {
    EXPECT_EQ(FirstRow(row_, 8, Scaling(0.5, 0.5), kSmooth), (Values{10, 15, 20, 25, 30, 35, 40, 40}));
}

TEST_F(TransformCases, SmoothReducesBy2BetweenPixels) {
    EXPECT_EQ(FirstRow(row_, 3, Scaling(2, 2), kSmooth), (Values{10, 30, kOut}));
}

TEST_F(TransformCases, EveryTypeButNearestIsSmooth) {
    for (const int type : {1, 2, -1, 256, 0x7FFFFFFF}) {
        EXPECT_EQ(FirstRow(row_, 2, Moving(0.5, 0), static_cast<InterpolationType>(type)), (Values{15, 25}));
    }
}

TEST(TransformCasesOfMattes, SmoothHasTheLastColumnAndRowOutside) {
    const auto matte = SurfaceOf<TnMatte>({{10, 20, 30}, {40, 50, 60}, {70, 80, 90}});
    EXPECT_TRUE(SamePixels(SurfaceOf<TnMatte>({{10, 20, 0}, {40, 50, 0}, {0, 0, 0}}),
                           Transformed<TnMatte>(matte, {3, 3}, Moving(0, 0), kSmooth)));
    EXPECT_TRUE(SamePixels(SurfaceOf<TnMatte>({{30, 40, 0}, {60, 70, 0}, {0, 0, 0}}),
                           Transformed<TnMatte>(matte, {3, 3}, Moving(0.5, 0.5), kSmooth)));
}

// Projective

TEST_F(TransformCases, ATinyTermMakesAMatrixProjective) {
    EXPECT_EQ(FirstRow(row_, 5, HardlyProjective(Moving(-0.5, 0)), kNearest), (Values{kOut, 20, 30, 40, kOut}));
    EXPECT_EQ(FirstRow(row_, 5, HardlyProjective(Moving(0.5, 0)), kNearest), (Values{20, 30, 40, kOut, kOut}));
    EXPECT_EQ(FirstRow(row_, 5, HardlyProjective(Moving(0.49, 0)), kNearest), (Values{10, 20, 30, 40, kOut}));
    EXPECT_EQ(FirstRow(row_, 5, HardlyProjective(Moving(-0.49, 0)), kNearest), (Values{10, 20, 30, 40, kOut}));
}

TEST_F(TransformCases, ProjectiveSmoothTruncatesTowardsZeroInImages) {
    EXPECT_EQ(FirstRow(row_, 5, HardlyProjective(Moving(0.75, 0)), kSmooth), (Values{10, 20, 30, 40, kOut}));
    EXPECT_EQ(FirstRow(row_, 5, HardlyProjective(Moving(-0.75, 0)), kSmooth), (Values{10, 10, 20, 30, 40}));
    EXPECT_EQ(FirstRow(row_, 5, HardlyProjective(Moving(-1, 0)), kSmooth), (Values{kOut, 10, 20, 30, 40}));
}

TEST(TransformCasesOfMattes, ProjectiveSmoothReadsBetweenPixels) {
    const auto matte = SurfaceOf<TnMatte>({{10, 20, 30}, {40, 50, 60}, {70, 80, 90}});
    EXPECT_TRUE(SamePixels(SurfaceOf<TnMatte>({{30, 40, 0}, {60, 70, 0}, {0, 0, 0}}),
                           Transformed<TnMatte>(matte, {3, 3}, HardlyProjective(Moving(0.5, 0.5)), kSmooth)));
    EXPECT_TRUE(SamePixels(SurfaceOf<TnMatte>({{17, 27, 0}}),
                           Transformed<TnMatte>(matte, {3, 1}, HardlyProjective(Moving(0.75, 0)), kSmooth)));
}

TEST_F(TransformCases, AStrongReductionIsProjectiveFirst) {
    EXPECT_EQ(FirstRow(row_, 3, HardlyProjective(Scaling(3, 3)), kSmooth), (Values{10, 40, kOut}));
}

TEST_F(TransformCases, ProjectivePositionsAreDivided) {
    const auto source = ImageRow({0, 1, 2, 3, 4, 5, 6, 7, 8});
    const Matrix3x3 matrix = {{{4, 0, 0}, {0, 1, 0}, {0.5, 0, 1}}}; // 4 X / (1 + X / 2)
    EXPECT_EQ(FirstRow(source, 6, matrix, kNearest), (Values{0, 3, 4, 5, 5, 6}));
    EXPECT_EQ(FirstRow(source, 6, matrix, kSmooth), (Values{0, 2, 4, 4, 5, 5}));
}

TEST_F(TransformCases, ProjectiveRowsAreOutsideWhereWIsZero) {
    const auto source = ImageRow({0, 1, 2, 3, 4});
    const Matrix3x3 matrix = {{{0, 0, -4}, {0, 0, 0}, {1, 0, -4}}}; // -4 / (X - 4)
    EXPECT_EQ(FirstRow(source, 7, matrix, kNearest), (Values{1, 1, 2, 4, kOut, kOut, kOut}));
    const Matrix3x3 noNumber = {{{1, 0, -2}, {0, 0, 0}, {1, 0, -2}}}; // 1, but for 0 / 0
    EXPECT_EQ(FirstRow(source, 4, noNumber, kNearest), (Values{1, 1, kOut, 1}));
    EXPECT_EQ(FirstRow(source, 4, noNumber, kSmooth), (Values{1, 1, kOut, 1}));
}

} // namespace
} // namespace tn::test
