// Private: how floating-point values become integers.
#pragma once

#include <cstdint>

namespace tn {

/// The low 32 bits of the value truncated towards zero; 0 for NaN and for what does not fit 64 bits.
constexpr std::int32_t TruncateToInt32(double value) {
    constexpr double kTwoToThe63 = 9223372036854775808.0;
    if (!(value >= -kTwoToThe63 && value < kTwoToThe63)) {
        return 0;
    }
    return static_cast<std::int32_t>(static_cast<std::int64_t>(value));
}

/// The nearest integer, halves away from zero, by the rules of TruncateToInt32 where it leaves 32 bits.
constexpr std::int32_t RoundToInt32(double value) { return TruncateToInt32(value >= 0.0 ? value + 0.5 : value - 0.5); }

/// True for a value whose integer part fits 32 bits; false for NaN and infinities too.
constexpr bool FitsInt32(double value) { return value > -2147483649.0 && value < 2147483648.0; }

} // namespace tn
