#include "TnGraphics/ops/PreparedKernel.h"

#include <algorithm>

namespace tn {
namespace {

// What remains of an alpha, whatever the opacity: the product keeps its low 32 bits, the quotient its low 8.
std::uint8_t ScaledAlpha(std::uint8_t alpha, int opacity) {
    const auto product = static_cast<std::int32_t>(alpha * static_cast<std::uint32_t>(opacity));
    return static_cast<std::uint8_t>(product / 255);
}

} // namespace

TnImagePixel AnyPreparation::operator()(TnImagePixel pixel) const {
    pixel = ColorTransform(pixel, transform);
    pixel.Alpha(ScaledAlpha(pixel.Alpha(), opacity));
    return pixel;
}

TnMattePixel AnyPreparation::operator()(TnMattePixel pixel) const { return ScaledAlpha(pixel.Value(), opacity); }

template <class Source, class Destination>
void PreparedKernel<Source, Destination>::CompositeWithCare(const Source* source, Destination* destination,
                                                            std::size_t length) const {
    const std::size_t step = MustGoInStep(source, destination, length) ? 1 : length;
    for (std::size_t column = 0; column < length; column += step) {
        Composite(source + column, destination + column, step);
    }
}

// Where source and destination share memory, a chunk is read before a pixel of it is written.
template <class Source, class Destination>
void PreparedKernel<Source, Destination>::CompositeWrapping(const Source* source, Destination* destination,
                                                            std::size_t length) const {
    std::array<Source, kChunkPixels> chunk;
    for (std::size_t column = 0; column < length; column += kChunkPixels) {
        const std::size_t count = std::min(length - column, kChunkPixels);
        std::transform(source + column, source + column + count, chunk.begin(), any_);
        kernel_(chunk.data(), destination + column, count, preparation_);
    }
}

template class PreparedKernel<TnImagePixel, TnImagePixel>;
template class PreparedKernel<TnImagePixel, TnMattePixel>;
template class PreparedKernel<TnMattePixel, TnImagePixel>;
template class PreparedKernel<TnMattePixel, TnMattePixel>;

} // namespace tn
