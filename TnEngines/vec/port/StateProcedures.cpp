#include "TnEngines/vec/port/OnPort.h"
#include "TnEngines/vec/port/Procedures.h"

#include <algorithm>

namespace tn::vec {
namespace {

constexpr bool IsStyle(std::int32_t number) { return number >= 0 && number <= 2; }

} // namespace

void GSave(VecPort port) noexcept {
    OnPort(port, [](Port& it) { it.Save(); });
}

void GRestore(VecPort port) noexcept {
    OnPort(port, [](Port& it) { it.Restore(); });
}

void GRestoreAll(VecPort port) noexcept {
    OnPort(port, [](Port& it) { it.RestoreAll(); });
}

void InitGraphics(VecPort port) noexcept {
    OnPort(port, [](Port& it) { it.InitGraphics(); });
}

std::int32_t GetSaveDepth(VecPort port) noexcept {
    return OnPort(port, 0, [](Port& it) { return static_cast<std::int32_t>(it.SaveDepth()); });
}

void SetLineWidth(VecPort port, float width) noexcept {
    OnPort(port, [=](Port& it) { it.State().lineWidth = width; });
}

float GetLineWidth(VecPort port) noexcept {
    return OnPort(port, 0.0F, [](Port& it) { return static_cast<float>(it.State().lineWidth); });
}

void SetLineCap(VecPort port, std::int32_t cap) noexcept {
    OnPort(port, [=](Port& it) {
        if (IsStyle(cap)) {
            it.State().cap = static_cast<Cap>(cap);
        }
    });
}

std::int32_t GetLineCap(VecPort port) noexcept {
    return OnPort(port, 0, [](Port& it) { return static_cast<std::int32_t>(it.State().cap); });
}

void SetLineJoin(VecPort port, std::int32_t join) noexcept {
    OnPort(port, [=](Port& it) {
        if (IsStyle(join)) {
            it.State().join = static_cast<Join>(join);
        }
    });
}

std::int32_t GetLineJoin(VecPort port) noexcept {
    return OnPort(port, 0, [](Port& it) { return static_cast<std::int32_t>(it.State().join); });
}

float GetMiterLimit(VecPort port) noexcept {
    return OnPort(port, 0.0F, [](Port&) { return static_cast<float>(kMiterLimit); });
}

// Coarser ones than the default break the promise of smooth curves, so they are no wish of a client's.
void SetFlatness(VecPort port, float flatness) noexcept {
    constexpr float kFinest = 1.0F / 1024;
    OnPort(port, [=](Port& it) {
        if (flatness > 0) {
            it.State().flatness = std::clamp(flatness, kFinest, static_cast<float>(kFlatness));
        }
    });
}

float GetFlatness(VecPort port) noexcept {
    return OnPort(port, 0.0F, [](Port& it) { return static_cast<float>(it.State().flatness); });
}

void SetColorServer(VecPort port, HuexColor color, std::int32_t, std::int32_t) noexcept {
    OnPort(port, [=](Port& it) {
        if (color != nullptr) {
            it.State().color = ColorServer(color);
        }
    });
}

HuexColor GetColorServer(VecPort port) noexcept {
    return OnPort(port, HuexColor{}, [](Port& it) { return it.State().color.Client(); });
}

} // namespace tn::vec
