// Private: sums of a matte's values times weights that form a triangle, on their way along lines; see
// rows/ColumnFilters.h.
#pragma once

#include "TnGraphics/rows/lanes/MatteLanes.h"

#include <cstdint>

namespace tn {

/// Sums that stay below 65536: of weights up to 256 in all.
template <class Set> struct MatteLanes<Set>::ShortSums {
    /// (x + increment) x factor / 65536 / 2^shift is x / divisor, truncated, for x up to 255 x divisor.
    ///
    /// With 2^shift below the divisor and 2^(shift + 1) not, the factor has 16 bits. It is 2^(16 + shift) / divisor,
    /// rounded up or down to where the product with the divisor is less than half a divisor away: for x that large this
    /// keeps the error below 1 / divisor. The increment makes up for rounding down.
    struct Divisor {
        std::uint16_t factor = 65535;
        std::uint16_t increment = 1;
        int shift = 0;

        explicit Divisor(std::uint32_t divisor) {
            if (divisor == 1) {
                return;
            }
            while (2U << shift < divisor) {
                ++shift;
            }
            const std::uint32_t power = 65536U << shift;
            const std::uint32_t rest = power % divisor;
            const bool isShort = rest != 0 && 2 * rest <= divisor;
            factor = static_cast<std::uint16_t>(isShort ? power / divisor : (power + divisor - 1) / divisor);
            increment = isShort ? 1 : 0;
        }
    };

    Channels slopes = Channels::All16(0);
    Channels sums = Channels::All16(0);

    void Move(MatteLanes entering, MatteLanes middle, MatteLanes leaving) {
        const Channels once = middle.Widened();
        slopes = slopes + (entering.Widened() - once) + (leaving.Widened() - once);
        sums = sums + slopes;
    }

    MatteLanes Means(const Divisor& divisor) const {
        const auto means = [&divisor](typename Set::Register half) {
            const auto next = Set::Add16(half, Set::All16(divisor.increment));
            return Set::ShiftRight16(Set::MultiplyHigh16(next, Set::All16(divisor.factor)), divisor.shift);
        };
        return Narrowed({means(sums.low), means(sums.high)});
    }
};

/// Sums that stay below 2^23: of weights of at most 127 each, 127 x 127 in all.
///
/// They are kept as floats, which hold them exactly, with 1/2 added and everything times 65536: that is what a slope is
/// in the upper half of a word.
template <class Set> struct MatteLanes<Set>::LongSums {
    using Floats = typename Set::Floats;

    /// The rounded reciprocal. A float keeps (x + 1/2) / divisor within the half divisor that lies between it and the
    /// next whole number, since 256 x 2^-23 is less than 1/2 / (127 x 127).
    struct Divisor {
        float reciprocal;

        explicit Divisor(std::uint32_t divisor) : reciprocal(1.0F / 65536.0F / static_cast<float>(divisor)) {}
    };

    Channels slopes = Channels::All16(0); // signed
    Floats evens[2] = {Half(), Half()};   // of the columns of which a word has the slope in its lower half
    Floats odds[2] = {Half(), Half()};

    void Move(MatteLanes entering, MatteLanes middle, MatteLanes leaving) {
        const Channels once = middle.Widened();
        slopes = slopes + (entering.Widened() - once) + (leaving.Widened() - once);
        Add(0, slopes.low);
        Add(1, slopes.high);
    }

    MatteLanes Means(const Divisor& divisor) const {
        const Floats reciprocal = Set::AllFloats(divisor.reciprocal);
        const auto means = [&](int half) {
            const auto even = Set::Truncated(Set::MultiplyFloats(evens[half], reciprocal));
            const auto odd = Set::Truncated(Set::MultiplyFloats(odds[half], reciprocal));
            return Set::Or(even, Set::template ShiftLeft32<16>(odd));
        };
        return Narrowed({means(0), means(1)});
    }

private:
    static Floats Half() { return Set::AllFloats(0.5F * 65536.0F); }

    void Add(int half, typename Set::Register slope) {
        evens[half] = Set::AddFloats(evens[half], Set::FloatsOf(Set::template ShiftLeft32<16>(slope)));
        odds[half] = Set::AddFloats(odds[half], Set::FloatsOf(Set::And(slope, Set::All32(0xFFFF0000))));
    }
};

} // namespace tn
