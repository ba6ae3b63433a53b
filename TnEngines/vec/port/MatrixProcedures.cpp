#include "TnEngines/vec/port/OnPort.h"
#include "TnEngines/vec/port/Procedures.h"

namespace tn::vec {
namespace {

void Step(VecPort port, const Matrix& step) noexcept {
    OnPort(port, [=](Port& it) { it.State().matrix = it.State().matrix * step; });
}

Matrix MatrixOf(const VecMatrix& matrix) { return {matrix.a, matrix.b, matrix.c, matrix.d, matrix.tx, matrix.ty}; }

enum class Way { kToDevice, kToUser };

// Gives 0 and changes nothing where there is no way.
template <class Map> std::int32_t Change(VecPort port, VecPoint* point, Way way, const Map& map) noexcept {
    return OnPort(port, 0, [&](Port& it) {
        const Matrix& matrix = it.State().matrix;
        if (point == nullptr || (way == Way::kToUser && !matrix.IsInvertible())) {
            return 0;
        }
        const Point changed = map(matrix, Point{point->x, point->y});
        *point = {static_cast<float>(changed.x), static_cast<float>(changed.y)};
        return 1;
    });
}

} // namespace

void Translate(VecPort port, float x, float y) noexcept { Step(port, {1, 0, 0, 1, x, y}); }

void Scale(VecPort port, float x, float y) noexcept { Step(port, {x, 0, 0, y, 0, 0}); }

void Shear(VecPort port, float x, float y) noexcept { Step(port, {1, y, x, 1, 0, 0}); }

void ConcatMatrix(VecPort port, const VecMatrix* matrix) noexcept {
    if (matrix != nullptr) {
        Step(port, MatrixOf(*matrix));
    }
}

void InitMatrix(VecPort port) noexcept {
    OnPort(port, [](Port& it) { it.State().matrix = {}; });
}

void GetMatrix(VecPort port, VecMatrix* matrix) noexcept {
    OnPort(port, [=](Port& it) {
        if (matrix != nullptr) {
            const Matrix& m = it.State().matrix;
            *matrix = {static_cast<float>(m.a), static_cast<float>(m.b),  static_cast<float>(m.c),
                       static_cast<float>(m.d), static_cast<float>(m.tx), static_cast<float>(m.ty)};
        }
    });
}

std::int32_t IsMatrixInvertible(VecPort port) noexcept {
    return OnPort(port, 0, [](Port& it) { return it.State().matrix.IsInvertible() ? 1 : 0; });
}

std::int32_t TransformPoint(VecPort port, VecPoint* point) noexcept {
    return Change(port, point, Way::kToDevice, [](const Matrix& matrix, Point it) { return matrix.Map(it); });
}

std::int32_t InverseTransformPoint(VecPort port, VecPoint* point) noexcept {
    return Change(port, point, Way::kToUser, [](const Matrix& matrix, Point it) { return matrix.Unmap(it); });
}

std::int32_t TransformDistance(VecPort port, VecPoint* distance) noexcept {
    return Change(port, distance, Way::kToDevice,
                  [](const Matrix& matrix, Point it) { return matrix.MapDistance(it); });
}

std::int32_t InverseTransformDistance(VecPort port, VecPoint* distance) noexcept {
    return Change(port, distance, Way::kToUser,
                  [](const Matrix& matrix, Point it) { return matrix.UnmapDistance(it); });
}

void SetMatrix(VecPort gstate, float a, float b, float c, float d, float tx, float ty) noexcept {
    OnPort(gstate, [=](Port& it) { it.State().matrix = {a, b, c, d, tx, ty}; });
}

} // namespace tn::vec
