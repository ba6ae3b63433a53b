#include "tests/models/StrokeModels.h"

#include <algorithm>
#include <cmath>

namespace tn::test::model {
namespace {

Vertex Sum(const Vertex& a, const Vertex& b) { return {a.x + b.x, a.y + b.y}; }
Vertex Difference(const Vertex& a, const Vertex& b) { return {a.x - b.x, a.y - b.y}; }
Vertex Scaled(const Vertex& v, double by) { return {v.x * by, v.y * by}; }
double Dot(const Vertex& a, const Vertex& b) { return a.x * b.x + a.y * b.y; }
double Cross(const Vertex& a, const Vertex& b) { return a.x * b.y - a.y * b.x; }
bool AreSame(const Vertex& a, const Vertex& b) { return a.x == b.x && a.y == b.y; }

Vertex Direction(const Vertex& from, const Vertex& to) {
    const Vertex way = Difference(to, from);
    return Scaled(way, 1 / std::hypot(way.x, way.y));
}

/// To the right of a direction, y growing downwards.
Vertex Across(const Vertex& direction) { return {-direction.y, direction.x}; }

/// The path without what has no length.
StrokePath WithoutRepetitions(const StrokePath& path) {
    StrokePath result;
    result.isClosed = path.isClosed;
    for (std::size_t i = 0; i < path.points.size(); ++i) {
        if (result.points.empty() || !AreSame(result.points.back(), path.points[i])) {
            result.points.push_back(path.points[i]);
            result.isInCurve.push_back(path.isInCurve[i]);
        }
    }
    while (path.isClosed && result.points.size() > 1 && AreSame(result.points.back(), result.points.front())) {
        result.points.pop_back();
        result.isInCurve.pop_back();
    }
    return result;
}

} // namespace

// The chords get shorter and shorter towards the ends, so that the last ones' directions are those of the curve there,
// on which wide caps and joins depend, and no chord's box reaches beyond the end.
void StrokePath::AddCurve(const Vertex& control1, const Vertex& control2, const Vertex& to, double error) {
    constexpr int kHalvings = 20;
    const Cubic curve = {points.back(), control1, control2, to};
    Polygon even;
    Flatten(curve, error, even);
    const auto chords = static_cast<double>(even.size());
    for (int i = kHalvings; i > 0; --i) {
        points.push_back(curve.At(std::ldexp(0.5 / chords, -i)));
    }
    points.push_back(curve.At(0.5 / chords));
    points.insert(points.end(), even.begin(), even.end() - 1);
    points.push_back(curve.At(1 - 0.5 / chords));
    for (int i = 1; i <= kHalvings; ++i) {
        points.push_back(curve.At(1 - std::ldexp(0.5 / chords, -i)));
    }
    isInCurve.resize(points.size(), true);
    Add(to);
}

Stroked::Stroked(const std::vector<StrokePath>& paths, const StrokeStyle& style, const UserMatrix& matrix)
    : style_(style), matrix_(matrix), radius_(std::abs(style.width) / 2),
      determinant_(matrix.a * matrix.d - matrix.b * matrix.c) {
    for (const StrokePath& path : paths) {
        if (path.points.size() > 1) {
            AddPath(WithoutRepetitions(path));
        }
    }
}

void Stroked::AddPath(const StrokePath& path) {
    const std::size_t count = path.points.size();
    if (count == 1) {
        AddDot(path.points.front());
        return;
    }
    for (std::size_t i = 0; i < (path.isClosed ? count : count - 1); ++i) {
        AddBox(path.points[i], path.points[(i + 1) % count]);
    }
    for (std::size_t i = 0; i < count; ++i) {
        const bool isEnd = !path.isClosed && (i == 0 || i == count - 1);
        if (!isEnd) {
            AddJoin(path.points[(i + count - 1) % count], path.points[i], path.points[(i + 1) % count],
                    path.isInCurve[i]);
        }
    }
    if (!path.isClosed) {
        AddCap(path.points.front(), Direction(path.points[0], path.points[1]));
        AddCap(path.points.back(), Direction(path.points[count - 1], path.points[count - 2]));
    }
}

void Stroked::AddDot(const Vertex& at) {
    if (style_.cap == Cap::kRound) {
        AddDisc(at);
    } else if (style_.cap == Cap::kSquare) {
        AddBox({at.x - radius_, at.y}, {at.x + radius_, at.y});
    }
}

void Stroked::AddCap(const Vertex& end, const Vertex& inwards) {
    if (style_.cap == Cap::kRound) {
        AddDisc(end);
    } else if (style_.cap == Cap::kSquare) {
        AddBox(Difference(end, Scaled(inwards, radius_)), end);
    }
}

// The angle between the lines is theirs as they leave the corner: the miter's length over the width is one over the
// sine of its half, which is the cosine of half the turn.
void Stroked::AddJoin(const Vertex& before, const Vertex& at, const Vertex& after, bool isInCurve) {
    const Vertex in = Direction(before, at), out = Direction(at, after);
    const double outer = Cross(in, out) > 0 ? -radius_ : radius_;
    const Vertex first = Scaled(Across(in), outer), last = Scaled(Across(out), outer);
    const double cosineOfHalfTurn = std::sqrt(std::max(0.0, (1 + Dot(in, out)) / 2));
    if (isInCurve && AreSame(in, out)) {
        return;
    }
    if (isInCurve) {
        const Vertex middle = Scaled(Direction(out, in), radius_);
        AddSector(at, first, middle);
        AddSector(at, middle, last);
    } else if (style_.join == Join::kRound) {
        AddDisc(at);
    } else if (style_.join == Join::kMiter && cosineOfHalfTurn * style_.miterLimit >= 1) {
        const double toTip = 1 / (2 * cosineOfHalfTurn * cosineOfHalfTurn);
        AddCorners({at, Sum(at, first), Sum(at, Scaled(Sum(first, last), toTip)), Sum(at, last)});
    } else {
        AddCorners({at, Sum(at, first), Sum(at, last)});
    }
}

// The shorter way round from one offset to another.
void Stroked::AddSector(const Vertex& center, const Vertex& first, const Vertex& last) {
    constexpr double kStep = 0.02;
    const double angle = std::atan2(Cross(first, last), Dot(first, last));
    const int steps = 1 + static_cast<int>(std::abs(angle) / kStep);
    std::vector<Vertex> corners = {center};
    for (int i = 0; i <= steps; ++i) {
        const double turn = angle * i / steps;
        const double cosine = std::cos(turn), sine = std::sin(turn);
        corners.push_back(Sum(center, {first.x * cosine - first.y * sine, first.x * sine + first.y * cosine}));
    }
    AddCorners(corners);
}

void Stroked::AddBox(const Vertex& from, const Vertex& to) {
    const Vertex side = Scaled(Across(Direction(from, to)), radius_);
    AddCorners({Sum(from, side), Sum(to, side), Difference(to, side), Difference(from, side)});
}

// The pen's reach along a device axis is the length of the matrix's row for it, times the radius.
void Stroked::AddDisc(const Vertex& center) {
    const Vertex device = matrix_.Transformed(center);
    const double reachX = radius_ * std::hypot(matrix_.a, matrix_.c);
    const double reachY = radius_ * std::hypot(matrix_.b, matrix_.d);
    pieces_.push_back(
        {true, center, {}, {}, device.x - reachX, device.y - reachY, device.x + reachX, device.y + reachY});
}

void Stroked::AddCorners(const std::vector<Vertex>& corners) {
    Piece piece{false, {}, corners, {}, HUGE_VAL, HUGE_VAL, -HUGE_VAL, -HUGE_VAL};
    for (const Vertex& corner : corners) {
        const Vertex device = matrix_.Transformed(corner);
        piece.deviceCorners.push_back(device);
        piece.left = std::min(piece.left, device.x);
        piece.top = std::min(piece.top, device.y);
        piece.right = std::max(piece.right, device.x);
        piece.bottom = std::max(piece.bottom, device.y);
    }
    pieces_.push_back(piece);
}

Vertex Stroked::InUserSpace(const Vertex& device) const {
    const Vertex moved = {device.x - matrix_.tx, device.y - matrix_.ty};
    return {(matrix_.d * moved.x - matrix_.c * moved.y) / determinant_,
            (matrix_.a * moved.y - matrix_.b * moved.x) / determinant_};
}

bool Stroked::Contains(const Vertex& device) const {
    const Vertex user = InUserSpace(device);
    return std::any_of(pieces_.begin(), pieces_.end(), [&](const Piece& piece) { return IsInPiece(piece, user); });
}

bool Stroked::IsInPiece(const Piece& piece, const Vertex& user) const {
    if (piece.isDisc) {
        return std::hypot(user.x - piece.center.x, user.y - piece.center.y) <= radius_;
    }
    bool isLeftOfAll = true, isRightOfAll = true;
    for (std::size_t i = 0; i < piece.corners.size(); ++i) {
        const Vertex& from = piece.corners[i];
        const Vertex& to = piece.corners[(i + 1) % piece.corners.size()];
        const double side = Cross(Difference(to, from), Difference(user, from));
        isLeftOfAll = isLeftOfAll && side <= 0;
        isRightOfAll = isRightOfAll && side >= 0;
    }
    return isLeftOfAll != isRightOfAll; // both for a piece without area
}

// A convex piece holds a pixel when it holds its corners; one with all of them beyond one of its sides holds none of
// it.
Stroked::Place Stroked::PlaceOfPixel(const Piece& piece, std::int32_t x, std::int32_t y) const {
    if (piece.left >= x + 1.0 || piece.right <= x || piece.top >= y + 1.0 || piece.bottom <= y) {
        return Place::kOutside;
    }
    const Vertex corners[] = {InUserSpace({double(x), double(y)}), InUserSpace({x + 1.0, double(y)}),
                              InUserSpace({x + 1.0, y + 1.0}), InUserSpace({double(x), y + 1.0})};
    if (std::all_of(corners, corners + 4, [&](const Vertex& corner) { return IsInPiece(piece, corner); })) {
        return Place::kWhole;
    }
    for (std::size_t i = 0; i < piece.corners.size(); ++i) {
        const Vertex& from = piece.corners[i];
        const Vertex side = Difference(piece.corners[(i + 1) % piece.corners.size()], from);
        const Vertex inside = Difference(piece.corners[(i + 2) % piece.corners.size()], from);
        const bool isBeyond = std::all_of(corners, corners + 4, [&](const Vertex& corner) {
            return Cross(side, inside) * Cross(side, Difference(corner, from)) < 0;
        });
        if (isBeyond) {
            return Place::kOutside;
        }
    }
    return Place::kAcross;
}

double Stroked::Coverage(std::int32_t x, std::int32_t y, int lines) const {
    std::vector<const Piece*> near;
    for (const Piece& piece : pieces_) {
        const Place place = PlaceOfPixel(piece, x, y);
        if (place == Place::kWhole) {
            return 1;
        }
        if (place == Place::kAcross) {
            near.push_back(&piece);
        }
    }
    double sum = 0;
    std::vector<Interval> intervals;
    for (int line = 0; line < lines && !near.empty(); ++line) {
        intervals.clear();
        for (const Piece* piece : near) {
            const Interval across = AcrossAt(*piece, y + (line + 0.5) / lines);
            intervals.push_back({std::max(across.low, double(x)), std::min(across.high, x + 1.0)});
        }
        std::sort(intervals.begin(), intervals.end(),
                  [](const Interval& a, const Interval& b) { return a.low < b.low; });
        double reached = x;
        for (const Interval& interval : intervals) {
            sum += std::max(0.0, interval.high - std::max(reached, interval.low));
            reached = std::max(reached, interval.high);
        }
    }
    return sum / lines;
}

Stroked::Interval Stroked::AcrossAt(const Piece& piece, double y) const {
    if (y < piece.top || y > piece.bottom) {
        return {HUGE_VAL, -HUGE_VAL};
    }
    if (piece.isDisc) {
        return AcrossDisc(piece.center, y);
    }
    Interval across = {HUGE_VAL, -HUGE_VAL};
    for (std::size_t i = 0; i < piece.deviceCorners.size(); ++i) {
        const Vertex& from = piece.deviceCorners[i];
        const Vertex& to = piece.deviceCorners[(i + 1) % piece.deviceCorners.size()];
        if ((from.y <= y) != (to.y <= y)) {
            const double x = from.x + (to.x - from.x) * ((y - from.y) / (to.y - from.y));
            across = {std::min(across.low, x), std::max(across.high, x)};
        }
    }
    return across;
}

// Where a device line enters and leaves the pen's ellipse: the user point is linear in x, and its distance is radius_.
Stroked::Interval Stroked::AcrossDisc(const Vertex& center, double y) const {
    const Vertex device = matrix_.Transformed(center);
    const double dy = y - device.y;
    const Vertex step = {matrix_.d / determinant_, -matrix_.b / determinant_};
    const Vertex start = {-matrix_.c * dy / determinant_, matrix_.a * dy / determinant_};
    const double square = Dot(step, step), half = Dot(step, start);
    const double root = half * half - square * (Dot(start, start) - radius_ * radius_);
    if (root < 0) {
        return {HUGE_VAL, -HUGE_VAL};
    }
    return {device.x + (-half - std::sqrt(root)) / square, device.x + (-half + std::sqrt(root)) / square};
}

} // namespace tn::test::model
