// Private: what copies take from a source pixel; see rows/CompositingOperators.h for what operators are. A matte's
// pixel is an alpha over no colour, so that one operator serves images and mattes.
#pragma once

#include "TnGraphics/color/Luma.h"
#include "TnGraphics/rows/PixelAlphas.h"

#include <cstdint>

namespace tn {

/// The source pixel.
struct CopyPixel {
    template <class Pixels> Pixels operator()(Pixels s, Pixels) const { return s; }
};

/// The source's colour.
struct CopyColor {
    template <class Pixels> Pixels operator()(Pixels s, Pixels d) const { return s.WithAlphaOf(d); }
};

/// The source's colour over no alpha.
struct CopyColorClearAlpha {
    template <class Pixels> Pixels operator()(Pixels s, Pixels) const { return s & Pixels::All(~kAlphaBits); }
};

/// (d x (255 - da) + s x da) / 255 for each colour channel; the alpha stays.
struct PaintThroughAlpha {
    using Easy = WhereDestinationAlphasAreHard<128>;

    template <class Pixels> Pixels operator()(Pixels s, Pixels d) const {
        return Pixels::Narrowed(DividedBy255(Crossfade(d, s, d))).WithAlphaOf(d);
    }

    template <class Pixels> Pixels Easily(Pixels s, Pixels d) const {
        return Select(Transparent(d), d, s.WithAlphaOf(d));
    }
};

/// The source's alpha.
struct CopyAlpha {
    template <class Pixels> Pixels operator()(Pixels s, Pixels d) const { return d.WithAlphaOf(s); }
};

/// 255 less the luma of the source, as alpha.
struct CopyLumaToAlpha {
    // The sum of thousandths is at most 255000. A quotient by 1000 is one of an eighth by 125, which fits 16 bits:
    // y x 33555 >> 22 is exact there.
    template <class Pixels> Pixels operator()(Pixels s, Pixels d) const {
        constexpr std::uint32_t kEveryOtherByte = 0x00FF00FF;
        const Pixels blueAndRed = s & Pixels::All(kEveryOtherByte);
        const Pixels greenAndAlpha = s.template ShiftedRight<8>() & Pixels::All(kEveryOtherByte);
        const Pixels thousandths = PairSums(blueAndRed, Pixels::All(kLumaOfRed << 16 | kLumaOfBlue)) +
                                   PairSums(greenAndAlpha, Pixels::All(kLumaOfGreen));
        const Pixels luma =
            UpperProducts(thousandths.template ShiftedRight<3>(), Pixels::All(33555)).template ShiftedRight<6>();
        return d.WithAlphaOf(Pixels::All(kAlphaBits) - AlphaPixels(luma));
    }
};

/// 255 less the source's alpha, in every colour channel.
struct CopyAlphaToColor {
    template <class Pixels> Pixels operator()(Pixels s, Pixels d) const {
        const Pixels inverse = Pixels::All(255) - AlphaNumbers(s);
        return (inverse | inverse.template ShiftedLeft<8>() | inverse.template ShiftedLeft<16>()).WithAlphaOf(d);
    }
};

} // namespace tn
