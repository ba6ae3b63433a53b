// Private: sums of weighted pixels in vector registers; they mean what lanes/PortableLanes.h says for one pixel.
#pragma once

#include "TnGraphics/rows/lanes/VectorLanes.h"

#include <cstdint>

namespace tn {

/// Sums of the channels of a register of pixels, a quarter of the pixels in each of four registers. They are short by
/// 2^23: signed instructions multiply channels less 128, and 128 times the sum of the weights is that number. The
/// weights across are 1 to 255.
template <class Set> struct PixelLanes<Set>::Sums {
    using Register = typename Set::Register;

    /// One pair of weights for all pixels.
    struct Weights {
        Register across; ///< Of left and right pixels, in pairs of bytes.
        Register down;   ///< Of upper and lower pixels, in pairs of 16 bits.

        Weights(std::uint32_t right, std::uint32_t lower)
            : across(Set::All16(static_cast<std::uint16_t>(right << 8 | (256 - right)))),
              down(Set::All32(lower << 16 | (256 - lower))) {}

        Channels Across() const { return Channels::Both(across); }
        template <int quarter> Register Down() const { return down; }
    };

    /// Weights for each pixel.
    struct WeightsOfEach {
        Channels across;
        Register down;

        WeightsOfEach(PixelLanes right, PixelLanes lower)
            : across((right.template ShiftedLeft<8>() | (All(256) - right)).Spread()),
              down((lower.template ShiftedLeft<16>() | (All(256) - lower)).words) {}

        Channels Across() const { return across; }
        template <int quarter> Register Down() const { return Set::template SpreadWord32<quarter>(down); }
    };

    Register quarters[4];

    template <class Neighbors, class SomeWeights> Sums(const Neighbors& pixels, const SomeWeights& weights) {
        const Channels upper = RowSum(pixels.upperLeft, pixels.upperRight, weights.Across());
        const Channels lower = RowSum(pixels.lowerLeft, pixels.lowerRight, weights.Across());
        quarters[0] = Set::PairSums16(Set::InterleaveLow16(upper.low, lower.low), weights.template Down<0>());
        quarters[1] = Set::PairSums16(Set::InterleaveHigh16(upper.low, lower.low), weights.template Down<1>());
        quarters[2] = Set::PairSums16(Set::InterleaveLow16(upper.high, lower.high), weights.template Down<2>());
        quarters[3] = Set::PairSums16(Set::InterleaveHigh16(upper.high, lower.high), weights.template Down<3>());
    }

    PixelLanes UpperHalves() const {
        const auto half = [](Register sums) { return Set::template ShiftRightSigned32<16>(sums); };
        const Register low = Set::Narrow32(half(quarters[0]), half(quarters[1]));
        const Register high = Set::Narrow32(half(quarters[2]), half(quarters[3]));
        return {Set::Xor(Set::NarrowSigned(low, high), Set::All32(kSigns))};
    }

    // Floats hold these numbers exactly, and no quotient below 256 lies nearer to the next whole number than floats of
    // that size lie to each other, so none is rounded up to it.
    PixelLanes DividedByFourth() const {
        const auto quotients = [](Register sums) {
            const Register whole = Set::Add32(sums, Set::All32(1U << 23));
            const Register divisors = Set::SpreadFourth32(whole);
            const auto none = Set::Equal32(divisors, Set::All32(0));
            return Set::Quotients32(whole, Set::Select32(none, Set::All32(1), divisors));
        };
        return Narrowed({Set::Narrow32(quotients(quarters[0]), quotients(quarters[1])),
                         Set::Narrow32(quotients(quarters[2]), quotients(quarters[3]))});
    }

private:
    static constexpr std::uint32_t kSigns = 0x80808080;

    static Channels RowSum(PixelLanes left, PixelLanes right, Channels weights) {
        const Register signs = Set::All32(kSigns);
        const Register l = Set::Xor(left.words, signs);
        const Register r = Set::Xor(right.words, signs);
        return {Set::WeightedPairs8(weights.low, Set::InterleaveLow8(l, r)),
                Set::WeightedPairs8(weights.high, Set::InterleaveHigh8(l, r))};
    }
};

/// Sums of pixels times weights, a quarter of the pixels in each of four registers.
template <class Set> struct PixelLanes<Set>::BoxSums {
    using Register = typename Set::Register;

    Register quarters[4] = {Set::All32(0), Set::All32(0), Set::All32(0), Set::All32(0)};

    void Add(PixelLanes left, PixelLanes leftWeight, PixelLanes right, PixelLanes rightWeight) {
        const Register weights = (leftWeight | rightWeight.template ShiftedLeft<16>()).words;
        const Register low = Set::InterleaveLow8(left.words, right.words);
        const Register high = Set::InterleaveHigh8(left.words, right.words);
        AddPairs<0>(Set::WidenLow(low), weights);
        AddPairs<1>(Set::WidenHigh(low), weights);
        AddPairs<2>(Set::WidenLow(high), weights);
        AddPairs<3>(Set::WidenHigh(high), weights);
    }

    PixelLanes Mean(PixelLanes divisors) const {
        return Narrowed({Set::Narrow32(RoundedQuotients<0>(divisors), RoundedQuotients<1>(divisors)),
                         Set::Narrow32(RoundedQuotients<2>(divisors), RoundedQuotients<3>(divisors))});
    }

private:
    template <int quarter> void AddPairs(Register pairs, Register weights) {
        const Register products = Set::PairSums16(pairs, Set::template SpreadWord32<quarter>(weights));
        quarters[quarter] = Set::Add32(quarters[quarter], products);
    }

    template <int quarter> Register RoundedQuotients(PixelLanes divisors) const {
        const PixelLanes by = {Set::template SpreadWord32<quarter>(divisors.words)};
        const PixelLanes sums = PixelLanes{quarters[quarter]} + by.template ShiftedRight<1>();
        return (Quotients(sums, by) & All(255)).words;
    }
};

} // namespace tn
