#include "../Drawing.h"
#include "../Picture.h"
#include "Pictures.h"
#include "Plate.h"
#include "Scene.h"

namespace {

constexpr int kOpacity = 175;
constexpr TnRect kClip = {0, 0, 84, 60};

TnColorTransform Tint() { return GetColorMatrixForBlend(kSky, 50); }

template <class Combine> TnImage AtWholePixels(const Combine& combine) {
    return BeforeAndAfter(FadingLandscape(), Badge(), "source", "after",
                          [&](TnImage& image) { combine(Badge(), 255, image, kCorner); });
}

template <class Combine> TnImage TintedInClip(const Combine& combine) {
    return BeforeAndAfter(FadingLandscape(), Badge(), "source", "tinted, in a clip",
                          [&](TnImage& image) { combine(Badge(), Tint(), kOpacity, image, kCorner, kClip); });
}

// Half a pixel is little, so the tip of a star is shown enlarged.
template <class Combine> TnImage AtSubPixels(const Combine& combine) {
    constexpr TnRect kTip = {33, 9, 30, 21};
    TnImage whole = FadingLandscape();
    TnImage between = FadingLandscape();
    combine(Star(), TnColorTransform(), 255, whole, FixedPoint(16, 8), whole.Bounds());
    combine(Star(), TnColorTransform(), 255, between, FixedPoint(16.5, 8.25), between.Bounds());
    return Plate()
        .Add(between, "at (16.5, 8.25)")
        .Add(Magnified(between, kTip, kPanel), "its tip there")
        .Add(Magnified(whole, kTip, kPanel), "at (16, 8)")
        .Picture();
}

// Every overload of an operation.
constexpr auto kBlendImage = [](auto&&... arguments) { BlendImage(arguments...); };
constexpr auto kPreBlendImageAndAlpha = [](auto&&... arguments) { PreBlendImageAndAlpha(arguments...); };
constexpr auto kIntersectAlpha = [](auto&&... arguments) { IntersectAlpha(arguments...); };
constexpr auto kIntersectAlphaNoColor = [](auto&&... arguments) { IntersectAlphaNoColor(arguments...); };
constexpr auto kSubtractAlpha = [](auto&&... arguments) { SubtractAlpha(arguments...); };
constexpr auto kXORAlpha = [](auto&&... arguments) { XORAlpha(arguments...); };

} // namespace

TnImage ShowBlendImage() { return AtWholePixels(kBlendImage); }
TnImage ShowBlendImageInClip() { return TintedInClip(kBlendImage); }
TnImage ShowBlendImageBetweenPixels() { return AtSubPixels(kBlendImage); }

TnImage ShowPreBlendImageAndAlpha() { return AtWholePixels(kPreBlendImageAndAlpha); }
TnImage ShowPreBlendImageAndAlphaInClip() { return TintedInClip(kPreBlendImageAndAlpha); }
TnImage ShowPreBlendImageAndAlphaBetweenPixels() { return AtSubPixels(kPreBlendImageAndAlpha); }

TnImage ShowIntersectAlpha() { return AtWholePixels(kIntersectAlpha); }
TnImage ShowIntersectAlphaInClip() { return TintedInClip(kIntersectAlpha); }
TnImage ShowIntersectAlphaBetweenPixels() { return AtSubPixels(kIntersectAlpha); }

TnImage ShowIntersectAlphaNoColor() { return AtWholePixels(kIntersectAlphaNoColor); }
TnImage ShowIntersectAlphaNoColorInClip() { return TintedInClip(kIntersectAlphaNoColor); }
TnImage ShowIntersectAlphaNoColorBetweenPixels() { return AtSubPixels(kIntersectAlphaNoColor); }

TnImage ShowSubtractAlpha() { return AtWholePixels(kSubtractAlpha); }
TnImage ShowSubtractAlphaInClip() { return TintedInClip(kSubtractAlpha); }
TnImage ShowSubtractAlphaBetweenPixels() { return AtSubPixels(kSubtractAlpha); }

TnImage ShowXORAlpha() { return AtWholePixels(kXORAlpha); }
TnImage ShowXORAlphaInClip() { return TintedInClip(kXORAlpha); }
TnImage ShowXORAlphaBetweenPixels() { return AtSubPixels(kXORAlpha); }

TnImage ShowIntersectAlphaMattes() {
    return BeforeAndAfter(StarMatte(), BadgeOutline(), "source", "after",
                          [](TnMatte& matte) { IntersectAlpha(BadgeOutline(), 255, matte, kCorner); });
}

TnImage ShowIntersectAlphaMatte() {
    return BeforeAndAfter(FadingLandscape(), BadgeOutline(), "a matte", "after",
                          [](TnImage& image) { IntersectAlpha(BadgeOutline(), 255, image, kCorner); });
}
