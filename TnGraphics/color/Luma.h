// Private: the weights of luma.
#pragma once

#include <cstdint>

namespace tn {

/// What red, green and blue contribute to luma by ITU-R BT.601, in thousandths.
inline constexpr std::int32_t kLumaOfRed = 299;
inline constexpr std::int32_t kLumaOfGreen = 587;
inline constexpr std::int32_t kLumaOfBlue = 114;

} // namespace tn
