// Private: the exact coverage of areas.
#pragma once

#include "TnEngines/vec/path/Outline.h"
#include "TnEngines/vec/scan/Box.h"
#include "TnEngines/vec/scan/CellRow.h"
#include "TnEngines/vec/scan/ChainWalk.h"
#include "TnEngines/vec/scan/Coverage.h"
#include "TnEngines/vec/scan/LeftWindings.h"
#include "TnEngines/vec/scan/PixelArea.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tn::vec {

/// Finds how much of each pixel lies inside an outline, row by row.
///
/// Where a chain has its pixels of a row to itself, the area beside it is the coverage. Where chains share a pixel the
/// areas beside them add up in cells, unless the chains lie over one another: then the pixel is either inside of them
/// however they lie, or its area is worked out on its own.
class SmoothScan {
public:
    void Run(const Outline& outline, FillRule rule, const Box& clip, CoverageSink& sink);

private:
    /// A chain in a row.
    struct ActiveChain {
        ChainPlace place; ///< Where it leaves the row.
        std::int32_t direction;
        bool isInCells;           ///< The area beside it has been added to the cells.
        std::int32_t top, bottom; ///< Its heights.
        std::int64_t left, right; ///< How far it gets to both sides, as a RowLine counts.
        CellRange range;          ///< The pixels that it runs through.
        RowLine line;             ///< Itself, where it is not in the cells: then it is one line through all of the row.
        ChainPlace atRowTop;      ///< Where it enters.

        bool IsThrough() const { return top == 0 && bottom == kWhole; }
    };

    struct Waiting {
        std::int32_t row; ///< In which it enters.
        Chain chain;
    };

    /// A chain that runs through the row, by its place among the active ones.
    struct Entry {
        std::int32_t first; ///< Its first pixel.
        std::uint32_t chain;
    };
    using Entries = std::span<const Entry>;

    enum class Sharing { kAddUp, kCoverAll, kOverlap };

    // From row to row
    void Prepare(const Outline& outline);
    std::int32_t RowOf(const Chain& chain) const;
    void Enter(const Chain& chain);
    void EnterChainsOf(std::int32_t row);
    void RunRow(CoverageSink& sink);
    std::int32_t EqualRows() const;
    void GoThroughRow();
    void GoThroughWhole(ActiveChain& active);
    void GoThroughLines(ActiveChain& active);
    void LeaveFinished();

    void Sort();

    // In a row
    void CoverRow();
    bool IsPair() const;
    void CoverPair();
    void CoverLevel(std::int32_t until);
    void CoverAlone(const ActiveChain& chain, std::int32_t last);
    void CoverBeside(const ActiveChain& chain, std::int64_t winding, std::int32_t last);
    void CoverFromCells(std::int32_t last);
    void CoverBesideLine(const RowLine& line, std::int64_t winding, std::int32_t last);
    void CoverShared(Entries entries, std::int32_t last);
    std::int32_t ShareFrom(std::int32_t x, Entries& entries);
    Sharing HowTheyShare() const;
    std::uint8_t SharedCoverage(Sharing sharing, std::int32_t x);
    WindingRange WindingsWithin() const;
    bool IsBeside(const ActiveChain& left, const ActiveChain& right) const;
    void GoDownTogether(ChainPlace& a, ChainPlace& b) const;
    std::uint8_t AreaCoverage(std::int32_t x);
    double PairInside(std::int32_t x) const;
    double AnyInside(std::int32_t x);
    std::uint8_t SumCoverage(std::int64_t sum) const;
    std::int64_t FixedX(const ChainPlace& place) const { return RowLine::Fixed(place.X() - box_.left); }
    void Pass(const ActiveChain& active) { left_.Add(active.top, active.bottom, active.direction); }

    const Point* points_ = nullptr;
    FillRule rule_ = FillRule::kNonZero;
    Box box_;
    std::vector<Waiting> waiting_; // those that enter first come last
    std::vector<ActiveChain> active_;
    std::vector<std::uint32_t> free_;
    std::vector<Entry> entries_;
    bool hasFinished_ = false; // if there are entries of chains that are at their end
    CellRow cells_;
    CoverageRow row_;
    PixelArea area_;

    // In the row that is covered
    std::int32_t y_ = 0;
    std::int32_t x_ = 0;   // from the box's left side
    std::int64_t sum_ = 0; // of the cells so far
    LeftWindings left_;
    std::vector<const ActiveChain*> sharing_; // the chains in the pixel
};

} // namespace tn::vec
