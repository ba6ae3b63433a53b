#include "examples/viewer/Pictures.h"

#include <windows.h>

#include <objidl.h>

#include <gdiplus.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace viewer {
namespace {

void CopyRows(const Gdiplus::BitmapData& from, TnImage& image) {
    const auto* row = static_cast<const std::uint8_t*>(from.Scan0);
    const auto rowBytes = static_cast<std::size_t>(image.Size().x) * sizeof(TnImagePixel);
    for (auto to = image.begin(); !to.AtEnd(); to.NextLine()) {
        std::memcpy(static_cast<void*>(&*to), row, rowBytes);
        row += from.Stride;
    }
}

} // namespace

std::optional<TnImage> ReadPicture(const wchar_t* path) {
    Gdiplus::Bitmap file(path);
    const auto width = static_cast<INT>(file.GetWidth());
    const auto height = static_cast<INT>(file.GetHeight());
    const Gdiplus::Rect all(0, 0, width, height);
    Gdiplus::BitmapData data;
    if (file.LockBits(&all, Gdiplus::ImageLockModeRead, PixelFormat32bppARGB, &data) != Gdiplus::Ok) {
        return std::nullopt;
    }
    TnImage image({width, height});
    CopyRows(data, image);
    file.UnlockBits(&data);
    return image;
}

TnImage DrawCheckerboard(const TnPoint& size) {
    constexpr int kSquare = 12;
    TnImage tile({2 * kSquare, 2 * kSquare});
    ColorFill(tile, tile.Bounds(), TnColor(255, 204, 204, 204));
    ColorFill(tile, {0, 0, kSquare, kSquare}, TnColor(255, 240, 240, 240));
    ColorFill(tile, {kSquare, kSquare, kSquare, kSquare}, TnColor(255, 240, 240, 240));
    TnImage ground(size);
    AlphaFill(ground, ground.Bounds(), 255);
    CopyTexture(tile, ground, {0, 0}, ground.Bounds());
    return ground;
}

} // namespace viewer
