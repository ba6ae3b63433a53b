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

class PixelArea {
public:
    void Clear() { edges_.clear(); }

    /// Adds an edge, which may lie partly or wholly beside the pixel; x is from the pixel's left side.
    void Add(const Edge& edge);

    /// The area, of 0..1. It is exact up to kMostExact edges; beyond, it is counted on 64 x 64 points, which is at most
    /// 1/64 off for each edge.
    double Inside(const LeftWindings& left, FillRule rule);

    static constexpr std::size_t kMostExact = 24;

private:
    /// An edge within a slab between two heights.
    struct Crossing {
        double xTop, xBottom;
        std::int32_t direction;
    };
    using Crossings = std::vector<Crossing>;

    void AddPart(const Edge& edge, double top, double bottom);
    void CollectHeights(const LeftWindings& left);
    double Exact(const LeftWindings& left, FillRule rule);
    double SlabInside(Crossing* begin, Crossing* end, double height, std::int64_t winding, FillRule rule);
    double CutSlabInside(Crossing* begin, Crossing* crossed, Crossing* end, double part, double height,
                         std::int64_t winding, FillRule rule);
    double Counted(const LeftWindings& left, FillRule rule) const;

    std::vector<Edge> edges_;
    std::vector<double> heights_;
    Crossings crossings_;
    int cutsLeft_ = 0;
};

} // namespace tn::vec
