#include "examples/viewer/Pictures.h"

#include "examples/Shapes.h"

#include <windows.h>

#include <objidl.h>

#include <gdiplus.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace viewer {
namespace {

constexpr TnPoint kCardSize = {640, 360};
constexpr TnRect kPanel = {40, 30, 560, 290};
constexpr TnRect kBand = {40, 268, 560, 52};
constexpr TnRect kLetters = {80, 14, 480, 270};
constexpr TnColor kPanelColor = {255, 24, 34, 64};
constexpr TnColor kBandColor = {255, 255, 176, 32};
constexpr TnColor kLetterColor = {255, 250, 244, 228};
constexpr TnColor kShadowColor = {255, 0, 0, 0};
constexpr int kOpaque = 255;

// A colour through a matte, over what is there.
void Paint(TnImage& card, const TnMatte& matte, const TnColor& color, int opacity, const TnPoint& at) {
    TnImage layer(kCardSize);
    ColorFill(layer, layer.Bounds(), color);
    TnCopyAlpha(matte, layer, {0, 0});
    BlendImage(layer, opacity, card, at);
}

void PaintWithShadow(TnImage& card, const TnMatte& matte, const TnColor& color, int softness) {
    TnMatte shadow = matte;
    ProcessAlphaChannel(shadow, 1, softness);
    Paint(card, shadow, kShadowColor, 150, {0, softness / 2});
    Paint(card, matte, color, kOpaque, {0, 0});
}

TnMatte Rectangle(const TnRect& rect) {
    TnMatte matte(kCardSize, true);
    AlphaFill(matte, rect, 255);
    return matte;
}

TnMatte Lettering() {
    TnMatte matte(kCardSize, true);
    DownSample(DrawLettering({kLetters.width, kLetters.height}), matte, {kLetters.left, kLetters.top});
    return matte;
}

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

TnImage DrawCard() {
    TnImage card(kCardSize, true);
    PaintWithShadow(card, Rectangle(kPanel), kPanelColor, 16);
    PaintWithShadow(card, Rectangle(kBand), kBandColor, 4);
    PaintWithShadow(card, Lettering(), kLetterColor, 8);
    return card;
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
