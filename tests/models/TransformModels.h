// The mapping of points by a matrix, each step in wider numbers and then brought to those of the interface.
#pragma once

#include <array>
#include <cstdint>

namespace tn::test::model {

/// Elements of a matrix row by row.
using Elements = std::array<double, 9>;

template <class Number> struct Pair {
    Number x;
    Number y;
};

/// In single precision. NaN and infinite values come out as such.
Pair<double> MappedInSingle(const Pair<double>& point, const Elements& elements);

/// In single precision, rounded. What does not fit 64 bits gives 0, the rest keeps its low 32 bits.
Pair<std::int32_t> MappedAndRounded(const Pair<std::int32_t>& point, const Elements& elements);

/// In 65536ths.
Pair<std::int32_t> MappedInFixed(const Pair<std::int32_t>& point, const Elements& elements);

} // namespace tn::test::model
