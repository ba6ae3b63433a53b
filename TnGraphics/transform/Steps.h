// Private: the source positions of a destination row's pixels, one after the other.
#pragma once

#include "TnGraphics/geometry/Matrix.h"

#include <cstdint>

namespace tn {

using TransformMatrix = Matrix<double, 3, 3>;

/// The matrix in single precision.
Matrix<float, 3, 3> InSinglePrecision(const TransformMatrix& matrix);

/// Positions in 16.16. All arithmetic keeps the low 32 bits.
class FixedSteps {
public:
    explicit FixedSteps(const TransformMatrix& matrix);

    /// Goes to the first pixel of a row.
    void StartRow(std::int32_t y) {
        x_ = static_cast<std::uint32_t>(y) * perRow_.x + origin_.x;
        y_ = static_cast<std::uint32_t>(y) * perRow_.y + origin_.y;
    }

    /// Goes to the next pixel.
    void Next() {
        x_ += perColumn_.x;
        y_ += perColumn_.y;
    }

    std::int32_t X() const { return static_cast<std::int32_t>(x_); }
    std::int32_t Y() const { return static_cast<std::int32_t>(y_); }

private:
    struct Vector {
        std::uint32_t x;
        std::uint32_t y;
    };

    Vector perColumn_;
    Vector perRow_;
    Vector origin_;
    std::uint32_t x_ = 0;
    std::uint32_t y_ = 0;
};

/// Homogeneous positions in single precision, summed up along the row.
class ProjectiveSteps {
public:
    explicit ProjectiveSteps(const TransformMatrix& matrix) : entries_(InSinglePrecision(matrix)) {}

    /// Goes to the first pixel of a row.
    void StartRow(std::int32_t y);

    /// Goes to the next pixel.
    void Next() {
        x_ += entries_.m[0][0];
        y_ += entries_.m[1][0];
        w_ += entries_.m[2][0];
    }

    float X() const { return x_; }
    float Y() const { return y_; }
    float W() const { return w_; }

private:
    Matrix<float, 3, 3> entries_;
    float x_ = 0.0F;
    float y_ = 0.0F;
    float w_ = 0.0F;
};

} // namespace tn
