// Private: following the chains of an outline from row to row.
#pragma once

#include "TnEngines/vec/path/Point.h"

#include <cmath>

namespace tn::vec {

/// A place on a chain: on the line that ends at a point, or at the end of the last.
class ChainPlace {
public:
    ChainPlace() = default;
    ChainPlace(const Point* first, const Point* last) : end_(first), last_(last) { NextLine(); }

    bool IsAtEnd() const { return y_ == last_->y; }
    double X() const { return x_; }
    double Y() const { return y_; }
    const Point& LineEnd() const { return *end_; }
    bool IsVertical() const { return x_ == end_->x; }

    /// Goes on to where the line ends, or to a height above that.
    void GoDown(double height) {
        if (end_->y <= height) {
            NextLine();
        } else {
            if (!hasSlope_) {
                slope_ = (end_->x - x_) / (end_->y - y_);
                hasSlope_ = true;
            }
            x_ = end_->x + (height - end_->y) * slope_;
            y_ = height;
        }
    }

private:
    void NextLine() {
        x_ = end_->x;
        y_ = end_->y;
        if (end_ != last_) {
            ++end_;
            hasSlope_ = false;
        }
    }

    const Point* end_ = nullptr;
    const Point* last_ = nullptr;
    double x_ = 0, y_ = 0;
    double slope_ = 0; // of the line, which many a line has no need of
    bool hasSlope_ = false;
};

/// Goes down to a height, or to the chain's end above it, and tells of each line on the way with its two ends.
template <class Line> void GoDown(ChainPlace& place, double height, const Line& line) {
    while (!place.IsAtEnd() && place.Y() < height) {
        const Point from = {place.X(), place.Y()};
        place.GoDown(height);
        line(from, Point{place.X(), place.Y()});
    }
}

} // namespace tn::vec
