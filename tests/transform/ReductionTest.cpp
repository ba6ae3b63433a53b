// Reductions by more than 2: the means of boxes.

#include "tests/port/sampling/ReadSurfaces.h"
#include "tests/port/sampling/SmallPictures.h"
#include "tests/support/Cases.h"
#include "tests/support/Levels.h"
#include "tests/support/PixelDiff.h"
#include "tests/transform/Calls.h"

#include <gtest/gtest.h>
#include <type_traits>

namespace tn::test {
namespace {

template <class SurfaceType> class Reduction : public ::testing::Test {
protected:
    Reduction() { SetAll(surface_, 0); }

    void SetColumn(int x, std::uint8_t value) {
        for (int y = 0; y < surface_.Size().y; ++y) {
            SetPixel(surface_, x, y, value);
        }
    }

    // What the pixel of the destination shows of a column of 200s.
    int Share(int column, const TnPoint& at, const Matrix3x3& matrix) {
        SetColumn(column, 200);
        const auto reduced = Transformed<SurfaceType>(surface_, {at.x + 1, at.y + 1}, matrix, kSmooth);
        SetColumn(column, 0);
        return static_cast<int>(PixelAt(reduced, at.x, at.y));
    }

    // A quotient as the kind of surface makes it.
    static int Quotient(int sum, int divisor) {
        return (sum + (std::is_same_v<SurfaceType, TnImage> ? divisor / 2 : 0)) / divisor;
    }

    SurfaceType surface_{{9, 9}};
};
using SurfaceTypes = ::testing::Types<TnImage, TnMatte>;
TYPED_TEST_SUITE(Reduction, SurfaceTypes);

// From 1.8 to 4.2, in 256ths: 51 of pixel 1, all of 2 and 3, 51 of 4, which are 614.
TYPED_TEST(Reduction, By3TakesBoxesOfHalfSize1Point2) {
    const Matrix3x3 matrix = Scaling(3, 3);
    constexpr int kOfEdge = 10 + 51 + 51 + 10; // a corner has 51 x 51 / 256
    EXPECT_EQ(this->Share(0, {1, 1}, matrix), 0);
    EXPECT_EQ(this->Share(1, {1, 1}, matrix), this->Quotient(200 * kOfEdge, 1472));
    EXPECT_EQ(this->Share(2, {1, 1}, matrix), this->Quotient(200 * 614, 1472));
    EXPECT_EQ(this->Share(3, {1, 1}, matrix), this->Quotient(200 * 614, 1472));
    EXPECT_EQ(this->Share(4, {1, 1}, matrix), this->Quotient(200 * kOfEdge, 1472));
    EXPECT_EQ(this->Share(5, {1, 1}, matrix), 0);
}

// From -1.2, raised to 0, to 1.2: 307 256ths.
TYPED_TEST(Reduction, CutsBoxesAtTheFirstColumn) {
    EXPECT_EQ(this->Share(0, {0, 1}, Scaling(3, 3)), this->Quotient(200 * (51 + 256 + 256 + 51), 307 * 614 / 256));
}

// From 6.8 to 9.2, lowered to 8: 51 of pixel 6, all of 7.
TYPED_TEST(Reduction, CutsBoxesBeforeTheLastColumn) {
    const Matrix3x3 matrix = Affine(3, 0, -1, 0, 3, 0);
    constexpr int kDivisor = 307 * 614 / 256;
    EXPECT_EQ(this->Share(6, {3, 1}, matrix), this->Quotient(200 * (10 + 51 + 51 + 10), kDivisor));
    EXPECT_EQ(this->Share(7, {3, 1}, matrix), this->Quotient(200 * (51 + 256 + 256 + 51), kDivisor));
    EXPECT_EQ(this->Share(8, {3, 1}, matrix), 0);
}

// From 7.8 to 8.
TYPED_TEST(Reduction, IsOutsideWhereLessThanAPixelIsLeftOfABox) {
    SetAll(this->surface_, 200);
    const auto reduced = Transformed<TypeParam>(this->surface_, {5, 1}, Scaling(3, 3), kSmooth);
    EXPECT_EQ(PixelAt(reduced, 2, 0), 200);
    EXPECT_EQ(PixelAt(reduced, 3, 0), this->surface_.OutsidePixel().value);
    EXPECT_EQ(PixelAt(reduced, 4, 0), this->surface_.OutsidePixel().value);
}

TYPED_TEST(Reduction, ByMoreThan2AlongEitherAxisIsOne) {
    this->SetColumn(3, 200);
    for (const Matrix3x3& matrix : {Scaling(2.0000001, 1), Scaling(1, 2.0000001)}) {
        const auto reduced = Transformed<TypeParam>(this->surface_, {4, 4}, matrix, kSmooth);
        const auto interpolated = Transformed<TypeParam>(this->surface_, {4, 4}, Scaling(2, 1), kSmooth);
        EXPECT_FALSE(SamePixels(interpolated, reduced));
    }
}

// At least 0.6 to either side: 2.4 to 3.6 at 3, of which 154 256ths lie in each column.
TYPED_TEST(Reduction, AlongOneAxisHasBoxesAPixelWideAcross) {
    const Matrix3x3 matrix = Scaling(1, 3);
    const int divisor = 307 * 614 / 256;
    EXPECT_EQ(this->Share(1, {3, 1}, matrix), 0);
    EXPECT_EQ(this->Share(2, {3, 1}, matrix), this->Quotient(200 * (30 + 154 + 154 + 30), divisor));
    EXPECT_EQ(this->Share(3, {3, 1}, matrix), this->Quotient(200 * (30 + 153 + 153 + 30), divisor));
    EXPECT_EQ(this->Share(4, {3, 1}, matrix), 0);
}

// Rotation, shear and the sign have no part in the choice: the pixel comes as it is.
TYPED_TEST(Reduction, ByOtherEntriesIsNone) {
    SetPixel(this->surface_, 4, 4, static_cast<ValueOf<TypeParam>>(0xFF0000C8));
    for (const Matrix3x3& matrix : {Affine(0, 4, 0, 4, 0, 0), Affine(-4, 0, 8, 0, -4, 8), Affine(1, 3, 0, 3, 1, 0)}) {
        const auto read = Transformed<TypeParam>(this->surface_, {2, 2}, matrix, kSmooth);
        EXPECT_EQ(PixelAt(read, 1, 1) & 255U, 200U);
    }
}

TYPED_TEST(Reduction, OfASourceOfOneColumnOrRowIsOutside) {
    for (const TnPoint size : {TnPoint{1, 9}, {9, 1}, {1, 1}}) {
        TypeParam line(size);
        SetAll(line, 200);
        const auto reduced = Transformed<TypeParam>(line, {3, 3}, Scaling(3, 3), kSmooth);
        TypeParam outside({3, 3});
        SetAll(outside, line.OutsidePixel());
        EXPECT_TRUE(SamePixels(outside, reduced));
    }
}

// Boxes of so many pixels that an image's are split.
TYPED_TEST(Reduction, OfManyPixelsToOneEqualsItsModel) {
    ForEachCase(10, [](Random& random) {
        const RandomSource<TypeParam> source(random, {random.Between(500, 700), random.Between(400, 500)},
                                             Surroundings::kBlockBeforePage);
        const Matrix3x3 matrix = Affine(random.Between(300, 1600), random.Between(-5, 5), random.Between(0, 600), 0,
                                        random.Between(300, 1600), random.Between(0, 400));
        auto expected = UniformPicture<ValueOf<TypeParam>>(2, 2, 0);
        model::Resample(CallOf(matrix, kSmooth), source.Snapshot(), expected);
        ForEachSupportedLevel([&](ProcessorLevel) {
            EXPECT_TRUE(SamePixels(expected, Transformed<TypeParam>(source.Surface(), {2, 2}, matrix, kSmooth)));
        });
    });
}

} // namespace
} // namespace tn::test
