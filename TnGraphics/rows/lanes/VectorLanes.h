// Private: lanes of a vector register. An instruction set gives the register and its instructions; what operators see
// of them is written here once, and means what lanes/PortableLanes.h says for one pixel.
#pragma once

#include "TnGraphics/port/TnImagePixel.h"

#include <cstddef>
#include <cstdint>

namespace tn {

/// Where 16-bit channels, low and high half, are equal.
template <class Set> struct ChannelMask { typename Set::Mask16 low, high; };

/// The channels of a register of pixels, widened to 16 bits. Each half holds the pixels that the instruction set's
/// widening puts there; narrowing brings them back in order.
template <class Set> struct ChannelLanes {
    typename Set::Register low, high;

    static ChannelLanes Both(typename Set::Register half) { return {half, half}; }
    static ChannelLanes All16(std::uint16_t value) { return Both(Set::All16(value)); }
    static ChannelLanes AlphaOnly(std::uint16_t value) { return Both(Set::All64(std::uint64_t{value} << 48)); }
    static ChannelLanes All(std::uint32_t word) { return Both(Set::WidenLow(Set::All32(word))); }
    ChannelLanes Alphas() const { return {Set::SpreadAlpha(low), Set::SpreadAlpha(high)}; }

    friend ChannelLanes operator+(ChannelLanes a, ChannelLanes b) {
        return {Set::Add16(a.low, b.low), Set::Add16(a.high, b.high)};
    }
    friend ChannelLanes operator-(ChannelLanes a, ChannelLanes b) {
        return {Set::Subtract16(a.low, b.low), Set::Subtract16(a.high, b.high)};
    }
    friend ChannelLanes operator*(ChannelLanes a, ChannelLanes b) {
        return {Set::Multiply16(a.low, b.low), Set::Multiply16(a.high, b.high)};
    }
    friend ChannelLanes operator|(ChannelLanes a, ChannelLanes b) {
        return {Set::Or(a.low, b.low), Set::Or(a.high, b.high)};
    }
    friend ChannelMask<Set> operator==(ChannelLanes a, ChannelLanes b) {
        return {Set::Equal16(a.low, b.low), Set::Equal16(a.high, b.high)};
    }
    friend ChannelLanes Select(ChannelMask<Set> mask, ChannelLanes a, ChannelLanes b) {
        return {Set::Select16(mask.low, a.low, b.low), Set::Select16(mask.high, a.high, b.high)};
    }

    // floor(x / 255) = (x + 1) * 257 >> 16 for every x below 65535.
    friend ChannelLanes DividedBy255(ChannelLanes x) {
        const ChannelLanes next = x + All16(1);
        const typename Set::Register factor = Set::All16(257);
        return {Set::MultiplyHigh16(next.low, factor), Set::MultiplyHigh16(next.high, factor)};
    }
};

/// Where pixels are equal.
template <class Set> struct PixelMask {
    typename Set::Mask32 mask;

    friend PixelMask operator|(PixelMask a, PixelMask b) { return {Set::OrMask32(a.mask, b.mask)}; }
};

/// A register of pixels as 32-bit words.
template <class Set> struct PixelLanes {
    using Channels = ChannelLanes<Set>;
    static constexpr std::size_t kCount = sizeof(typename Set::Register) / sizeof(TnImagePixel);

    typename Set::Register words;

    static PixelLanes All(std::uint32_t word) { return {Set::All32(word)}; }
    static PixelLanes Counting(std::uint32_t from) { return {Set::Add32(Set::All32(from), Set::Indices32())}; }
    static PixelLanes Load(const TnImagePixel* from) { return {Set::Load(from)}; }
    static PixelLanes LoadFirst(const TnImagePixel* from, std::size_t count) { return {Set::LoadFirst(from, count)}; }
    void Store(TnImagePixel* to) const { Set::Store(to, words); }
    void StoreFirst(TnImagePixel* to, std::size_t count) const { Set::StoreFirst(to, words, count); }
    static PixelLanes Narrowed(Channels channels) { return {Set::Narrow(channels.low, channels.high)}; }
    Channels Widened() const { return {Set::WidenLow(words), Set::WidenHigh(words)}; }
    PixelLanes WithAlphaOf(PixelLanes other) const { return {Set::WithFourthBytesOf(words, other.words)}; }
    bool HasBits() const { return Set::HasBits(words); }
    template <int bits> PixelLanes ShiftedLeft() const { return {Set::template ShiftLeft32<bits>(words)}; }
    template <int bits> PixelLanes ShiftedRight() const { return {Set::template ShiftRight32<bits>(words)}; }

    friend PixelLanes operator&(PixelLanes a, PixelLanes b) { return {Set::And(a.words, b.words)}; }
    friend PixelLanes operator|(PixelLanes a, PixelLanes b) { return {Set::Or(a.words, b.words)}; }
    friend PixelLanes operator+(PixelLanes a, PixelLanes b) { return {Set::Add32(a.words, b.words)}; }
    friend PixelLanes operator*(PixelLanes a, PixelLanes b) { return {Set::Multiply32(a.words, b.words)}; }
    friend PixelMask<Set> operator==(PixelLanes a, PixelLanes b) { return {Set::Equal32(a.words, b.words)}; }
    friend PixelLanes Select(PixelMask<Set> mask, PixelLanes a, PixelLanes b) {
        return {Set::Select32(mask.mask, a.words, b.words)};
    }
};

} // namespace tn
