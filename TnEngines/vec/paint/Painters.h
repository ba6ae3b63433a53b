// Private: covered pixels in the colour of a paint.
#pragma once

#include "TnEngines/vec/paint/SpanKernels.h"
#include "TnEngines/vec/scan/Box.h"
#include "TnEngines/vec/scan/Coverage.h"

#include <cstddef>
#include <cstdint>

namespace tn::vec {

/// The pixels that a port paints into.
struct Target {
    std::uint8_t* pixels = nullptr; ///< The first byte of the upper left pixel's.
    std::size_t rowBytes = 0;
    Box bounds;
    std::int32_t bitsPerPixel = 0; ///< 32, 8 or 1

    std::uint8_t* Row(std::int32_t y) const { return pixels + rowBytes * static_cast<std::size_t>(y - bounds.top); }

    /// Where a pixel begins, unless pixels are bits.
    std::uint8_t* At(std::int32_t x, std::int32_t y) const {
        return Row(y) + static_cast<std::size_t>(bitsPerPixel / 8) * static_cast<std::size_t>(x - bounds.left);
    }
};

/// The same columns of some rows below one another.
struct Rows {
    std::uint8_t* first;
    std::int32_t count;
    std::size_t rowBytes;

    Rows From(std::ptrdiff_t offset) const { return {first + offset, count, rowBytes}; }

    template <class Paint> void ForEach(const Paint& paint) const {
        std::uint8_t* pixels = first;
        for (std::int32_t row = 0; row < count; ++row, pixels += rowBytes) {
            paint(pixels);
        }
    }
};

/// A colour as each kind of target takes it.
struct PaintColor {
    std::uint8_t alpha = 255;
    std::uint8_t red = 0, green = 0, blue = 0;
    std::uint8_t gray = 0;

    /// With less alpha, by a part of 0..1.
    PaintColor Thinned(double part) const {
        PaintColor thinned = *this;
        thinned.alpha = NearestByte(alpha * part);
        return thinned;
    }
};

/// Paints into images: blue, green, red and straight alpha, a byte each.
class ImagePainter final : public CoverageSink {
public:
    ImagePainter(const Target& target, const PaintColor& color);
    void Cover(std::int32_t top, std::int32_t bottom, const CoverageRow& row) override;

private:
    void PaintSpan(const Rows& rows, const CoverageSpan& span) const;
    void PaintAlike(const Rows& rows, std::size_t count, std::uint32_t alpha) const;

    const Target& target_;
    const SpanKernels& kernels_ = Kernels();
    std::uint32_t color_; // alpha in the top byte
};

/// Paints gray into mattes.
class MattePainter final : public CoverageSink {
public:
    MattePainter(const Target& target, const PaintColor& color) : target_(target), color_(color) {}
    void Cover(std::int32_t top, std::int32_t bottom, const CoverageRow& row) override;

private:
    void PaintSpan(const Rows& rows, const CoverageSpan& span) const;
    void PaintAlike(const Rows& rows, std::size_t count, std::uint32_t alpha) const;

    const Target& target_;
    const SpanKernels& kernels_ = Kernels();
    PaintColor color_;
};

/// Sets and clears bits, the leftmost pixel in the highest one, where paint covers at least half.
class MaskPainter final : public CoverageSink {
public:
    MaskPainter(const Target& target, const PaintColor& color) : target_(target), color_(color) {}
    void Cover(std::int32_t top, std::int32_t bottom, const CoverageRow& row) override;

private:
    void PaintSpan(std::uint8_t* row, const CoverageSpan& span) const;
    void SetBits(std::uint8_t* row, std::size_t first, std::size_t end) const;
    bool Shows(std::uint8_t coverage) const;

    const Target& target_;
    PaintColor color_;
};

} // namespace tn::vec
