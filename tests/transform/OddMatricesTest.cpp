// Every matrix gives a defined picture.

#include "tests/port/sampling/SmallPictures.h"
#include "tests/support/PixelDiff.h"
#include "tests/transform/Calls.h"

#include <gtest/gtest.h>
#include <limits>
#include <type_traits>

namespace tn::test {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr TnPoint kSize = {6, 4};

template <class KindsType> class OddMatrices : public ::testing::Test {
protected:
    using Source = typename KindsType::Source;
    using Destination = typename KindsType::Destination;

    static constexpr bool kIsToAlpha = !std::is_same_v<Source, Destination>;

    OddMatrices() {
        for (int y = 0; y < kSize.y; ++y) {
            for (int x = 0; x < kSize.x; ++x) {
                SetPixel(source_, x, y, ValueAt(x, y));
            }
        }
    }

    // Low bytes and alphas are alike.
    static ValueOf<Source> ValueAt(int x, int y) {
        return static_cast<ValueOf<Source>>(0x01000001U * static_cast<std::uint32_t>(1 + 6 * y + x));
    }
    static ValueOf<Destination> Written(typename Source::Pixel pixel) {
        return static_cast<ValueOf<Destination>>(kIsToAlpha ? std::uint32_t{pixel.value} >> 24 : pixel.value);
    }

    void ExpectEverywhere(ValueOf<Destination> value, const Matrix3x3& matrix, InterpolationType type) {
        EXPECT_TRUE(SamePixels(UniformPicture(5, 3, value), Transformed<Destination>(source_, {5, 3}, matrix, type)))
            << ::testing::PrintToString(ElementsOf(matrix));
    }
    void ExpectOutside(const Matrix3x3& matrix, InterpolationType type) {
        ExpectEverywhere(Written(source_.OutsidePixel()), matrix, type);
    }
    void ExpectCorner(const Matrix3x3& matrix, InterpolationType type) {
        ExpectEverywhere(Written(ValueAt(0, 0)), matrix, type);
    }
    void ExpectLike(const Matrix3x3& expected, const Matrix3x3& matrix, InterpolationType type) {
        EXPECT_TRUE(SamePixels(Transformed<Destination>(source_, {5, 3}, expected, type),
                               Transformed<Destination>(source_, {5, 3}, matrix, type)))
            << ::testing::PrintToString(ElementsOf(matrix));
    }

    Source source_{kSize};
};
TYPED_TEST_SUITE(OddMatrices, TransformKinds);

Matrix3x3 Uniform(double entry) { return {{{entry, entry, entry}, {entry, entry, entry}, {entry, entry, entry}}}; }

Matrix3x3 With(Matrix3x3 matrix, int row, int column, double entry) {
    matrix.m[row][column] = entry;
    return matrix;
}

TYPED_TEST(OddMatrices, OfNoNumbersAreOutside) {
    for (const InterpolationType type : kBothTypes) {
        this->ExpectOutside(Uniform(kNaN), type);
        this->ExpectOutside(Uniform(kInfinity), type);
        this->ExpectOutside(Uniform(-kInfinity), type);
    }
}

TYPED_TEST(OddMatrices, OfZerosTakeTheCornerForEveryPixel) {
    for (const double zero : {0.0, -0.0}) {
        this->ExpectCorner(Uniform(zero), kNearest);
        this->ExpectCorner(Uniform(zero), kSmooth);
    }
}

TYPED_TEST(OddMatrices, WithNoNumberInTheLowerRowAreProjective) {
    for (const InterpolationType type : kBothTypes) {
        this->ExpectOutside(With(Moving(0, 0), 2, 0, kNaN), type);
        this->ExpectOutside(With(Moving(0, 0), 2, 1, kNaN), type);
        this->ExpectLike(Moving(0, 0), With(Moving(0, 0), 2, 2, kNaN), type); // not so here
    }
}

TYPED_TEST(OddMatrices, ThatAreAffineTakeEntriesWithoutAnIntegerForNone) {
    for (const double odd : {kNaN, kInfinity, -kInfinity, 1e300, -1e300, 1e20}) {
        this->ExpectLike(Scaling(0, 1), Scaling(odd, 1), kNearest);
        this->ExpectLike(Scaling(1, 0), Scaling(1, odd), kNearest);
        this->ExpectLike(Moving(0, 0), Moving(odd, odd), kNearest);
        this->ExpectLike(Moving(0, 0), Moving(odd, odd), kSmooth);
        this->ExpectLike(Affine(1, 0, 0, 0, 1, 0), Affine(1, odd, 0, odd, 1, 0), kSmooth);
    }
}

TYPED_TEST(OddMatrices, WithNoNumberOnTheDiagonalHaveMeansOfNoBoxes) {
    this->ExpectOutside(Scaling(kNaN, 1), kSmooth);
    this->ExpectOutside(Scaling(1, kNaN), kSmooth);
    this->ExpectOutside(Scaling(kInfinity, 1), kSmooth);
    this->ExpectOutside(Scaling(1, kInfinity), kSmooth);
    this->ExpectLike(Scaling(0, 1), Scaling(-kInfinity, 1), kSmooth); // not above 2
}

TYPED_TEST(OddMatrices, HaveMeansOfNoBoxesThatAreFarAway) {
    for (const double far : {1e9, -1e9, 1e30, -1e30, 1e300, kInfinity, -kInfinity, kNaN}) {
        this->ExpectOutside(Affine(3, 0, far, 0, 3, 0), kSmooth);
        this->ExpectOutside(Affine(3, 0, 0, 0, 3, far), kSmooth);
    }
}

TYPED_TEST(OddMatrices, WithDenormalTermsAreProjective) {
    for (const double tiny : {1e-310, -1e-310, 1e-40, 5e-324}) {
        const Matrix3x3 halved = With(With(Scaling(2, 2), 2, 0, tiny), 2, 2, 2);
        this->ExpectLike(HardlyProjective(Moving(0, 0)), halved, kNearest);
        this->ExpectLike(HardlyProjective(Moving(0, 0)), halved, kSmooth);
        this->ExpectOutside(With(With(Moving(1, 1), 2, 1, 1e-310), 2, 2, 0), kNearest); // w is 0 in single precision
    }
}

TYPED_TEST(OddMatrices, ThatAreProjectiveAreOutsideBeyondAllIntegers) {
    for (const double huge : {2147483648.0, -2147483904.0, 1e10, -1e10, 1e19, 1e30, -1e30, 1e300, kInfinity}) {
        for (const InterpolationType type : kBothTypes) {
            this->ExpectOutside(HardlyProjective(Moving(huge, 0)), type);
            this->ExpectOutside(HardlyProjective(Moving(0, huge)), type);
        }
    }
}

// 0 x infinity, at the start of each row.
TYPED_TEST(OddMatrices, KeepEveryTermOfARowsStart) {
    for (const InterpolationType type : kBothTypes) {
        this->ExpectOutside(HardlyProjective(Scaling(kInfinity, 1)), type);
        this->ExpectOutside(With(Moving(0, 0), 2, 0, kInfinity), type);
        this->ExpectOutside(HardlyProjective(Scaling(1e39, 1)), type);
    }
}

// 2^24 + 1 is 2^24 there, so w never grows, and no position falls short of 1.
TYPED_TEST(OddMatrices, SumUpRowsInSinglePrecision) {
    const Matrix3x3 matrix = {{{0, 0, 16777216}, {0, 0, 0}, {1, 0, 16777216}}};
    this->ExpectEverywhere(this->Written(this->ValueAt(1, 0)), matrix, kSmooth);
}

// w goes from -2 over 0 to 2; positions jump from one side to the other.
TYPED_TEST(OddMatrices, ChangeSidesWithTheSignOfW) {
    const Matrix3x3 matrix = {{{0, 0, 4}, {0, 0, 0}, {1, 0, -2}}};
    const auto row = ContentOf(Transformed<typename TestFixture::Destination>(this->source_, {5, 1}, matrix, kNearest));
    const auto outside = this->Written(this->source_.OutsidePixel());
    EXPECT_EQ(row.At(0, 0), outside);
    EXPECT_EQ(row.At(1, 0), outside);
    EXPECT_EQ(row.At(2, 0), outside);
    EXPECT_EQ(row.At(3, 0), this->Written(this->ValueAt(4, 0)));
    EXPECT_EQ(row.At(4, 0), this->Written(this->ValueAt(2, 0)));
}

} // namespace
} // namespace tn::test
