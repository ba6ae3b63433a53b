#include "TnEngines/vec/path/Stroker.h"

#include <algorithm>
#include <cmath>

namespace tn::vec {
namespace {

// Shorter lines have no direction worth the name.
constexpr double kLeastLength = 1.0 / (1 << 20);

// A half circle gets no more than 2 to the power of this chords.
constexpr int kDeepestArc = 10;

// What a matrix stretches most by.
double GreatestScale(const Matrix& m) {
    const double sum = m.a * m.a + m.b * m.b + m.c * m.c + m.d * m.d;
    const double determinant = m.Determinant();
    const double root = std::sqrt(std::max(0.0, sum * sum - 4 * determinant * determinant));
    return std::sqrt((sum + root) / 2);
}

// A chord over an angle is r (1 - cos(angle / 2)) away from its arc.
double FlatCosine(double radius, double flatness) {
    const double cosine = 1 - std::min(1.0, flatness / radius); // of half the angle
    return 2 * cosine * cosine - 1;
}

} // namespace

Stroker::Stroker(const Pen& pen, double flatness, Outline& outline)
    : pen_(pen), outline_(outline), halfWidth_(pen.width / 2), flatness_(flatness),
      flatCosine_(FlatCosine(halfWidth_ * GreatestScale(pen.matrix), flatness)) {}

void Stroker::Stroke(const Path& path) {
    corners_.clear();
    Flatten(path, flatness_, *this);
    EndSubPath(false);
}

void Stroker::Move(Point to) {
    EndSubPath(false);
    corners_.push_back({to, Vertex::kCorner});
    hasLines_ = false;
}

void Stroker::Line(Point to, Vertex vertex) {
    hasLines_ = true;
    Corner& last = corners_.back();
    const Point step = to - last.at;
    if (Dot(step, step) >= kLeastLength * kLeastLength) {
        corners_.push_back({to, vertex});
    } else if (vertex == Vertex::kCorner) {
        last.vertex = vertex;
    }
}

void Stroker::Close() {
    hasLines_ = true;
    EndSubPath(true);
}

void Stroker::EndSubPath(bool isClosed) {
    if (corners_.empty()) {
        return;
    }
    if (isClosed) {
        const Corner first = corners_.front();
        Line(first.at, Vertex::kCorner);
        if (corners_.size() > 1) {
            corners_.pop_back();
        }
    }
    if (!hasLines_) {
        // a lone move
    } else if (corners_.size() == 1) {
        StrokeDot();
    } else if (MeasureSides(isClosed)) {
        if (isClosed) {
            StrokeClosed();
        } else {
            StrokeOpen();
        }
    }
    corners_.clear();
}

void Stroker::StrokeDot() {
    if (pen_.cap == Cap::kButt) {
        return;
    }
    const Side along = {{1, 0}, 0};
    const Side back = {{-1, 0}, 0};
    const Point at = corners_.front().at;
    MoveTo(at, Offset(along));
    AddCap(at, along);
    AddCap(at, back);
    outline_.Close();
}

// False where the matrix is so nearly singular that there is no telling of directions.
bool Stroker::MeasureSides(bool isClosed) {
    sides_.clear();
    const std::size_t count = corners_.size() - (isClosed ? 0 : 1);
    for (std::size_t i = 0; i < count; ++i) {
        const Point line = pen_.matrix.UnmapDistance(corners_[(i + 1) % corners_.size()].at - corners_[i].at);
        const double length = std::sqrt(Dot(line, line));
        if (!(length > 0) || !std::isfinite(length)) {
            return false;
        }
        sides_.push_back({(1 / length) * line, length});
    }
    return true;
}

void Stroker::StrokeOpen() {
    const auto reversed = [](const Side& side) { return Side{-side.along, side.length}; };
    const std::size_t last = sides_.size() - 1;
    MoveTo(corners_.front().at, Offset(sides_.front()));
    for (std::size_t i = 1; i <= last; ++i) {
        AddCorner(corners_[i], sides_[i - 1], sides_[i]);
    }
    LineTo(corners_.back().at, Offset(sides_.back()));
    AddCap(corners_.back().at, sides_.back());
    for (std::size_t i = last; i >= 1; --i) {
        AddCorner(corners_[i], reversed(sides_[i]), reversed(sides_[i - 1]));
    }
    LineTo(corners_.front().at, -Offset(sides_.front()));
    AddCap(corners_.front().at, reversed(sides_.front()));
    outline_.Close();
}

void Stroker::StrokeClosed() {
    const auto reversed = [](const Side& side) { return Side{-side.along, side.length}; };
    const std::size_t count = corners_.size();
    MoveTo(corners_.front().at, Offset(sides_.back()));
    for (std::size_t i = 0; i < count; ++i) {
        AddCorner(corners_[i], sides_[(i + count - 1) % count], sides_[i]);
        LineTo(corners_[(i + 1) % count].at, Offset(sides_[i]));
    }
    outline_.Close();
    MoveTo(corners_.front().at, -Offset(sides_.front()));
    for (std::size_t i = count; i-- > 0;) {
        const std::size_t next = (i + 1) % count;
        AddCorner(corners_[next], reversed(sides_[next]), reversed(sides_[i]));
        LineTo(corners_[i].at, -Offset(sides_[i]));
    }
    outline_.Close();
}

// From one side of a line's end to the other.
void Stroker::AddCap(Point corner, const Side& into) {
    const Point offset = Offset(into);
    const Point beyond = halfWidth_ * into.along;
    switch (pen_.cap) {
    case Cap::kButt:
        break;
    case Cap::kRound:
        AddArc(corner, offset, beyond, kDeepestArc);
        AddArc(corner, beyond, -offset, kDeepestArc);
        break;
    case Cap::kSquare:
        LineTo(corner, offset + beyond);
        LineTo(corner, beyond - offset);
        break;
    }
    LineTo(corner, -offset);
}

// On the side of the offsets, which is the outer one where the lines turn away from it; where they turn back, both are.
void Stroker::AddCorner(const Corner& corner, const Side& from, const Side& to) {
    LineTo(corner.at, Offset(from));
    const double turn = Cross(from.along, to.along);
    if (turn < 0 || (turn == 0 && Dot(from.along, to.along) < 0)) {
        AddOuterCorner(corner, from, to);
    } else {
        AddInnerCorner(corner, from, to);
    }
    LineTo(corner.at, Offset(to));
}

// Where both lines are long enough, what the way through the corner would go around lies within both of them.
void Stroker::AddInnerCorner(const Corner& corner, const Side& from, const Side& to) {
    const bool isBehind = Dot(from.along, to.along) < 0;
    const double reach = halfWidth_ * Cross(from.along, to.along);
    if (isBehind || reach > std::min(from.length, to.length)) {
        outline_.Line(corner.at);
    }
}

void Stroker::AddOuterCorner(const Corner& corner, const Side& from, const Side& to) {
    const Join join = corner.vertex == Vertex::kSmooth ? Join::kRound : pen_.join;
    const double cosine = Dot(from.along, to.along);
    if (join == Join::kRound) {
        AddRoundCorner(corner.at, from, to);
    } else if (join == Join::kMiter && (1 + cosine) * kMiterLimit * kMiterLimit >= 2) {
        LineTo(corner.at, (1 / (1 + cosine)) * (Offset(from) + Offset(to)));
    }
}

void Stroker::AddRoundCorner(Point corner, const Side& from, const Side& to) {
    if (Dot(from.along, to.along) >= 0) {
        AddArc(corner, Offset(from), Offset(to), kDeepestArc);
        return;
    }
    const Point apart = from.along - to.along;
    const Point middle = (halfWidth_ / std::sqrt(Dot(apart, apart))) * apart;
    AddArc(corner, Offset(from), middle, kDeepestArc);
    AddArc(corner, middle, Offset(to), kDeepestArc);
}

// An arc of at most a quarter of a circle around a corner; its start is there already.
void Stroker::AddArc(Point corner, Point from, Point to, int depth) {
    if (depth > 0 && Dot(from, to) < flatCosine_ * halfWidth_ * halfWidth_) {
        const Point between = from + to;
        const Point middle = (halfWidth_ / std::sqrt(Dot(between, between))) * between;
        AddArc(corner, from, middle, depth - 1);
        AddArc(corner, middle, to, depth - 1);
    } else {
        LineTo(corner, to);
    }
}

} // namespace tn::vec
