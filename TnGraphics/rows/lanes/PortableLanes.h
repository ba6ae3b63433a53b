// Private: lanes of one pixel. They are complete for every operator and say what the vector lanes compute.
#pragma once

#include "TnGraphics/port/Bilinear.h"
#include "TnGraphics/port/TnImagePixel.h"
#include "TnGraphics/port/TnMattePixel.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tn::portable {

/// The four channels of a pixel, widened to 16 bits: blue, green, red, alpha. Arithmetic is modulo 65536.
struct Channels {
    std::array<std::uint16_t, 4> values;

    /// One value in every channel.
    static constexpr Channels All16(std::uint16_t value) { return {{value, value, value, value}}; }

    /// One value in the alpha channel, 0 in the others.
    static constexpr Channels AlphaOnly(std::uint16_t value) { return {{0, 0, 0, value}}; }

    /// The same four values in every pixel, the first in the lowest 16 bits.
    static constexpr Channels Repeated(std::uint64_t four) {
        Channels channels = {};
        for (std::uint16_t& channel : channels.values) {
            channel = four & 0xFFFFU;
            four >>= 16;
        }
        return channels;
    }

    /// The channels of one pixel.
    static constexpr Channels All(std::uint32_t word) {
        Channels channels = {};
        for (std::uint16_t& channel : channels.values) {
            channel = word & 255U;
            word >>= 8;
        }
        return channels;
    }
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

/// Each channel, which is below 65535, divided by 255 and truncated.
constexpr Channels DividedBy255(const Channels& channels) {
    return ForEach(channels, channels, [](std::uint32_t x, std::uint32_t) { return x / 255; });
}

/// Where pixels are as asked.
struct PixelMask {
    bool mask;

    constexpr bool Any() const { return mask; } ///< True when there is such a pixel.
};

constexpr PixelMask operator|(PixelMask a, PixelMask b) { return {a.mask || b.mask}; }
constexpr PixelMask operator&(PixelMask a, PixelMask b) { return {a.mask && b.mask}; }

/// One pixel as a 32-bit word. Arithmetic is modulo 2^32. A matte's pixel is the alpha of a word whose colour is 0.
struct Pixels {
    using Channels = portable::Channels;
    struct Sums;
    struct BoxSums;
    struct ShortSums;
    struct Square;
    struct LongSums;
    using Mattes = Pixels; ///< Lanes for rows of matte pixels alone.
    using Narrower = void; ///< Lanes for the rest of a row, where there is no way to load and store a part of these.
    static constexpr std::size_t kCount = 1;

    struct Opacity {
        std::uint32_t value;

        explicit constexpr Opacity(std::uint32_t opacity) : value(opacity) {}
    };

    std::uint32_t word;

    static constexpr Pixels All(std::uint32_t word) { return {word}; }      ///< One word in every pixel.
    static constexpr Pixels Counting(std::uint32_t from) { return {from}; } ///< from, from + 1, ...

    static Pixels Load(const TnImagePixel* from) { return {from->value}; } ///< kCount pixels.
    static Pixels Load(const TnMattePixel* from) { return {std::uint32_t{from->value} << 24}; }
    static Pixels Load(const std::int32_t* from) { return {static_cast<std::uint32_t>(*from)}; } ///< Words.
    void Store(TnImagePixel* to) const { to->value = word; }                                     ///< kCount pixels.
    void Store(TnMattePixel* to) const { to->value = static_cast<std::uint8_t>(word >> 24); }

    /// The words at offsets in bytes from an address, where the mask says so.
    static Pixels Gather(std::uintptr_t base, Pixels offsets, PixelMask where, Pixels otherwise) {
        if (where.mask) {
            std::memcpy(&otherwise.word, reinterpret_cast<const void*>(base + offsets.word), sizeof(otherwise.word));
        }
        return otherwise;
    }

    /// The pixels at offsets and those to their right.
    static void GatherPairs(std::uintptr_t base, Pixels offsets, Pixels& left, Pixels& right) {
        const auto* const pixels = reinterpret_cast<const TnImagePixel*>(base + offsets.word);
        left = Load(pixels);
        right = Load(pixels + 1);
    }

    template <class Pixel> static Pixels LoadFirst(const Pixel*, std::size_t) { return {0}; } ///< Fewer than kCount.
    template <class Pixel> void StoreFirst(Pixel*, std::size_t) const {}                      ///< Fewer than kCount.

    /// The pixels of channels that are at most 255.
    static constexpr Pixels Narrowed(const Channels& channels) {
        const auto& [blue, green, red, alpha] = channels.values;
        return {std::uint32_t{alpha} << 24 | std::uint32_t{red} << 16 | std::uint32_t{green} << 8 | blue};
    }

    /// The channels of the pixels.
    constexpr Channels Widened() const { return Channels::All(word); }

    /// The pixel's alpha in every channel.
    constexpr Channels Alphas() const { return Channels::All16(static_cast<std::uint16_t>(word >> 24)); }

    /// The pixel's word, which is below 65536, in every channel.
    constexpr Channels Spread() const { return Channels::All16(static_cast<std::uint16_t>(word)); }

    /// The colours of these pixels, the alphas of the others.
    constexpr Pixels WithAlphaOf(Pixels other) const { return {(word & 0x00FFFFFFU) | (other.word & 0xFF000000U)}; }

    /// Blue, green, red and alpha by their numbers, 0 to 3.
    constexpr std::uint32_t Channel(std::size_t number) const { return word >> (8 * number) & 255U; }

    /// True when a bit of any pixel is set.
    constexpr bool HasBits() const { return word != 0; }

    // A matte's value as a byte.
    template <int bits> constexpr Pixels BytesShiftedRight() const { return {word >> bits & 0xFF000000U}; }
    static void StoreInTurns(TnMattePixel* to, Pixels first, Pixels second) {
        first.Store(to);
        second.Store(to + 1);
    }

    template <int bits> constexpr Pixels ShiftedLeft() const { return {word << bits}; }
    template <int bits> constexpr Pixels ShiftedRight() const { return {word >> bits}; }
    template <int bits> constexpr Pixels ShiftedRightSigned() const {
        return {static_cast<std::uint32_t>(static_cast<std::int32_t>(word) >> bits)};
    }
};

/// Sums of the channels of four neighbouring pixels times their weights; see rows/SubPixelSampler.h.
struct Pixels::Sums {
    using Weights = BilinearWeights;

    /// The same for pixels that have weights of their own, 1 to 255 across.
    struct WeightsOfEach : BilinearWeights {
        constexpr WeightsOfEach(Pixels right, Pixels lower) : BilinearWeights(right.word, lower.word) {}
    };

    std::array<std::uint32_t, 4> values = {};

    template <class Neighbors> constexpr Sums(const Neighbors& pixels, const Weights& weights) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            values[i] = weights.Sum(pixels.upperLeft.Channel(i), pixels.upperRight.Channel(i),
                                    pixels.lowerLeft.Channel(i), pixels.lowerRight.Channel(i));
        }
    }

    /// The sums / 65536.
    constexpr Pixels UpperHalves() const {
        return Narrowed([](std::uint32_t sum) { return sum >> 16; });
    }

    /// The sums, divided by the fourth of them and truncated, where quotients are below 256; a fourth of 0 counts as 1.
    constexpr Pixels DividedByFourth() const {
        const std::uint32_t divisor = std::max(values[3], 1U);
        return Narrowed([divisor](std::uint32_t sum) { return sum / divisor; });
    }

private:
    template <class Function> constexpr Pixels Narrowed(const Function& each) const {
        return {each(values[3]) << 24 | each(values[2]) << 16 | each(values[1]) << 8 | each(values[0])};
    }
};

constexpr Pixels operator&(Pixels a, Pixels b) { return {a.word & b.word}; }
constexpr Pixels operator|(Pixels a, Pixels b) { return {a.word | b.word}; }
constexpr Pixels operator^(Pixels a, Pixels b) { return {a.word ^ b.word}; }
constexpr Pixels operator+(Pixels a, Pixels b) { return {a.word + b.word}; }
constexpr Pixels operator-(Pixels a, Pixels b) { return {a.word - b.word}; }
constexpr Pixels operator*(Pixels a, Pixels b) { return {a.word * b.word}; }

constexpr PixelMask operator==(Pixels a, Pixels b) { return {a.word == b.word}; }
constexpr PixelMask Below(Pixels a, std::uint32_t limit) { return {a.word < limit}; } ///< Without a sign.
constexpr PixelMask Less(Pixels a, Pixels b) {
    return {static_cast<std::int32_t>(a.word) < static_cast<std::int32_t>(b.word)};
} ///< With a sign.
constexpr Pixels Select(PixelMask mask, Pixels a, Pixels b) { return mask.mask ? a : b; }

/// A matte's value of 255 where a value is more than the limit, else 0; both are below 128.
constexpr Pixels MoreThan(Pixels a, std::uint32_t limit) { return {a.word >> 24 > limit ? 0xFF000000U : 0U}; }

/// The value where a and b have the same one, elsewhere that of c.
constexpr Pixels SameOr(Pixels a, Pixels b, Pixels c) { return Select(a == b, a, c); }

template <class Function> constexpr Pixels ForEachByte(Pixels a, Pixels b, const Function& function) {
    const Channels x = a.Widened();
    return Pixels::Narrowed(ForEach(x, b.Widened(), function));
}

/// The smaller and the larger of each two bytes.
constexpr Pixels MinBytes(Pixels a, Pixels b) {
    return ForEachByte(a, b, [](std::uint32_t x, std::uint32_t y) { return std::min(x, y); });
}
constexpr Pixels MaxBytes(Pixels a, Pixels b) {
    return ForEachByte(a, b, [](std::uint32_t x, std::uint32_t y) { return std::max(x, y); });
}

/// The lower and the upper 16 bits of the products of both halves.
constexpr Pixels ShortProducts(Pixels a, Pixels b) {
    return {((a.word & 0xFFFFU) * (b.word & 0xFFFFU) & 0xFFFFU) | (a.word >> 16) * (b.word >> 16) << 16};
}
constexpr Pixels UpperProducts(Pixels a, Pixels b) {
    return {(a.word & 0xFFFFU) * (b.word & 0xFFFFU) >> 16 | ((a.word >> 16) * (b.word >> 16) & 0xFFFF0000U)};
}

/// The sum of the products of the lower and of the upper halves, which are below 32768.
constexpr Pixels PairSums(Pixels a, Pixels b) {
    return {(a.word & 0xFFFFU) * (b.word & 0xFFFFU) + (a.word >> 16) * (b.word >> 16)};
}

/// Each word, which is below 65535, divided by 255 and truncated.
constexpr Pixels DividedBy255(Pixels words) { return {words.word / 255}; }

/// ((channel x scale) >> 8) + offset for signed factors and offsets, stopped at 0 and 255.
constexpr Pixels Rescaled(Pixels pixels, const Channels& scales, const Channels& offsets) {
    const auto scaled = [](std::uint32_t x, std::uint32_t scale) {
        return static_cast<std::uint32_t>((static_cast<std::int32_t>(x) * static_cast<std::int16_t>(scale)) >> 8);
    };
    const auto moved = [](std::uint32_t x, std::uint32_t offset) {
        const std::int32_t sum = std::int32_t{static_cast<std::int16_t>(x)} + static_cast<std::int16_t>(offset);
        return static_cast<std::uint32_t>(std::clamp(sum, 0, 255));
    };
    return Pixels::Narrowed(ForEach(ForEach(pixels.Widened(), scales, scaled), offsets, moved));
}

/// alpha x opacity / 255, truncated, for opacities up to 255; the colour stays.
constexpr Pixels Faded(Pixels pixels, Pixels::Opacity opacity) {
    return pixels.WithAlphaOf({(pixels.word >> 24) * opacity.value / 255 << 24});
}

/// from x (255 - alpha) + to x alpha for each channel, by the alphas of a third pixel.
constexpr Channels Crossfade(Pixels from, Pixels to, Pixels alphas) {
    const Channels weights = alphas.Alphas();
    return from.Widened() * (Channels::All16(255) - weights) + to.Widened() * weights;
}

/// Each channel, divided by the pixel's divisor, 1 to 255, and truncated, where channels are at most 255 x divisor.
constexpr Channels Divided(const Channels& channels, Pixels divisors) {
    return ForEach(channels, divisors.Spread(), [](std::uint32_t x, std::uint32_t divisor) { return x / divisor; });
}

/// a / b for words below 2^26, truncated.
constexpr Pixels Quotients(Pixels a, Pixels b) { return {a.word / b.word}; }

/// Sums of the channels of pixels times their weights.
struct Pixels::BoxSums {
    std::array<std::uint32_t, 4> values = {};

    /// Weights are at most 256.
    constexpr void Add(Pixels left, Pixels leftWeight, Pixels right, Pixels rightWeight) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            values[i] += left.Channel(i) * leftWeight.word + right.Channel(i) * rightWeight.word;
        }
    }

    /// The sums, which are below 2^26, divided and rounded; the low bytes of what comes out.
    constexpr Pixels Mean(Pixels divisor) const {
        Pixels mean = {0};
        for (std::size_t i = 0; i < values.size(); ++i) {
            mean.word |= ((values[i] + (divisor.word >> 1)) / divisor.word & 255U) << (8 * i);
        }
        return mean;
    }
};

/// Sums of a matte's values times weights that form a triangle, on their way along a line; see rows/ColumnFilters.h.
struct Pixels::ShortSums {
    using Divisor = std::uint32_t;

    std::uint32_t slope = 0;
    std::uint32_t sum = 0;

    constexpr void Move(Pixels entering, Pixels middle, Pixels leaving) {
        slope += AlphaOf(entering) + AlphaOf(leaving) - 2 * AlphaOf(middle);
        sum += slope;
    }

    constexpr Pixels Means(Divisor divisor) const { return {sum / divisor << 24}; }

private:
    static constexpr std::uint32_t AlphaOf(Pixels pixel) { return pixel.word >> 24; }
};

/// Sums of this width are long enough for all.
struct Pixels::LongSums : ShortSums {};

/// A matte's value, a row and a column by itself.
struct Pixels::Square {
    static constexpr std::size_t kSide = 1;
    static constexpr std::size_t kRows = 1;

    Pixels value;

    static Square OfRows(const TnMattePixel* from, std::size_t) { return {Load(from)}; }
    static Square OfColumns(const TnMattePixel* from, std::size_t) { return {Load(from)}; }
    void StoreRows(TnMattePixel* to, std::size_t) const { value.Store(to); }
    void StoreColumns(TnMattePixel* to, std::size_t) const { value.Store(to); }
    void Turn() {}
};

} // namespace tn::portable
