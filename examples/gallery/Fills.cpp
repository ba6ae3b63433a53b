#include "Pictures.h"
#include "Plate.h"
#include "Scene.h"

namespace {

constexpr TnRect kMiddle = {20, 14, 80, 56};
constexpr TnRect kKept = {36, 24, 60, 38};

} // namespace

TnImage ShowColorFill() {
    return BeforeAndAfter(Landscape(), "half opaque rose",
                          [](TnImage& image) { ColorFill(image, kMiddle, TnColor(128, 214, 64, 122)); });
}

TnImage ShowAlphaFill() {
    return BeforeAndAfter(Landscape(), "alpha 90", [](TnImage& image) { AlphaFill(image, kMiddle, 90); });
}

TnImage ShowAlphaFillMatte() {
    return BeforeAndAfter(StarMatte(), "value 160", [](TnMatte& matte) { AlphaFill(matte, kMiddle, 160); });
}

TnImage ShowXFill() {
    TnImage square = Landscape();
    XFill(square, {18, 4, 76, 76}, kPaper, kRose);
    TnImage wide = Landscape();
    XFill(wide, {6, 24, 108, 36}, kPaper, kRose);
    return Plate().Add(Landscape(), "before").Add(square, "in a square").Add(wide, "in a wide one").Picture();
}

TnImage ShowCrossHatchFill() {
    TnImage fine = Landscape();
    CrossHatchFill(fine, kMiddle, kPaper, kRose, 3);
    TnImage coarse = Landscape();
    CrossHatchFill(coarse, kMiddle, kPaper, kRose, 4);
    return Plate().Add(Landscape(), "before").Add(fine, "size exponent 3").Add(coarse, "size exponent 4").Picture();
}

// Alphas stay, so the colours themselves are what there is to see.
TnImage ShowBlendInColor() {
    TnImage blended = Badge();
    BlendInColor(blended, kSky, true);
    return Plate().Add(Badge(), "before").Add(blended, "after").Add(Opaque(blended), "its colours").Picture();
}

TnImage ShowBlendInColorAndFillAlpha() {
    return BeforeAndAfter(Badge(), "sky, alpha 255",
                          [](TnImage& image) { BlendInColorAndFillAlpha(image, kSky, 255); });
}

TnImage ShowSetOpacity() {
    return BeforeAndAfter(Badge(), "40 percent", [](TnImage& image) { SetOpacity(image, 40); });
}

TnImage ShowEraseOutside() {
    return BeforeAndAfter(Landscape(), "after", [](TnImage& image) { EraseOutside(image, kKept); });
}

TnImage ShowPrepareMargin() {
    return BeforeAndAfter(StarMatte(), "after", [](TnMatte& matte) { PrepareMargin(matte, kKept); });
}
