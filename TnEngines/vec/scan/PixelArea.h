// Private: the area inside an outline within one pixel, where edges may lie over one another.
#pragma once

#include "TnEngines/vec/scan/Coverage.h"
#include "TnEngines/vec/scan/LeftWindings.h"

#include <cstddef>
#include <cstdint>
#include <span>
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
///
/// That is exact, but where more than kMostExact edges share a slab they are taken not to cross within a 16th of it,
/// and the rest of a pixel that is too much work is taken from the widths between edges along 16 lines.
class PixelArea {
public:
    /// Begins a pixel.
    void Clear() {
        edges_.clear();
        heights_.clear();
    }

    /// Adds an edge, which may lie partly or wholly beside the pixel; x is from the pixel's left side.
    void Add(const Edge& edge);

    /// The area, of 0..1.
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
    using Crossings = std::span<Crossing>;

    void AddWithin(double top, double bottom, double xTop, double xBottom, std::int32_t direction);
    void AddToTheLeft(double top, double bottom, std::int32_t direction);
    void Sort();
    double Slabs(std::int64_t winding, FillRule rule);
    void GoDownTo(double height);
    Crossings CrossingsBetween(double top, double bottom);
    double SlabInside(Crossings crossings, double height, std::int64_t winding, FillRule rule);
    double CutSlabInside(Crossings crossings, std::size_t crossed, double part, double height, std::int64_t winding,
                         FillRule rule);
    double CrowdInside(double top, double bottom, std::int64_t winding, FillRule rule);
    double LinesInside(double from, std::int64_t winding, FillRule rule);

    std::vector<Line> edges_;
    std::vector<Height> heights_;

    // On the way down
    std::size_t next_ = 0;            // of the edges, the first that is not reached
    std::vector<const Line*> active_; // those in the slab
    std::vector<Crossing> crossings_;
    int cutsLeft_ = 0;
    std::int64_t workLeft_ = 0;
};

} // namespace tn::vec
