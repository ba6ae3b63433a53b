// Private: the way of every compositing operation: a source stage, straight rows or the sub-pixel sampler; a
// preparation by colour matrix and opacity; an operator. What is to be done is chosen once, before the first row.
#pragma once

#include "TnGraphics/ops/Placement.h"
#include "TnGraphics/ops/PreparedKernel.h"
#include "TnGraphics/ops/SubPixelRows.h"

#include <cstddef>

namespace tn {

/// Runs a kernel on the rows of source and destination.
/// \return the rectangle of the destination that was walked
template <class Source, class Destination>
TnRect RunOnRows(const Source& source, Destination& destination, const TnPoint& at, const TnRect& clip,
                 const PreparedKernel<typename Source::Pixel, typename Destination::Pixel>& kernel) {
    return PlaceRows(source, destination, at, clip,
                     [&](const auto& sourceRow, const auto& destinationRow, std::size_t length) {
                         kernel.CompositeRow(&*sourceRow, &*destinationRow, length);
                     });
}

/// Copies what the operator takes from source pixels.
template <class Operator, class Source, class Destination>
void Copy(const Source& source, Destination& destination, const TnPoint& at, const TnRect& clip) {
    using SourcePixel = typename Source::Pixel;
    using DestinationPixel = typename Destination::Pixel;
    const auto kernel = ActiveKernels<Copying<Operator, SourcePixel, DestinationPixel>>().kernel;
    RunOnRows(source, destination, WholePixels(ToFixed(at)), clip,
              PreparedKernel<SourcePixel, DestinationPixel>(kernel));
}

/// Combines prepared source pixels with the destination at the whole pixels of an offset.
/// \return the rectangle of the destination that was walked
template <class Operator, class Source, class Destination>
TnRect CompositeAtWholePixels(const Source& source, const TnColorTransform& transform, int opacity,
                              Destination& destination, const TnFixedPoint& at, const TnRect& clip) {
    using SourcePixel = typename Source::Pixel;
    using DestinationPixel = typename Destination::Pixel;
    const auto& kernels = ActiveKernels<Compositing<Operator, SourcePixel, DestinationPixel>>().kernels;
    return RunOnRows(source, destination, WholePixels(at), clip,
                     PreparedKernel<SourcePixel, DestinationPixel>(kernels, transform, opacity));
}

/// Combines prepared source pixels with the destination; at an offset between pixels the source is sampled there.
/// \return the rectangle of the destination that was walked
template <class Operator>
TnRect Composite(const TnImage& source, const TnColorTransform& transform, int opacity, TnImage& destination,
                 const TnFixedPoint& at, const TnRect& clip) {
    if (!HasFraction(at)) {
        return CompositeAtWholePixels<Operator>(source, transform, opacity, destination, at, clip);
    }
    const PreparedKernel<TnImagePixel, TnImagePixel> kernel(ActiveKernels<Compositing<Operator>>().kernels, transform,
                                                            opacity);
    SubPixelRows rows(source, at);
    return PlaceRows(source, destination, WholePixels(at), clip,
                     [&](const TnImage::Iterator& sourceRow, const TnImage::Iterator& destinationRow,
                         std::size_t length) { rows.CompositeRow(sourceRow, &*destinationRow, length, kernel); });
}

} // namespace tn
