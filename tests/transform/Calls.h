// Calls of the whole-surface transform, as it is made and as the models take it.
#pragma once

#include "tests/models/ResamplingModels.h"

#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"
#include "TnGraphics/transform/Transform.h"

#include <gtest/gtest.h>

namespace tn::test {

using Matrix3x3 = Matrix<double, 3, 3>;

template <class SourceType, class DestinationType> struct Kinds {
    using Source = SourceType;
    using Destination = DestinationType;
};

/// Every instantiation.
using TransformKinds = ::testing::Types<Kinds<TnImage, TnImage>, Kinds<TnMatte, TnMatte>, Kinds<TnImage, TnMatte>>;

constexpr InterpolationType kNearest = InterpolationType::kNearest;
constexpr InterpolationType kSmooth = InterpolationType::kSmooth;
constexpr InterpolationType kBothTypes[] = {kNearest, kSmooth};

inline Matrix3x3 MatrixOf(const model::Elements& e) {
    return {{{e[0], e[1], e[2]}, {e[3], e[4], e[5]}, {e[6], e[7], e[8]}}};
}

inline model::Elements ElementsOf(const Matrix3x3& matrix) {
    const auto& m = matrix.m;
    return {m[0][0], m[0][1], m[0][2], m[1][0], m[1][1], m[1][2], m[2][0], m[2][1], m[2][2]};
}

inline model::Resampling CallOf(const Matrix3x3& matrix, InterpolationType type) {
    return {ElementsOf(matrix), static_cast<int>(type) == 0};
}

/// An affine matrix.
constexpr Matrix3x3 Affine(double m00, double m01, double m02, double m10, double m11, double m12) {
    return {{{m00, m01, m02}, {m10, m11, m12}, {0, 0, 1}}};
}

constexpr Matrix3x3 Moving(double x, double y) { return Affine(1, 0, x, 0, 1, y); }
constexpr Matrix3x3 Scaling(double x, double y) { return Affine(x, 0, 0, 0, y, 0); }

/// The matrix with a projective term too small to move anything in a small picture.
constexpr Matrix3x3 HardlyProjective(Matrix3x3 matrix) {
    matrix.m[2][1] = 1e-12;
    return matrix;
}

/// A new destination with its content set to the transformed source.
template <class DestinationType, class SourceType>
DestinationType Transformed(const SourceType& source, const TnPoint& size, const Matrix3x3& matrix,
                            InterpolationType type) {
    DestinationType destination(size);
    Transform(source, destination, matrix, type);
    return destination;
}

} // namespace tn::test
