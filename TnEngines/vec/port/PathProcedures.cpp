#include "TnEngines/vec/path/PathEditing.h"
#include "TnEngines/vec/port/OnPort.h"
#include "TnEngines/vec/port/Procedures.h"

#include <algorithm>

namespace tn::vec {
namespace {

VecPoint Narrowed(Point point) { return {static_cast<float>(point.x), static_cast<float>(point.y)}; }

} // namespace

void NewPath(VecPort port) noexcept {
    OnPort(port, [](Port& it) { it.State().path.Clear(); });
}

void MoveTo(VecPort port, float x, float y) noexcept {
    OnPort(port, [=](Port& it) { it.Move({x, y}); });
}

void LineTo(VecPort port, float x, float y) noexcept {
    OnPort(port, [=](Port& it) { it.Line({x, y}); });
}

void CurveTo(VecPort port, float x1, float y1, float x2, float y2, float x3, float y3) noexcept {
    OnPort(port, [=](Port& it) { it.Curve({x1, y1}, {x2, y2}, {x3, y3}); });
}

void ClosePath(VecPort port) noexcept {
    OnPort(port, [](Port& it) { it.State().path.Close(); });
}

void MoveBy(VecPort port, float x, float y) noexcept {
    OnPort(port, [=](Port& it) { it.MoveBy({x, y}); });
}

void LineBy(VecPort port, float x, float y) noexcept {
    OnPort(port, [=](Port& it) { it.LineBy({x, y}); });
}

void CurveBy(VecPort port, float x1, float y1, float x2, float y2, float x3, float y3) noexcept {
    OnPort(port, [=](Port& it) { it.CurveBy({x1, y1}, {x2, y2}, {x3, y3}); });
}

void AddRect(VecPort port, const VecRect* rect) noexcept {
    OnPort(port, [=](Port& it) {
        if (rect != nullptr) {
            it.AddRect(*rect);
        }
    });
}

void AddEllipse(VecPort port, const VecRect* rect) noexcept {
    OnPort(port, [=](Port& it) {
        if (rect != nullptr) {
            it.AddEllipse(*rect);
        }
    });
}

std::int32_t GetCurrentPoint(VecPort port, VecPoint* point) noexcept {
    return OnPort(port, 0, [=](Port& it) {
        Point current;
        if (point == nullptr || !it.CurrentPoint(current)) {
            return 0;
        }
        *point = Narrowed(current);
        return 1;
    });
}

std::int32_t GetPathBounds(VecPort port, VecRect* bounds) noexcept {
    return OnPort(port, 0, [=](Port& it) {
        const GraphicsState& state = it.State();
        if (bounds == nullptr || state.path.IsEmpty() || !state.matrix.IsInvertible()) {
            return 0;
        }
        const VecPoint first = Narrowed(state.matrix.Unmap(state.path.Points().front()));
        *bounds = {first.x, first.y, first.x, first.y};
        for (const Point& each : state.path.Points()) {
            const VecPoint point = Narrowed(state.matrix.Unmap(each));
            *bounds = {std::min(bounds->left, point.x), std::min(bounds->top, point.y),
                       std::max(bounds->right, point.x), std::max(bounds->bottom, point.y)};
        }
        return 1;
    });
}

std::int32_t IsPathEmpty(VecPort port) noexcept {
    return OnPort(port, 1, [](Port& it) { return it.State().path.IsEmpty() ? 1 : 0; });
}

float GetPathLength(VecPort port) noexcept {
    return OnPort(port, 0.0F, [](Port& it) {
        const GraphicsState& state = it.State();
        return state.matrix.IsInvertible() ? static_cast<float>(LengthOf(state.path, state.flatness, state.matrix))
                                           : 0.0F;
    });
}

void ReversePath(VecPort port) noexcept {
    OnPort(port, [](Port& it) { it.ReplacePath(Reversed(it.State().path)); });
}

void FlattenPath(VecPort port) noexcept {
    OnPort(port, [](Port& it) { it.ReplacePath(Flattened(it.State().path, it.State().flatness)); });
}

} // namespace tn::vec
