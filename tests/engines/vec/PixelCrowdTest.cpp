// Smooth fills where several edges share a pixel: they overlap, cross, and wind against one another.
#include "tests/engines/vec/CoverageErrors.h"
#include "tests/support/Cases.h"

#include <algorithm>
#include <numbers>

namespace tn::test {
namespace {

using model::CoverageMap;
using model::FillRule;
using model::PixelCoverage;
using model::Polygon;
using model::Polygons;
using model::Vertex;

Polygon Box(double left, double top, double right, double bottom) {
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

Polygon Reversed(const Polygon& polygon) { return {polygon.rbegin(), polygon.rend()}; }

/// Vertices in single precision, as the engine is told them.
Polygons Rounded(Polygons polygons) {
    for (Polygon& polygon : polygons) {
        for (Vertex& vertex : polygon) {
            vertex = {static_cast<float>(vertex.x), static_cast<float>(vertex.y)};
        }
    }
    return polygons;
}

class PixelCrowds : public MeasuredDrawing {
protected:
    PixelCrowds() { canvas_.Smooth(); }

    /// Paints by each rule and compares every pixel.
    template <class Limit> void ExpectWithin(const Polygons& given, const Limit& limit) {
        const Polygons polygons = Rounded(given);
        const CoverageMap exact = ExactCoverage(canvas_, polygons);
        for (const FillRule rule : {FillRule::kNonZero, FillRule::kEvenOdd}) {
            SCOPED_TRACE(rule == FillRule::kNonZero ? "non-zero" : "even-odd");
            canvas_.Clear(0);
            PaintPolygons(canvas_, polygons, rule);
            ExpectCoverage(canvas_, exact, rule, limit, errors_);
        }
    }

    /// Of few edges: no pixel is off by more than is allowed for one of them.
    void Expect(const Polygons& polygons) {
        ExpectWithin(polygons, [](const PixelCoverage&) { return 1.5; });
    }

    /// With vertices that need no rounding themselves, however many there are.
    void ExpectOnlyRounding(const Polygons& polygons) {
        ExpectWithin(polygons, [](const PixelCoverage&) { return 0.75; });
    }

    /// With vertices anywhere: half a 1024th in x and in y may move each edge by as much along a pixel's diagonal, and
    /// of many edges such errors do not all add up.
    void ExpectMovedEdges(const Polygons& polygons) {
        ExpectWithin(polygons,
                     [](const PixelCoverage& pixel) { return std::min(0.75 + 255.0 / 1024 * pixel.edges, 4.0); });
    }

    Canvas canvas_{3, 3};
};

/// A pixel's point, at times at a place that the engine can tell from all others.
Vertex RandomPoint(Random& random, bool isOnGrid) {
    const Vertex point = PointBetween(random, 1, 2);
    return isOnGrid ? Vertex{std::round(point.x * 1024) / 1024, std::round(point.y * 1024) / 1024} : point;
}

TEST_F(PixelCrowds, OfTwoOverlappingSquaresCountTheirOverlapOnce) {
    Expect({Box(1.1, 1.1, 1.7, 1.7), Box(1.4, 1.4, 1.9, 1.9)});
}

TEST_F(PixelCrowds, OfTwoOverlappingSquaresOfOppositeWindingLeaveTheirOverlapOut) {
    Expect({Box(1.1, 1.1, 1.7, 1.7), Reversed(Box(1.4, 1.4, 1.9, 1.9))});
}

TEST_F(PixelCrowds, OfTwoSquaresOfOppositeWindingSideBySideAddUp) {
    Expect({Box(1.1, 1.2, 1.5, 1.8), Reversed(Box(1.5, 1.2, 1.9, 1.8))});
    Expect({Box(1.1, 1.1, 1.4, 1.9), Reversed(Box(1.6, 1.1, 1.9, 1.9))});
    Expect({Box(1.1, 1.1, 1.9, 1.4), Reversed(Box(1.1, 1.6, 1.9, 1.9))});
}

TEST_F(PixelCrowds, OfEqualSquaresAreOneSquare) {
    const Polygon box = Box(1.2, 1.3, 1.7, 1.9);
    Expect({box, box, box, box, box});
    Expect({box, Reversed(box)});
    Expect({box, Reversed(box), box});
}

TEST_F(PixelCrowds, OfAHoleOfOppositeWindingLeaveItOpen) {
    Expect({Box(0, 0, 3, 3), Reversed(Box(1.25, 1.25, 1.75, 1.75))});
    Expect({Box(1.1, 1.1, 1.9, 1.9), Reversed(Box(1.3, 1.3, 1.7, 1.7))});
}

TEST_F(PixelCrowds, OfALidOfTheSameWindingCoverItsHole) { Expect({Box(1.1, 1.1, 1.9, 1.9), Box(1.3, 1.3, 1.7, 1.7)}); }

TEST_F(PixelCrowds, OfABowTieHaveBothItsWings) {
    Expect({{{1.1, 1.1}, {1.9, 1.9}, {1.9, 1.1}, {1.1, 1.9}}});
    Expect({{{1.1, 1.1}, {1.9, 1.1}, {1.1, 1.9}, {1.9, 1.9}}});
    Expect({{{0.3, 1.2}, {2.6, 1.9}, {2.6, 1.1}, {0.3, 1.8}}});
}

TEST_F(PixelCrowds, OfAStarCrossInOnePixel) {
    for (const double radius : {0.2, 0.45, 1.2}) {
        Polygon star;
        for (int i = 0; i < 5; ++i) {
            const double angle = i * 0.8 * std::numbers::pi + 0.1;
            star.push_back({1.5 + radius * std::cos(angle), 1.5 + radius * std::sin(angle)});
        }
        Expect({star});
    }
}

TEST_F(PixelCrowds, OfSliversAreNeitherLostNorDoubled) {
    for (const double width : {0.5, 0.1, 0.02, 0.005}) {
        for (const double slant : {0.0, 0.01, 0.3, 1.7}) {
            Expect({{{0.4, 0.1}, {0.4 + width, 0.1}, {0.4 + width + slant, 2.9}, {0.4 + slant, 2.9}}});
            Expect({{{0.1, 0.4}, {0.1, 0.4 + width}, {2.9, 0.4 + width + slant}, {2.9, 0.4 + slant}}});
            Expect({{{0.2, 0.3}, {2.7 + width, 1.1 + slant / 2}, {2.7, 1.1 + slant / 2 + width}}});
        }
    }
}

TEST_F(PixelCrowds, OfBandsThatCrossCountTheCrossingOnce) {
    Expect({Box(1.4, 0, 1.6, 3), Box(0, 1.4, 3, 1.6)});
    Expect({Box(1.4, 0, 1.6, 3), Reversed(Box(0, 1.4, 3, 1.6))});
    Expect({{{0, 0.2}, {0.2, 0}, {3, 2.8}, {2.8, 3}}, {{3, 0.2}, {2.8, 0}, {0, 2.8}, {0.2, 3}}});
}

TEST_F(PixelCrowds, OfPartsThatMeetInAPixelLeaveNoSeam) {
    Expect({{{1, 1}, {2, 1}, {2, 2}}, {{1, 1}, {2, 2}, {1, 2}}});
    Expect({{{1, 1}, {2, 1}, {2, 2}}, {{1, 1}, {1, 2}, {2, 2}}});
}

Polygons RandomPolygons(Random& random, bool isOnGrid) {
    Polygons polygons;
    for (int i = random.Between(1, 4); i > 0; --i) {
        Polygon polygon;
        for (int vertex = random.Between(3, 8); vertex > 0; --vertex) {
            polygon.push_back(RandomPoint(random, isOnGrid));
        }
        polygons.push_back(polygon);
    }
    return polygons;
}

Polygon RandomPolygon(Random& random, int vertices, bool isOnGrid) {
    Polygon polygon;
    for (int i = 0; i < vertices; ++i) {
        polygon.push_back(RandomPoint(random, isOnGrid));
    }
    return polygon;
}

int Cases(int count) { return HasTimeForEveryValue() ? count : count / 20; }

TEST_F(PixelCrowds, OfRandomPolygonsAreExact) {
    ForEachCase(Cases(10'000), [&](Random& random) { ExpectOnlyRounding(RandomPolygons(random, true)); });
    ForEachCase(Cases(10'000), [&](Random& random) { ExpectMovedEdges(RandomPolygons(random, false)); });
    EXPECT_LT(errors_.RootMeanSquare(), 0.4);
}

TEST_F(PixelCrowds, OfFortyEdgesAreExact) {
    ForEachCase(Cases(500), [&](Random& random) { ExpectOnlyRounding({RandomPolygon(random, 40, true)}); });
    ForEachCase(Cases(500), [&](Random& random) { ExpectMovedEdges({RandomPolygon(random, 40, false)}); });
    EXPECT_LT(errors_.RootMeanSquare(), 1);
}

/// Teeth of hardly any width, along a row or a column.
Polygon Comb(int teeth, double pitch, bool isUpright) {
    Polygon comb;
    for (int i = 0; i < teeth; ++i) {
        const Vertex root = {1 + pitch * i, 1.875}, tip = {1 + pitch * (i + 0.5), 1.125};
        comb.push_back(isUpright ? root : Vertex{root.y, root.x});
        comb.push_back(isUpright ? tip : Vertex{tip.y, tip.x});
    }
    comb.push_back(isUpright ? Vertex{1 + pitch * teeth, 1.875} : Vertex{1.875, 1 + pitch * teeth});
    return comb;
}

TEST_F(PixelCrowds, OfThousandEdgesInACombAreExact) {
    for (const bool isUpright : {false, true}) {
        for (const int teeth : {32, 64, 128, 256, 512}) {
            SCOPED_TRACE(teeth);
            ExpectOnlyRounding({Comb(teeth, 1.0 / teeth, isUpright)});
        }
        ExpectWithin({Comb(500, 0.9 / 500, isUpright)}, [](const PixelCoverage&) { return 8.0; }); // the grid's share
    }
}

TEST_F(PixelCrowds, OfManyBandsAcrossAreExact) {
    for (const bool isUpright : {false, true}) {
        for (const double pitch : {1.0 / 32, 1.0 / 64, 1.0 / 128}) {
            SCOPED_TRACE(pitch);
            Polygons bands;
            for (int i = 0; i < 25; ++i) {
                const double from = 1 + pitch * (i + 0.51), to = 1 + pitch * (i + 1.49 - 0.5 * (i % 2));
                bands.push_back(isUpright ? Box(from, 0.25, to, 2.75) : Box(0.25, from, 2.75, to));
            }
            ExpectWithin(bands, [](const PixelCoverage& pixel) { return std::min(1.5 * pixel.edges, 4.0); });
        }
    }
}

TEST_F(PixelCrowds, OfThousandEdgesOfAllDirectionsAreExact) {
    Polygons petals;
    for (int i = 0; i < 250; ++i) {
        const double angle = i * 2.4, away = 0.1 + 0.35 * i / 250;
        const Vertex at = {1.5 + away * std::cos(angle), 1.5 + away * std::sin(angle)};
        const Polygon petal = {{at.x, at.y - 0.008}, {at.x + 0.01, at.y}, {at.x, at.y + 0.008}, {at.x - 0.01, at.y}};
        petals.push_back(i % 2 == 0 ? petal : Reversed(petal));
    }
    ExpectMovedEdges(petals);
    EXPECT_LT(errors_.Worst(), 1.5);
}

} // namespace
} // namespace tn::test
