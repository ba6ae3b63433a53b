// Private: how results of colour arithmetic become bytes.
#pragma once

#include <algorithm>
#include <cstdint>

namespace tn {

/// The value, stopped at 0 and 255.
constexpr std::uint8_t ClampToByte(std::int32_t value) { return static_cast<std::uint8_t>(std::clamp(value, 0, 255)); }

} // namespace tn
