// Private: lanes of a vector register. An instruction set gives the register and its instructions; what operators see
// of them is written here once, and means what lanes/PortableLanes.h says for one pixel.
#pragma once

#include "TnGraphics/port/TnImagePixel.h"
#include "TnGraphics/port/TnMattePixel.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tn {

/// The channels of a register of pixels, widened to 16 bits. Each half holds the pixels that the instruction set's
/// widening puts there; narrowing brings them back in order.
template <class Set> struct ChannelLanes {
    using Register = typename Set::Register;

    Register low, high;

    static ChannelLanes Both(Register half) { return {half, half}; }
    static ChannelLanes All16(std::uint16_t value) { return Both(Set::All16(value)); }
    static ChannelLanes AlphaOnly(std::uint16_t value) { return Repeated(std::uint64_t{value} << 48); }
    static ChannelLanes Repeated(std::uint64_t four) { return Both(Set::All64(four)); }
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

    // floor(x / 255) = (x + 1) * 257 >> 16 for every x below 65535.
    friend ChannelLanes DividedBy255(ChannelLanes x) {
        const ChannelLanes next = x + All16(1);
        const Register factor = Set::All16(257);
        return {Set::MultiplyHigh16(next.low, factor), Set::MultiplyHigh16(next.high, factor)};
    }

    // The reciprocal is short by at most one, so the product of reciprocal and channel, which is below 65536, is short
    // by less than one after the division by 65536; one comparison with the remainder mends that.
    static Register DividedHalf(Register x, Register divisors, Register reciprocals) {
        const Register quotients = Set::MultiplyHigh16(x, reciprocals);
        const Register remainders = Set::Subtract16(x, Set::Multiply16(quotients, divisors));
        return Set::OneMoreUnlessLess16(quotients, remainders, divisors);
    }

    // The product's upper half, of factors x * 256 without and scale with a sign. Where the scale is negative, taking
    // it for a number without one has added 65536 times the other factor.
    static Register RescaledHalf(Register x, Register scale, Register offset) {
        const Register shifted = Set::template ShiftLeft16<8>(x);
        const Register excess = Set::And(shifted, Set::Signs16(scale));
        const Register scaled = Set::Subtract16(Set::MultiplyHigh16(shifted, scale), excess);
        return Set::AddSaturated16(scaled, offset);
    }
};

/// Where pixels are as asked.
template <class Set> struct PixelMask {
    typename Set::Mask32 mask;

    bool Any() const { return Set::AnyMask32(mask); }
    friend PixelMask operator|(PixelMask a, PixelMask b) { return {Set::OrMask32(a.mask, b.mask)}; }
};

/// The channels of a register of pixels in 32 bits, a quarter of the pixels in each register.
template <class Set> struct SumLanes {
    using Register = typename Set::Register;
    using Channels = ChannelLanes<Set>;

    Register quarters[4];

    // Signed instructions multiply channels less 32768; the weights, 256 in all, bring that back as 2^23.
    static SumLanes Weighted(Channels a, Channels b, std::uint16_t weight) {
        const Register offset = Set::All16(0x8000);
        const Register weights = Set::All32(weight | (256U - weight) << 16);
        const Register back = Set::All32(1U << 23);
        const auto sum = [&](Register pairs) { return Set::Add32(Set::PairSums16(pairs, weights), back); };
        const Channels x = {Set::Subtract16(a.low, offset), Set::Subtract16(a.high, offset)};
        const Channels y = {Set::Subtract16(b.low, offset), Set::Subtract16(b.high, offset)};
        return {{sum(Set::InterleaveLow16(x.low, y.low)), sum(Set::InterleaveHigh16(x.low, y.low)),
                 sum(Set::InterleaveLow16(x.high, y.high)), sum(Set::InterleaveHigh16(x.high, y.high))}};
    }

    template <class Function> Channels Narrowed(const Function& each) const {
        return {Set::Narrow32(each(quarters[0]), each(quarters[1])),
                Set::Narrow32(each(quarters[2]), each(quarters[3]))};
    }

    Channels UpperHalves() const {
        return Narrowed([](Register sums) { return Set::template ShiftRight32<16>(sums); });
    }

    // Floats hold these numbers exactly, and no quotient below 256 lies nearer to the next whole number than floats of
    // that size lie to each other, so none is rounded up to it.
    Channels DividedByFourth() const {
        return Narrowed([](Register sums) {
            const Register divisors = Set::SpreadFourth32(sums);
            const auto none = Set::Equal32(divisors, Set::All32(0));
            return Set::Quotients32(sums, Set::Select32(none, Set::All32(1), divisors));
        });
    }
};

/// A register of pixels as 32-bit words.
template <class Set> struct PixelLanes {
    using Channels = ChannelLanes<Set>;
    using Sums = SumLanes<Set>;
    static constexpr std::size_t kCount = sizeof(typename Set::Register) / sizeof(TnImagePixel);

    typename Set::Register words;

    static PixelLanes All(std::uint32_t word) { return {Set::All32(word)}; }
    static PixelLanes Counting(std::uint32_t from) { return {Set::Add32(Set::All32(from), Set::Indices32())}; }

    static PixelLanes Load(const TnImagePixel* from) { return {Set::Load(from)}; }
    static PixelLanes Load(const TnMattePixel* from) { return {Set::LoadAlphas(from)}; }
    void Store(TnImagePixel* to) const { Set::Store(to, words); }
    void Store(TnMattePixel* to) const { Set::StoreAlphas(to, words); }

    static PixelLanes LoadFirst(const TnImagePixel* from, std::size_t count) { return {Set::LoadFirst(from, count)}; }
    static PixelLanes LoadFirst(const TnMattePixel* from, std::size_t count) {
        std::uint8_t values[kCount] = {};
        std::memcpy(values, from, count);
        return {Set::LoadAlphas(values)};
    }
    void StoreFirst(TnImagePixel* to, std::size_t count) const { Set::StoreFirst(to, words, count); }
    void StoreFirst(TnMattePixel* to, std::size_t count) const {
        std::uint8_t values[kCount];
        Set::StoreAlphas(values, words);
        std::memcpy(static_cast<void*>(to), values, count);
    }

    static PixelLanes Narrowed(Channels channels) { return {Set::Narrow(channels.low, channels.high)}; }
    Channels Widened() const { return {Set::WidenLow(words), Set::WidenHigh(words)}; }
    Channels Spread() const {
        const auto twice = Set::Or(words, Set::template ShiftLeft32<16>(words));
        return {Set::InterleaveLow32(twice, twice), Set::InterleaveHigh32(twice, twice)};
    }
    PixelLanes WithAlphaOf(PixelLanes other) const { return {Set::WithFourthBytesOf(words, other.words)}; }
    bool HasBits() const { return Set::HasBits(words); }
    template <int bits> PixelLanes ShiftedLeft() const { return {Set::template ShiftLeft32<bits>(words)}; }
    template <int bits> PixelLanes ShiftedRight() const { return {Set::template ShiftRight32<bits>(words)}; }

    friend PixelLanes operator&(PixelLanes a, PixelLanes b) { return {Set::And(a.words, b.words)}; }
    friend PixelLanes operator|(PixelLanes a, PixelLanes b) { return {Set::Or(a.words, b.words)}; }
    friend PixelLanes operator+(PixelLanes a, PixelLanes b) { return {Set::Add32(a.words, b.words)}; }
    friend PixelLanes operator-(PixelLanes a, PixelLanes b) { return {Set::Subtract32(a.words, b.words)}; }
    friend PixelLanes operator*(PixelLanes a, PixelLanes b) { return {Set::Multiply32(a.words, b.words)}; }
    friend PixelMask<Set> operator==(PixelLanes a, PixelLanes b) { return {Set::Equal32(a.words, b.words)}; }
    friend PixelLanes Select(PixelMask<Set> mask, PixelLanes a, PixelLanes b) {
        return {Set::Select32(mask.mask, a.words, b.words)};
    }

    friend PixelLanes MinBytes(PixelLanes a, PixelLanes b) { return {Set::MinBytes(a.words, b.words)}; }
    friend PixelLanes MaxBytes(PixelLanes a, PixelLanes b) { return {Set::MaxBytes(a.words, b.words)}; }

    // The upper halves of these words are 0, and stay 0.
    friend PixelLanes ShortProduct(PixelLanes a, PixelLanes b) { return {Set::Multiply16(a.words, b.words)}; }
    friend PixelLanes UpperProduct(PixelLanes a, PixelLanes b) { return {Set::MultiplyHigh16(a.words, b.words)}; }
    friend PixelLanes DividedBy255(PixelLanes a) { return UpperProduct(a + All(1), All(257)); }

    friend PixelLanes PairSums(PixelLanes a, PixelLanes b) { return {Set::PairSums16(a.words, b.words)}; }

    // Narrowing stops signed channels at 0 and 255.
    friend PixelLanes Rescaled(PixelLanes pixels, Channels scales, Channels offsets) {
        const Channels channels = pixels.Widened();
        return Narrowed({Channels::RescaledHalf(channels.low, scales.low, offsets.low),
                         Channels::RescaledHalf(channels.high, scales.high, offsets.high)});
    }

    friend Channels Divided(Channels channels, PixelLanes divisors) {
        const Channels by = divisors.Spread();
        const Channels reciprocals = PixelLanes{Set::Quotients32(Set::All32(65535), divisors.words)}.Spread();
        return {Channels::DividedHalf(channels.low, by.low, reciprocals.low),
                Channels::DividedHalf(channels.high, by.high, reciprocals.high)};
    }
};

} // namespace tn
