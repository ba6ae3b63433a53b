#include "TnEngines/vec/Engine.h"
#include "TnEngines/vec/port/CreationError.h"
#include "TnEngines/vec/port/OnPort.h"
#include "TnEngines/vec/port/Procedures.h"

#include <cmath>
#include <memory>
#include <utility>

namespace tn::vec {
namespace {

bool HasKnownFormat(const VecBitmap& bitmap) {
    switch (bitmap.bitsPerPixel) {
    case 32:
        return bitmap.colorKind == kHuexAlphaRgb;
    case 8:
    case 1:
        return bitmap.colorKind == kHuexGray;
    default:
        return false;
    }
}

bool IsNear(std::int32_t edge) { return std::abs(std::int64_t{edge}) < static_cast<std::int64_t>(kFarthest); }

bool IsPaintable(const VecBitmap& bitmap) {
    const Box bounds = {bitmap.left, bitmap.top, bitmap.right, bitmap.bottom};
    if (!HasKnownFormat(bitmap) || bounds.left > bounds.right || bounds.top > bounds.bottom || !IsNear(bounds.left) ||
        !IsNear(bounds.top) || !IsNear(bounds.right) || !IsNear(bounds.bottom)) {
        return false;
    }
    if (bounds.IsEmpty()) {
        return true;
    }
    const std::int64_t rowBits = std::int64_t{bounds.Width()} * bitmap.bitsPerPixel;
    return bitmap.pixels != nullptr && bitmap.rowBytes >= (rowBits + 7) / 8;
}

Target TargetOf(const VecBitmap& bitmap) {
    return {static_cast<std::uint8_t*>(bitmap.pixels),
            bitmap.rowBytes,
            {bitmap.left, bitmap.top, bitmap.right, bitmap.bottom},
            bitmap.bitsPerPixel};
}

VecRect RectOf(const Box& box) {
    return {static_cast<float>(box.left), static_cast<float>(box.top), static_cast<float>(box.right),
            static_cast<float>(box.bottom)};
}

} // namespace

KelError NewBitmapPort(const VecBitmap* bitmap, VecPort* port) noexcept {
    if (port == nullptr) {
        return KeepCreationError(NewErrorOf(Fault::kTarget));
    }
    *port = nullptr;
    if (!IsStarted()) {
        return KeepCreationError(NewErrorOf(Fault::kStopped));
    }
    if (bitmap == nullptr || !IsPaintable(*bitmap)) {
        return KeepCreationError(NewErrorOf(Fault::kTarget));
    }
    try {
        *port = Register(std::make_unique<Port>(TargetOf(*bitmap)));
        return nullptr;
    } catch (...) {
        return ExhaustedMemory();
    }
}

std::int32_t GetPortType(VecPort port) noexcept { return Find(port) != nullptr ? kVecRasterPort : 0; }

void AddReference(VecPort port) noexcept {
    OnPort(port, [](Port& it) { it.AddReference(); });
}

void Release(VecPort port) noexcept {
    if (OnPort(port, false, [](Port& it) { return it.ReleaseReference(); })) {
        Unregister(port);
    }
}

VecPort GetGStatePort(VecPort port) noexcept { return Find(port) != nullptr ? port : nullptr; }

KelError GetKelError(VecPort port) noexcept {
    return OnPort(port, KelError{}, [](Port& it) { return it.Errors().Last(); });
}

std::int32_t GetBounds(VecPort port, VecRect* bounds) noexcept {
    return OnPort(port, 0, [=](Port& it) {
        if (bounds == nullptr || it.Bounds().IsEmpty()) {
            return 0;
        }
        *bounds = RectOf(it.Bounds());
        return 1;
    });
}

void SetOption(VecPort port, std::int32_t group, std::int32_t value) noexcept {
    OnPort(port, [=](Port& it) {
        if (group == kVecAntiAliasOptions) {
            it.State().options = value;
        }
    });
}

std::int32_t GetOption(VecPort port, std::int32_t group) noexcept {
    return OnPort(port, 0, [=](Port& it) { return group == kVecAntiAliasOptions ? it.State().options : 0; });
}

// Everything is painted at once.
void Flush(VecPort) noexcept {}

std::int32_t GetClipBounds(VecPort port, VecRect* bounds) noexcept {
    return OnPort(port, 0, [=](Port& it) {
        const Clip& clip = it.State().clip;
        if (bounds == nullptr || clip.IsEmpty()) {
            return 0;
        }
        *bounds = RectOf(clip.Bounds());
        return 1;
    });
}

} // namespace tn::vec
