#include "TnGraphics/port/PixelGrid.h"

#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"

namespace tn {
namespace {

// Where the storage block ends, as far as pixels at the base and after it are concerned.
std::uint64_t LastOffset(const TnBitMapHelper& storage, std::uintptr_t base, std::uint64_t pixelBytes) {
    const std::uint64_t end = reinterpret_cast<std::uintptr_t>(storage.BaseAddr()) + storage.ByteSize();
    return end < base + pixelBytes ? 0 : end - base - pixelBytes;
}

} // namespace

template <class SurfaceType> PixelGrid<typename SurfaceType::Pixel> ReadAccess::GridOf(const SurfaceType& surface) {
    using Pixel = typename SurfaceType::Pixel;
    const auto base = reinterpret_cast<std::uintptr_t>(surface.PixelBase());
    if (base == 0) {
        return {};
    }
    const TnRect content = surface.Content();
    const bool isWhole = content.left == 0 && content.top == 0 && !surface.contentMoved_;
    const std::uint64_t lastOffset =
        isWhole ? PixelGrid<Pixel>::kWhole : LastOffset(*surface.Storage(), base, sizeof(Pixel));
    return {base, surface.RowBytes(), surface.StorageSize(), lastOffset};
}

bool ReadAccess::DisregardsAlpha(const TnImage& image) { return image.reading_.disregardAlpha > 0; }

template PixelGrid<TnImagePixel> ReadAccess::GridOf(const TnImage&);
template PixelGrid<TnMattePixel> ReadAccess::GridOf(const TnMatte&);

} // namespace tn
