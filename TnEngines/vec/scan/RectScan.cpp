#include "TnEngines/vec/scan/RectScan.h"

#include "TnEngines/vec/scan/LeftWindings.h"
#include "TnEngines/vec/scan/RowLine.h"
#include "TnEngines/vec/scan/VisibleBox.h"

#include <algorithm>
#include <cmath>

namespace tn::vec {

void RectScan::Run(const Outline& outline, const Box& clip, CoverageSink& sink) {
    least_ = outline.LeastCorner();
    greatest_ = outline.GreatestCorner();
    box_ = VisibleBox(outline, clip);
    if (box_.IsEmpty()) {
        return;
    }
    row_.Reset(box_.left, box_.Width());
    const auto heightWithin = [this](std::int32_t y) {
        return static_cast<std::int32_t>((std::min(greatest_.y, y + 1.0) - std::max<double>(least_.y, y)) * kWhole);
    };
    const std::int32_t firstWhole = std::max(box_.top, static_cast<std::int32_t>(std::ceil(least_.y)));
    const std::int32_t endOfWhole = std::min(box_.bottom, static_cast<std::int32_t>(std::floor(greatest_.y)));
    std::int32_t y = box_.top;
    if (y < firstWhole) {
        CoverRows(y, y + 1, heightWithin(y), sink);
        ++y;
    }
    if (y < endOfWhole) {
        CoverRows(y, endOfWhole, kWhole, sink);
        y = endOfWhole;
    }
    if (y < box_.bottom) {
        CoverRows(y, y + 1, heightWithin(y), sink);
    }
}

void RectScan::CoverRows(std::int32_t top, std::int32_t bottom, std::int32_t height, CoverageSink& sink) {
    const std::int64_t left = RowLine::Fixed(least_.x);
    const std::int64_t right = RowLine::Fixed(greatest_.x);
    const std::int32_t first = RowLine::PixelOf(left);
    const std::int32_t last = RowLine::PixelOf(right);
    const std::int32_t beforeLeft = RowLine::Beside(height, 2 * (left - RowLine::StartOf(first)));
    const std::int32_t beforeRight = RowLine::Beside(height, 2 * (right - RowLine::StartOf(last)));
    row_.Clear();
    if (first == last) {
        CoverPixel(first, beforeRight - beforeLeft);
    } else {
        const bool isFirstWhole = beforeLeft == 0;
        if (!isFirstWhole) {
            CoverPixel(first, height - beforeLeft);
        }
        const std::int32_t from = std::max(isFirstWhole ? first : first + 1, box_.left);
        const std::int32_t to = std::min(last, box_.right);
        if (from < to) {
            row_.Add(from, to - from, CoverageOf(height));
        }
        CoverPixel(last, beforeRight);
    }
    sink.Cover(top, bottom, row_);
}

void RectScan::CoverPixel(std::int32_t x, std::int32_t area) {
    if (x >= box_.left && x < box_.right) {
        row_.Add(x, 1, CoverageOf(area));
    }
}

} // namespace tn::vec
