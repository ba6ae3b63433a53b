// Private: areas beside the edges in a row of pixels, summed up.
#pragma once

#include "TnEngines/vec/scan/LeftWindings.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tn::vec {

/// The pixels that an edge runs through. An edge that runs along the left side of a pixel is in none, and first tells
/// of that pixel.
struct CellRange {
    std::int32_t first = INT32_MAX, last = -1;

    void Add(std::int32_t f, std::int32_t l) {
        first = std::min(first, f);
        last = std::max(last, l);
    }
};

/// For each pixel, the change from its left neighbour of the area to the right of edges, which counts as often as they
/// wind around it, in 1/kWhole of a pixel.
class CellRow {
public:
    void Reset(std::int32_t width) {
        width_ = width;
        changes_.assign(static_cast<std::size_t>(width) + 2, 0);
    }

    /// Adds an edge that goes from one height within the row to a lower one. x is from the row's left end.
    CellRange Add(double xTop, std::int32_t top, double xBottom, std::int32_t bottom, std::int32_t direction);

    /// The change at a pixel, which is forgotten.
    std::int64_t Take(std::int32_t x) {
        std::int64_t& change = changes_[static_cast<std::size_t>(x)];
        const std::int64_t taken = change;
        change = 0;
        return taken;
    }

private:
    // x in 1/65536 of a pixel.
    static constexpr int kShift = 16;
    static constexpr std::int64_t kPixel = std::int64_t{1} << kShift;

    static std::int64_t Fixed(double x) { return static_cast<std::int64_t>(x * static_cast<double>(kPixel)); }

    void AddAlongLeftEnd(std::int32_t height) { changes_[0] += height; }
    CellRange AddWithin(std::int64_t left, std::int64_t right, std::int32_t height);
    CellRange AddCut(double xTop, double xBottom, std::int32_t height);

    void AddCell(std::int32_t x, std::int64_t height, std::int64_t twiceFraction) {
        const std::int64_t beside = (height * twiceFraction + kPixel) >> (kShift + 1);
        changes_[static_cast<std::size_t>(x)] += height - beside;
        changes_[static_cast<std::size_t>(x) + 1] += beside;
    }

    std::int32_t width_ = 0;
    std::vector<std::int64_t> changes_;
};

inline CellRange CellRow::Add(double xTop, std::int32_t top, double xBottom, std::int32_t bottom,
                              std::int32_t direction) {
    const std::int32_t height = (bottom - top) * direction;
    const auto [left, right] = std::minmax(xTop, xBottom);
    return left >= 0 && right <= width_ ? AddWithin(Fixed(left), Fixed(right), height) : AddCut(left, right, height);
}

inline CellRange CellRow::AddWithin(std::int64_t left, std::int64_t right, std::int32_t height) {
    const auto first = static_cast<std::int32_t>(left >> kShift);
    const auto last = static_cast<std::int32_t>((right - 1) >> kShift); // before first for an edge between two pixels
    if (last <= first) {
        AddCell(first, height, (left & (kPixel - 1)) + (right - first * kPixel));
        return {first, last};
    }
    const double slope = static_cast<double>(height) / static_cast<double>(right - left);
    const auto heightAt = [=](std::int64_t x) {
        return static_cast<std::int64_t>(slope * static_cast<double>(x - left));
    };
    std::int64_t end = (first + 1) * kPixel;
    std::int64_t reached = heightAt(end);
    AddCell(first, reached, (left & (kPixel - 1)) + kPixel);
    for (std::int32_t x = first + 1; x < last; ++x) {
        end += kPixel;
        const std::int64_t next = heightAt(end);
        AddCell(x, next - reached, kPixel);
        reached = next;
    }
    AddCell(last, height - reached, right - last * kPixel);
    return {first, last};
}

} // namespace tn::vec
