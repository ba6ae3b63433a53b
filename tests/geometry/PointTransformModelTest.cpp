#include "TnGraphics/geometry/PointTransform.h"

#include "tests/models/TransformModels.h"
#include "tests/support/Cases.h"

#include <array>
#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

using Matrix3x3 = Matrix<double, 3, 3>;
using model::Elements;

constexpr int kCases = 20000;
constexpr int kPointsOfACase = 20;

double Fraction(Random& random) { return random.Between(-1000000, 1000000) / 1000000.0; }

double OddNumber(Random& random) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr std::array<double, 18> kOdd = {0.0,       -0.0,       std::numeric_limits<double>::quiet_NaN(),
                                             kInfinity, -kInfinity, 1e300,
                                             -1e300,    1e39,       1e20,
                                             -1e15,     -65536,     32768.0,
                                             1e-5,      -7.6e-6,    1e-40,
                                             -1e-46,    1e-50,      1e-300};
    return random.OneOf(kOdd);
}

// Small whole numbers let w become 0, quarters and halves make ties.
double Number(Random& random, double largest) {
    switch (random.Between(0, 7)) {
    case 0:
    case 1:
        return random.Between(-4, 4);
    case 2:
    case 3:
        return random.Between(-64, 64) / 4.0;
    case 4:
        return Fraction(random) * largest;
    default:
        return Fraction(random) * 2;
    }
}

double Element(Random& random) { return random.OneIn(40) ? OddNumber(random) : Number(random, 100000); }

double ProjectiveTerm(Random& random) {
    switch (random.Between(0, 3)) {
    case 0:
        return 0;
    case 1:
        return Fraction(random) / random.OneOf(std::array<double, 4>{100, 65536, 131072, 1e46});
    default:
        return Element(random);
    }
}

Elements RandomElements(Random& random) {
    Elements elements = {};
    for (double& element : elements) {
        element = Element(random);
    }
    const bool affine = random.OneIn(3);
    elements[6] = affine ? 0 : ProjectiveTerm(random);
    elements[7] = affine ? 0 : ProjectiveTerm(random);
    return elements;
}

Matrix3x3 MatrixOf(const Elements& e) { return {{{e[0], e[1], e[2]}, {e[3], e[4], e[5]}, {e[6], e[7], e[8]}}}; }

std::int32_t Integer(Random& random) {
    return random.OneIn(4) ? static_cast<std::int32_t>(random.Word()) : random.Between(-10, 10);
}

std::int32_t Raw(Random& random) {
    switch (random.Between(0, 3)) {
    case 0:
        return static_cast<std::int32_t>(random.Word());
    case 1:
        return random.Between(-10, 10);
    case 2:
        return random.Between(-10, 10) * 65536;
    default:
        return random.Between(-300 * 65536, 300 * 65536);
    }
}

TnPoint RandomPoint(Random& random, const TnPoint&) { return {Integer(random), Integer(random)}; }

TnFloatPoint RandomPoint(Random& random, const TnFloatPoint&) { return {Element(random), Element(random)}; }

TnFixedPoint RandomPoint(Random& random, const TnFixedPoint&) { return {{Raw(random)}, {Raw(random)}}; }

TnPoint ModelOf(const TnPoint& point, const Elements& elements) {
    const auto mapped = model::MappedAndRounded({point.x, point.y}, elements);
    return {mapped.x, mapped.y};
}

TnFloatPoint ModelOf(const TnFloatPoint& point, const Elements& elements) {
    const auto mapped = model::MappedInSingle({point.x, point.y}, elements);
    return {mapped.x, mapped.y};
}

TnFixedPoint ModelOf(const TnFixedPoint& point, const Elements& elements) {
    const auto mapped = model::MappedInFixed({point.x.raw, point.y.raw}, elements);
    return {{mapped.x}, {mapped.y}};
}

bool Alike(std::int32_t a, std::int32_t b) { return a == b; }

bool Alike(TnFixed a, TnFixed b) { return a == b; }

// Not a number is not a number, whatever its bits; zeros have a sign.
bool Alike(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) || std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

template <class Point> void ExpectAlike(const Point& result, const Point& expected) {
    if (!Alike(result.x, expected.x) || !Alike(result.y, expected.y)) {
        ADD_FAILURE() << ::testing::PrintToString(result) << " is not " << ::testing::PrintToString(expected);
    }
}

template <class Point> void ExpectMappedLikeModel(const Point& point, const Elements& elements) {
    const Point expected = ModelOf(point, elements);
    Point result = {};
    Transform(point, result, MatrixOf(elements));
    ExpectAlike(result, expected);
    Point inPlace = point;
    Transform(inPlace, inPlace, MatrixOf(elements));
    ExpectAlike(inPlace, expected);
}

template <class Point, class Box> void ExpectMappedLikeModel(Random& random) {
    const Elements elements = RandomElements(random);
    SCOPED_TRACE(::testing::PrintToString(elements));
    for (int i = 0; i < kPointsOfACase; ++i) {
        ExpectMappedLikeModel(RandomPoint(random, Point()), elements);
    }
    Box box = {};
    for (Point& corner : box.corners) {
        corner = RandomPoint(random, corner);
    }
    Box result = {};
    Transform(box, result, MatrixOf(elements));
    Box inPlace = box;
    Transform(inPlace, inPlace, MatrixOf(elements));
    for (int i = 0; i < 4; ++i) {
        ExpectAlike(result.corners[i], ModelOf(box.corners[i], elements));
        ExpectAlike(inPlace.corners[i], ModelOf(box.corners[i], elements));
    }
}

TEST(PointTransformModel, IsEqualedByIntegerPoints) { ForEachCase(kCases, ExpectMappedLikeModel<TnPoint, TnBox>); }

TEST(PointTransformModel, IsEqualedByFloatPoints) {
    ForEachCase(kCases, ExpectMappedLikeModel<TnFloatPoint, TnFloatBox>);
}

TEST(PointTransformModel, IsEqualedByFixedPoints) {
    ForEachCase(kCases, ExpectMappedLikeModel<TnFixedPoint, TnFixedBox>);
}

} // namespace
} // namespace tn::test
