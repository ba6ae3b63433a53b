// Smooth fills of curves against the exact coverage of far finer polygons, and against areas in closed form.
#include "tests/engines/vec/CoverageErrors.h"
#include "tests/support/Cases.h"

#include <cmath>
#include <numbers>
#include <vector>

namespace tn::test {
namespace {

using model::CoverageMap;
using model::Cubic;
using model::FillRule;
using model::PixelCoverage;
using model::Polygon;
using model::Vertex;

constexpr double kChordError = 1.0 / 64; // pixels
constexpr double kModelError = 1.0 / 16384;

/// A border that is nowhere farther off than the chords' error costs at most its way through the pixel, a diagonal,
/// times that. To this comes what an edge's ends and rounding cost.
double LimitOf(const PixelCoverage& pixel) {
    return pixel.runs * (255 * std::numbers::sqrt2 * (kChordError + kModelError) + 1.5);
}

/// A border beside a pixel may come into it by the chords' error, so that it counts as a way through.
void CountBordersBeside(CoverageMap& map) {
    const CoverageMap exact = map;
    const auto hasBorder = [&](std::int32_t x, std::int32_t y) {
        return x >= map.left && x < map.left + map.width && y >= map.top && y < map.top + map.height &&
               exact.At(x, y).runs > 0;
    };
    for (std::int32_t y = map.top; y < map.top + map.height; ++y) {
        for (std::int32_t x = map.left; x < map.left + map.width; ++x) {
            for (std::int32_t i = 0; i < 9; ++i) {
                if (exact.At(x, y).runs == 0 && hasBorder(x - 1 + i % 3, y - 1 + i / 3)) {
                    map.At(x, y).runs = 1;
                }
            }
        }
    }
}

using Curves = std::vector<Cubic>;

class CurveFills : public MeasuredDrawing {
protected:
    static void AddToPath(Canvas& canvas, const Curves& curves) {
        const auto number = [](double value) { return static_cast<float>(value); };
        canvas.MoveTo(number(curves.front().from.x), number(curves.front().from.y));
        for (const Cubic& curve : curves) {
            canvas.CurveTo(number(curve.control1.x), number(curve.control1.y), number(curve.control2.x),
                           number(curve.control2.y), number(curve.to.x), number(curve.to.y));
        }
        canvas.ClosePath();
    }

    static Polygon Flattened(const Curves& curves) {
        Polygon polygon = {curves.front().from};
        for (const Cubic& curve : curves) {
            model::Flatten(curve, kModelError, polygon);
        }
        return polygon;
    }

    void Compare(Canvas& canvas, const Curves& curves) {
        CoverageMap exact = ExactCoverage(canvas, {Flattened(curves)});
        CountBordersBeside(exact);
        for (const FillRule rule : {FillRule::kNonZero, FillRule::kEvenOdd}) {
            canvas.Clear(0);
            AddToPath(canvas, curves);
            ASSERT_EQ(rule == FillRule::kNonZero ? canvas.Fill() : canvas.EOFill(), nullptr);
            ExpectCoverage(canvas, exact, rule, LimitOf, errors_);
        }
    }

    /// Curves after one another, all within a square.
    static Curves RandomCurves(Random& random, int count, double low, double high) {
        Curves curves;
        Vertex from = PointBetween(random, low, high);
        for (int i = 0; i < count; ++i) {
            curves.push_back({from, PointBetween(random, low, high), PointBetween(random, low, high),
                              PointBetween(random, low, high)});
            from = curves.back().to;
        }
        return curves;
    }

    void CompareRandomOnes(std::int32_t side, int count) {
        Canvas canvas(side, side);
        canvas.Smooth();
        ForEachCase(HasTimeForEveryValue() ? count : count / 20, [&](Random& random) {
            Compare(canvas, RandomCurves(random, random.Between(1, 3), -0.1 * side, 1.1 * side));
        });
        EXPECT_LT(errors_.RootMeanSquare(), 1.5);
    }
};

TEST_F(CurveFills, AsSmallAsPixelsAreCloseToTheCurve) { CompareRandomOnes(3, 4'000); }
TEST_F(CurveFills, OfSomePixelsAreCloseToTheCurve) { CompareRandomOnes(12, 2'000); }
TEST_F(CurveFills, OfDozensOfPixelsAreCloseToTheCurve) { CompareRandomOnes(60, 300); }
TEST_F(CurveFills, OfHundredsOfPixelsAreCloseToTheCurve) { CompareRandomOnes(240, 60); }

TEST_F(CurveFills, WithCuspsAreCloseToTheCurve) {
    Canvas canvas(40, 40);
    canvas.Smooth();
    ForEachCase(HasTimeForEveryValue() ? 400 : 20, [&](Random& random) {
        // With control points that mirror the ends crosswise the curve stands still in its middle.
        const Vertex from = PointBetween(random, 2, 38), to = PointBetween(random, 2, 38);
        const Vertex over = PointBetween(random, -20, 20);
        const auto sum = [](const Vertex& a, const Vertex& b) {
            return Vertex{static_cast<float>(a.x + b.x), static_cast<float>(a.y + b.y)};
        };
        Compare(canvas, {{from, sum(to, over), sum(from, over), to}});
    });
}

TEST_F(CurveFills, WithLoopsAreCloseToTheCurve) {
    Canvas canvas(40, 40);
    canvas.Smooth();
    ForEachCase(HasTimeForEveryValue() ? 400 : 20, [&](Random& random) {
        const auto x = [&](double low, double high) { return static_cast<float>(NumberBetween(random, low, high)); };
        Compare(canvas, {{{x(8, 16), x(25, 38)}, {x(40, 60), x(-10, 5)}, {x(-20, 0), x(-10, 5)}, {x(24, 32), 30}}});
    });
}

TEST_F(CurveFills, ThatAreStraightAreExact) {
    Canvas canvas(20, 20);
    canvas.Smooth();
    const Vertex corners[4] = {{2.25, 3.5}, {17.5, 2.25}, {16.75, 16.5}, {3, 18.25}};
    Curves curves;
    Polygon polygon;
    for (int i = 0; i < 4; ++i) {
        const Vertex from = corners[i], to = corners[(i + 1) % 4];
        curves.push_back({from, from, to, to});
        polygon.push_back(from);
    }
    AddToPath(canvas, curves);
    ASSERT_EQ(canvas.Fill(), nullptr);
    ExpectCoverage(
        canvas, ExactCoverage(canvas, {polygon}), FillRule::kNonZero,
        [](const PixelCoverage& pixel) { return 1.5 * pixel.edges; }, errors_);
}

double Length(const Polygon& polygon) {
    double length = 0;
    for (std::size_t i = 0; i + 1 < polygon.size(); ++i) {
        length += std::hypot(polygon[i + 1].x - polygon[i].x, polygon[i + 1].y - polygon[i].y);
    }
    return length;
}

/// Curves from point to point around a middle, which do not cross.
Curves Blob(Random& random, double middle, double radius) {
    constexpr int kCount = 5;
    const auto around = [&](double turns, double away) {
        const double angle = 2 * std::numbers::pi * turns;
        return Vertex{static_cast<float>(middle + away * std::cos(angle)),
                      static_cast<float>(middle + away * std::sin(angle))};
    };
    Curves curves;
    const Vertex first = around(0, radius);
    Vertex from = first;
    for (int i = 0; i < kCount; ++i) {
        const auto away = [&] { return radius * NumberBetween(random, 0.8, 1.2); };
        const Vertex to = i == kCount - 1 ? first : around((i + 1.0) / kCount, away());
        curves.push_back({from, around((i + 0.33) / kCount, away()), around((i + 0.67) / kCount, away()), to});
        from = to;
    }
    return curves;
}

TEST_F(CurveFills, HaveTheAreaOfTheCurve) {
    Canvas canvas(120, 120);
    canvas.Smooth();
    ForEachCase(HasTimeForEveryValue() ? 200 : 20, [&](Random& random) {
        const Curves curves = Blob(random, 60, NumberBetween(random, 2, 45));
        canvas.Clear(0);
        AddToPath(canvas, curves);
        ASSERT_EQ(canvas.Fill(), nullptr);
        double area = 0, painted = 0;
        for (const Cubic& curve : curves) {
            area += model::SignedAreaUnder(curve);
        }
        int partly = 0;
        for (const std::uint32_t pixel : canvas.Pixels()) {
            painted += pixel / 255.0;
            partly += pixel > 0 && pixel < 255 ? 1 : 0;
        }
        // A chord cuts two thirds of its height off along its length.
        const double limit = 2.0 / 3 * kChordError * Length(Flattened(curves)) + partly * 1.0 / 255;
        ASSERT_NEAR(painted, std::abs(area), limit);
    });
}

} // namespace
} // namespace tn::test
