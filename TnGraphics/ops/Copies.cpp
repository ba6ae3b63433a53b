#include "TnGraphics/ops/Copies.h"

#include "TnGraphics/ops/Pipeline.h"

#include <type_traits>

// Between images and mattes the alpha is all there is to copy.
template <class SourceType, class DestinationType>
void TnCopy(const SourceType& source, DestinationType& destination, const TnPoint& at) {
    if constexpr (std::is_same_v<SourceType, DestinationType>) {
        tn::Copy<tn::CopyPixel>(source, destination, at, destination.Bounds());
    } else {
        tn::Copy<tn::CopyAlpha>(source, destination, at, destination.Bounds());
    }
}

template TN_EXPORT void TnCopy(const TnImage&, TnImage&, const TnPoint&);
template TN_EXPORT void TnCopy(const TnMatte&, TnMatte&, const TnPoint&);
template TN_EXPORT void TnCopy(const TnImage&, TnMatte&, const TnPoint&);
template TN_EXPORT void TnCopy(const TnMatte&, TnImage&, const TnPoint&);

template <class SourceType, class DestinationType>
void TnCopy(const SourceType& source, DestinationType& destination, const TnPoint& at, const TnRect& clip) {
    tn::Copy<tn::CopyPixel>(source, destination, at, clip);
}

template TN_EXPORT void TnCopy(const TnImage&, TnImage&, const TnPoint&, const TnRect&);

void TnCopy(const TnImage& source, const TnColorTransform& transform, int opacity, TnImage& destination,
            const TnPoint& at, const TnRect& clip) {
    tn::CompositeAtWholePixels<tn::CopyPixel>(source, transform, opacity, destination, tn::ToFixed(at), clip);
}

void TnCopyColor(const TnImage& source, TnImage& destination, const TnPoint& at) {
    tn::Copy<tn::CopyColor>(source, destination, at, destination.Bounds());
}

template <class SourceType, class DestinationType>
void TnCopyAlpha(const SourceType& source, DestinationType& destination, const TnPoint& at) {
    tn::Copy<tn::CopyAlpha>(source, destination, at, destination.Bounds());
}

template TN_EXPORT void TnCopyAlpha(const TnImage&, TnMatte&, const TnPoint&);
template TN_EXPORT void TnCopyAlpha(const TnMatte&, TnImage&, const TnPoint&);

template <class DestinationType>
void CopyLuminenceToAlpha(const TnImage& source, DestinationType& destination, const TnPoint& at) {
    tn::Copy<tn::CopyLumaToAlpha>(source, destination, at, destination.Bounds());
}

template TN_EXPORT void CopyLuminenceToAlpha(const TnImage&, TnMatte&, const TnPoint&);
template TN_EXPORT void CopyLuminenceToAlpha(const TnImage&, TnImage&, const TnPoint&);

template <class SourceType>
void CopyAlphaToLuminence(const SourceType& source, TnImage& destination, const TnPoint& at) {
    tn::Copy<tn::CopyAlphaToColor>(source, destination, at, destination.Bounds());
}

template TN_EXPORT void CopyAlphaToLuminence(const TnMatte&, TnImage&, const TnPoint&);
