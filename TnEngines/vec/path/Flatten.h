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

    /// A part of the parameter over which any chord will do: chords are at most |B''| part part / 8 away, and |B''|,
    /// which is linear, is greatest at an end.
    double SafePart(double flatness) const {
        const Point first = Bend(0);
        const Point last = Bend(1);
        const double bend = std::sqrt(std::max(Dot(first, first), Dot(last, last)));
        const double chords = std::sqrt(bend / (8 * flatness));
        return chords < kMostChords ? 1 / std::max(1.0, std::ceil(chords)) : 1.0 / kMostChords;
    }

    /// How many times as long a part may be as one from t on, for a chord to be flatness away from it; 0 where the
    /// curve turns back along the chord. Away from the chord only the bend across it leads.
    double Reach(double t, double part, Point chord, double flatness) const {
        const Point heading = Heading(t);
        const Point bend = Bend(t);
        const Point middle = heading + (part / 2) * bend; // of the control points of the heading over the part
        if (Dot(chord, heading) < 0 || Dot(chord, middle) < 0 || Dot(chord, Heading(t + part)) < 0) {
            return 0;
        }
        const double across = std::max(std::abs(Cross(chord, bend)), std::abs(Cross(chord, Bend(t + part))));
        const double away = across * part * part;
        const double length = std::sqrt(Dot(chord, chord));
        return away > 0 ? std::sqrt(8 * flatness * length / away) : kLongest;
    }

    static constexpr double kLongest = 4;

private:
    Point Heading(double t) const { return c_ + t * (2 * b_ + (3 * t) * a_); }
    Point Bend(double t) const { return 2 * b_ + (6 * t) * a_; }

    Point a_, b_, c_, start_;
};

/// The first distance that leads anywhere.
inline Point Heading(Point first, Point second, Point third) {
    const Point nowhere = {0, 0};
    return first != nowhere ? first : second != nowhere ? second : third;
}

/// Chords over equal parts.
template <class Lines> void FlattenEvenly(const Cubic& curve, double part, Point end, Lines& lines) {
    for (double t = part; t < 1 - part / 2; t += part) {
        lines.Line(curve.At(t));
    }
    lines.Line(end);
}

/// Chords over parts that are as long as the curve lets them be. Nearly all of them are as far away as they may, where
/// of even ones few are, so that they keep to less.
template <class Lines>
void FlattenByBend(const Cubic& curve, double safe, Point start, Point end, double flatness, Lines& lines) {
    constexpr double kCaution = 0.96; // for parts that bend more than those before
    const double away = 0.6 * flatness;
    Point from = start;
    double part = 1.5 * safe;
    for (double t = 0; t < 1;) {
        part = std::min(part, 1 - t);
        const Point to = t + part < 1 ? curve.At(t + part) : end;
        const double reach = curve.Reach(t, part, to - from, away);
        if (reach < 1 && part > safe) {
            part = std::max(safe, part * std::max(0.5, kCaution * reach));
            continue;
        }
        lines.Line(to);
        from = to;
        t = t + part < 1 ? t + part : 1;
        part = std::max(safe, part * std::min(Cubic::kLongest, kCaution * reach));
    }
}

template <class Lines> void FlattenCurve(Point start, const Point* points, double flatness, Lines& lines) {
    constexpr double kFewChords = 80; // too few for longer ones to pay for the search
    const Point end = points[2];
    const Cubic curve(start, points[0], points[1], end);
    const double safe = curve.SafePart(flatness);
    lines.BeginCurve(Heading(points[0] - start, points[1] - start, end - start));
    if (safe * kFewChords >= 1) {
        FlattenEvenly(curve, safe, end, lines);
    } else {
        FlattenByBend(curve, safe, start, end, flatness, lines);
    }
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
