// Private: a line through a row of pixels.
#pragma once

#include "TnEngines/vec/scan/LeftWindings.h"

#include <algorithm>
#include <cstdint>

namespace tn::vec {

/// The pixels that lines run through. A line along the left side of a pixel is in none, and first tells of that pixel.
struct CellRange {
    std::int32_t first, last;
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

    /// The pixel that a place is in, and the place where a pixel begins.
    static std::int32_t PixelOf(std::int64_t x) { return static_cast<std::int32_t>(x >> kShift); }
    static std::int64_t StartOf(std::int32_t pixel) { return pixel * kPixel; }

    /// The area within a pixel to the left of a line of a height, given the sum of how far its ends are into the pixel.
    static std::int32_t Beside(std::int64_t height, std::int64_t sumOfEnds) {
        return static_cast<std::int32_t>((height * sumOfEnds + kPixel) >> (kShift + 1));
    }

    /// The pixels between two places.
    static CellRange RangeOf(std::int64_t left, std::int64_t right) { return {PixelOf(left), PixelOf(right - 1)}; }

    RowLine() = default;
    RowLine(std::int64_t xTop, std::int64_t xBottom, std::int32_t height)
        : left_(std::min(xTop, xBottom)), right_(std::max(xTop, xBottom)), height_(height) {}

    std::int64_t Left() const { return left_; }
    std::int64_t Right() const { return right_; }

    /// The area to the right of the line, which is in one pixel alone, within that.
    std::int32_t AreaIn(std::int32_t pixel) const {
        return height_ - Beside(height_, left_ + right_ - 2 * StartOf(pixel));
    }

    /// Tells of each pixel of the line in a row of some width, from left to right, with the height of the line's part
    /// to the left of the pixel, that of the part in it, and the area to the left of the latter within the pixel. What
    /// is beyond the left end is told of as if it were along it.
    template <class Cell> void ForEachCell(std::int32_t width, const Cell& cell) const {
        const auto [first, last] = RangeOf(left_, right_);
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

    std::int64_t left_ = 0, right_ = 0;
    std::int32_t height_ = 0;
};

} // namespace tn::vec
