// Private: how a prepared source pixel and a destination pixel become the new destination pixel.
//
// An operator is a pure function of the two, written once over a lane type like those of rows/FillOperators.h, and has
// no settings of its own. In comments s and d are a colour channel, sa and da the alphas. A new operator is a functor
// here, a line in RowKernels.h and its entry points in ops/.
//
// An operator may know an easy way for lanes in which it has nothing to compute: Easy says for which sources, and how
// far the row is done on the hard way before another look; Easily gives what operator() would.
#pragma once

#include "TnGraphics/rows/PixelAlphas.h"

#include <cstdint>

namespace tn {

/// What the pixels contribute to a mixture of both, as numbers.
template <class Pixels> struct Shares {
    Pixels common; ///< sa x da / 255
    Pixels kept;   ///< w = da - common, the destination's share
    Pixels total;  ///< n = w + sa, at most 255

    Shares(Pixels s, Pixels d)
        : common(DividedBy255(ShortProducts(AlphaNumbers(s), AlphaNumbers(d)))), kept(AlphaNumbers(d) - common),
          total(kept + AlphaNumbers(s)) {}

    /// Where there is nothing to mix.
    auto AreNone() const { return total == Pixels::All(0); }
};

/// (s x sa + d x w) / n for each colour channel; 0 where n is 0.
template <class Pixels> Pixels Mixture(Pixels s, Pixels d, const Shares<Pixels>& shares) {
    const auto sum = s.Widened() * s.Alphas() + d.Widened() * shares.kept.Spread();
    return Pixels::Narrowed(Divided(sum, MaxBytes(shares.total, Pixels::All(1))));
}

/// (s x sa + d x (255 - sa)) / 255, and sa + da - da x sa / 255.
struct Blend {
    using Easy = WhereAlphasAreHard<128>;

    // The new alpha is what a source of 255 instead of sa would make of it, rounded up instead of down. No case needs
    // to be told apart.
    template <class Pixels> Pixels operator()(Pixels s, Pixels d) const {
        using Channels = typename Pixels::Channels;
        const Channels sum = Crossfade(d, s | Pixels::All(kAlphaBits), s);
        return Pixels::Narrowed(DividedBy255(sum + Channels::AlphaOnly(254)));
    }

    template <class Pixels> Pixels Easily(Pixels s, Pixels d) const { return Select(Transparent(s), d, s); }
};

/// The mixture, and n; the pixel stays where n is 0. A transparent source or destination needs no case of its own.
struct PreBlend {
    using Easy = WhereAlphasAreHard<16>;

    template <class Pixels> Pixels operator()(Pixels s, Pixels d) const {
        const Shares<Pixels> shares(s, d);
        return Select(shares.AreNone(), d, Mixture(s, d, shares).WithAlphaOf(AlphaPixels(shares.total)));
    }

    template <class Pixels> Pixels Easily(Pixels s, Pixels d) const { return Select(Transparent(s), d, s); }
};

/// The mixture where da is not 0, and the smaller of sa and da.
struct Intersect {
    using Easy = WhereAlphasAreHard<16>;

    template <class Pixels> Pixels operator()(Pixels s, Pixels d) const {
        const Pixels mixture = Mixture(s, d, Shares<Pixels>(s, d));
        return Select(Transparent(d), d, mixture).WithAlphaOf(MinBytes(s, d));
    }

    template <class Pixels> Pixels Easily(Pixels s, Pixels d) const {
        return Select(Transparent(s) | Transparent(d), d, s).WithAlphaOf(MinBytes(s, d));
    }
};

/// The smaller of sa and da.
struct IntersectNoColor {
    template <class Pixels> Pixels operator()(Pixels s, Pixels d) const { return d.WithAlphaOf(MinBytes(s, d)); }
};

/// da - da x sa / 255.
struct Subtract {
    template <class Pixels> Pixels operator()(Pixels s, Pixels d) const {
        return d - AlphaPixels(Shares<Pixels>(s, d).common);
    }
};

/// The mixture, and max(sa, da) - sa x da / 255, which is not what taking each out of the other would give; the pixel
/// stays where n is 0.
struct ExclusiveOr {
    using Easy = WhereAlphasAreHard<16>;

    template <class Pixels> Pixels operator()(Pixels s, Pixels d) const {
        const Shares<Pixels> shares(s, d);
        const Pixels alphas = MaxBytes(s, d) - AlphaPixels(shares.common);
        return Select(shares.AreNone(), d, Mixture(s, d, shares).WithAlphaOf(alphas));
    }

    template <class Pixels> Pixels Easily(Pixels s, Pixels d) const {
        return Select(Transparent(s), d, s - (d & Pixels::All(kAlphaBits)));
    }
};

} // namespace tn
