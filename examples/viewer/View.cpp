#include "examples/viewer/View.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace viewer {
namespace {

constexpr double kMargin = 24.0;
constexpr double kSmallestZoom = 1.0 / 64.0;
constexpr double kLargestZoom = 64.0;

struct Span {
    std::int32_t first;
    std::int32_t count;
    std::int32_t start; // in the window
    std::int32_t extent;
};

// The pixels along one axis that lie in a window of a length.
Span VisibleSpan(double start, double zoom, std::int32_t pixels, std::int32_t window) {
    const auto position = [=](std::int32_t pixel) {
        return static_cast<std::int32_t>(std::floor(start + zoom * pixel + 0.5));
    };
    const double firstInside = std::clamp(std::floor(-start / zoom), 0.0, static_cast<double>(pixels));
    const double endInside = std::clamp(std::ceil((window - start) / zoom), firstInside, static_cast<double>(pixels));
    const auto first = static_cast<std::int32_t>(firstInside);
    const auto end = static_cast<std::int32_t>(endInside);
    return {first, end - first, position(first), position(end) - position(first)};
}

} // namespace

void View::Fit(const TnPoint& window) {
    const double across = (window.x - 2 * kMargin) / std::max(picture_.x, 1);
    const double down = (window.y - 2 * kMargin) / std::max(picture_.y, 1);
    zoom_ = std::clamp(std::min(across, down), kSmallestZoom, 1.0);
    left_ = (window.x - zoom_ * picture_.x) / 2;
    top_ = (window.y - zoom_ * picture_.y) / 2;
}

void View::ZoomAt(const TnPoint& cursor, double factor) {
    const double zoom = std::clamp(zoom_ * factor, kSmallestZoom, kLargestZoom);
    left_ = cursor.x - (cursor.x - left_) * zoom / zoom_;
    top_ = cursor.y - (cursor.y - top_) * zoom / zoom_;
    zoom_ = zoom;
}

void View::MoveBy(int dx, int dy) {
    left_ += dx;
    top_ += dy;
}

Part View::VisiblePart(const TnPoint& window) const {
    const Span columns = VisibleSpan(left_, zoom_, picture_.x, window.x);
    const Span rows = VisibleSpan(top_, zoom_, picture_.y, window.y);
    return {{columns.first, rows.first, columns.count, rows.count},
            {columns.start, rows.start, columns.extent, rows.extent}};
}

} // namespace viewer
