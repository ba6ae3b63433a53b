#include "Pictures.h"
#include "Plate.h"
#include "Scene.h"

#include <vector>

TnImage ShowTnCopy() {
    return BeforeAndAfter(Landscape(), Badge(), "source", "after",
                          [](TnImage& image) { TnCopy(Badge(), image, kCorner); });
}

TnImage ShowTnCopyMatte() {
    return BeforeAndAfter(StarMatte(), BadgeOutline(), "source", "after",
                          [](TnMatte& matte) { TnCopy(BadgeOutline(), matte, kCorner); });
}

TnImage ShowTnCopyInClip() {
    return BeforeAndAfter(Landscape(), Badge(), "source", "in a clip", [](TnImage& image) {
        TnCopy(Badge(), image, kCorner, {0, 0, 84, 60});
    });
}

TnImage ShowTnCopyTransformed() {
    const TnColorTransform tint = GetColorMatrixForBlend(kSky, 50);
    return BeforeAndAfter(Landscape(), Badge(), "source", "tinted, opacity 175",
                          [&](TnImage& image) { TnCopy(Badge(), tint, 175, image, kCorner, image.Bounds()); });
}

TnImage ShowTnCopyColor() {
    return BeforeAndAfter(FadingLandscape(), Badge(), "source", "after",
                          [](TnImage& image) { TnCopyColor(Badge(), image, kCorner); });
}

TnImage ShowTnCopyAlpha() {
    return BeforeAndAfter(Landscape(), StarMatte(), "source", "after", [](TnImage& image) {
        TnCopyAlpha(StarMatte(), image, {0, 0});
    });
}

TnImage ShowCopyLuminenceToAlpha() {
    return BeforeAndAfter(Landscape(), Poster(), "source", "after",
                          [](TnImage& image) { CopyLuminenceToAlpha(Poster(), image, kCorner); });
}

TnImage ShowCopyAlphaToLuminence() {
    return BeforeAndAfter(Landscape(), BadgeOutline(), "source", "after",
                          [](TnImage& image) { CopyAlphaToLuminence(BadgeOutline(), image, kCorner); });
}

// Black is in no list, so it becomes the last colour.
TnImage ShowTnCopyMapColor() {
    const std::vector<TnImagePixel> from = {0xFFFFFFFF, kRose, kSky};
    const std::vector<TnImagePixel> to = {kNight, kAmber, 0x40FFFFFF, kLeaf};
    return BeforeAndAfter(Landscape(), Poster(), "source", "after",
                          [&](TnImage& image) { TnCopyMapColor(Poster(), image, kCorner, from, to); });
}

TnImage ShowCopyTexture() {
    return BeforeAndAfter(FadingLandscape(), Texture(), "texture", "after", [](TnImage& image) {
        CopyTexture(Texture(), image, {0, 0}, {20, 10, 80, 64});
    });
}

// Nothing is left to be seen but the colours.
TnImage ShowCopyTextureZeroAlpha() {
    TnImage after = Landscape();
    CopyTextureZeroAlpha(Texture(), after, {0, 0}, {20, 10, 80, 64});
    return Plate().Add(Texture(), "texture").Add(after, "after").Add(Opaque(after), "its colours").Picture();
}

TnImage ShowBlendTexture() {
    return BeforeAndAfter(FadingLandscape(), Texture(), "texture", "after", [](TnImage& image) {
        BlendTexture(Texture(), image, {20, 10, 80, 64});
    });
}
