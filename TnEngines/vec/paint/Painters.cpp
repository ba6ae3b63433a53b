#include "TnEngines/vec/paint/Painters.h"

#include "TnEngines/vec/paint/Blending.h"
#include "TnEngines/vec/paint/SpanKernels.h"

namespace tn::vec {
namespace {

constexpr std::uint32_t kOpaque = 255;
constexpr std::uint8_t kHalf = 128;

// Too few pixels to call a kernel for.
constexpr std::size_t kFew = 8;

inline void BlendInto(std::uint8_t* pixel, std::uint32_t color, std::uint32_t alpha) {
    StoreWord(pixel, BlendedByCase(LoadWord(pixel), color, alpha));
}

inline void BlendInto(std::uint8_t* pixel, std::uint8_t gray, std::uint32_t alpha) {
    *pixel = static_cast<std::uint8_t>(BlendedMatte(*pixel, gray, alpha));
}

} // namespace

ImagePainter::ImagePainter(const Target& target, const PaintColor& color)
    : target_(target),
      color_(static_cast<std::uint32_t>(color.alpha) << 24 | static_cast<std::uint32_t>(color.red) << 16 |
             static_cast<std::uint32_t>(color.green) << 8 | color.blue) {}

void ImagePainter::Cover(std::int32_t top, std::int32_t bottom, const CoverageRow& row) {
    const Rows rows = {target_.Row(top), bottom - top, target_.rowBytes};
    for (const CoverageSpan& span : row.Spans()) {
        PaintSpan(rows.From(4 * std::ptrdiff_t{span.x - target_.bounds.left}), span);
    }
}

inline void ImagePainter::PaintSpan(const Rows& rows, const CoverageSpan& span) const {
    const auto count = static_cast<std::size_t>(span.length);
    const std::uint32_t colorAlpha = color_ >> 24;
    if (span.bytes == nullptr) {
        PaintAlike(rows, count, CoveredAlpha(colorAlpha, span.all));
    } else if (count < kFew) {
        rows.ForEach([=, this](std::uint8_t* pixels) {
            for (std::size_t i = 0; i < count; ++i) {
                BlendInto(pixels + 4 * i, color_, CoveredAlpha(colorAlpha, span.bytes[i]));
            }
        });
    } else {
        rows.ForEach(
            [=, this](std::uint8_t* pixels) { kernels_.blendImageCovered(pixels, count, color_, span.bytes); });
    }
}

inline void ImagePainter::PaintAlike(const Rows& rows, std::size_t count, std::uint32_t alpha) const {
    if (count == 1) {
        rows.ForEach([=, this](std::uint8_t* pixel) { BlendInto(pixel, color_, alpha); });
    } else if (alpha == kOpaque) {
        rows.ForEach([=, this](std::uint8_t* pixels) { kernels_.fillImage(pixels, count, color_); });
    } else {
        rows.ForEach([=, this](std::uint8_t* pixels) { kernels_.blendImage(pixels, count, color_, alpha); });
    }
}

void MattePainter::Cover(std::int32_t top, std::int32_t bottom, const CoverageRow& row) {
    const Rows rows = {target_.Row(top), bottom - top, target_.rowBytes};
    for (const CoverageSpan& span : row.Spans()) {
        PaintSpan(rows.From(span.x - target_.bounds.left), span);
    }
}

inline void MattePainter::PaintSpan(const Rows& rows, const CoverageSpan& span) const {
    const auto count = static_cast<std::size_t>(span.length);
    if (span.bytes == nullptr) {
        PaintAlike(rows, count, CoveredAlpha(color_.alpha, span.all));
    } else if (count < kFew) {
        rows.ForEach([=, this](std::uint8_t* pixels) {
            for (std::size_t i = 0; i < count; ++i) {
                BlendInto(pixels + i, color_.gray, CoveredAlpha(color_.alpha, span.bytes[i]));
            }
        });
    } else {
        rows.ForEach([=, this](std::uint8_t* pixels) {
            kernels_.blendMatteCovered(pixels, count, color_.gray, color_.alpha, span.bytes);
        });
    }
}

inline void MattePainter::PaintAlike(const Rows& rows, std::size_t count, std::uint32_t alpha) const {
    if (count == 1) {
        rows.ForEach([=, this](std::uint8_t* pixel) { BlendInto(pixel, color_.gray, alpha); });
    } else if (alpha == kOpaque) {
        rows.ForEach([=, this](std::uint8_t* pixels) { std::memset(pixels, color_.gray, count); });
    } else {
        rows.ForEach([=, this](std::uint8_t* pixels) { kernels_.blendMatte(pixels, count, color_.gray, alpha); });
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
