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
        : a_(end - start + 3 * (control1 - control2)), b_(3 * (start - 2 * control1 + control2)),
          c_(3 * (control1 - start)), start_(start) {}

    Point At(double t) const { return start_ + t * (c_ + t * (b_ + t * a_)); }

    /// |B''|, which is linear in the parameter, at its greatest.
    double GreatestBend() const {
        const Point first = Bend(0);
        const Point last = Bend(1);
        return std::sqrt(std::max(Dot(first, first), Dot(last, last)));
    }

    Point Bend(double t) const { return 2 * b_ + (6 * t) * a_; } ///< B''

private:
    Point a_, b_, c_, start_;
};

/// By how much of a part the two at the ends of a curve are shorter than others, together: 1 - 1 / sqrt(2).
inline constexpr double kShortEnds = 0.2928932188134524;

/// How many chords FlattenEvenly takes. A single one is |B''| / 8 away.
inline int EvenChords(double bend, double flatness) {
    if (bend <= 8 * flatness) {
        return 1;
    }
    const double chords = std::sqrt(bend / (16 * flatness)) + kShortEnds;
    return chords < kMostChords ? std::max(2, static_cast<int>(std::ceil(chords))) : kMostChords;
}

/// The first distance that leads anywhere.
inline Point Heading(Point first, Point second, Point third) {
    const Point nowhere = {0, 0};
    return first != nowhere ? first : second != nowhere ? second : third;
}

/// Chords over equal parts h, between points that lie outside of the curve by as much as the middles of chords lie
/// inside.
///
/// A point is B - h h B'' / 16. With that, chords are at most h h |B''| / 16 away, half of what chords between points
/// of the curve are, because the straight line between two values of the linear B'' is B'' itself. The ends of the
/// curve stay; the parts there are (2 + sqrt(2)) / 4 as long, for which the same holds.
template <class Lines> void FlattenEvenly(const Cubic& curve, int chords, Point end, Lines& lines) {
    if (chords > 1) {
        const double part = 1 / (chords - kShortEnds);
        const double outwards = -part * part / 16;
        double t = part * (1 - kShortEnds / 2);
        for (int i = 1; i < chords; ++i, t += part) {
            lines.Line(curve.At(t) + outwards * curve.Bend(t));
        }
    }
    lines.Line(end);
}

template <class Lines> void FlattenCurve(Point start, const Point* points, double flatness, Lines& lines) {
    const Point end = points[2];
    const Cubic curve(start, points[0], points[1], end);
    lines.BeginCurve(Heading(points[0] - start, points[1] - start, end - start));
    FlattenEvenly(curve, EvenChords(curve.GreatestBend(), flatness), end, lines);
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
