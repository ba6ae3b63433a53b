#include "TnGraphics/win/CDC.h"

// The headers of GDI+ lean on those of Windows.
#include <objidl.h>

#include <gdiplus.h>

#include "TnGraphics/win/Presentation.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>

namespace {

constexpr std::uint32_t kImageDepth = 32;
constexpr std::size_t kGrays = 256;

// A palette is as long as its entries ask for, of which its type has one.
void SetGrayPalette(Gdiplus::Bitmap& bitmap) {
    constexpr std::size_t kEntries = offsetof(Gdiplus::ColorPalette, Entries);
    alignas(Gdiplus::ColorPalette) unsigned char memory[kEntries + kGrays * sizeof(Gdiplus::ARGB)];
    auto* const palette = ::new (memory) Gdiplus::ColorPalette;
    palette->Flags = Gdiplus::PaletteFlagsGrayScale;
    palette->Count = kGrays;
    for (std::size_t i = 0; i < kGrays; ++i) {
        const auto gray = static_cast<Gdiplus::ARGB>(i * 0x01010101U);
        std::memcpy(memory + kEntries + i * sizeof(gray), &gray, sizeof(gray));
    }
    bitmap.SetPalette(palette);
}

// Rows of masks are shorter than rows of as many bytes.
bool HoldsBytes(const WinBitMapHelper& storage, const TnPoint& size) {
    const auto rows = static_cast<std::uint64_t>(size.y);
    const auto columns = static_cast<std::uint64_t>(size.x);
    return size.y < 1 || (rows - 1) * storage.RowBytes() + columns <= storage.ByteSize();
}

std::unique_ptr<Gdiplus::Bitmap> NewBitmap(const WinBitMapHelper& storage, const TnPoint& size,
                                           Gdiplus::PixelFormat format) {
    void* const memory = Gdiplus::DllExports::GdipAlloc(sizeof(Gdiplus::Bitmap));
    if (memory == nullptr) {
        return nullptr;
    }
    const auto rowBytes = static_cast<INT>(storage.RowBytes());
    return std::unique_ptr<Gdiplus::Bitmap>(
        ::new (memory) Gdiplus::Bitmap(size.x, size.y, rowBytes, format, static_cast<BYTE*>(storage.BaseAddr())));
}

Gdiplus::Rect IntegerRect(const TnRect& rect) { return {rect.left, rect.top, rect.width, rect.height}; }

Gdiplus::RectF FloatRect(const TnRect& rect) {
    return {static_cast<float>(rect.left), static_cast<float>(rect.top), static_cast<float>(rect.width),
            static_cast<float>(rect.height)};
}

void DrawReduced(Gdiplus::Graphics& graphics, Gdiplus::Bitmap* bitmap, const TnRect& source,
                 const TnRect& destination) {
    if (destination.width < source.width) {
        graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
    }
    graphics.DrawImage(bitmap, IntegerRect(destination), source.left, source.top, source.width, source.height,
                       Gdiplus::UnitPixel);
}

// Half a pixel to the left and up keeps the enlarged pixels where they belong.
void DrawEnlarged(Gdiplus::Graphics& graphics, Gdiplus::Bitmap* bitmap, const TnRect& source,
                  const TnRect& destination) {
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeNearestNeighbor);
    graphics.DrawImage(bitmap, FloatRect(destination), static_cast<float>(source.left - 0.5),
                       static_cast<float>(source.top - 0.5), static_cast<float>(source.width),
                       static_cast<float>(source.height), Gdiplus::UnitPixel);
}

void Show(WinBitMapHelper* storage, const TnRect& source, CDC& destination, const TnRect& destinationRect,
          Gdiplus::CompositingMode mode) {
    if (storage == nullptr || destination.GetSafeHdc() == nullptr) {
        return;
    }
    Gdiplus::Graphics graphics(destination.GetSafeHdc());
    const std::unique_ptr<Gdiplus::Bitmap> bitmap = MakeGDIPlusBitmap(storage);
    graphics.SetCompositingMode(mode);
    if (destinationRect.width <= source.width) {
        DrawReduced(graphics, bitmap.get(), source, destinationRect);
    } else {
        DrawEnlarged(graphics, bitmap.get(), source, destinationRect);
    }
}

} // namespace

WinBitMapHelper* GetWinBitMapHelper(const TnImage& image) { return dynamic_cast<WinBitMapHelper*>(image.Storage()); }

std::unique_ptr<Gdiplus::Bitmap> MakeGDIPlusBitmap(WinBitMapHelper* storage) {
    if (storage == nullptr) {
        return nullptr;
    }
    const TnPoint size = storage->Size();
    if (storage->Depth() == kImageDepth) {
        return NewBitmap(*storage, size, PixelFormat32bppARGB);
    }
    if (!HoldsBytes(*storage, size)) {
        return nullptr;
    }
    std::unique_ptr<Gdiplus::Bitmap> bitmap = NewBitmap(*storage, size, PixelFormat8bppIndexed);
    if (bitmap != nullptr) {
        SetGrayPalette(*bitmap);
    }
    return bitmap;
}

void CopyImage(WinBitMapHelper* storage, const TnRect& source, CDC& destination, const TnRect& destinationRect) {
    Show(storage, source, destination, destinationRect, Gdiplus::CompositingModeSourceCopy);
}

void BlendImage(WinBitMapHelper* storage, const TnRect& source, CDC& destination, const TnRect& destinationRect) {
    Show(storage, source, destination, destinationRect, Gdiplus::CompositingModeSourceOver);
}
