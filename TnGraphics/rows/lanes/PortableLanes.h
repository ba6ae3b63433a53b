// Private: lanes of one pixel. They are complete for every operator and say what the vector lanes compute.
#pragma once

#include "TnGraphics/port/TnImagePixel.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tn::portable {

/// The four channels of a pixel, widened to 16 bits: blue, green, red, alpha. Arithmetic is modulo 65536.
struct Channels {
    static constexpr std::size_t kAlpha = 3;

    std::array<std::uint16_t, 4> values;

    /// One value in every channel.
    static constexpr Channels All16(std::uint16_t value) { return {{value, value, value, value}}; }

    /// One value in the alpha channel, 0 in the others.
    static constexpr Channels AlphaOnly(std::uint16_t value) { return {{0, 0, 0, value}}; }

    /// The channels of one pixel.
    static constexpr Channels All(std::uint32_t word) {
        Channels channels = {};
        for (std::uint16_t& channel : channels.values) {
            channel = word & 255U;
            word >>= 8;
        }
        return channels;
    }

    /// The pixel's alpha in every channel.
    constexpr Channels Alphas() const { return All16(values[kAlpha]); }
};

template <class Function> constexpr Channels ForEach(const Channels& a, const Channels& b, const Function& function) {
    Channels result = {};
    for (std::size_t i = 0; i < result.values.size(); ++i) {
        result.values[i] = static_cast<std::uint16_t>(function(std::uint32_t{a.values[i]}, std::uint32_t{b.values[i]}));
    }
    return result;
}

constexpr Channels operator+(const Channels& a, const Channels& b) {
    return ForEach(a, b, [](std::uint32_t x, std::uint32_t y) { return x + y; });
}
constexpr Channels operator-(const Channels& a, const Channels& b) {
    return ForEach(a, b, [](std::uint32_t x, std::uint32_t y) { return x - y; });
}
constexpr Channels operator*(const Channels& a, const Channels& b) {
    return ForEach(a, b, [](std::uint32_t x, std::uint32_t y) { return x * y; });
}
constexpr Channels operator|(const Channels& a, const Channels& b) {
    return ForEach(a, b, [](std::uint32_t x, std::uint32_t y) { return x | y; });
}

/// All ones where the channels are equal, 0 elsewhere.
constexpr Channels operator==(const Channels& a, const Channels& b) {
    return ForEach(a, b, [](std::uint32_t x, std::uint32_t y) { return x == y ? 0xFFFFU : 0U; });
}

/// The channels of a where the mask is all ones, those of b where it is 0.
constexpr Channels Select(const Channels& mask, const Channels& a, const Channels& b) {
    const Channels fromA = ForEach(mask, a, [](std::uint32_t m, std::uint32_t x) { return m & x; });
    return fromA | ForEach(mask, b, [](std::uint32_t m, std::uint32_t x) { return ~m & x; });
}

/// Each channel, which is below 65535, divided by 255 and truncated.
constexpr Channels DividedBy255(const Channels& channels) {
    return ForEach(channels, channels, [](std::uint32_t x, std::uint32_t) { return x / 255; });
}

/// One pixel as a 32-bit word. Arithmetic is modulo 2^32.
struct Pixels {
    using Channels = portable::Channels;
    static constexpr std::size_t kCount = 1;

    std::uint32_t word;

    static constexpr Pixels All(std::uint32_t word) { return {word}; }        ///< One word in every pixel.
    static constexpr Pixels Counting(std::uint32_t from) { return {from}; }   ///< from, from + 1, ...
    static Pixels Load(const TnImagePixel* from) { return {from->value}; }    ///< kCount pixels.
    void Store(TnImagePixel* to) const { to->value = word; }                  ///< kCount pixels.
    static Pixels LoadFirst(const TnImagePixel*, std::size_t) { return {0}; } ///< Fewer than kCount pixels.
    void StoreFirst(TnImagePixel*, std::size_t) const {}                      ///< Fewer than kCount pixels.

    /// The pixels of channels that are at most 255.
    static constexpr Pixels Narrowed(const Channels& channels) {
        const auto& [blue, green, red, alpha] = channels.values;
        return {std::uint32_t{alpha} << 24 | std::uint32_t{red} << 16 | std::uint32_t{green} << 8 | blue};
    }

    /// The channels of the pixels.
    constexpr Channels Widened() const { return Channels::All(word); }

    /// The colours of these pixels, the alphas of the others.
    constexpr Pixels WithAlphaOf(Pixels other) const { return {(word & 0x00FFFFFFU) | (other.word & 0xFF000000U)}; }

    /// True when a bit of any pixel is set.
    constexpr bool HasBits() const { return word != 0; }

    template <int bits> constexpr Pixels ShiftedLeft() const { return {word << bits}; }
    template <int bits> constexpr Pixels ShiftedRight() const { return {word >> bits}; }
};

constexpr Pixels operator&(Pixels a, Pixels b) { return {a.word & b.word}; }
constexpr Pixels operator|(Pixels a, Pixels b) { return {a.word | b.word}; }
constexpr Pixels operator+(Pixels a, Pixels b) { return {a.word + b.word}; }
constexpr Pixels operator*(Pixels a, Pixels b) { return {a.word * b.word}; }

/// Where pixels are equal.
struct PixelMask {
    bool mask;
};

constexpr PixelMask operator|(PixelMask a, PixelMask b) { return {a.mask || b.mask}; }
constexpr PixelMask operator==(Pixels a, Pixels b) { return {a.word == b.word}; }
constexpr Pixels Select(PixelMask mask, Pixels a, Pixels b) { return mask.mask ? a : b; }

} // namespace tn::portable
