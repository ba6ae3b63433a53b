#include "TnEngines/vec/paint/Painters.h"

#include "TnEngines/vec/paint/Blending.h"
#include "TnEngines/vec/paint/SpanKernels.h"

namespace tn::vec {
namespace {

constexpr std::uint32_t kOpaque = 255;
constexpr std::uint8_t kHalf = 128;

// Too few pixels to call a kernel for.
constexpr std::int32_t kFew = 8;

std::uint32_t CoverageAt(const CoverageSpan& span, std::size_t i) {
    return span.bytes == nullptr ? span.all : span.bytes[i];
}

} // namespace

ImagePainter::ImagePainter(const Target& target, const PaintColor& color)
    : target_(target),
      color_(static_cast<std::uint32_t>(color.alpha) << 24 | static_cast<std::uint32_t>(color.red) << 16 |
             static_cast<std::uint32_t>(color.green) << 8 | color.blue) {}

void ImagePainter::Cover(std::int32_t top, std::int32_t bottom, const CoverageRow& row) {
    std::uint8_t* pixels = target_.Row(top);
    for (std::int32_t y = top; y < bottom; ++y, pixels += target_.rowBytes) {
        for (const CoverageSpan& span : row.Spans()) {
            PaintSpan(pixels + 4 * std::ptrdiff_t{span.x - target_.bounds.left}, span);
        }
    }
}

inline void ImagePainter::PaintSpan(std::uint8_t* pixels, const CoverageSpan& span) const {
    const auto count = static_cast<std::size_t>(span.length);
    if (span.length < kFew) {
        for (std::size_t i = 0; i < count; ++i) {
            const std::uint32_t alpha = CoveredAlpha(color_ >> 24, CoverageAt(span, i));
            StoreWord(pixels + 4 * i, BlendedByCase(LoadWord(pixels + 4 * i), color_, alpha));
        }
    } else if (span.bytes != nullptr) {
        kernels_.blendImageCovered(pixels, count, color_, span.bytes);
    } else if (const std::uint32_t alpha = CoveredAlpha(color_ >> 24, span.all); alpha == kOpaque) {
        kernels_.fillImage(pixels, count, color_);
    } else {
        kernels_.blendImage(pixels, count, color_, alpha);
    }
}

void MattePainter::Cover(std::int32_t top, std::int32_t bottom, const CoverageRow& row) {
    std::uint8_t* pixels = target_.Row(top);
    for (std::int32_t y = top; y < bottom; ++y, pixels += target_.rowBytes) {
        for (const CoverageSpan& span : row.Spans()) {
            PaintSpan(pixels + (span.x - target_.bounds.left), span);
        }
    }
}

inline void MattePainter::PaintSpan(std::uint8_t* pixels, const CoverageSpan& span) const {
    const auto count = static_cast<std::size_t>(span.length);
    if (span.length < kFew) {
        for (std::size_t i = 0; i < count; ++i) {
            const std::uint32_t alpha = CoveredAlpha(color_.alpha, CoverageAt(span, i));
            pixels[i] = static_cast<std::uint8_t>(BlendedMatte(pixels[i], color_.gray, alpha));
        }
    } else if (span.bytes != nullptr) {
        kernels_.blendMatteCovered(pixels, count, color_.gray, color_.alpha, span.bytes);
    } else if (const std::uint32_t alpha = CoveredAlpha(color_.alpha, span.all); alpha == kOpaque) {
        std::memset(pixels, color_.gray, count);
    } else {
        kernels_.blendMatte(pixels, count, color_.gray, alpha);
    }
}

void MaskPainter::Cover(std::int32_t top, std::int32_t bottom, const CoverageRow& row) {
    for (std::int32_t y = top; y < bottom; ++y) {
        for (const CoverageSpan& span : row.Spans()) {
            PaintSpan(target_.Row(y), span);
        }
    }
}

bool MaskPainter::Shows(std::uint8_t coverage) const {
    return coverage >= kHalf && CoveredAlpha(color_.alpha, coverage) >= kHalf;
}

void MaskPainter::PaintSpan(std::uint8_t* row, const CoverageSpan& span) const {
    const auto x = static_cast<std::size_t>(span.x - target_.bounds.left);
    const auto count = static_cast<std::size_t>(span.length);
    if (span.bytes == nullptr) {
        SetBits(row, x, Shows(span.all) ? x + count : x);
        return;
    }
    for (std::size_t i = 0; i < count; ++i) {
        SetBits(row, x + i, Shows(span.bytes[i]) ? x + i + 1 : x + i);
    }
}

void MaskPainter::SetBits(std::uint8_t* row, std::size_t first, std::size_t end) const {
    const std::uint8_t value = color_.gray >= kHalf ? 255 : 0;
    const auto setIn = [=](std::size_t byte, unsigned bits) {
        row[byte] = static_cast<std::uint8_t>((row[byte] & ~bits) | (value & bits));
    };
    if (first == end) {
        return;
    }
    const std::size_t firstByte = first / 8;
    const std::size_t lastByte = (end - 1) / 8;
    const unsigned fromFirst = 0xFFU >> first % 8;
    const unsigned toLast = 0xFF00U >> ((end - 1) % 8 + 1) & 0xFFU;
    if (firstByte == lastByte) {
        setIn(firstByte, fromFirst & toLast);
        return;
    }
    setIn(firstByte, fromFirst);
    std::memset(row + firstByte + 1, value, lastByte - firstByte - 1);
    setIn(lastByte, toLast);
}

} // namespace tn::vec
