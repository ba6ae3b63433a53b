// Smooth fills of polygons against their exact coverage.
#include "tests/engines/vec/CoverageErrors.h"
#include "tests/support/Cases.h"

#include <cstdlib>

namespace tn::test {
namespace {

using model::CoverageMap;
using model::FillRule;
using model::PixelCoverage;
using model::Polygon;
using model::Polygons;
using model::Vertex;

constexpr FillRule kRules[] = {FillRule::kNonZero, FillRule::kEvenOdd};

/// Rounding included. Pixels that no edge comes near are whole or empty.
double LimitOf(const PixelCoverage& pixel) { return 1.5 * pixel.edges; }

class Fills : public MeasuredDrawing {
protected:
    /// Paints by each rule and compares every pixel of the canvas.
    void Compare(Canvas& canvas, const Polygons& polygons) {
        const CoverageMap exact = ExactCoverage(canvas, polygons);
        for (const FillRule rule : kRules) {
            canvas.Clear(0);
            PaintPolygons(canvas, polygons, rule);
            ExpectCoverage(canvas, exact, rule, LimitOf, errors_);
        }
    }
};

Vertex OnGrid(const Vertex& point, double step) {
    return {std::round(point.x / step) * step, std::round(point.y / step) * step};
}

/// A polygon about as large as the size, at times with vertices that share rows, columns and places.
Polygon RandomPolygon(Random& random, int vertices, double center, double size) {
    constexpr std::array<double, 4> kSteps = {1.0 / 256, 1.0 / 16, 0.25, 1};
    const bool isOnGrid = random.OneIn(4);
    const double step = random.OneOf(kSteps);
    const Vertex middle = {NumberBetween(random, 0, center), NumberBetween(random, 0, center)};
    Polygon polygon;
    for (int i = 0; i < vertices; ++i) {
        const Vertex offset = PointBetween(random, -size / 2, size / 2);
        const Vertex point = {static_cast<float>(middle.x + offset.x), static_cast<float>(middle.y + offset.y)};
        polygon.push_back(isOnGrid ? OnGrid(point, step) : point);
    }
    return polygon;
}

Polygons RandomShape(Random& random, double side) {
    const double size = std::min(side, 200.0) * std::exp2(-NumberBetween(random, 0, 4));
    Polygons polygons = {RandomPolygon(random, random.OneIn(2) ? 3 : random.Between(4, 12), side, size)};
    if (random.OneIn(4)) {
        polygons.push_back(RandomPolygon(random, random.Between(3, 6), side, size));
    }
    return polygons;
}

class RandomFills : public Fills {
protected:
    void Compare(std::int32_t side, int count) {
        Canvas canvas(side, side);
        canvas.Smooth();
        ForEachCase(HasTimeForEveryValue() ? count : count / 20,
                    [&](Random& random) { Fills::Compare(canvas, RandomShape(random, side)); });
        EXPECT_LT(errors_.RootMeanSquare(), 0.4);
    }
};

TEST_F(RandomFills, AsSmallAsPixelsAreExact) { Compare(3, 60'000); }
TEST_F(RandomFills, OfSomePixelsAreExact) { Compare(15, 35'000); }
TEST_F(RandomFills, OfDozensOfPixelsAreExact) { Compare(60, 4'500); }
TEST_F(RandomFills, OfHundredsOfPixelsAreExact) { Compare(224, 500); }

TEST_F(Fills, OfRectanglesOnWholePixelsAreWholeOrEmpty) {
    Canvas canvas(12, 12);
    canvas.Smooth();
    ForEachCase(300, [&](Random& random) {
        const float left = static_cast<float>(random.Between(-2, 12)), top = static_cast<float>(random.Between(-2, 12));
        const float right = left + static_cast<float>(random.Between(0, 14));
        const float bottom = top + static_cast<float>(random.Between(0, 14));
        for (const FillRule rule : kRules) {
            canvas.Clear(0);
            canvas.Rect(left, top, right, bottom);
            ASSERT_EQ(rule == FillRule::kNonZero ? canvas.Fill() : canvas.EOFill(), nullptr);
            for (int y = 0; y < 12; ++y) {
                for (int x = 0; x < 12; ++x) {
                    const float px = static_cast<float>(x), py = static_cast<float>(y);
                    const bool isInside = px >= left && px < right && py >= top && py < bottom;
                    ASSERT_EQ(canvas.Get(x, y), isInside ? 255U : 0U) << x << ' ' << y;
                }
            }
        }
    });
}

TEST_F(Fills, OfRectanglesBetweenPixelsCoverTheirShares) {
    Canvas canvas(4, 4);
    canvas.Smooth();
    canvas.Rect(0.5F, 0.75F, 2.5F, 3);
    ASSERT_EQ(canvas.Fill(), nullptr);
    const double widths[4] = {0.5, 1, 0.5, 0};
    const double heights[4] = {0.25, 1, 1, 0};
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 4; ++x) {
            EXPECT_NEAR(canvas.Get(x, y), 255 * widths[x] * heights[y], 0.5 + 1e-6) << x << ' ' << y;
        }
    }
}

TEST_F(Fills, OfHalfAPixelAreHalf) {
    Canvas canvas(1, 1);
    canvas.Smooth();
    for (const Polygon& half : {Polygon{{0, 0}, {1, 0}, {0, 1}}, Polygon{{0, 0}, {0.5, 0}, {0.5, 1}, {0, 1}},
                                Polygon{{-1, 0.5}, {2, 0.5}, {2, 3}, {-1, 3}}}) {
        canvas.Clear(0);
        PaintPolygons(canvas, {half}, FillRule::kNonZero);
        EXPECT_TRUE(canvas.Get(0, 0) == 127 || canvas.Get(0, 0) == 128) << canvas.Get(0, 0);
    }
}

TEST_F(Fills, ThatMeetOnWholePixelsLeaveNoGap) {
    Canvas canvas(20, 20);
    canvas.Smooth();
    PaintPolygons(canvas, {{{0, 0}, {7, 0}, {7, 20}, {0, 20}}}, FillRule::kNonZero);
    PaintPolygons(canvas, {{{7, 0}, {20, 0}, {20, 20}, {7, 20}}}, FillRule::kNonZero);
    for (const std::uint32_t pixel : canvas.Pixels()) {
        EXPECT_EQ(pixel, 255U);
    }
}

TEST_F(Fills, OfPartsThatMeetAnywhereLeaveNoSeam) {
    Canvas canvas(16, 16);
    canvas.Smooth();
    ForEachCase(500, [&](Random& random) {
        const Vertex middle = PointBetween(random, 0.5, 15.5);
        const Vertex corners[5] = {{-1, -1}, {17, -1}, {17, 17}, {-1, 17}, {-1, -1}};
        Polygons parts;
        for (int i = 0; i < 4; ++i) {
            parts.push_back({corners[i], corners[i + 1], middle});
        }
        for (const FillRule rule : kRules) {
            canvas.Clear(0);
            PaintPolygons(canvas, parts, rule);
            for (const std::uint32_t pixel : canvas.Pixels()) {
                ASSERT_EQ(pixel, 255U) << middle.x << ' ' << middle.y;
            }
        }
    });
}

TEST_F(Fills, CoverTheSameWhereverTheTargetLies) {
    ForEachCase(100, [&](Random& random) {
        const CanvasLayout layout = {24, 20, 8, random.Between(-3000, 3000), random.Between(-3000, 3000)};
        Canvas canvas(layout);
        canvas.Smooth();
        Polygon polygon;
        for (int i = 0; i < 5; ++i) {
            const Vertex point = OnGrid(PointBetween(random, -4, 28), 1.0 / 64);
            polygon.push_back({point.x + layout.left, point.y + layout.top});
        }
        Compare(canvas, {polygon});
    });
}

} // namespace
} // namespace tn::test
