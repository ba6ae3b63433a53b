// How much of each pixel lies inside polygons: areas, in doubles, cut along every vertex and every crossing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tn::test::model {

struct Vertex {
    double x, y;
};

/// A closed part of an outline: its last vertex is joined to its first.
using Polygon = std::vector<Vertex>;
using Polygons = std::vector<Polygon>;

enum class FillRule { kNonZero, kEvenOdd };

/// Pixel (x, y) is the square from (x, y) to (x + 1, y + 1).
struct PixelCoverage {
    double nonZero = 0; ///< The part of the pixel that is inside by either rule.
    double evenOdd = 0;
    int edges = 0; ///< Edges that come nearer to the pixel than a 1024th, horizontal ones included.
    int runs = 0;  ///< The same, where neighbours along a polygon count as one.

    double By(FillRule rule) const { return rule == FillRule::kNonZero ? nonZero : evenOdd; }
};

/// Pixels from (left, top), row by row.
struct CoverageMap {
    std::int32_t left, top, width, height;
    std::vector<PixelCoverage> pixels;

    const PixelCoverage& At(std::int32_t x, std::int32_t y) const {
        const std::ptrdiff_t row = y - top;
        return pixels.at(static_cast<std::size_t>(row * width + (x - left)));
    }
    PixelCoverage& At(std::int32_t x, std::int32_t y) {
        return const_cast<PixelCoverage&>(static_cast<const CoverageMap&>(*this).At(x, y));
    }
};

/// The coverage of the pixels of a rectangle.
CoverageMap CoverageOf(const Polygons& polygons, std::int32_t left, std::int32_t top, std::int32_t width,
                       std::int32_t height);

/// The part of one pixel found by counting count * count points of it.
double SampledCoverage(const Polygons& polygons, FillRule rule, std::int32_t x, std::int32_t y, int count);

/// The area inside polygons that do not cross themselves or one another, positive where they run clockwise on screen.
double SignedArea(const Polygons& polygons);

/// True when a winding number is inside.
bool IsInside(int winding, FillRule rule);

/// A cubic Bezier curve.
struct Cubic {
    Vertex from, control1, control2, to;

    Vertex At(double t) const;
};

/// Adds vertices after the curve's start so close that no chord is farther from its curve than the error.
void Flatten(const Cubic& curve, double error, Polygon& polygon);

/// What a curve adds to the signed area of an outline, without flattening it.
double SignedAreaUnder(const Cubic& curve);

} // namespace tn::test::model
