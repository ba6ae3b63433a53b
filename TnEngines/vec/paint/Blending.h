// Private: how paint comes over what is there. Every painter goes by this.
#pragma once

#include <cstdint>
#include <cstring>

namespace tn::vec {
namespace {

// In a namespace without a name, because each processor level compiles its own copy.

/// Of any alignment.
inline std::uint32_t LoadWord(const std::uint8_t* pixel) {
    std::uint32_t word;
    std::memcpy(&word, pixel, sizeof(word));
    return word;
}

inline void StoreWord(std::uint8_t* pixel, std::uint32_t word) { std::memcpy(pixel, &word, sizeof(word)); }

/// x / 255 rounded to nearest, for x of 0..255 x 255.
inline std::uint32_t Nearest255th(std::uint32_t x) { return ((x + 128) * 257) >> 16; }

/// The alpha of a colour under a coverage.
inline std::uint32_t CoveredAlpha(std::uint32_t alpha, std::uint32_t coverage) {
    return Nearest255th(alpha * coverage);
}

/// A channel of two colours by their weights, rounded to nearest: (s ws + d wd) / (ws + wd).
///
/// Sums stay below 2^24, and a quotient that is no integer is further from the next one than single precision rounds,
/// so that truncating the quotient is exact.
inline std::uint32_t Mixed(std::uint32_t s, std::uint32_t ws, std::uint32_t d, std::uint32_t wd,
                           std::uint32_t weights) {
    const auto sum = static_cast<float>(static_cast<std::int32_t>(s * ws + d * wd + weights / 2));
    return static_cast<std::uint32_t>(
        static_cast<std::int32_t>(sum / static_cast<float>(static_cast<std::int32_t>(weights))));
}

/// A pixel, alpha in the top byte, under a colour of some alpha. Alpha 0 changes nothing, alpha 255 leaves the colour,
/// and a transparent pixel takes on the colour and the alpha.
inline std::uint32_t Blended(std::uint32_t pixel, std::uint32_t color, std::uint32_t alpha) {
    const std::uint32_t pixelAlpha = pixel >> 24;
    const std::uint32_t pixelWeight = pixelAlpha * (255 - alpha);
    const std::uint32_t colorWeight = 255 * alpha;
    const std::uint32_t weights = colorWeight + pixelWeight + (alpha == 0 ? 1U : 0U);
    const std::uint32_t blue = Mixed(color & 255, colorWeight, pixel & 255, pixelWeight, weights);
    const std::uint32_t green = Mixed(color >> 8 & 255, colorWeight, pixel >> 8 & 255, pixelWeight, weights);
    const std::uint32_t red = Mixed(color >> 16 & 255, colorWeight, pixel >> 16 & 255, pixelWeight, weights);
    const std::uint32_t sum = alpha + Nearest255th(pixelWeight);
    const std::uint32_t blended = sum << 24 | red << 16 | green << 8 | blue;
    return alpha == 0 ? pixel : blended;
}

/// Two channels, 16 bits apart, mixed by weights of 255 in all, each rounded to nearest.
inline std::uint32_t MixedPair(std::uint32_t colors, std::uint32_t alpha, std::uint32_t pixels) {
    const std::uint32_t sums = colors * alpha + pixels * (255 - alpha) + 0x00800080U;
    return (sums + (sums >> 8 & 0x00FF00FFU)) >> 8 & 0x00FF00FFU;
}

/// Blended, for one pixel alone and by shorter ways where there are any.
///
/// Products with the reciprocal are exact to far less than a quotient that is no integer is away from one.
inline std::uint32_t BlendedByCase(std::uint32_t pixel, std::uint32_t color, std::uint32_t alpha) {
    constexpr std::uint32_t kOpaque = 0xFF000000U;
    constexpr std::uint32_t kEven = 0x00FF00FFU;
    if (alpha == 255) {
        return color | kOpaque;
    }
    if (alpha == 0) {
        return pixel;
    }
    if (pixel >= kOpaque) {
        const std::uint32_t odd = MixedPair((color | kOpaque) >> 8 & kEven, alpha, pixel >> 8 & kEven);
        return odd << 8 | MixedPair(color & kEven, alpha, pixel & kEven);
    }
    if (pixel <= ~kOpaque) {
        return (color & ~kOpaque) | alpha << 24;
    }
    const std::uint32_t pixelWeight = (pixel >> 24) * (255 - alpha);
    const std::uint32_t colorWeight = 255 * alpha;
    const std::uint32_t weights = colorWeight + pixelWeight;
    const double reciprocal = 1.0 / static_cast<double>(static_cast<std::int32_t>(weights));
    const auto mixed = [=](int shift) {
        const std::uint32_t sum = (color >> shift & 255) * colorWeight + (pixel >> shift & 255) * pixelWeight;
        const double quotient = static_cast<double>(static_cast<std::int32_t>(sum + weights / 2)) * reciprocal;
        return static_cast<std::uint32_t>(static_cast<std::int32_t>(quotient + 1e-6)) << shift;
    };
    return (alpha + Nearest255th(pixelWeight)) << 24 | mixed(16) | mixed(8) | mixed(0);
}

/// A matte's pixel under a value of some alpha.
inline std::uint32_t BlendedMatte(std::uint32_t pixel, std::uint32_t value, std::uint32_t alpha) {
    return Nearest255th(value * alpha + pixel * (255 - alpha));
}

} // namespace
} // namespace tn::vec
