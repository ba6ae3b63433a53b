#include "TnGraphics/ops/Compositing.h"
#include "TnGraphics/ops/Erase.h"
#include "TnGraphics/ops/Pipeline.h"

namespace {

// Where the source is not, the intersection is empty.

template <class Source, class Destination>
void IntersectCoverage(const Source& source, int opacity, Destination& destination, const TnFixedPoint& at) {
    const TnRect covered =
        tn::CompositeAtWholePixels<tn::IntersectNoColor>(source, {}, opacity, destination, at, destination.Bounds());
    EraseOutside(destination, covered);
}

} // namespace

void IntersectAlpha(const TnImage& source, int opacity, TnImage& destination, const TnPoint& at) {
    IntersectAlpha(source, {}, opacity, destination, at, destination.Bounds());
}

void IntersectAlpha(const TnImage& source, const TnColorTransform& transform, int opacity, TnImage& destination,
                    const TnPoint& at, const TnRect& clip) {
    IntersectAlpha(source, transform, opacity, destination, tn::ToFixed(at), clip);
}

void IntersectAlpha(const TnImage& source, const TnColorTransform& transform, int opacity, TnImage& destination,
                    const TnFixedPoint& at, const TnRect& clip) {
    EraseOutside(destination, tn::Composite<tn::Intersect>(source, transform, opacity, destination, at, clip));
}

void IntersectAlpha(const TnMatte& source, int opacity, TnMatte& destination, const TnPoint& at) {
    IntersectCoverage(source, opacity, destination, tn::ToFixed(at));
}

void IntersectAlpha(const TnMatte& source, int opacity, TnImage& destination, const TnPoint& at) {
    IntersectCoverage(source, opacity, destination, tn::ToFixed(at));
}

void IntersectAlphaNoColor(const TnImage& source, int opacity, TnImage& destination, const TnPoint& at) {
    IntersectCoverage(source, opacity, destination, tn::ToFixed(at));
}

void IntersectAlphaNoColor(const TnImage& source, const TnColorTransform&, int opacity, TnImage& destination,
                           const TnPoint& at, const TnRect&) {
    IntersectAlphaNoColor(source, opacity, destination, at);
}

void IntersectAlphaNoColor(const TnImage& source, const TnColorTransform&, int opacity, TnImage& destination,
                           const TnFixedPoint& at, const TnRect&) {
    IntersectAlphaNoColor(source, opacity, destination, tn::WholePixels(at));
}
