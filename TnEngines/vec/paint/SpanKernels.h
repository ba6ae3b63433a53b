// Private: what painting does to neighbouring pixels, as fast as the processor can.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tn::vec {

/// Pixels have any alignment. Images have 4 bytes a pixel: blue, green, red, alpha. All kernels of one name give the
/// same bytes.
struct SpanKernels {
    /// Stores a word in each pixel.
    void (*fillImage)(std::uint8_t* pixels, std::size_t count, std::uint32_t word);

    /// Paints a colour, whose alpha has no meaning, with one alpha.
    void (*blendImage)(std::uint8_t* pixels, std::size_t count, std::uint32_t color, std::uint32_t alpha);

    /// Paints a colour with its alpha times a coverage for each pixel.
    void (*blendImageCovered)(std::uint8_t* pixels, std::size_t count, std::uint32_t color,
                              const std::uint8_t* coverage);

    /// Paints a value with one alpha into a matte.
    void (*blendMatte)(std::uint8_t* pixels, std::size_t count, std::uint32_t value, std::uint32_t alpha);
    void (*blendMatteCovered)(std::uint8_t* pixels, std::size_t count, std::uint32_t value, std::uint32_t alpha,
                              const std::uint8_t* coverage);

    /// Multiplies coverages.
    void (*multiply)(std::uint8_t* coverage, std::size_t count, const std::uint8_t* by);
};

namespace baseline {
extern const SpanKernels kSpanKernels;
}
namespace avx2 {
extern const SpanKernels kSpanKernels;
}
namespace avx512 {
extern const SpanKernels kSpanKernels;
}

/// Those of the level in use.
const SpanKernels& Kernels();

} // namespace tn::vec
