// Fills without smooth edges: a pixel is painted when its centre is inside.
#include "tests/engines/vec/CoverageErrors.h"
#include "tests/support/Cases.h"

#include <cmath>
#include <vector>

namespace tn::test {
namespace {

using model::FillRule;
using model::Polygon;
using model::Polygons;
using model::Vertex;

constexpr FillRule kRules[] = {FillRule::kNonZero, FillRule::kEvenOdd};

/// A place in sixteenths of a pixel, where everything can be computed exactly.
struct Place {
    std::int64_t x, y;
};

constexpr std::int64_t kParts = 16;

/// True when an edge passes to the left of a point or through it, in rows from its top end on, without its bottom end.
bool PassesLeft(const Place& from, const Place& to, const Place& point) {
    const Place& top = from.y < to.y ? from : to;
    const Place& bottom = from.y < to.y ? to : from;
    if (point.y < top.y || point.y >= bottom.y) {
        return false;
    }
    return (point.y - top.y) * (bottom.x - top.x) <= (point.x - top.x) * (bottom.y - top.y);
}

int WindingAt(const std::vector<Place>& corners, const Place& point) {
    int winding = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Place& from = corners[i];
        const Place& to = corners[(i + 1) % corners.size()];
        winding += PassesLeft(from, to, point) ? (from.y < to.y ? 1 : -1) : 0;
    }
    return winding;
}

Polygon InPixels(const std::vector<Place>& corners) {
    Polygon polygon;
    for (const Place& corner : corners) {
        polygon.push_back({static_cast<double>(corner.x) / kParts, static_cast<double>(corner.y) / kParts});
    }
    return polygon;
}

/// Often at the middle of a pixel or at its corner.
std::int64_t RandomCoordinate(Random& random, std::int32_t low, std::int32_t high) {
    const std::int32_t any = random.Between(low * kParts, high * kParts);
    return random.OneIn(3) ? any : any / 8 * 8;
}

std::vector<Place> RandomPlaces(Random& random, int count, std::int32_t low, std::int32_t high) {
    std::vector<Place> places;
    for (int i = 0; i < count; ++i) {
        places.push_back({RandomCoordinate(random, low, high), RandomCoordinate(random, low, high)});
    }
    return places;
}

class HardFills : public Drawing {
protected:
    static void ExpectCentersInside(Canvas& canvas, const std::vector<Place>& corners) {
        for (const FillRule rule : kRules) {
            canvas.Clear(0);
            PaintPolygons(canvas, {InPixels(corners)}, rule);
            for (std::int32_t y = 0; y < canvas.Layout().height; ++y) {
                for (std::int32_t x = 0; x < canvas.Layout().width; ++x) {
                    const Place center = {x * kParts + kParts / 2, y * kParts + kParts / 2};
                    const bool isInside = model::IsInside(WindingAt(corners, center), rule);
                    ASSERT_EQ(canvas.Get(x, y), isInside ? 255U : 0U) << x << ' ' << y;
                }
            }
        }
    }
};

int Cases(int count) { return HasTimeForEveryValue() ? count : count / 10; }

TEST_F(HardFills, OfTrianglesPaintThePixelsWithTheirCentersInside) {
    Canvas canvas(12, 12);
    canvas.Hard();
    ForEachCase(Cases(40'000), [&](Random& random) { ExpectCentersInside(canvas, RandomPlaces(random, 3, -2, 14)); });
}

TEST_F(HardFills, OfPolygonsPaintThePixelsWithTheirCentersInside) {
    Canvas canvas(12, 12);
    canvas.Hard();
    ForEachCase(Cases(10'000), [&](Random& random) {
        ExpectCentersInside(canvas, RandomPlaces(random, random.Between(4, 12), -2, 14));
    });
}

TEST_F(HardFills, OfLongEdgesPaintThePixelsWithTheirCentersInside) {
    Canvas canvas(40, 40);
    canvas.Hard();
    ForEachCase(Cases(1'000),
                [&](Random& random) { ExpectCentersInside(canvas, RandomPlaces(random, 3, -1000, 1000)); });
}

TEST_F(HardFills, HaveTheirLeftAndTopEdgesInAndTheOthersOut) {
    Canvas canvas(6, 6);
    canvas.Hard();
    canvas.Rect(1.5F, 2.5F, 4.5F, 5.5F);
    ASSERT_EQ(canvas.Fill(), nullptr);
    for (std::int32_t y = 0; y < 6; ++y) {
        for (std::int32_t x = 0; x < 6; ++x) {
            const bool isInside = x >= 1 && x < 4 && y >= 2 && y < 5;
            EXPECT_EQ(canvas.Get(x, y), isInside ? 255U : 0U) << x << ' ' << y;
        }
    }
}

double Distance(const Vertex& point, const Vertex& from, const Vertex& to) {
    const double x = to.x - from.x, y = to.y - from.y;
    const double square = x * x + y * y;
    const double along = square == 0 ? 0 : ((point.x - from.x) * x + (point.y - from.y) * y) / square;
    const double t = std::clamp(along, 0.0, 1.0);
    return std::hypot(from.x + t * x - point.x, from.y + t * y - point.y);
}

double DistanceFromOutline(const Vertex& point, const Polygon& polygon) {
    double distance = HUGE_VAL;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        distance = std::min(distance, Distance(point, polygon[i], polygon[(i + 1) % polygon.size()]));
    }
    return distance;
}

TEST_F(HardFills, OfAnyPolygonsPaintThePixelsWithTheirCentersClearlyInside) {
    constexpr double kInDoubt = 1.0 / 1024;
    Canvas canvas(12, 12);
    canvas.Hard();
    ForEachCase(Cases(3'000), [&](Random& random) {
        Polygon polygon;
        for (int i = random.Between(3, 8); i > 0; --i) {
            polygon.push_back(PointBetween(random, -2, 14));
        }
        const FillRule rule = random.OneIn(2) ? FillRule::kNonZero : FillRule::kEvenOdd;
        canvas.Clear(0);
        PaintPolygons(canvas, {polygon}, rule);
        for (std::int32_t i = 0; i < 144; ++i) {
            const std::int32_t x = i % 12, y = i / 12;
            if (DistanceFromOutline({x + 0.5, y + 0.5}, polygon) > kInDoubt) {
                const bool isInside = model::SampledCoverage({polygon}, rule, x, y, 1) > 0;
                ASSERT_EQ(canvas.Get(x, y), isInside ? 255U : 0U) << x << ' ' << y;
            }
        }
    });
}

TEST_F(HardFills, OfRectanglesOnWholePixelsAreThoseOfSmoothEdges) {
    Canvas hard(10, 10), smooth(10, 10);
    hard.Hard();
    smooth.Smooth();
    ForEachCase(300, [&](Random& random) {
        const auto coordinate = [&] { return static_cast<float>(random.Between(-2, 12)); };
        const float left = coordinate(), top = coordinate(), right = coordinate(), bottom = coordinate();
        for (Canvas* canvas : {&hard, &smooth}) {
            canvas->Clear(0);
            canvas->Rect(left, top, right, bottom);
            ASSERT_EQ(canvas->Fill(), nullptr);
        }
        ASSERT_EQ(hard.Pixels(), smooth.Pixels());
    });
}

TEST_F(HardFills, AreAllThatAMaskKnows) {
    Canvas hard(13, 9), mask(13, 9, 1);
    hard.Hard();
    ForEachCase(300, [&](Random& random) {
        constexpr std::array<std::int32_t, 6> kOptions = {0, 1, 2, 3, 16, 19};
        const Polygons polygon = {InPixels(RandomPlaces(random, 5, -2, 15))};
        mask.Options(random.OneOf(kOptions));
        hard.Clear(0);
        mask.Clear(0);
        PaintPolygons(hard, polygon, FillRule::kNonZero);
        PaintPolygons(mask, polygon, FillRule::kNonZero);
        for (std::int32_t i = 0; i < 13 * 9; ++i) {
            ASSERT_EQ(mask.Get(i % 13, i / 13), hard.Get(i % 13, i / 13) / 255) << i % 13 << ' ' << i / 13;
        }
    });
}

} // namespace
} // namespace tn::test
