#include "TnGraphics/draw/TnRasterPort.h"

#include "TnGraphics/draw/EnginePort.h"
#include "TnGraphics/draw/RasterTarget.h"
#include "TnGraphics/port/ClientLock.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace {

template <class SurfaceType> constexpr std::int32_t kBitsPerPixel = 8;
template <> constexpr std::int32_t kBitsPerPixel<TnImage> = 32;
template <> constexpr std::int32_t kBitsPerPixel<TnMask> = 1;

template <class SurfaceType> constexpr HuexColorSpace kColorKind = kHuexGray;
template <> constexpr HuexColorSpace kColorKind<TnImage> = kHuexAlphaRgb;

template <class SurfaceType> VecBitmap BitmapOf(const SurfaceType& surface, void* pixels, const TnPoint& size) {
    return {pixels, surface.RowBytes(), 0, 0, size.x, size.y, kBitsPerPixel<SurfaceType>, kColorKind<SurfaceType>};
}

/// The pixels of a walk over all content; none where the walk has none.
template <class SurfaceType> VecBitmap Describe(const SurfaceType& surface) {
    const auto walk = surface.begin();
    if (walk.AtEnd()) {
        return BitmapOf(surface, nullptr, {0, 0});
    }
    return BitmapOf(surface, &*walk, {walk.Bounds().width, walk.Bounds().height});
}
VecBitmap Describe(const TnMask& mask) {
    void* const pixels = mask.PixelAddress();
    return BitmapOf(mask, pixels, pixels == nullptr ? TnPoint{0, 0} : mask.Size());
}

template <class SurfaceType> class LockedSurface final : public tn::RasterTarget {
public:
    explicit LockedSurface(const SurfaceType& surface) : LockedSurface(tn::ClientLock<SurfaceType>(surface)) {}

private:
    explicit LockedSurface(const tn::ClientLock<SurfaceType>& lock)
        : RasterTarget(Describe(*lock.Surface())), lock_(lock) {}

    tn::ClientLock<SurfaceType> lock_;
};

// What the engine is told for each policy; see TnEngines/abi/vec_procedures.h.
constexpr std::array<std::int32_t, 8> kOptions = {
    kVecSmoothClips | kVecSmoothPaint,
    0,
    kVecSmoothPaint,
    0,
    0,
    kVecThinLineCare,
    kVecThinLineCare | kVecSmoothClips | kVecSmoothPaint,
    kVecThinLineCare | kVecSmoothClips | kVecSmoothPaint,
};

std::int32_t OptionFor(TnDrawPort::AntiAliasPolicy policy) {
    const auto index = static_cast<std::size_t>(policy);
    return index < kOptions.size() ? kOptions[index] : kOptions[TnDrawPort::kSmooth];
}

void SetFirstColor(const tn::EnginePort& port, HuexColorSpace kind) {
    if (kind == kHuexGray) {
        port.SetColor<1>(kHuexGray, {1.0F});
    } else {
        port.SetColor<4>(kHuexAlphaRgb, {1.0F, 0.0F, 0.0F, 0.0F});
    }
}

} // namespace

TnRasterPort::TnRasterPort(const TnImage& image) : target_(std::make_unique<LockedSurface<TnImage>>(image)) {}
TnRasterPort::TnRasterPort(const TnMatte& matte) : target_(std::make_unique<LockedSurface<TnMatte>>(matte)) {}
TnRasterPort::TnRasterPort(const TnMask& mask) : target_(std::make_unique<LockedSurface<TnMask>>(mask)) {}

TnRasterPort::~TnRasterPort() {
    holds_ = -1;
    enginePort_.reset(); // before what it draws into
}

bool TnRasterPort::BeginDrawing(AntiAliasPolicy policy, long) {
    if (isExternal_) {
        return enginePort_ != nullptr;
    }
    const VecBitmap& bitmap = target_->Bitmap();
    std::unique_ptr<tn::EnginePort> port(tn::EnginePort::New(bitmap));
    if (enginePort_ != nullptr && enginePort_->IsAlive()) {
        enginePort_.release()->Abandon();
    }
    enginePort_ = std::move(port);
    if (enginePort_ == nullptr) {
        return false;
    }
    SetFirstColor(*enginePort_, bitmap.colorKind);
    enginePort_->Call<VecPortOptionsV3Type>(tn::abi::Port::kOptions, std::int32_t{kVecAntiAliasOptions},
                                            OptionFor(policy));
    return true;
}

void TnRasterPort::EndDrawing() {
    --holds_;
    if (holds_ <= 0) {
        enginePort_.reset();
    }
}

void TnRasterPort::CopyTo(TnDrawPort&) {}

void TnRasterPort::CopyTo(TnDrawPort&, const TnRect&, const TnRect&) {}
