#include "TnGraphics/ops/Compositing.h"

#include "TnGraphics/ops/Pipeline.h"

void BlendImage(const TnImage& source, int opacity, TnImage& destination, const TnPoint& at) {
    BlendImage(source, {}, opacity, destination, at, destination.Bounds());
}

void BlendImage(const TnImage& source, const TnColorTransform& transform, int opacity, TnImage& destination,
                const TnPoint& at, const TnRect& clip) {
    BlendImage(source, transform, opacity, destination, tn::ToFixed(at), clip);
}

void BlendImage(const TnImage& source, const TnColorTransform& transform, int opacity, TnImage& destination,
                const TnFixedPoint& at, const TnRect& clip) {
    tn::Composite<tn::Blend>(source, transform, opacity, destination, at, clip);
}

template <class SourceType>
void PreBlendImageAndAlpha(const SourceType& source, int opacity, TnImage& destination, const TnPoint& at) {
    PreBlendImageAndAlpha(source, {}, opacity, destination, at, destination.Bounds());
}

template <class SourceType>
void PreBlendImageAndAlpha(const SourceType& source, const TnColorTransform& transform, int opacity,
                           TnImage& destination, const TnPoint& at, const TnRect& clip) {
    PreBlendImageAndAlpha(source, transform, opacity, destination, tn::ToFixed(at), clip);
}

template <class SourceType>
void PreBlendImageAndAlpha(const SourceType& source, const TnColorTransform& transform, int opacity,
                           TnImage& destination, const TnFixedPoint& at, const TnRect& clip) {
    tn::Composite<tn::PreBlend>(source, transform, opacity, destination, at, clip);
}

template TN_EXPORT void PreBlendImageAndAlpha(const TnImage&, int, TnImage&, const TnPoint&);
template TN_EXPORT void PreBlendImageAndAlpha(const TnImage&, const TnColorTransform&, int, TnImage&, const TnPoint&,
                                              const TnRect&);
template TN_EXPORT void PreBlendImageAndAlpha(const TnImage&, const TnColorTransform&, int, TnImage&,
                                              const TnFixedPoint&, const TnRect&);

void SubtractAlpha(const TnImage& source, int opacity, TnImage& destination, const TnPoint& at) {
    SubtractAlpha(source, {}, opacity, destination, at, destination.Bounds());
}

void SubtractAlpha(const TnImage& source, const TnColorTransform& transform, int opacity, TnImage& destination,
                   const TnPoint& at, const TnRect& clip) {
    SubtractAlpha(source, transform, opacity, destination, tn::ToFixed(at), clip);
}

void SubtractAlpha(const TnImage& source, const TnColorTransform& transform, int opacity, TnImage& destination,
                   const TnFixedPoint& at, const TnRect& clip) {
    tn::Composite<tn::Subtract>(source, transform, opacity, destination, at, clip);
}

void XORAlpha(const TnImage& source, int opacity, TnImage& destination, const TnPoint& at) {
    XORAlpha(source, {}, opacity, destination, at, destination.Bounds());
}

void XORAlpha(const TnImage& source, const TnColorTransform& transform, int opacity, TnImage& destination,
              const TnPoint& at, const TnRect& clip) {
    XORAlpha(source, transform, opacity, destination, tn::ToFixed(at), clip);
}

void XORAlpha(const TnImage& source, const TnColorTransform& transform, int opacity, TnImage& destination,
              const TnFixedPoint& at, const TnRect& clip) {
    tn::Composite<tn::ExclusiveOr>(source, transform, opacity, destination, at, clip);
}
