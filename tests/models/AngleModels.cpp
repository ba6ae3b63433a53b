#include "tests/models/AngleModels.h"

#include <cmath>

namespace tn::test::model {

double UnroundedDirection(double dx, double up) {
    const double direction = std::atan2(up, dx) * 180 / 3.14159265358979323846;
    const bool isRightwards = !(dx < 0);
    return isRightwards || direction < 0 ? direction + 360 : direction;
}

double WholeDegrees(double degrees) { return std::floor(degrees + 0.5); }

double NearestMultiple(double degrees, double step) {
    const double above = degrees - std::floor(degrees / step) * step;
    const double below = degrees - above;
    return above * 2 < step ? below : below + step;
}

double InOneTurn(double degrees) {
    const double nearest = std::remainder(degrees, 360.0);
    return nearest < 0 ? nearest + 360 : nearest;
}

} // namespace tn::test::model
