// What everybody draws.
#pragma once

#include <cstdint>
#include <vector>

namespace tn::bench {

struct Spot {
    double x;
    double y;
};

/// A path as its steps, for which each library builds its own.
struct Outline {
    enum class Step : std::uint8_t {
        kMove,  ///< One spot.
        kLine,  ///< One spot.
        kCurve, ///< Three spots: two control points and the end.
        kClose, ///< None.
    };

    std::vector<Step> steps;
    std::vector<Spot> spots;
};

/// Paths that are drawn one after the other.
struct Drawing {
    std::vector<Outline> outlines;
    double lineWidth = 0.0; ///< Of lines along the paths, with mitred joins and butt caps; 0 to fill them, non-zero.

    bool IsFilled() const { return lineWidth <= 0.0; }
};

/// Takes a pen through the steps of a path.
template <class Pen> void Trace(const Outline& outline, Pen& pen) {
    const Spot* spot = outline.spots.data();
    for (const Outline::Step step : outline.steps) {
        switch (step) {
        case Outline::Step::kMove:
            pen.Move(*spot++);
            break;
        case Outline::Step::kLine:
            pen.Line(*spot++);
            break;
        case Outline::Step::kCurve:
            pen.Curve(spot[0], spot[1], spot[2]);
            spot += 3;
            break;
        case Outline::Step::kClose:
            pen.Close();
            break;
        }
    }
}

/// How far a mitre may stand out, as a multiple of the line's width. Beyond it joins are bevelled.
inline constexpr int kMiterLimit = 10;

/// Every path's opaque colour on images; on mattes it is full coverage.
struct Paint {
    int red;
    int green;
    int blue;
};
inline constexpr Paint kPaint = {30, 140, 220};

} // namespace tn::bench
