#include "../Picture.h"
#include "Pictures.h"
#include "Plate.h"
#include "Scene.h"

#include <array>

namespace {

// The tip of the star, twelve times enlarged.
constexpr TnPoint kDetailCorner = {27, 1};
constexpr double kEnlarged = 12;

TnFixed Fixed(double value) { return TnFixed::FromDouble(value); }

/// A panel whose pixels are what the work reads at positions of the detail.
template <class Read> TnImage Enlarged(const Read& read) {
    TnImage panel(kPanel);
    for (auto pixel = panel.begin(); !pixel.AtEnd(); ++pixel) {
        const TnPoint at = pixel.Position();
        *pixel = read(kDetailCorner.x + at.x / kEnlarged, kDetailCorner.y + at.y / kEnlarged);
    }
    return panel;
}

TnImage EnlargedPixels(const TnImage& image) {
    return Enlarged([&](double x, double y) { return image.Get(static_cast<int>(x), static_cast<int>(y)); });
}

TnImage EnlargedBetween(const TnImage& image) {
    return Enlarged([&](double x, double y) { return image.Get(Fixed(x), Fixed(y)); });
}

// Cells of 6 x 6 pixels, each in one colour.
template <class Read> TnImage InCells(const Read& read) {
    constexpr std::int32_t kCell = 6;
    TnImage cells(kPanel);
    for (std::int32_t y = 0; y < kPanel.y; y += kCell) {
        for (std::int32_t x = 0; x < kPanel.x; x += kCell) {
            ColorFill(cells, {x, y, kCell, kCell}, read(TnRect{x, y, kCell, kCell}));
        }
    }
    return cells;
}

TnColor ColorOf(const TnImagePixel& pixel) { return {pixel.Alpha(), pixel.Red(), pixel.Green(), pixel.Blue()}; }

} // namespace

TnImage ShowContent() {
    TnImage image = Landscape();
    image.Content({50, 10, 56, 50});
    XFill(image, image.Bounds(), kPaper, kRose);
    image.Content({0, 0, kPanel.x, kPanel.y});
    TnImage framed = Landscape();
    DrawFrame(framed, {50, 10, 56, 50}, kPaper);
    return Plate().Add(framed, "a content rectangle").Add(image, "XFill of its bounds").Picture();
}

TnImage ShowGetBetweenPixels() {
    return Plate().Add(EnlargedPixels(Star()), "pixels").Add(EnlargedBetween(Star()), "between pixels").Picture();
}

TnImage ShowGetRect() {
    const TnImage before = Landscape();
    const auto mean = [&](const TnRect& cell) {
        const TnFloatRect area = {1.0 * cell.left, 1.0 * cell.top, 1.0 * cell.width, 1.0 * cell.height};
        return ColorOf(before.Get(area));
    };
    return Plate().Add(before, "before").Add(InCells(mean), "means of 6 x 6").Picture();
}

TnImage ShowGetWeighted() {
    const TnImage before = Landscape();
    constexpr std::array<TnFixed, 5> kernel = {TnFixed{26}, TnFixed{51}, TnFixed{102}, TnFixed{51}, TnFixed{26}};
    TnImage after(before);
    for (int y = 2; y < kPanel.y - 2; ++y) {
        for (int x = 2; x < kPanel.x - 2; ++x) {
            after.Set(before.Get(x - 2, y - 2, kernel.data(), 5, kernel.data(), 5), x, y);
        }
    }
    return Plate().Add(before, "before").Add(after, "weighted 5 x 5").Picture();
}

TnImage ShowGetMatteBetweenPixels() {
    const TnMatte outline = Alphas(Star());
    TnMatte panel(kPanel);
    for (auto value = panel.begin(); !value.AtEnd(); ++value) {
        const TnPoint at = value.Position();
        *value = outline.Get(Fixed(kDetailCorner.x + at.x / kEnlarged), Fixed(kDetailCorner.y + at.y / kEnlarged));
    }
    return Plate().Add(Alphas(EnlargedPixels(Star())), "pixels").Add(panel, "between pixels").Picture();
}

TnImage ShowStDisregardAlphaInGet() {
    const TnImage star = Star();
    const TnImage weighed = EnlargedBetween(star);
    const StDisregardAlphaInGet scope(star, 0);
    return Plate().Add(weighed, "without").Add(EnlargedBetween(star), "in the scope").Picture();
}

TnImage ShowStCoerceToTopFieldOnly() {
    return BeforeAndAfter(Landscape(), "rose in the field", [](TnImage& image) {
        const StCoerceToTopFieldOnly field(image);
        ColorFill(image, {20, 6, 80, 30}, kRose);
    });
}

// What would reach past the destination or the clip is cut off.
TnImage ShowCalcIterBnds() {
    const TnRect clip = {10, 10, 80, 64};
    const TnRect whole = {60, 40, 64, 64};
    TnRect sourceRect;
    TnRect placed;
    CalcIterBnds({64, 64}, kPanel, {whole.left, whole.top}, clip, &sourceRect, &placed);
    TnImage destination = Landscape();
    DrawFrame(destination, clip, kPaper);
    DrawFrame(destination, whole, kNight);
    ColorFill(destination, placed, kRose);
    TnImage source = Badge();
    DrawFrame(source, sourceRect, kNight);
    return Plate().Add(source, "source").Add(destination, "placed in a clip").Picture();
}
