// Private: areas beside lines in a row of pixels.
#pragma once

#include "TnEngines/vec/scan/LeftWindings.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tn::vec {

/// The pixels that lines run through. A line along the left side of a pixel is in none, and first tells of that pixel.
struct CellRange {
    std::int32_t first = INT32_MAX, last = -1;

    void Add(const CellRange& other) {
        first = std::min(first, other.first);
        last = std::max(last, other.last);
    }
};

/// A line from one height within a row of pixels to a lower one, which it need not tell. x is in 1/65536 of a pixel
/// from the row's left end; the height from one end to the other is in 1/kWhole, below 0 where the outline goes up.
class RowLine {
public:
    /// x in 1/65536 of a pixel, floored.
    static std::int64_t Fixed(double x) {
        constexpr std::int64_t kBias = std::int64_t{1} << 48; // more than there is to the left
        return static_cast<std::int64_t>(x * static_cast<double>(kPixel) + static_cast<double>(kBias)) - kBias;
    }

    RowLine() = default;
    RowLine(std::int64_t xTop, std::int64_t xBottom, std::int32_t height)
        : left_(std::min(xTop, xBottom)), right_(std::max(xTop, xBottom)), height_(height) {}

    CellRange Range() const {
        return {static_cast<std::int32_t>(left_ >> kShift), static_cast<std::int32_t>((right_ - 1) >> kShift)};
    }

    /// Tells of each pixel of the line in a row of some width, from left to right, with the height of the line's part
    /// to the left of the pixel, that of the part in it, and the area to the left of the latter within the pixel. What
    /// is beyond the left end is told of as if it were along it.
    template <class Cell> void ForEachCell(std::int32_t width, const Cell& cell) const {
        const auto [first, last] = Range();
        if (last <= first || last < 0) {
            if (first < 0) {
                cell(0, 0, height_, 0);
            } else if (first < width) {
                cell(first, 0, height_, Beside(height_, (left_ - first * kPixel) + (right_ - first * kPixel)));
            }
            return;
        }
        const double slope = height_ / static_cast<double>(right_ - left_);
        const auto heightAt = [=, this](std::int32_t x) {
            return static_cast<std::int32_t>(slope * static_cast<double>(x * kPixel - left_));
        };
        std::int32_t x = std::max(first, 0);
        std::int32_t reached = 0;
        if (first < 0) {
            reached = heightAt(0);
            cell(0, 0, reached, 0);
        } else if (first < width) {
            reached = heightAt(first + 1);
            cell(first, 0, reached, Beside(reached, (left_ - first * kPixel) + kPixel));
            ++x;
        }
        for (; x < std::min(last, width); ++x) {
            const std::int32_t next = heightAt(x + 1);
            cell(x, reached, next - reached, Beside(next - reached, kPixel));
            reached = next;
        }
        if (last < width) {
            cell(last, reached, height_ - reached, Beside(height_ - reached, right_ - last * kPixel));
        }
    }

private:
    static constexpr int kShift = 16;
    static constexpr std::int64_t kPixel = std::int64_t{1} << kShift;

    static std::int32_t Beside(std::int64_t height, std::int64_t twiceFraction) {
        return static_cast<std::int32_t>((height * twiceFraction + kPixel) >> (kShift + 1));
    }

    std::int64_t left_ = 0, right_ = 0;
    std::int32_t height_ = 0;
};

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
