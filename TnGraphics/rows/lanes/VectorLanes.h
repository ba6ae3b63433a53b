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

    // The product's upper half, of factors without and with a sign. Where the scale is negative, taking it for a number
    // without sign has added 65536 times the other factor.
    static Register RescaledHalf(Register x256, Register scale, Register offset) {
        const Register excess = Set::And(x256, Set::Signs16(scale));
        return Set::AddSaturated16(Set::Subtract16(Set::MultiplyHigh16(x256, scale), excess), offset);
    }
};

/// Where pixels are as asked.
template <class Set> struct PixelMask {
    typename Set::Mask32 mask;

    bool Any() const { return Set::AnyMask32(mask); }
    friend PixelMask operator|(PixelMask a, PixelMask b) { return {Set::OrMask32(a.mask, b.mask)}; }
    friend PixelMask operator&(PixelMask a, PixelMask b) { return {Set::AndMask32(a.mask, b.mask)}; }
};

template <class Set> struct PixelLanes;
template <class Set> struct MatteLanes;

/// Narrower lanes for the rest of a row, where the instruction set has no way to load and store a part of its own.
template <class Set> struct NarrowerLanes { using Type = void; };
template <class Set>
requires requires { typename Set::Narrower; }
struct NarrowerLanes<Set> {
    using Type = PixelLanes<typename Set::Narrower>;
};

/// A register of pixels as 32-bit words.
template <class Set> struct PixelLanes {
    using Channels = ChannelLanes<Set>;
    struct Sums;
    struct BoxSums;
    using Mattes = MatteLanes<Set>;
    using Narrower = typename NarrowerLanes<Set>::Type;
    static constexpr std::size_t kCount = sizeof(typename Set::Register) / sizeof(TnImagePixel);

    struct Opacity {
        typename Set::Register factor;

        explicit Opacity(std::uint32_t opacity) : factor(Set::All32(opacity * 257 << 16)) {}
    };

    typename Set::Register words;

    static PixelLanes All(std::uint32_t word) { return {Set::All32(word)}; }
    static PixelLanes Counting(std::uint32_t from) { return {Set::Add32(Set::All32(from), Set::Indices32())}; }

    static PixelLanes Load(const TnImagePixel* from) { return {Set::Load(from)}; }
    static PixelLanes Load(const std::int32_t* from) { return {Set::Load(from)}; }
    static PixelLanes Load(const TnMattePixel* from) { return {Set::LoadAlphas(from)}; }
    void Store(TnImagePixel* to) const { Set::Store(to, words); }
    void Store(TnMattePixel* to) const { Set::StoreAlphas(to, words); }

    static PixelLanes LoadFirst(const TnImagePixel* from, std::size_t count) { return {Set::LoadFirst(from, count)}; }
    static PixelLanes LoadFirst(const std::int32_t* from, std::size_t count) { return {Set::LoadFirst(from, count)}; }
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
    Channels Alphas() const { return {Set::SpreadAlphaLow(words), Set::SpreadAlphaHigh(words)}; }
    Channels Spread() const {
        const auto twice = Set::Or(words, Set::template ShiftLeft32<16>(words));
        return {Set::InterleaveLow32(twice, twice), Set::InterleaveHigh32(twice, twice)};
    }
    PixelLanes WithAlphaOf(PixelLanes other) const { return {Set::WithFourthBytesOf(words, other.words)}; }
    bool HasBits() const { return Set::HasBits(words); }
    template <int bits> PixelLanes ShiftedLeft() const { return {Set::template ShiftLeft32<bits>(words)}; }
    template <int bits> PixelLanes ShiftedRight() const { return {Set::template ShiftRight32<bits>(words)}; }
    template <int bits> PixelLanes ShiftedRightSigned() const {
        return {Set::template ShiftRightSigned32<bits>(words)};
    }

    // Instructions take offsets with a sign, so the middle of their range becomes the base.
    static PixelLanes Gather(std::uintptr_t base, PixelLanes offsets, PixelMask<Set> where, PixelLanes otherwise) {
        const PixelLanes fromMiddle = offsets - All(kMiddle);
        return {Set::Gather32(base + kMiddle, fromMiddle.words, where.mask, otherwise.words)};
    }

    static void GatherPairs(std::uintptr_t base, PixelLanes offsets, PixelLanes& left, PixelLanes& right) {
        Set::GatherPairs32(base + kMiddle, (offsets - All(kMiddle)).words, left.words, right.words);
    }

    friend PixelLanes operator&(PixelLanes a, PixelLanes b) { return {Set::And(a.words, b.words)}; }
    friend PixelLanes operator|(PixelLanes a, PixelLanes b) { return {Set::Or(a.words, b.words)}; }
    friend PixelLanes operator^(PixelLanes a, PixelLanes b) { return {Set::Xor(a.words, b.words)}; }
    friend PixelLanes operator+(PixelLanes a, PixelLanes b) { return {Set::Add32(a.words, b.words)}; }
    friend PixelLanes operator-(PixelLanes a, PixelLanes b) { return {Set::Subtract32(a.words, b.words)}; }
    friend PixelLanes operator*(PixelLanes a, PixelLanes b) { return {Set::Multiply32(a.words, b.words)}; }
    friend PixelMask<Set> operator==(PixelLanes a, PixelLanes b) { return {Set::Equal32(a.words, b.words)}; }
    friend PixelMask<Set> Below(PixelLanes a, std::uint32_t limit) {
        return {Set::Less32((a - All(kMiddle)).words, Set::All32(limit - kMiddle))};
    }
    friend PixelMask<Set> Less(PixelLanes a, PixelLanes b) { return {Set::Less32(a.words, b.words)}; }
    friend PixelLanes Select(PixelMask<Set> mask, PixelLanes a, PixelLanes b) {
        return {Set::Select32(mask.mask, a.words, b.words)};
    }

    friend PixelLanes MinBytes(PixelLanes a, PixelLanes b) { return {Set::MinBytes(a.words, b.words)}; }
    friend PixelLanes MaxBytes(PixelLanes a, PixelLanes b) { return {Set::MaxBytes(a.words, b.words)}; }

    friend PixelLanes ShortProducts(PixelLanes a, PixelLanes b) { return {Set::Multiply16(a.words, b.words)}; }
    friend PixelLanes UpperProducts(PixelLanes a, PixelLanes b) { return {Set::MultiplyHigh16(a.words, b.words)}; }
    friend PixelLanes DividedBy255(PixelLanes a) { return UpperProducts(a + All(1), All(257)); }

    friend PixelLanes PairSums(PixelLanes a, PixelLanes b) { return {Set::PairSums16(a.words, b.words)}; }

    // The products of the upper halves, (alpha x 256) x (opacity x 257) / 65536, plus 1: alpha x opacity / 255 stands
    // in their upper bytes, where alphas stand. That is exact, since (x + 256 / 257) x 257 / 65536 and x / 255 have the
    // same integer part for x up to 255 x 255.
    friend PixelLanes Faded(PixelLanes pixels, Opacity opacity) {
        const PixelLanes products = {Set::MultiplyHigh16((pixels & All(0xFF000000)).words, opacity.factor)};
        return pixels.WithAlphaOf(products + All(1U << 16));
    }

    // Floats are near enough to be wrong by one at most, either way, which the remainder shows.
    friend PixelLanes Quotients(PixelLanes a, PixelLanes b) {
        const PixelLanes estimate = {Set::Quotients32(a.words, b.words)};
        const PixelLanes remainder = a - estimate * b;
        const PixelLanes low = Select(Less(remainder, All(0)), estimate - All(1), estimate);
        return Select(Less(remainder, b), low, estimate + All(1));
    }

    // Narrowing stops signed channels at 0 and 255.
    friend PixelLanes Rescaled(PixelLanes pixels, Channels scales, Channels offsets) {
        return Narrowed(
            {Channels::RescaledHalf(Set::InterleaveLow8(Set::All32(0), pixels.words), scales.low, offsets.low),
             Channels::RescaledHalf(Set::InterleaveHigh8(Set::All32(0), pixels.words), scales.high, offsets.high)});
    }

    // Weights are bytes without a sign, what they weigh are bytes with one: 128 less, which the sum gets back.
    friend Channels Crossfade(PixelLanes from, PixelLanes to, PixelLanes alphas) {
        const auto signs = Set::All32(0x80808080);
        const auto lessFrom = Set::Xor(from.words, signs);
        const auto lessTo = Set::Xor(to.words, signs);
        const auto inverse = Set::All16(255); // 255 - alpha in the first byte of each pair
        const auto lowWeights = Set::Xor(Set::AlphaPairsLow(alphas.words), inverse);
        const auto highWeights = Set::Xor(Set::AlphaPairsHigh(alphas.words), inverse);
        return Channels{Set::WeightedPairs8(lowWeights, Set::InterleaveLow8(lessFrom, lessTo)),
                        Set::WeightedPairs8(highWeights, Set::InterleaveHigh8(lessFrom, lessTo))} +
               Channels::All16(128 * 255);
    }

    friend Channels Divided(Channels channels, PixelLanes divisors) {
        const Channels by = divisors.Spread();
        const Channels reciprocals = PixelLanes{Set::Quotients32(Set::All32(65535), divisors.words)}.Spread();
        return {Channels::DividedHalf(channels.low, by.low, reciprocals.low),
                Channels::DividedHalf(channels.high, by.high, reciprocals.high)};
    }

private:
    static constexpr std::uint32_t kMiddle = 0x80000000; // of numbers without a sign
};

} // namespace tn
