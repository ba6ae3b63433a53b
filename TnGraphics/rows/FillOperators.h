// Private: what fills do to a pixel.
//
// An operator is a pure function from a pixel and its column in the row to the new pixel. It is written once, over a
// lane type that holds one pixel or a vector register full of them, so it selects where other code would branch. A new
// one is a functor here, a line in RowKernels.h and the operation in ops/ that calls it.
//
// An operator may know an easy way for lanes in which it has nothing to compute: Easy says for which pixels, and how
// far the row is done on the hard way before another look; Easily gives what operator() would.
#pragma once

#include "TnGraphics/rows/PixelAlphas.h"

#include <cstdint>

namespace tn {

/// The word, whatever was there.
struct StorePixel {
    std::uint32_t word;

    template <class Pixels> Pixels operator()(Pixels, Pixels) const { return Pixels::All(word); }
};

/// The alpha, in the top byte of a word; the colour stays.
struct SetAlpha {
    std::uint32_t alphaBits;

    template <class Pixels> Pixels operator()(Pixels d, Pixels) const { return d.WithAlphaOf(Pixels::All(alphaBits)); }
};

/// da x factor / 65536, of which the low 8 bits are kept; the colour stays.
struct ScaleAlpha {
    std::uint32_t factor; // 16.16; the product wraps like that of signed numbers

    template <class Pixels> Pixels operator()(Pixels d, Pixels) const {
        const Pixels product = d.template ShiftedRight<24>() * Pixels::All(factor);
        return d.WithAlphaOf(product.template ShiftedLeft<8>());
    }
};

/// (s x (255 - da) + d x da) / 255 for each colour channel; the alpha stays.
struct BlendBehind {
    using Easy = WhereAlphasAreHard<128>;

    std::uint32_t color;

    // Written as 255 s + (d - s) x da: modulo 65536 that is the same sum, which never exceeds 255 x 255.
    template <class Pixels> Pixels operator()(Pixels d, Pixels) const {
        using Channels = typename Pixels::Channels;
        const Channels source = Channels::All(color);
        const Channels destination = d.Widened();
        const Channels sum = source * Channels::All16(255) + (destination - source) * d.Alphas();
        return Pixels::Narrowed(DividedBy255(sum)).WithAlphaOf(d);
    }

    // Pictures are opaque or empty nearly everywhere, and there blending is a choice.
    template <class Pixels> Pixels Easily(Pixels d, Pixels) const {
        return Select(Transparent(d), Pixels::All(color & kColorBits), d);
    }
};

/// BlendBehind where da is not 0; elsewhere the pixel stays.
struct BlendBehindVisible {
    using Easy = WhereAlphasAreHard<128>;

    BlendBehind blend;

    template <class Pixels> Pixels operator()(Pixels d, Pixels column) const {
        return Select(Transparent(d), d, blend(d, column));
    }

    template <class Pixels> Pixels Easily(Pixels d, Pixels) const { return d; }
};

/// BlendBehind, then SetAlpha.
struct BlendBehindAndSetAlpha {
    using Easy = WhereAlphasAreHard<128>;

    BlendBehind blend;
    SetAlpha set;

    template <class Pixels> Pixels operator()(Pixels d, Pixels column) const { return set(blend(d, column), column); }

    template <class Pixels> Pixels Easily(Pixels d, Pixels column) const {
        return set(blend.Easily(d, column), column);
    }
};

/// Alpha 255 for a pixel of alpha 0, unless it has the colour.
struct OpaqueUnlessColor {
    std::uint32_t color; // with alpha 0

    template <class Pixels> Pixels operator()(Pixels d, Pixels) const {
        return Select(d == Pixels::All(color), d, d | Pixels::All(kAlphaBits));
    }
};

/// Two lines that fall and rise by a pixel from row to row: the line's word on two columns of each cell, elsewhere the
/// ground's.
struct CrossLines {
    std::uint32_t firstColumn; // of the row within the pattern
    std::uint32_t cellMask;    // a column's place in its cell
    std::uint32_t falling;     // where the lines are in this row
    std::uint32_t rising;
    std::uint32_t line;
    std::uint32_t ground;

    template <class Pixels> Pixels operator()(Pixels, Pixels column) const {
        const Pixels place = (column + Pixels::All(firstColumn)) & Pixels::All(cellMask);
        const auto onLine = (place == Pixels::All(falling)) | (place == Pixels::All(rising));
        return Select(onLine, Pixels::All(line), Pixels::All(ground));
    }
};

} // namespace tn
