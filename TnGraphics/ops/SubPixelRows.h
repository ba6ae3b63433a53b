// Private: the source stage of operations at sub-pixel offsets.
#pragma once

#include "TnGraphics/geometry/TnFixed.h"
#include "TnGraphics/ops/PreparedKernel.h"
#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/rows/RowKernels.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tn {

/// Reads the rows of an image shifted right and down by a fraction of a pixel, from the walk's first row on.
class SubPixelRows {
public:
    SubPixelRows(const TnImage& image, const TnFixedPoint& at);

    /// Composites the iterator's row, shifted, in step where it or the row above share memory with the destination.
    void CompositeRow(const TnImage::Iterator& row, TnImagePixel* destination, std::size_t length,
                      const PreparedKernel<TnImagePixel, TnImagePixel>& kernel);

private:
    /// Where the four neighbours of a row's pixels are.
    struct Neighborhood {
        const TnImagePixel* upper; // none above the image
        const TnImagePixel* lower;
        bool hasLeft;
    };

    bool SharesMemory(const Neighborhood& rows, const TnImagePixel* destination, std::size_t length) const;
    void SampleAtLeftEdge(const Neighborhood& rows);
    void Sample(const Neighborhood& rows, std::size_t column, std::size_t count);

    SamplingKernel sample_;
    SubPixelWeights weights_;
    std::uint32_t rowBytes_;
    std::int32_t rowsDone_ = 0;
    alignas(64) std::array<TnImagePixel, kChunkPixels> chunk_; // where stores of one stage and loads of the next meet
};

} // namespace tn
