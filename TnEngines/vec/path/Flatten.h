// Private: paths as lines alone.
#pragma once

#include "TnEngines/vec/path/Path.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace tn::vec {

/// How far, in pixels, a chord may be from its curve unless a port says otherwise.
inline constexpr double kFlatness = 1.0 / 64;

/// More chords no curve gets, however far away its control points are.
inline constexpr int kMostChords = 4096;

/// A cubic Bezier curve as a polynomial: ((a t + b) t + c) t + start.
class Cubic {
public:
    Cubic(Point start, Point control1, Point control2, Point end)
        : first_(start - 2 * control1 + control2), second_(control1 - 2 * control2 + end),
          a_(end - start + 3 * (control1 - control2)), b_(3 * first_), c_(3 * (control1 - start)), start_(start) {}

    Point At(double t) const {
        return {((a_.x * t + b_.x) * t + c_.x) * t + start_.x, ((a_.y * t + b_.y) * t + c_.y) * t + start_.y};
    }

    /// A chord over the n-th part of the parameter is at most |B''| / (8 n n) away, and |B''|, which is linear, at most
    /// 6 times the larger second difference of the control points.
    int Chords(double flatness) const {
        const double difference = std::sqrt(std::max(Dot(first_, first_), Dot(second_, second_)));
        const double chords = std::sqrt(0.75 * difference / flatness);
        return chords < kMostChords ? std::max(1, static_cast<int>(std::ceil(chords))) : kMostChords;
    }

private:
    Point first_, second_;
    Point a_, b_, c_, start_;
};

/// The first distance that leads anywhere.
inline Point Heading(Point first, Point second, Point third) {
    const Point nowhere = {0, 0};
    return first != nowhere ? first : second != nowhere ? second : third;
}

template <class Lines> void FlattenCurve(Point start, const Point* points, double flatness, Lines& lines) {
    const Point end = points[2];
    const Cubic curve(start, points[0], points[1], end);
    const int chords = curve.Chords(flatness);
    const double step = 1.0 / chords;
    lines.BeginCurve(Heading(points[0] - start, points[1] - start, end - start));
    for (int i = 1; i < chords; ++i) {
        lines.Line(curve.At(i * step));
    }
    lines.Line(end);
    lines.EndCurve(Heading(end - points[1], end - points[0], end - start));
}

/// Tells of a path with Move(to), Line(to) and Close(). What is between BeginCurve and EndCurve, which are given where
/// the curve heads there, stands for one curve.
template <class Lines> void Flatten(const Path& path, double flatness, Lines& lines) {
    const Point* point = path.Points().data();
    for (const Verb verb : path.Verbs()) {
        switch (verb) {
        case Verb::kMove:
            lines.Move(*point);
            break;
        case Verb::kLine:
            lines.Line(*point);
            break;
        case Verb::kCurve:
            FlattenCurve(point[-1], point, flatness, lines);
            break;
        case Verb::kClose:
            lines.Close();
            break;
        }
        point += PointsOf(verb);
    }
}

} // namespace tn::vec
