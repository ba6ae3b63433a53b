// Private: homogeneous positions in single precision and the pixels that they mean.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tn {

/// Positions before the division by w. Projecting them leaves their quotients in the place of x and y.
struct HomogeneousList {
    float* x;
    float* y;
    const float* w;
};

// Templates over the lanes that loops are compiled for, so that each level has functions of its own.

/// The quotient; -1, outside every surface, where it leaves 32 bits or is no number.
template <class Pixels> float CoordinateQuotient(float number, float by) {
    const float quotient = number / by;
    return quotient >= -2147483648.0F && quotient < 2147483648.0F ? quotient : -1.0F;
}

/// The nearest whole number, halves away from zero. The whole part of a float and what is left of it are exact, so this
/// is what adding a half and truncating is in double precision.
struct RoundedQuotient {
    template <class Pixels> static std::int32_t Of(float quotient) {
        const auto whole = static_cast<std::int32_t>(quotient);
        const float rest = quotient - static_cast<float>(whole);
        return whole + static_cast<std::int32_t>(rest * 2.0F); // a half or more counts as one
    }
};

/// The whole number towards zero.
struct TruncatedQuotient {
    template <class Pixels> static std::int32_t Of(float quotient) { return static_cast<std::int32_t>(quotient); }
};

} // namespace tn
