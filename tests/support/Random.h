// Random values for test cases, the same on every platform for the same seed.
#pragma once

#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/geometry/TnRect.h"
#include "TnGraphics/port/TnColor.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace tn::test {

/// One step of the SplitMix64 generator: the state moves on and its scrambled value is returned.
constexpr std::uint64_t SplitMix64(std::uint64_t& state) {
    std::uint64_t z = state += 0x9E3779B97F4A7C15U;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31);
}

/// A seeded source of values, biased to where pictures and their arithmetic have their edges.
class Random {
public:
    static constexpr std::int32_t kLongestSide = 140; // past two of the widest vectors in either kind of pixel

    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t Next() { return SplitMix64(state_); }
    std::uint32_t Word() { return static_cast<std::uint32_t>(Next() >> 32); }
    std::uint8_t Byte() { return static_cast<std::uint8_t>(Next() >> 56); }

    /// From low to high, both included.
    std::int32_t Between(std::int32_t low, std::int32_t high) {
        const auto count = static_cast<std::uint64_t>(std::int64_t{high} - low + 1);
        return static_cast<std::int32_t>(low + static_cast<std::int64_t>(Next() % count));
    }

    bool OneIn(std::int32_t count) { return Between(1, count) == 1; }

    template <class Value, std::size_t count> Value OneOf(const std::array<Value, count>& values) {
        return values[static_cast<std::size_t>(Next() % count)];
    }

    /// An alpha or a coverage, in half of the cases one of those that the operators treat specially.
    std::uint8_t Alpha() {
        constexpr std::array<std::uint8_t, 6> kFavoured = {0, 1, 127, 128, 254, 255};
        return OneIn(2) ? OneOf(kFavoured) : Byte();
    }

    /// A colour channel, often at an end.
    std::uint8_t Channel() {
        constexpr std::array<std::uint8_t, 2> kEnds = {0, 255};
        return OneIn(4) ? OneOf(kEnds) : Byte();
    }

    TnColor Color() { return {Alpha(), Channel(), Channel(), Channel()}; }

    /// The word of an image's pixel. Alphas come in stretches as in pictures: opaque, empty, hard-edged or any.
    std::uint32_t Pixel() {
        constexpr std::array<Stretch, 5> kStretches = {Stretch::kAny, Stretch::kAny, Stretch::kHard, Stretch::kOpaque,
                                                       Stretch::kEmpty};
        if (OneIn(24)) {
            stretch_ = OneOf(kStretches);
        }
        return std::uint32_t{AlphaIn(stretch_)} << 24 | (Word() & 0x00FFFFFF);
    }

    /// Width or height of a surface, 0 included.
    std::int32_t Side() { return Between(0, kLongestSide); }

    /// Any width; mostly a few rows, now and then enough for several cancel polls.
    TnPoint Size() { return {Side(), OneIn(8) ? Side() : Between(0, 7)}; }

    /// A rectangle that has to do with a surface of the given size: within it, sticking out, outside, empty, turned
    /// inside out, or with fields at the ends of their range.
    TnRect Rect(const TnPoint& size) {
        const Span horizontal = SpanNear(size.x);
        const Span vertical = SpanNear(size.y);
        return {horizontal.start, vertical.start, horizontal.extent, vertical.extent};
    }

    /// A rectangle within a surface of the given size: the whole in half of the cases, at times an empty one.
    TnRect RectWithin(const TnPoint& size) {
        if (OneIn(2)) {
            return {0, 0, size.x, size.y};
        }
        const Span horizontal = SpanWithin(size.x);
        const Span vertical = SpanWithin(size.y);
        return {horizontal.start, vertical.start, horizontal.extent, vertical.extent};
    }

private:
    enum class Stretch { kAny, kHard, kOpaque, kEmpty };

    std::uint8_t AlphaIn(Stretch stretch) {
        switch (stretch) {
        case Stretch::kHard:
            return OneIn(2) ? 0 : 255;
        case Stretch::kOpaque:
            return 255;
        case Stretch::kEmpty:
            return 0;
        case Stretch::kAny:
            break;
        }
        return Alpha();
    }

    struct Span {
        std::int32_t start;
        std::int32_t extent;
    };

    Span SpanWithin(std::int32_t length) {
        const std::int32_t start = Between(0, length);
        return {start, Between(0, length - start)};
    }

    Span SpanNear(std::int32_t length) {
        switch (Between(0, 15)) {
        case 0:
            return {Between(length, 2 * length + 1), Between(1, length + 1)}; // outside
        case 1:
            return {Between(-length, length), Between(-length - 1, 0)}; // empty, inside out
        case 2:
            return {Extreme(), Extreme()};
        case 3:
            return {Between(-length, 0), Extreme()};
        case 4:
        case 5:
        case 6:
            return {0, length};
        case 7:
        case 8:
        case 9:
        case 10:
            return {Between(-length, length), Between(1, 2 * length + 1)}; // sticking out
        default:
            return SpanWithin(length);
        }
    }

    std::int32_t Extreme() {
        constexpr std::int32_t kLow = std::numeric_limits<std::int32_t>::min();
        constexpr std::int32_t kHigh = std::numeric_limits<std::int32_t>::max();
        constexpr std::array<std::int32_t, 8> kExtremes = {kLow, kLow + 1,  kLow / 2,  -1,
                                                           1,    kHigh / 2, kHigh - 1, kHigh};
        return OneOf(kExtremes);
    }

    std::uint64_t state_;
    Stretch stretch_ = Stretch::kAny;
};

} // namespace tn::test
