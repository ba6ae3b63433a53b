#include "TnGraphics/geometry/PointTransform.h"

#include "TnGraphics/geometry/Rounding.h"

#include <cstdint>

namespace {

using Matrix3x3 = Matrix<double, 3, 3>;

// The mapping is written once, for numbers of single precision and for fixed-point numbers.
template <class Number> struct Position {
    Number x;
    Number y;
};

// Fixed-point arithmetic; what leaves 32 bits wraps.

TnFixed Truncated(double value) { return {tn::TruncateToInt32(value * 65536.0)}; }

TnFixed operator*(TnFixed a, TnFixed b) { return Truncated(a.ToDouble() * b.ToDouble()); }

TnFixed operator+(TnFixed a, TnFixed b) {
    return {static_cast<std::int32_t>(static_cast<std::uint32_t>(a.raw) + static_cast<std::uint32_t>(b.raw))};
}

TnFixed Reciprocal(TnFixed number) { return Truncated(1.0 / number.ToDouble()); }

float Reciprocal(float number) { return 1.0F / number; }

template <class Number> Number NumberFrom(double element);

template <> float NumberFrom(double element) { return static_cast<float>(element); }

template <> TnFixed NumberFrom(double element) { return TnFixed::FromDouble(element); }

template <class Number> Number RowTimesPoint(const double (&row)[3], const Position<Number>& point) {
    return (NumberFrom<Number>(row[1]) * point.y + NumberFrom<Number>(row[0]) * point.x) + NumberFrom<Number>(row[2]);
}

template <class Number> bool IsZero(const Number& number) { return number == Number{}; }

template <class Number> bool IsAffine(const Matrix3x3& matrix) {
    return IsZero(NumberFrom<Number>(matrix.m[2][0])) && IsZero(NumberFrom<Number>(matrix.m[2][1]));
}

template <class Number> Position<Number> Mapped(const Position<Number>& point, const Matrix3x3& matrix) {
    const Position<Number> undivided = {RowTimesPoint(matrix.m[0], point), RowTimesPoint(matrix.m[1], point)};
    if (IsAffine<Number>(matrix)) {
        return undivided;
    }
    const Number w = RowTimesPoint(matrix.m[2], point);
    if (IsZero(w)) {
        return undivided;
    }
    const Number factor = Reciprocal(w);
    return {undivided.x * factor, undivided.y * factor};
}

template <class Box> void TransformCorners(const Box& source, Box& destination, const Matrix3x3& matrix) {
    for (int i = 0; i < 4; ++i) {
        Transform(source.corners[i], destination.corners[i], matrix);
    }
}

} // namespace

void Transform(const TnPoint& source, TnPoint& destination, const Matrix3x3& matrix) {
    const auto mapped = Mapped<float>({static_cast<float>(source.x), static_cast<float>(source.y)}, matrix);
    destination = {tn::RoundToInt32(mapped.x), tn::RoundToInt32(mapped.y)};
}

void Transform(const TnFloatPoint& source, TnFloatPoint& destination, const Matrix3x3& matrix) {
    const auto mapped = Mapped<float>({static_cast<float>(source.x), static_cast<float>(source.y)}, matrix);
    destination = {mapped.x, mapped.y};
}

void Transform(const TnFixedPoint& source, TnFixedPoint& destination, const Matrix3x3& matrix) {
    const auto mapped = Mapped<TnFixed>({source.x, source.y}, matrix);
    destination = {mapped.x, mapped.y};
}

void Transform(const TnBox& source, TnBox& destination, const Matrix3x3& matrix) {
    TransformCorners(source, destination, matrix);
}

void Transform(const TnFloatBox& source, TnFloatBox& destination, const Matrix3x3& matrix) {
    TransformCorners(source, destination, matrix);
}

void Transform(const TnFixedBox& source, TnFixedBox& destination, const Matrix3x3& matrix) {
    TransformCorners(source, destination, matrix);
}
