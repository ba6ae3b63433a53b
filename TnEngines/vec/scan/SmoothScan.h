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
/// In each row the chains that run through it add the areas beside them to cells. Where a chain has its pixels to
/// itself, their sum is the coverage. Where chains share a pixel they may lie over one another, and unless it is inside
/// of them however they lie, its area is worked out on its own.
class SmoothScan {
public:
    void Run(const Outline& outline, FillRule rule, const Box& clip, CoverageSink& sink);

private:
    struct ActiveChain {
        ChainPlace atRowTop; ///< Where it enters the row.
        ChainPlace place;    ///< Where it leaves the row.
        std::int32_t direction;
        CellRange range;          ///< Its pixels of the row.
        std::int32_t top, bottom; ///< Its heights in the row.
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

    void Prepare(const Outline& outline);
    std::int32_t RowOf(const Chain& chain) const;
    void Enter(const Chain& chain);
    void EnterChainsOf(std::int32_t row);
    void RunRow(CoverageSink& sink);
    std::int32_t EqualRows() const;
    void AddCells(ActiveChain& active);
    void Sort();
    void CoverRow();
    void CoverShared(Entries entries, std::int32_t last);
    std::uint8_t SharedCoverage(std::int32_t x);
    WindingRange WindingsWithin() const;
    std::uint8_t AreaCoverage(std::int32_t x);
    void CoverLevel(std::int32_t until);
    std::uint8_t SumCoverage() const;
    void Pass(const ActiveChain& active) { left_.Add(active.top, active.bottom, active.direction); }
    void LeaveFinished();

    const Point* points_ = nullptr;
    FillRule rule_ = FillRule::kNonZero;
    Box box_;
    std::vector<Waiting> waiting_; // those that enter first come last
    std::vector<ActiveChain> active_;
    std::vector<std::uint32_t> free_;
    std::vector<Entry> entries_;
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
