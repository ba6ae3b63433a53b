#include "tests/models/CoverageModels.h"

#include <algorithm>
#include <cmath>

namespace tn::test::model {
namespace {

struct Edge {
    Vertex from, to;
    std::size_t number; ///< Neighbours along a polygon have neighbouring numbers; the first and the last have not.

    double Top() const { return std::min(from.y, to.y); }
    double Bottom() const { return std::max(from.y, to.y); }
    int Direction() const { return to.y > from.y ? 1 : -1; }

    double XAt(double y) const {
        if (y == from.y) {
            return from.x;
        }
        if (y == to.y) {
            return to.x;
        }
        return from.x + (to.x - from.x) * ((y - from.y) / (to.y - from.y));
    }
};

std::vector<Edge> EdgesOf(const Polygons& polygons) {
    std::vector<Edge> edges;
    std::size_t number = 0;
    for (const Polygon& polygon : polygons) {
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            edges.push_back({polygon[i], polygon[(i + 1) % polygon.size()], number++});
        }
        ++number;
    }
    return edges;
}

/// The part of an edge between two heights, as far as x is concerned.
struct Reach {
    double low, high;
};

Reach ReachBetween(const Edge& edge, double top, double bottom) {
    if (edge.from.y == edge.to.y) {
        return {std::min(edge.from.x, edge.to.x), std::max(edge.from.x, edge.to.x)};
    }
    const double first = edge.XAt(std::clamp(top, edge.Top(), edge.Bottom()));
    const double last = edge.XAt(std::clamp(bottom, edge.Top(), edge.Bottom()));
    return {std::min(first, last), std::max(first, last)};
}

/// The height at which two edges cross, or a height that matters to nobody.
double CrossingHeight(const Edge& a, const Edge& b, double none) {
    const double ax = a.to.x - a.from.x, ay = a.to.y - a.from.y;
    const double bx = b.to.x - b.from.x, by = b.to.y - b.from.y;
    const double cross = ax * by - ay * bx;
    if (cross == 0) {
        return none;
    }
    const double t = ((b.from.x - a.from.x) * by - (b.from.y - a.from.y) * bx) / cross;
    return t >= 0 && t <= 1 ? a.from.y + t * ay : none;
}

/// The rows' edges.
struct RowEdge {
    const Edge* edge;
    Reach reach;
};

/// Cuts pixels into trapezoids, across which no two edges cross.
class PixelCutter {
public:
    PixelCutter(const std::vector<RowEdge>& row, double top) : row_(row), top_(top) {}

    void Measure(double left, PixelCoverage& pixel) {
        Choose(left);
        FindCuts(left);
        for (std::size_t i = 0; i + 1 < cuts_.size(); ++i) {
            if (cuts_[i] < cuts_[i + 1]) {
                MeasureSlab(left, cuts_[i], cuts_[i + 1], pixel);
            }
        }
    }

private:
    struct Crossing {
        double x;
        int direction;
    };

    /// Edges to the right of the pixel wind around none of it; those to the left, around whole slabs.
    void Choose(double left) {
        left_.clear();
        within_.clear();
        for (const RowEdge& candidate : row_) {
            const Edge& edge = *candidate.edge;
            if (edge.from.y == edge.to.y || candidate.reach.low >= left + 1) {
                continue;
            }
            (candidate.reach.high <= left ? left_ : within_).push_back(&edge);
        }
    }

    void Cut(double y) {
        if (y > top_ && y < top_ + 1) {
            cuts_.push_back(y);
        }
    }

    void FindCuts(double left) {
        cuts_.assign({top_, top_ + 1});
        for (const Edge* edge : left_) {
            Cut(edge->from.y);
            Cut(edge->to.y);
        }
        const Edge leftSide = {{left, top_}, {left, top_ + 1}, 0};
        const Edge rightSide = {{left + 1, top_}, {left + 1, top_ + 1}, 0};
        for (std::size_t i = 0; i < within_.size(); ++i) {
            Cut(within_[i]->from.y);
            Cut(within_[i]->to.y);
            Cut(CrossingHeight(*within_[i], leftSide, top_));
            Cut(CrossingHeight(*within_[i], rightSide, top_));
            for (std::size_t j = 0; j < i; ++j) {
                Cut(CrossingHeight(*within_[i], *within_[j], top_));
            }
        }
        std::sort(cuts_.begin(), cuts_.end());
    }

    static bool Spans(const Edge& edge, double y) { return edge.Top() < y && y < edge.Bottom(); }

    // Between two cuts all borders are straight, so the width half way down is the mean one.
    void MeasureSlab(double left, double top, double bottom, PixelCoverage& pixel) {
        const double middle = (top + bottom) / 2;
        int winding = 0;
        for (const Edge* edge : left_) {
            winding += Spans(*edge, middle) ? edge->Direction() : 0;
        }
        crossings_.clear();
        for (const Edge* edge : within_) {
            if (Spans(*edge, middle)) {
                crossings_.push_back({std::clamp(edge->XAt(middle), left, left + 1), edge->Direction()});
            }
        }
        std::sort(crossings_.begin(), crossings_.end(), [](const Crossing& a, const Crossing& b) { return a.x < b.x; });
        crossings_.push_back({left + 1, 0});
        double x = left;
        for (const Crossing& crossing : crossings_) {
            const double area = (crossing.x - x) * (bottom - top);
            pixel.nonZero += IsInside(winding, FillRule::kNonZero) ? area : 0;
            pixel.evenOdd += IsInside(winding, FillRule::kEvenOdd) ? area : 0;
            winding += crossing.direction;
            x = crossing.x;
        }
    }

    const std::vector<RowEdge>& row_;
    double top_;
    std::vector<const Edge*> left_;
    std::vector<const Edge*> within_;
    std::vector<double> cuts_;
    std::vector<Crossing> crossings_;
};

constexpr double kNear = 1.0 / 1024;

void CountEdges(const std::vector<RowEdge>& row, std::int32_t left, PixelCoverage* pixels, std::int32_t width) {
    std::vector<std::size_t> last(static_cast<std::size_t>(width));
    for (const RowEdge& entry : row) {
        const double first = std::max(std::floor(entry.reach.low - kNear) - left, 0.0);
        const double end = std::min(std::floor(entry.reach.high + kNear) - left, width - 1.0);
        for (double column = first; column <= end; ++column) {
            const auto index = static_cast<std::size_t>(column);
            PixelCoverage& pixel = pixels[index];
            pixel.runs += pixel.edges > 0 && last[index] + 1 == entry.edge->number ? 0 : 1;
            ++pixel.edges;
            last[index] = entry.edge->number;
        }
    }
}

void MeasureRow(const std::vector<RowEdge>& row, std::int32_t left, std::int32_t top, PixelCoverage* pixels,
                std::int32_t width) {
    CountEdges(row, left, pixels, width);
    PixelCutter cutter(row, top);
    for (std::int32_t i = 0; i < width; ++i) {
        const bool isLikeTheOneBefore = i > 0 && pixels[i].edges == 0 && pixels[i - 1].edges == 0;
        if (isLikeTheOneBefore) {
            pixels[i] = pixels[i - 1];
        } else {
            cutter.Measure(left + i, pixels[i]);
        }
    }
}

} // namespace

bool IsInside(int winding, FillRule rule) { return rule == FillRule::kNonZero ? winding != 0 : winding % 2 != 0; }

CoverageMap CoverageOf(const Polygons& polygons, std::int32_t left, std::int32_t top, std::int32_t width,
                       std::int32_t height) {
    const auto rows = static_cast<std::size_t>(height);
    CoverageMap map{left, top, width, height, std::vector<PixelCoverage>(rows * static_cast<std::size_t>(width))};
    const std::vector<Edge> edges = EdgesOf(polygons);
    std::vector<std::vector<RowEdge>> rowEdges(rows);
    for (const Edge& edge : edges) {
        const double first = std::max(std::floor(edge.Top() - kNear) - top, 0.0);
        const double last = std::min(std::floor(edge.Bottom() + kNear) - top, height - 1.0);
        for (double row = first; row <= last; ++row) {
            const double y = top + row;
            rowEdges[static_cast<std::size_t>(row)].push_back({&edge, ReachBetween(edge, y - kNear, y + 1 + kNear)});
        }
    }
    for (std::int32_t row = 0; row < height; ++row) {
        MeasureRow(rowEdges[static_cast<std::size_t>(row)], left, top + row,
                   map.pixels.data() + std::ptrdiff_t{row} * width, width);
    }
    return map;
}

double SampledCoverage(const Polygons& polygons, FillRule rule, std::int32_t x, std::int32_t y, int count) {
    const std::vector<Edge> edges = EdgesOf(polygons);
    int inside = 0;
    for (int i = 0; i < count * count; ++i) {
        const Vertex point = {x + (i % count + 0.5) / count, y + (static_cast<double>(i / count) + 0.5) / count};
        int winding = 0;
        for (const Edge& edge : edges) {
            const bool spans = edge.Top() <= point.y && point.y < edge.Bottom();
            winding += spans && edge.XAt(point.y) <= point.x ? edge.Direction() : 0;
        }
        inside += IsInside(winding, rule) ? 1 : 0;
    }
    return static_cast<double>(inside) / (count * count);
}

double SignedArea(const Polygons& polygons) {
    double twice = 0;
    for (const Edge& edge : EdgesOf(polygons)) {
        twice += edge.from.x * edge.to.y - edge.from.y * edge.to.x;
    }
    return twice / 2;
}

Vertex Cubic::At(double t) const {
    const double s = 1 - t;
    const double a = s * s * s, b = 3 * s * s * t, c = 3 * s * t * t, d = t * t * t;
    return {a * from.x + b * control1.x + c * control2.x + d * to.x,
            a * from.y + b * control1.y + c * control2.y + d * to.y};
}

// A chord's distance is at most the largest second derivative times the square of its share of t, over 8.
void Flatten(const Cubic& curve, double error, Polygon& polygon) {
    const auto bend = [](const Vertex& a, const Vertex& b, const Vertex& c) {
        return 6 * std::hypot(a.x - 2 * b.x + c.x, a.y - 2 * b.y + c.y);
    };
    const double second =
        std::max(bend(curve.from, curve.control1, curve.control2), bend(curve.control1, curve.control2, curve.to));
    const int chords = 1 + static_cast<int>(std::sqrt(second / (8 * error)));
    for (int i = 1; i < chords; ++i) {
        polygon.push_back(curve.At(static_cast<double>(i) / chords));
    }
    polygon.push_back(curve.to);
}

// The integral of (x dy - y dx) / 2, in closed form over pairs of control points.
double SignedAreaUnder(const Cubic& curve) {
    const auto cross = [](const Vertex& a, const Vertex& b) { return a.x * b.y - a.y * b.x; };
    return (6 * cross(curve.from, curve.control1) + 3 * cross(curve.from, curve.control2) +
            cross(curve.from, curve.to) + 3 * cross(curve.control1, curve.control2) +
            3 * cross(curve.control1, curve.to) + 6 * cross(curve.control2, curve.to)) /
           20;
}

} // namespace tn::test::model
