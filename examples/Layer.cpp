#include "Layer.h"

#include "Mapping.h"

namespace {

constexpr TnColor kShadow = {255, 6, 8, 20};
constexpr TnColorTransform kUnchanged;

/// Mode of ProcessAlphaChannel.
constexpr int kSoften = 1;

// A dark colour with the softened outline as its alpha.
TnImage ShadowOf(TnMatte outline, int softness) {
    ProcessAlphaChannel(outline, kSoften, softness);
    TnImage shadow(outline.Size());
    ColorFill(shadow, shadow.Bounds(), kShadow);
    TnCopyAlpha(outline, shadow, {0, 0});
    return shadow;
}

} // namespace

void Place(const Layer& layer, const TnFloatPoint& at, int opacity, std::initializer_list<Shadow> shadows,
           TnImage& picture, const TnColorTransform& tint) {
    for (const Shadow& shadow : shadows) {
        PreBlendImageAndAlpha(ShadowOf(layer.outline, shadow.softness), kUnchanged, shadow.opacity, picture,
                              FixedPoint(at.x + shadow.fall / 2, at.y + shadow.fall), picture.Bounds());
    }
    PreBlendImageAndAlpha(layer.image, tint, opacity, picture, FixedPoint(at.x, at.y), picture.Bounds());
}

// Transforms ask where each pixel comes from, so the matrix turns back.
Layer Turned(const Layer& layer, double degrees) {
    const TnPoint size = layer.image.Size();
    const Mapping back = About({size.x / 2.0, size.y / 2.0}, MakeMatrix<double>::Rotate(-degrees));
    Layer turned(size);
    Transform(layer.image, turned.image, back, InterpolationType::kSmooth);
    Transform(layer.outline, turned.outline, back, InterpolationType::kSmooth);
    return turned;
}
