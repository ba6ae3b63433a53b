// Comparing with a model over all values of three bytes.
#pragma once

#include "tests/models/ColorModels.h"
#include "tests/support/Cases.h"

#include "TnGraphics/port/TnColor.h"

#include <cstdint>
#include <gtest/gtest.h>

namespace tn::test {

using model::Triple;

/// 1 where there is time for every value, in optimised builds and in long runs; the stride elsewhere.
inline int StrideInHaste(int stride) { return HasTimeForEveryValue() ? 1 : stride; }

/// The triple's channels as a colour.
inline TnColor ColorOf(const Triple& rgb, std::uint8_t alpha = 0) {
    const auto [red, green, blue] = rgb;
    return {alpha, static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green), static_cast<std::uint8_t>(blue)};
}

/// Red, green and blue of a colour.
inline Triple TripleOf(const TnColor& color) { return {color.red, color.green, color.blue}; }

/// Expects that two functions of a triple give the same, up to the first triple for which they do not.
template <class Expected, class Actual> void ExpectAlikeForEveryTriple(const Expected& expected, const Actual& actual) {
    const int last = 0xFFFFFF;
    const int stride = StrideInHaste(35); // divides the last number, so that both ends occur
    for (int number = 0; number <= last; number += stride) {
        const Triple triple = {number >> 16, number >> 8 & 255, number & 255};
        const auto wanted = expected(triple);
        const auto given = actual(triple);
        if (!(wanted == given)) {
            FAIL() << ::testing::PrintToString(triple) << " becomes " << ::testing::PrintToString(given) << " and not "
                   << ::testing::PrintToString(wanted);
        }
    }
}

} // namespace tn::test
