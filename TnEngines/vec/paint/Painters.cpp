#include "TnEngines/vec/paint/Painters.h"

#include "TnEngines/vec/paint/Blending.h"
#include "TnEngines/vec/paint/SpanKernels.h"

namespace tn::vec {
namespace {

constexpr std::uint32_t kOpaque = 255;
constexpr std::uint8_t kHalf = 128;

template <class PaintSpan>
void PaintRows(const Target& target, std::int32_t top, std::int32_t bottom, const CoverageRow& row,
               const PaintSpan& paintSpan) {
    for (std::int32_t y = top; y < bottom; ++y) {
        std::uint8_t* const pixels = target.Row(y);
        for (const CoverageSpan& span : row.Spans()) {
            paintSpan(pixels, span);
        }
    }
}

} // namespace

ImagePainter::ImagePainter(const Target& target, const PaintColor& color)
    : target_(target),
      color_(static_cast<std::uint32_t>(color.alpha) << 24 | static_cast<std::uint32_t>(color.red) << 16 |
             static_cast<std::uint32_t>(color.green) << 8 | color.blue) {}

void ImagePainter::Cover(std::int32_t top, std::int32_t bottom, const CoverageRow& row) {
    PaintRows(target_, top, bottom, row, [this](std::uint8_t* pixels, const CoverageSpan& span) {
        PaintSpan(pixels + std::size_t{4} * static_cast<std::size_t>(span.x - target_.bounds.left), span);
    });
}

void ImagePainter::PaintSpan(std::uint8_t* pixels, const CoverageSpan& span) const {
    const auto count = static_cast<std::size_t>(span.length);
    const std::uint32_t alpha = CoveredAlpha(color_ >> 24, span.all);
    if (span.bytes != nullptr) {
        Kernels().blendImageCovered(pixels, count, color_, span.bytes);
    } else if (alpha == kOpaque) {
        Kernels().fillImage(pixels, count, color_);
    } else {
        Kernels().blendImage(pixels, count, color_, alpha);
    }
}

void MattePainter::Cover(std::int32_t top, std::int32_t bottom, const CoverageRow& row) {
    PaintRows(target_, top, bottom, row, [this](std::uint8_t* pixels, const CoverageSpan& span) {
        PaintSpan(pixels + (span.x - target_.bounds.left), span);
    });
}

void MattePainter::PaintSpan(std::uint8_t* pixels, const CoverageSpan& span) const {
    const auto count = static_cast<std::size_t>(span.length);
    const std::uint32_t alpha = CoveredAlpha(color_.alpha, span.all);
    if (span.bytes != nullptr) {
        Kernels().blendMatteCovered(pixels, count, color_.gray, color_.alpha, span.bytes);
    } else if (alpha == kOpaque) {
        std::memset(pixels, color_.gray, count);
    } else {
        Kernels().blendMatte(pixels, count, color_.gray, alpha);
    }
}

void MaskPainter::Cover(std::int32_t top, std::int32_t bottom, const CoverageRow& row) {
    PaintRows(target_, top, bottom, row,
              [this](std::uint8_t* pixels, const CoverageSpan& span) { PaintSpan(pixels, span); });
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
