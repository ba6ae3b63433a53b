#include "Scene.h"

#include "../Drawing.h"
#include "../Picture.h"
#include "../PixelText.h"
#include "../Shapes.h"
#include "Plate.h"

#include <cmath>

namespace {

constexpr TnColor kDusk = {255, 255, 198, 140};
constexpr TnColor kSun = {255, 255, 232, 120};
constexpr TnColor kFarHill = {255, 104, 122, 158};
constexpr TnColor kWhite = {255, 255, 255, 255};
constexpr TnColor kBlack = {255, 12, 12, 16};
constexpr std::int32_t kBadgeSide = 64;

void FillHill(TnDrawPort& port, const TnFloatPoint& from, double rise, double to, const TnColor& color) {
    port.MoveTo(from);
    port.CurveTo(TnFloatPoint{from.x + 30, from.y - rise}, {from.x + 70, from.y + rise}, {kPanel.x + 1.0, to});
    port.LineTo(TnFloatPoint{kPanel.x + 1.0, kPanel.y + 1.0});
    port.LineTo(TnFloatPoint{from.x, kPanel.y + 1.0});
    PaintWith(port, color);
    port.Fill();
}

void FillDisc(TnDrawPort& port, const TnFloatPoint& centre, double radius, const TnColor& color, double opacity = 1.0) {
    AddCircle(port, centre, radius);
    PaintWith(port, color, opacity);
    port.Fill();
}

// A star of five points around the centre.
void AddStar(TnDrawPort& port, const TnFloatPoint& centre, double radius) {
    for (int n = 0; n < 10; ++n) {
        const double angle = DegreesToRadians(36.0 * n - 90.0);
        const double reach = n % 2 == 0 ? radius : 0.45 * radius;
        const TnFloatPoint tip = {centre.x + reach * std::cos(angle), centre.y + reach * std::sin(angle)};
        n == 0 ? port.MoveTo(tip) : port.LineTo(tip);
    }
    port.ClosePath();
}

} // namespace

TnImage Landscape() {
    TnImage image = Gradient(kPanel, kSky, kDusk, {0, kPanel.y});
    Draw(image, [](TnDrawPort& port) {
        FillDisc(port, {84, 34}, 24, kSun, 0.3);
        FillDisc(port, {84, 34}, 14, kSun);
        FillHill(port, {-1, 52}, 40, 44, kFarHill);
        FillHill(port, {-1, 70}, 24, 62, kLeaf);
    });
    AlphaFill(image, image.Bounds(), 255);
    return image;
}

TnImage FadingLandscape() {
    TnImage image = Landscape();
    for (auto pixel = image.begin(); !pixel.AtEnd(); ++pixel) {
        pixel->Alpha(static_cast<std::uint8_t>(255 - 255 * pixel.Position().x / (kPanel.x - 1)));
    }
    return image;
}

TnImage Badge() {
    TnImage badge = Gradient({kBadgeSide, kBadgeSide}, kAmber, kRose, {kBadgeSide, kBadgeSide});
    CutOutOval(badge, 0.72, 1.0);
    Draw(badge, [](TnDrawPort& port) {
        AddStar(port, {32, 33}, 22);
        PaintWith(port, kPaper);
        port.Fill();
    });
    return badge;
}

TnImage Star() {
    TnImage star({kBadgeSide, kBadgeSide}, true);
    Draw(star, [](TnDrawPort& port) {
        AddStar(port, {32, 34}, 30);
        PaintWith(port, kRose);
        port.Fill();
    });
    return star;
}

TnMatte BadgeOutline() { return Alphas(Badge()); }

TnImage Poster() {
    TnImage poster({kBadgeSide, kBadgeSide});
    ColorFill(poster, {0, 0, 32, 32}, kWhite);
    ColorFill(poster, {32, 0, 32, 32}, kRose);
    ColorFill(poster, {0, 32, 32, 32}, kSky);
    ColorFill(poster, {32, 32, 32, 32}, kBlack);
    return poster;
}

TnImage Texture() {
    TnImage texture({16, 16});
    ColorFill(texture, texture.Bounds(), kPaper);
    ColorFill(texture, {0, 0, 16, 3}, kLeaf);
    ColorFill(texture, {0, 0, 3, 16}, kRose);
    ColorFill(texture, {8, 8, 4, 4}, kNight);
    return texture;
}

TnMask StarMask() {
    TnMask mask({4 * kPanel.x, 4 * kPanel.y}, true);
    Draw(mask, [](TnDrawPort& port) {
        AddStar(port, {2.0 * kPanel.x, 2.1 * kPanel.y}, 1.6 * kPanel.y);
        port.Fill();
    });
    return mask;
}

TnMatte StarMatte() {
    TnMatte matte(kPanel, true);
    DownSample(StarMask(), matte, {0, 0});
    return matte;
}

void Answer(TnImage& image, std::string_view text) {
    const TnRect ground = {0, image.Size().y - 15, image.Size().x, 15};
    ColorFill(image, ground, kNight);
    DrawText(image, {4, ground.top + 4}, text, kPaper, 1);
}

TnImage Opaque(TnImage image) {
    AlphaFill(image, image.Bounds(), 255);
    return image;
}

TnMatte Alphas(const TnImage& image) {
    TnMatte matte(image.Size());
    TnCopyAlpha(image, matte, {0, 0});
    return matte;
}

TnMatte ToMatte(const TnMask& mask) {
    TnMatte matte(mask.Size());
    for (auto value = matte.begin(); !value.AtEnd(); ++value) {
        *value = IsSet(mask, value.Position()) ? 255 : 0;
    }
    return matte;
}
