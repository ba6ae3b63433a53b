// The model of strokes against closed forms, and its two ways to measure against each other.
#include "tests/models/StrokeModels.h"
#include "tests/support/Cases.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace tn::test {
namespace {

using model::Cap;
using model::Join;
using model::Stroked;
using model::StrokePath;
using model::StrokeStyle;
using model::UserMatrix;
using model::Vertex;

constexpr double kPi = std::numbers::pi;
constexpr int kSide = 32;

StrokePath Open(const std::vector<Vertex>& points) {
    StrokePath path;
    for (const Vertex& point : points) {
        path.Add(point);
    }
    return path;
}

StrokePath Closed(const std::vector<Vertex>& points) {
    StrokePath path = Open(points);
    path.isClosed = true;
    return path;
}

double Area(const Stroked& stroked) {
    double sum = 0;
    for (int i = 0; i < kSide * kSide; ++i) {
        sum += stroked.Coverage(i % kSide, i / kSide);
    }
    return sum;
}

double AreaOf(const StrokePath& path, const StrokeStyle& style, const UserMatrix& matrix = {}) {
    return Area(Stroked({path}, style, matrix));
}

constexpr double kClose = 0.02; // of areas of dozens of pixels

TEST(StrokeModel, MeasuresALineWithEachCap) {
    const StrokePath line = Open({{8, 9}, {20, 14}});
    EXPECT_NEAR(AreaOf(line, {4, Cap::kButt}), 4 * 13, kClose);
    EXPECT_NEAR(AreaOf(line, {4, Cap::kRound}), 4 * 13 + 4 * kPi, kClose);
    EXPECT_NEAR(AreaOf(line, {4, Cap::kSquare}), 4 * 17, kClose);
    EXPECT_NEAR(AreaOf(line, {-4, Cap::kSquare}), 4 * 17, kClose);
}

TEST(StrokeModel, MeasuresARightAngleWithEachJoin) {
    const StrokePath corner = Open({{6, 8}, {18, 8}, {18, 20}});
    const double lines = 4 * 12 * 2 - 4; // they share a quarter of the corner's square
    EXPECT_NEAR(AreaOf(corner, {4, Cap::kButt, Join::kMiter}), lines + 4, kClose);
    EXPECT_NEAR(AreaOf(corner, {4, Cap::kButt, Join::kBevel}), lines + 2, kClose);
    EXPECT_NEAR(AreaOf(corner, {4, Cap::kButt, Join::kRound}), lines + kPi, kClose);
}

TEST(StrokeModel, TurnsEitherWayAlike) {
    for (const Join join : {Join::kMiter, Join::kRound, Join::kBevel}) {
        const double right = AreaOf(Open({{6, 16}, {16, 16}, {22, 24}}), {4, Cap::kButt, join});
        const double left = AreaOf(Open({{6, 16}, {16, 16}, {22, 8}}), {4, Cap::kButt, join});
        EXPECT_NEAR(right, left, kClose);
    }
}

TEST(StrokeModel, JoinsClosedPathsAllAround) {
    const std::vector<Vertex> square = {{8, 8}, {20, 8}, {20, 20}, {8, 20}};
    EXPECT_NEAR(AreaOf(Closed(square), {2}), 14 * 14 - 10 * 10, kClose);
    EXPECT_NEAR(AreaOf(Closed(square), {2, Cap::kSquare, Join::kBevel}), 14 * 14 - 10 * 10 - 4 * 0.5, kClose);
    std::vector<Vertex> returned = square;
    returned.push_back(square.front());
    EXPECT_NEAR(AreaOf(Closed(returned), {2}), 14 * 14 - 10 * 10, kClose);
    EXPECT_NEAR(AreaOf(Open(returned), {2}), 14 * 14 - 10 * 10 - 1, kClose);
}

TEST(StrokeModel, CutsLongMitersOff) {
    // A turn to a ray whose angle with the line back is 2 asin(1 / ratio) makes a miter of that ratio.
    const auto corner = [](double ratio) {
        const double angle = kPi - 2 * std::asin(1 / ratio);
        return Open({{4, 8}, {16, 8}, {16 + 12 * std::cos(angle), 8 + 12 * std::sin(angle)}});
    };
    const auto miterArea = [&](double ratio) {
        return AreaOf(corner(ratio), {2, Cap::kButt, Join::kMiter}) -
               AreaOf(corner(ratio), {2, Cap::kButt, Join::kBevel});
    };
    EXPECT_GT(miterArea(9.9), 1);
    EXPECT_EQ(miterArea(10.1), 0);
}

TEST(StrokeModel, FallsBackToNothingWhereTheLineTurnsBack) {
    const StrokePath back = Open({{6, 10}, {20, 10}, {12, 10}});
    EXPECT_NEAR(AreaOf(back, {4, Cap::kButt, Join::kMiter}), 4 * 14, kClose);
    EXPECT_NEAR(AreaOf(back, {4, Cap::kButt, Join::kRound}), 4 * 14 + 2 * kPi, kClose);
}

TEST(StrokeModel, MakesDotsOfPathsWithoutLength) {
    const StrokePath dot = Open({{10, 10}, {10, 10}, {10, 10}});
    for (const StrokePath& path : {dot, Closed(dot.points)}) {
        EXPECT_EQ(AreaOf(path, {4, Cap::kButt}), 0);
        EXPECT_NEAR(AreaOf(path, {4, Cap::kRound}), 4 * kPi, kClose);
        EXPECT_NEAR(AreaOf(path, {4, Cap::kSquare}), 16, kClose);
    }
    EXPECT_EQ(AreaOf(Open({{10, 10}}), {4, Cap::kRound}), 0);
}

TEST(StrokeModel, DropsRepeatedPoints) {
    const StrokePath once = Open({{6, 8}, {18, 8}, {18, 20}});
    const StrokePath often = Open({{6, 8}, {6, 8}, {18, 8}, {18, 8}, {18, 20}, {18, 20}});
    EXPECT_EQ(AreaOf(once, {4, Cap::kSquare}), AreaOf(often, {4, Cap::kSquare}));
}

TEST(StrokeModel, CountsCrossingsOnce) {
    const std::vector<StrokePath> cross = {Open({{4, 10}, {20, 10}}), Open({{10, 4}, {10, 20}})};
    EXPECT_NEAR(Area(Stroked(cross, {2}, {})), 2 * 16 * 2 - 4, kClose);
}

TEST(StrokeModel, StretchesThePenWithTheMatrix) {
    const UserMatrix matrix = {3, 1, -0.5, 2, 5, 3};
    const StrokePath line = Open({{2, 3}, {4, 3}});
    EXPECT_NEAR(AreaOf(line, {1.5, Cap::kRound}, matrix), 6.5 * (1.5 * 2 + 0.5625 * kPi), kClose);
}

TEST(StrokeModel, CoversWhatItContains) {
    constexpr int kCount = 64;
    ForEachCase(HasTimeForEveryValue() ? 60 : 6, [](Random& random) {
        const auto number = [&](double low, double high) { return low + (high - low) * (random.Word() * 0x1p-32); };
        const StrokeStyle style = {number(0.3, 3), static_cast<Cap>(random.Between(0, 2)),
                                   static_cast<Join>(random.Between(0, 2))};
        const UserMatrix matrix = {number(0.5, 2), number(-1, 1), number(-0.4, 0.4), number(0.5, 2), 0.3, 0.7};
        StrokePath path;
        for (int i = random.Between(2, 5); i > 0; --i) {
            path.Add({number(0, 6), number(0, 6)});
        }
        if (random.OneIn(2)) {
            path.AddCurve({number(0, 6), number(0, 6)}, {number(0, 6), number(0, 6)}, {number(0, 6), number(0, 6)},
                          0.01);
        }
        path.isClosed = random.OneIn(2);
        const Stroked stroked({path}, style, matrix);
        for (int pixel = 0; pixel < 4; ++pixel) {
            const int x = random.Between(0, 6), y = random.Between(0, 6);
            int inside = 0;
            for (int i = 0; i < kCount * kCount; ++i) {
                inside += stroked.Contains({x + (i % kCount + 0.5) / kCount, y + (i / kCount + 0.5) / kCount}) ? 1 : 0;
            }
            EXPECT_NEAR(stroked.Coverage(x, y), double(inside) / (kCount * kCount), 0.02) << x << ' ' << y;
        }
    });
}

} // namespace
} // namespace tn::test
