// Private: areas without smooth edges.
#pragma once

#include "TnEngines/vec/path/Outline.h"
#include "TnEngines/vec/scan/Box.h"
#include "TnEngines/vec/scan/Coverage.h"

#include <cstdint>
#include <vector>

namespace tn::vec {

/// Finds the pixels whose centres lie inside an outline. What lies on a left or upper edge is inside, on a right or
/// lower one outside, so that every centre is in just one of the areas that share an edge.
class HardScan {
public:
    void Run(const Outline& outline, FillRule rule, const Box& clip, CoverageSink& sink);

private:
    struct ActiveChain {
        const Point* lower; ///< The end of the line that the row's centres meet.
        const Point* last;
        std::int32_t direction;
        std::int32_t x; ///< The first pixel whose centre is not to the left of the line.
    };

    void Prepare(const Outline& outline);
    void EnterChains(double height);
    void GoDown(double height);
    void CoverRow();

    FillRule rule_ = FillRule::kNonZero;
    Box box_;
    const Point* points_ = nullptr;
    std::vector<Chain> waiting_; // those that enter first come last
    std::vector<ActiveChain> active_;
    CoverageRow row_;
};

} // namespace tn::vec
