// Private: what happens to source pixels before an operator sees them.
#pragma once

#include "TnGraphics/rows/PixelAlphas.h"

#include <cstddef>
#include <cstdint>

namespace tn {

/// The settings of a preparation, as lanes take them.
struct Preparation {
    std::uint64_t scales = 0; ///< Of blue, green, red and alpha, 16 bits each, from the lowest up.
    std::uint64_t offsets = 0;
    std::uint32_t opacity = 255; ///< 0 to 255.
};

/// What of it is to be done. Chosen once for an operation: each choice has kernels of its own.
enum class PreparationSteps { kNone, kMatrix, kOpacity, kMatrixAndOpacity };

inline constexpr std::size_t kPreparationSteps = 4;

// The steps hold what they need in lanes, spread once for a row.

/// Nothing.
template <class Pixels> struct AsItIs {
    explicit AsItIs(const Preparation&) {}

    Pixels operator()(Pixels s) const { return s; }
};

/// Every channel goes through the colour matrix.
template <class Pixels> struct ByMatrix {
    typename Pixels::Channels scales;
    typename Pixels::Channels offsets;

    explicit ByMatrix(const Preparation& preparation)
        : scales(Pixels::Channels::Repeated(preparation.scales)),
          offsets(Pixels::Channels::Repeated(preparation.offsets)) {}

    Pixels operator()(Pixels s) const { return Rescaled(s, scales, offsets); }
};

/// sa x opacity / 255.
template <class Pixels> struct ByOpacity {
    typename Pixels::Opacity opacity;

    explicit ByOpacity(const Preparation& preparation) : opacity(preparation.opacity) {}

    Pixels operator()(Pixels s) const { return Faded(s, opacity); }
};

/// The colour matrix, then the opacity.
template <class Pixels> struct ByMatrixAndOpacity {
    ByMatrix<Pixels> matrix;
    ByOpacity<Pixels> opacity;

    explicit ByMatrixAndOpacity(const Preparation& preparation) : matrix(preparation), opacity(preparation) {}

    Pixels operator()(Pixels s) const { return opacity(matrix(s)); }
};

} // namespace tn
