#include "TnGraphics/geometry/MakeMatrix.h"

#include "TnGraphics/geometry/Angles.h"

#include <cmath>

namespace {

using Matrix3x3 = Matrix<double, 3, 3>;

double Cosine(double degrees) { return std::cos(DegreesToRadians(degrees)); }

double Sine(double degrees) { return std::sin(DegreesToRadians(degrees)); }

} // namespace

Matrix3x3 MakeMatrix<double>::Identity() { return {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}; }

Matrix3x3 MakeMatrix<double>::Translate(double horizontal, double vertical) {
    return {{{1, 0, horizontal}, {0, 1, vertical}, {0, 0, 1}}};
}

Matrix3x3 MakeMatrix<double>::Flip(bool flipX, bool flipY) { return Scale(flipX ? -1 : 1, flipY ? -1 : 1); }

Matrix3x3 MakeMatrix<double>::Rotate(double degrees) {
    const double cosine = Cosine(degrees);
    const double sine = Sine(degrees);
    return {{{cosine, -sine, 0}, {sine, cosine, 0}, {0, 0, 1}}};
}

Matrix3x3 MakeMatrix<double>::Scale(double horizontal, double vertical) {
    return {{{horizontal, 0, 0}, {0, vertical, 0}, {0, 0, 1}}};
}

Matrix3x3 MakeMatrix<double>::Skew(double horizontal, double vertical) {
    return {{{1, horizontal, 0}, {vertical, 1, 0}, {0, 0, 1}}};
}

Matrix3x3 MakeMatrix<double>::Perspective(double aboutX, double aboutY, double strength) {
    return {{{Cosine(aboutY), 0, 0}, {0, Cosine(aboutX), 0}, {strength * Sine(aboutY), strength * Sine(aboutX), 1}}};
}

Matrix3x3 MakeMatrix<double>::PerspectiveInverse(double aboutX, double aboutY) {
    constexpr double kStrength = 0.009999999776482582;
    const double cosineX = Cosine(aboutX);
    const double cosineY = Cosine(aboutY);
    return {
        {{cosineX, 0, 0}, {0, cosineY, 0}, {kStrength * Sine(aboutY), kStrength * Sine(aboutX), cosineX * cosineY}}};
}

Matrix3x3 MakeMatrix<double>::RotateX(double degrees) {
    const double cosine = Cosine(degrees);
    const double sine = Sine(degrees);
    return {{{1, 0, 0}, {0, cosine, -sine}, {0, sine, cosine}}};
}

Matrix3x3 MakeMatrix<double>::RotateY(double degrees) {
    const double cosine = Cosine(degrees);
    const double sine = Sine(degrees);
    return {{{cosine, 0, sine}, {0, 1, 0}, {-sine, 0, cosine}}};
}
