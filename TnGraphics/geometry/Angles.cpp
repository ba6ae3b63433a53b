#include "TnGraphics/geometry/Angles.h"

#include "TnGraphics/geometry/Rounding.h"

#include <cmath>

namespace {

constexpr double kFullTurn = 360.0;
constexpr double kHalfTurn = 180.0;

// 90 to 450 whole degrees. A vertical line divides by zero: its quotient is infinite, and the arc tangent a right
// angle.
double AngleOfLine(const TnFloatPoint& from, const TnFloatPoint& to) {
    const double dx = to.x - from.x;
    const double slope = RadiansToDegrees(std::atan((from.y - to.y) / dx));
    return slope + (dx < 0.0 ? kHalfTurn : kFullTurn);
}

double Snapped(double degrees, double step) {
    return step == 0.0 ? degrees : std::trunc((step * 0.5 + degrees) / step) * step;
}

} // namespace

double DegreesToRadians(double degrees) { return degrees * 0.01745329252; }

double RadiansToDegrees(double radians) { return tn::RoundToInt32(radians * 57.29577951289617); }

double NormalizeAngle(double degrees) {
    const double remainder = std::fmod(degrees, kFullTurn);
    return remainder >= 0.0 ? remainder : remainder + kFullTurn;
}

double PointsToAngle(const TnFloatPoint& from, const TnFloatPoint& to, double step, double offset, bool wrap) {
    const double angle = Snapped(AngleOfLine(from, to), step) - offset;
    if (wrap) {
        return NormalizeAngle(angle);
    }
    return angle < 0.0 ? angle + kFullTurn : angle;
}

TnPoint ConvertAngleDepthToOffsets(double degrees, short depth) {
    const auto radians = static_cast<float>(DegreesToRadians(degrees));
    const auto length = static_cast<float>(depth);
    const float horizontal = std::cos(radians) * length;
    const float vertical = std::sin(radians) * length;
    return {-tn::RoundToInt32(horizontal), tn::RoundToInt32(vertical)};
}
