// Private: what takes user space to device space.
#pragma once

#include "TnEngines/vec/path/Point.h"

#include <algorithm>
#include <cmath>

namespace tn::vec {

/// x' = a x + c y + tx, y' = b x + d y + ty
struct Matrix {
    double a = 1, b = 0, c = 0, d = 1, tx = 0, ty = 0;

    double Determinant() const { return a * d - b * c; }

    /// False with entries that are no numbers, or so large that not all that is worked out from them would be one.
    bool IsSound() const {
        constexpr double kGreatest = 1e75; // its fourth power is a number still
        const auto isSound = [](double entry) { return std::abs(entry) <= kGreatest; };
        return isSound(a) && isSound(b) && isSound(c) && isSound(d) && isSound(tx) && isSound(ty);
    }

    /// What distances are stretched by at most.
    double GreatestScale() const {
        const double sum = a * a + b * b + c * c + d * d;
        const double determinant = Determinant();
        const double root = std::sqrt(std::max(0.0, sum * sum - 4 * determinant * determinant));
        return std::sqrt((sum + root) / 2);
    }

    /// False where the plane collapses, so that there is nothing to see.
    bool IsInvertible() const { return IsSound() && Determinant() != 0; }

    Point MapDistance(Point distance) const {
        return {a * distance.x + c * distance.y, b * distance.x + d * distance.y};
    }
    Point Map(Point point) const { return MapDistance(point) + Point{tx, ty}; }

    /// Undoes MapDistance, where the matrix is invertible.
    Point UnmapDistance(Point distance) const {
        const double determinant = Determinant();
        return {(d * distance.x - c * distance.y) / determinant, (a * distance.y - b * distance.x) / determinant};
    }
    Point Unmap(Point point) const { return UnmapDistance(point - Point{tx, ty}); }
};

/// Does the step first and then the matrix.
inline Matrix operator*(const Matrix& matrix, const Matrix& step) {
    const Point x = matrix.MapDistance({step.a, step.b});
    const Point y = matrix.MapDistance({step.c, step.d});
    const Point origin = matrix.Map({step.tx, step.ty});
    return {x.x, x.y, y.x, y.y, origin.x, origin.y};
}

} // namespace tn::vec
