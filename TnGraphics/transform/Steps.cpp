#include "TnGraphics/transform/Steps.h"

#include "TnGraphics/geometry/Rounding.h"

namespace tn {
namespace {

// Half a step is added whatever the sign: -1 becomes -65535.
std::uint32_t Fixed(double entry) { return static_cast<std::uint32_t>(TruncateToInt32(entry * 65536.0 + 0.5)); }

} // namespace

Matrix<float, 3, 3> InSinglePrecision(const TransformMatrix& matrix) {
    Matrix<float, 3, 3> narrowed;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            narrowed.m[row][column] = static_cast<float>(matrix.m[row][column]);
        }
    }
    return narrowed;
}

FixedSteps::FixedSteps(const TransformMatrix& matrix)
    : perColumn_{Fixed(matrix.m[0][0]), Fixed(matrix.m[1][0])}, perRow_{Fixed(matrix.m[0][1]), Fixed(matrix.m[1][1])},
      origin_{Fixed(matrix.m[0][2]), Fixed(matrix.m[1][2])} {}

void ProjectiveSteps::StartRow(std::int32_t y) {
    const auto row = static_cast<float>(y);
    const float firstColumn = 0.0F; // times an entry: an infinite one makes the position no number
    const auto start = [&](const float(&entries)[3]) {
        return (entries[1] * row + entries[0] * firstColumn) + entries[2];
    };
    x_ = start(entries_.m[0]);
    y_ = start(entries_.m[1]);
    w_ = start(entries_.m[2]);
}

} // namespace tn
