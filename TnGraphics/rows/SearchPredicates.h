// Private: what searches ask of pixels.
//
// A predicate is a pure function from pixels in lanes to words that have a bit set where the pixel is sought. A matte's
// value is the alpha of a word whose colour is 0.
#pragma once

#include "TnGraphics/rows/PixelAlphas.h"

#include <cstdint>

namespace tn {

/// A pixel that differs from a word in any of some bits.
struct DiffersFrom {
    std::uint32_t word;
    std::uint32_t bits;

    template <class Pixels> Pixels operator()(Pixels pixels) const {
        return (pixels ^ Pixels::All(word)) & Pixels::All(bits);
    }
};

/// A pixel that shows something other than a grey below white.
struct ShowsMoreThanGrey {
    template <class Pixels> Pixels operator()(Pixels pixels) const {
        const Pixels color = Pixels::All(kColorBits);
        const Pixels unlikeNeighbor = (pixels ^ pixels.template ShiftedRight<8>()) & Pixels::All(0xFFFF);
        const auto white = (pixels & color) == color;
        return Select(white, pixels & Pixels::All(kAlphaBits), unlikeNeighbor);
    }
};

} // namespace tn
