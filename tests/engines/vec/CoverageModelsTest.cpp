// The model of coverage against closed forms, against counted points and against itself.
#include "tests/models/CoverageModels.h"
#include "tests/support/Cases.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace tn::test {
namespace {

using model::CoverageMap;
using model::CoverageOf;
using model::Cubic;
using model::FillRule;
using model::PixelCoverage;
using model::Polygon;
using model::Polygons;
using model::Vertex;

constexpr double kExact = 1e-12;

Polygon Box(double left, double top, double right, double bottom) {
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

Polygon Reversed(const Polygon& polygon) { return {polygon.rbegin(), polygon.rend()}; }

double Unit(Random& random) { return random.Word() * 0x1p-32; }

Vertex PointWithin(Random& random, double size) { return {Unit(random) * size, Unit(random) * size}; }

Polygon RandomPolygon(Random& random, int vertices, double size) {
    Polygon polygon;
    for (int i = 0; i < vertices; ++i) {
        polygon.push_back(PointWithin(random, size));
    }
    return polygon;
}

PixelCoverage OnePixel(const Polygons& polygons) { return CoverageOf(polygons, 0, 0, 1, 1).At(0, 0); }

double Sum(const CoverageMap& map, FillRule rule) {
    double sum = 0;
    for (const PixelCoverage& pixel : map.pixels) {
        sum += pixel.By(rule);
    }
    return sum;
}

TEST(CoverageModel, MeasuresRectangles) {
    const CoverageMap map = CoverageOf({Box(0.25, 0.5, 2.125, 1.75)}, 0, 0, 3, 3);
    const double widths[3] = {0.75, 1, 0.125};
    const double heights[3] = {0.5, 0.75, 0};
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 3; ++x) {
            EXPECT_NEAR(map.At(x, y).nonZero, widths[x] * heights[y], kExact) << x << ' ' << y;
            EXPECT_NEAR(map.At(x, y).evenOdd, widths[x] * heights[y], kExact) << x << ' ' << y;
        }
    }
}

TEST(CoverageModel, MeasuresATriangleAcrossAPixel) {
    EXPECT_NEAR(OnePixel({{{0, 0}, {1, 0}, {0, 1}}}).nonZero, 0.5, kExact);
    EXPECT_NEAR(OnePixel({{{0, 0}, {2, 0}, {0, 1}}}).nonZero, 0.75, kExact);
    EXPECT_NEAR(OnePixel({{{-3, 0.5}, {4, 0.5}, {0.5, 90}}}).nonZero, 0.5, kExact);
    EXPECT_NEAR(OnePixel({{{0.5, 0.25}, {0.75, 0.75}, {0.25, 0.75}}}).nonZero, 0.125, kExact);
}

TEST(CoverageModel, CountsOverlapsOnceOrNotAtAll) {
    const PixelCoverage same = OnePixel({Box(0, 0, 0.75, 0.75), Box(0.25, 0.25, 1, 1)});
    EXPECT_NEAR(same.nonZero, 0.5625 + 0.5625 - 0.25, kExact);
    EXPECT_NEAR(same.evenOdd, 0.5625 + 0.5625 - 0.5, kExact);
    const PixelCoverage opposite = OnePixel({Box(0, 0, 0.75, 0.75), Reversed(Box(0.25, 0.25, 1, 1))});
    EXPECT_NEAR(opposite.nonZero, 0.5625 + 0.5625 - 0.5, kExact);
    EXPECT_NEAR(opposite.evenOdd, 0.5625 + 0.5625 - 0.5, kExact);
}

TEST(CoverageModel, LeavesHolesOfOppositeWindingOpen) {
    const PixelCoverage hole = OnePixel({Box(0, 0, 1, 1), Reversed(Box(0.25, 0.25, 0.75, 0.75))});
    EXPECT_NEAR(hole.nonZero, 0.75, kExact);
    const PixelCoverage lid = OnePixel({Box(0, 0, 1, 1), Box(0.25, 0.25, 0.75, 0.75)});
    EXPECT_NEAR(lid.nonZero, 1, kExact);
    EXPECT_NEAR(lid.evenOdd, 0.75, kExact);
}

TEST(CoverageModel, KnowsTheStarOfFivePoints) {
    Polygon star;
    for (int i = 0; i < 5; ++i) {
        const double angle = i * 0.8 * std::numbers::pi;
        star.push_back({0.5 + 0.5 * std::cos(angle), 0.5 + 0.5 * std::sin(angle)});
    }
    // The inner pentagon's radius is that of the star over the square of the golden ratio.
    const double golden = std::numbers::phi;
    const double inner = 0.5 / (golden * golden);
    const double fifth = std::numbers::pi / 5;
    const double pentagon = 2.5 * inner * inner * std::sin(2 * fifth);
    const double whole = 5 * 0.5 * inner * std::sin(fifth);
    EXPECT_NEAR(OnePixel({star}).nonZero, whole, kExact);
    EXPECT_NEAR(OnePixel({star}).evenOdd, whole - pentagon, kExact);
}

TEST(CoverageModel, AddsUpToTheAreaOfTriangles) {
    ForEachCase(300, [](Random& random) {
        const Polygons triangle = {RandomPolygon(random, 3, 30)};
        const CoverageMap map = CoverageOf(triangle, 0, 0, 30, 30);
        EXPECT_NEAR(Sum(map, FillRule::kNonZero), std::abs(model::SignedArea(triangle)), 1e-9);
        EXPECT_NEAR(Sum(map, FillRule::kEvenOdd), std::abs(model::SignedArea(triangle)), 1e-9);
    });
}

TEST(CoverageModel, AgreesWithCountedPoints) {
    constexpr int kCount = 300;
    ForEachCase(HasTimeForEveryValue() ? 60 : 6, [](Random& random) {
        Polygons polygons;
        for (int i = random.Between(1, 3); i > 0; --i) {
            polygons.push_back(RandomPolygon(random, random.Between(3, 9), 4));
        }
        const CoverageMap map = CoverageOf(polygons, 0, 0, 4, 4);
        const int x = random.Between(0, 3), y = random.Between(0, 3);
        for (const FillRule rule : {FillRule::kNonZero, FillRule::kEvenOdd}) {
            // No edge is in doubt about more than the points along it.
            const double doubt = 2.0 * map.At(x, y).edges / kCount;
            EXPECT_NEAR(map.At(x, y).By(rule), model::SampledCoverage(polygons, rule, x, y, kCount), doubt);
        }
    });
}

TEST(CoverageModel, DependsNeitherOnTheDirectionNorOnTheFirstVertex) {
    ForEachCase(200, [](Random& random) {
        const Polygon polygon = RandomPolygon(random, random.Between(3, 12), 6);
        Polygon turned(polygon.begin() + 1, polygon.end());
        turned.push_back(polygon.front());
        const CoverageMap expected = CoverageOf({polygon}, 0, 0, 6, 6);
        for (const Polygon& same : {Reversed(polygon), turned}) {
            const CoverageMap map = CoverageOf({same}, 0, 0, 6, 6);
            for (std::size_t i = 0; i < map.pixels.size(); ++i) {
                EXPECT_NEAR(map.pixels[i].nonZero, expected.pixels[i].nonZero, 1e-9);
                EXPECT_NEAR(map.pixels[i].evenOdd, expected.pixels[i].evenOdd, 1e-9);
            }
        }
    });
}

TEST(CoverageModel, CountsEdgesAndTheirRuns) {
    const CoverageMap map = CoverageOf({{{0.5, 0.5}, {2.5, 0.5}, {2.5, 2.5}}}, 0, 0, 4, 3);
    EXPECT_EQ(map.At(0, 0).edges, 2); // the top one and the diagonal
    EXPECT_EQ(map.At(0, 0).runs, 2);  // the polygon's last edge and its first are not told to be neighbours
    EXPECT_EQ(map.At(3, 0).edges, 0);
    EXPECT_EQ(map.At(2, 0).edges, 2); // the top one and the right one
    EXPECT_EQ(map.At(2, 0).runs, 1);
    EXPECT_EQ(map.At(1, 0).edges, 2); // the diagonal just touches the corner
    EXPECT_EQ(map.At(1, 0).runs, 2);
    EXPECT_EQ(map.At(0, 2).edges, 0);
}

TEST(CoverageModel, FlattensWithinTheError) {
    ForEachCase(100, [](Random& random) {
        const Cubic curve = {PointWithin(random, 50), PointWithin(random, 50), PointWithin(random, 50),
                             PointWithin(random, 50)};
        const double error = 0.01;
        Polygon polygon = {curve.from};
        model::Flatten(curve, error, polygon);
        const auto chords = static_cast<double>(polygon.size() - 1);
        for (std::size_t i = 0; i + 1 < polygon.size(); ++i) {
            const Vertex a = polygon[i], b = polygon[i + 1];
            for (int step = 1; step < 8; ++step) {
                const double share = step / 8.0;
                const Vertex on = curve.At((static_cast<double>(i) + share) / chords);
                const double away = std::hypot(a.x + (b.x - a.x) * share - on.x, a.y + (b.y - a.y) * share - on.y);
                EXPECT_LE(away, error * (1 + 1e-9));
            }
        }
    });
}

TEST(CoverageModel, KnowsTheAreaUnderACurve) {
    ForEachCase(100, [](Random& random) {
        const Cubic curve = {PointWithin(random, 50), PointWithin(random, 50), PointWithin(random, 50),
                             PointWithin(random, 50)};
        Polygon polygon = {{0, 0}, curve.from};
        model::Flatten(curve, 1e-5, polygon);
        EXPECT_NEAR(model::SignedAreaUnder(curve), model::SignedArea({polygon}), 0.002);
    });
}

} // namespace
} // namespace tn::test
