// Private: areas beside lines in a row of pixels, summed up.
#pragma once

#include "TnEngines/vec/scan/RowLine.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tn::vec {

/// For each pixel, the change from its left neighbour of the area to the right of lines, which counts as often as they
/// wind around it, in 1/kWhole of a pixel.
class CellRow {
public:
    void Reset(std::int32_t width) {
        width_ = width;
        changes_.assign(static_cast<std::size_t>(width) + 2, 0);
    }

    void Add(const RowLine& line) {
        line.ForEachCell(width_, [this](std::int32_t x, std::int32_t, std::int32_t height, std::int32_t beside) {
            changes_[static_cast<std::size_t>(x)] += height - beside;
            changes_[static_cast<std::size_t>(x) + 1] += beside;
        });
    }

    /// The change at a pixel, which is forgotten.
    std::int64_t Take(std::int32_t x) {
        std::int64_t& change = changes_[static_cast<std::size_t>(x)];
        const std::int64_t taken = change;
        change = 0;
        return taken;
    }

private:
    std::int32_t width_ = 0;
    std::vector<std::int64_t> changes_;
};

} // namespace tn::vec
