// Private: colour components as bytes.
#pragma once

#include <cstdint>

namespace tn::huex {

/// The nearest value of 0..1; 0 for what is no number.
double Cut(float component);

/// A component of 0..1 as a byte: trunc(255 v + 0.5).
std::uint8_t ByteOf(double component);

/// The gray value of red, green and blue of 0..1.
double GrayOf(double red, double green, double blue);

} // namespace tn::huex
