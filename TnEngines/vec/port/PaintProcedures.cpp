#include "TnEngines/vec/port/OnPort.h"
#include "TnEngines/vec/port/Procedures.h"

namespace tn::vec {

KelError Fill(VecPort port) noexcept {
    return PaintOnPort(port, [](Port& it) { return it.Fill(FillRule::kNonZero); });
}

KelError EOFill(VecPort port) noexcept {
    return PaintOnPort(port, [](Port& it) { return it.Fill(FillRule::kEvenOdd); });
}

KelError Stroke(VecPort port) noexcept {
    return PaintOnPort(port, [](Port& it) { return it.Stroke(); });
}

KelError FillRect(VecPort port, const VecRect* rect) noexcept {
    return PaintOnPort(port, [=](Port& it) { return rect != nullptr ? it.FillRect(*rect) : nullptr; });
}

KelError StrokeRect(VecPort port, const VecRect* rect) noexcept {
    return PaintOnPort(port, [=](Port& it) { return rect != nullptr ? it.StrokeRect(*rect) : nullptr; });
}

KelError ErasePage(VecPort port) noexcept {
    return PaintOnPort(port, [](Port& it) { return it.ErasePage(); });
}

std::int32_t IsPointInFill(VecPort port, float x, float y) noexcept {
    return OnPort(port, 0, [=](Port& it) { return it.IsInside({x, y}, FillRule::kNonZero) ? 1 : 0; });
}

std::int32_t IsPointInEOFill(VecPort port, float x, float y) noexcept {
    return OnPort(port, 0, [=](Port& it) { return it.IsInside({x, y}, FillRule::kEvenOdd) ? 1 : 0; });
}

KelError ClipPath(VecPort port) noexcept {
    return PaintOnPort(port, [](Port& it) { return it.ClipTo(FillRule::kNonZero); });
}

KelError EOClipPath(VecPort port) noexcept {
    return PaintOnPort(port, [](Port& it) { return it.ClipTo(FillRule::kEvenOdd); });
}

KelError ClipRect(VecPort port, const VecRect* rect) noexcept {
    return PaintOnPort(port, [=](Port& it) { return rect != nullptr ? it.ClipToRect(*rect) : nullptr; });
}

void InitClip(VecPort port) noexcept {
    OnPort(port, [](Port& it) { it.InitClip(); });
}

std::int32_t IsClipEmpty(VecPort port) noexcept {
    return OnPort(port, 1, [](Port& it) { return it.State().clip.IsEmpty() ? 1 : 0; });
}

} // namespace tn::vec
