// Private: what operators ask of the alphas of pixels in lanes.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tn {

inline constexpr std::uint32_t kAlphaBits = 0xFF000000;
inline constexpr std::uint32_t kColorBits = ~kAlphaBits;

/// Where the alphas are 0.
template <class Pixels> auto Transparent(Pixels pixels) { return (pixels & Pixels::All(kAlphaBits)) == Pixels::All(0); }

/// True when every alpha is 0 or 255. These two, plus one modulo 256, have no bit above the lowest.
template <class Pixels> bool HasHardAlphas(Pixels pixels) {
    constexpr std::uint32_t kOne = 0x01000000;
    return !((pixels + Pixels::All(kOne)) & Pixels::All(kAlphaBits & ~kOne)).HasBits();
}

/// Where an operator's easy way is to choose between pixels: in opaque and in empty stretches.
template <std::size_t pixelsBetweenLooks> struct WhereAlphasAreHard {
    static constexpr std::size_t kPixelsBetweenLooks = pixelsBetweenLooks;

    template <class Pixels> static bool Holds(Pixels pixels) { return HasHardAlphas(pixels); }

    /// Of a source on its way into a destination.
    template <class Pixels> static bool Holds(Pixels s, Pixels) { return HasHardAlphas(s); }
};

/// The same for an operator whose choice is the destination's.
template <std::size_t pixelsBetweenLooks> struct WhereDestinationAlphasAreHard {
    static constexpr std::size_t kPixelsBetweenLooks = pixelsBetweenLooks;

    template <class Pixels> static bool Holds(Pixels, Pixels d) { return HasHardAlphas(d); }
};

/// The alphas as numbers, and back: an alpha over no colour.
template <class Pixels> Pixels AlphaNumbers(Pixels pixels) { return pixels.template ShiftedRight<24>(); }
template <class Pixels> Pixels AlphaPixels(Pixels numbers) { return numbers.template ShiftedLeft<24>(); }

} // namespace tn
