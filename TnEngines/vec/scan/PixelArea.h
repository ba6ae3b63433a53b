// Private: the area inside an outline within one pixel, where edges may lie over one another.
#pragma once

#include "TnEngines/vec/scan/Coverage.h"
#include "TnEngines/vec/scan/LeftWindings.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tn::vec {

/// A line from one height to a lower one within a row of pixels. Heights and, to the right, x are in pixels.
struct Edge {
    double top, bottom; ///< From the upper side of the row.
    double xTop, xBottom;
    std::int32_t direction; ///< 1 where the outline goes down along it, -1 where it goes up.
};

/// Cuts the pixel into slabs at the ends of all edges and where they cross. In a slab edges lie side by side, so that
/// the areas between them are trapezoids.
class PixelArea {
public:
    /// Begins a pixel.
    void Clear() {
        edges_.clear();
        heights_.clear();
    }

    /// Adds an edge, which may lie partly or wholly beside the pixel; x is from the pixel's left side.
    void Add(const Edge& edge);

    /// The area, of 0..1. It is exact up to kMostExact edges; beyond, it is counted on 64 x 64 points, which is at most
    /// 1/64 off for each edge.
    double Inside(const LeftWindings& left, FillRule rule);

    static constexpr std::size_t kMostExact = 24;

private:
    /// A height at which a slab ends, and how the winding along the left side changes there.
    struct Height {
        double at;
        std::int64_t by;
    };
    struct Line {
        double top, bottom;
        double xTop, slope;
        std::int32_t direction;

        double At(double height) const { return xTop + (height - top) * slope; }
    };
    /// A line within a slab.
    struct Crossing {
        double xTop, xBottom;
        std::int32_t direction;

        double Middle() const { return xTop + xBottom; } ///< Twice the mean.
    };

    void AddWithin(double top, double bottom, double xTop, double xBottom, std::int32_t direction);
    void AddToTheLeft(double top, double bottom, std::int32_t direction);
    void SortHeights();
    double Exact(std::int64_t winding, FillRule rule);
    double SlabInside(Crossing* begin, Crossing* end, double height, std::int64_t winding, FillRule rule);
    double CutSlabInside(Crossing* begin, Crossing* crossed, Crossing* end, double part, double height,
                         std::int64_t winding, FillRule rule);
    double Counted(std::int64_t winding, FillRule rule) const;

    std::vector<Line> edges_;
    std::vector<Height> heights_;
    int cutsLeft_ = 0;
};

} // namespace tn::vec
