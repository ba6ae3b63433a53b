// What painting makes of one pixel, in whole numbers.
//
// A colour's parts, a coverage and a pixel's channels are 0 to 255.
#pragma once

#include "tests/models/CombinationModels.h"

#include <algorithm>
#include <cstdint>

namespace tn::test::model {

/// A quotient to the nearest whole number, halves up.
constexpr std::int64_t Nearest(std::int64_t numerator, std::int64_t denominator) {
    return (2 * numerator + denominator) / (2 * denominator);
}

/// Whether a value is a nearest whole number of a quotient; of two that are equally near, either is.
constexpr bool IsNearest(std::int64_t value, std::int64_t numerator, std::int64_t denominator) {
    const std::int64_t twiceTheError = 2 * (value * denominator - numerator);
    return -denominator <= twiceTheError && twiceTheError <= denominator;
}

/// How much of a paint of some alpha reaches a pixel that it covers in part.
constexpr int PaintAlpha(int alpha, int coverage) { return static_cast<int>(Nearest(alpha * coverage, 255)); }

/// A colour's value on a target of values. Its channels are bytes.
constexpr int GrayOf(int red, int green, int blue) { return (19595 * red + 38470 * green + 7471 * blue + 32768) >> 16; }

/// What a paint of some alpha and value makes of a value.
constexpr int PaintedValue(int under, int value, int paintAlpha) {
    return static_cast<int>(Nearest(255 * under + (value - under) * paintAlpha, 255));
}

/// Whether a channel of a pixel that is neither empty nor painted over entirely is what a paint makes of it.
constexpr bool IsMixed(int result, int paint, int paintAlpha, int under, int underAlpha) {
    const std::int64_t ofPaint = 255 * std::int64_t{paintAlpha};
    const std::int64_t ofUnder = std::int64_t{underAlpha} * (255 - paintAlpha);
    return IsNearest(result, paint * ofPaint + under * ofUnder, ofPaint + ofUnder);
}

/// Whether a pixel of straight alpha is what a paint makes of another.
///
/// \param paint its alpha is that of the colour times the coverage
inline bool IsPainted(const Channels& result, const Channels& paint, const Channels& under) {
    if (paint.alpha == 0) {
        return result == under;
    }
    if (paint.alpha == 255 || under.alpha == 0) {
        return result == paint;
    }
    return result.alpha == Nearest(255 * paint.alpha + under.alpha * (255 - paint.alpha), 255) &&
           IsMixed(result.red, paint.red, paint.alpha, under.red, under.alpha) &&
           IsMixed(result.green, paint.green, paint.alpha, under.green, under.alpha) &&
           IsMixed(result.blue, paint.blue, paint.alpha, under.blue, under.alpha);
}

/// Whether a paint sets the bits that it covers, or clears them; -1 where it leaves them.
constexpr int PaintedBit(int value, int alpha) { return alpha < 128 ? -1 : value >= 128 ? 1 : 0; }

} // namespace tn::test::model
