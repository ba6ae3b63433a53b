// Private: the loop of every row kernel, and the table of a level's kernels. Included by the level sources alone.
#pragma once

#include "TnGraphics/rows/RowKernels.h"

#include <concepts>
#include <cstddef>
#include <cstdint>

namespace tn {

/// The operator knows an easy way; see rows/FillOperators.h.
template <class Operator, class Pixels>
concept HasEasyWay = requires(const Operator& op, Pixels pixels) {
    { Operator::IsEasy(pixels) } -> std::same_as<bool>;
    op.Easily(pixels, pixels);
};

/// How far the operator goes on the hard way before it looks again whether the easy one will do.
inline constexpr std::size_t kPixelsBetweenLooks = 64;

template <class Pixels> Pixels ColumnsFrom(std::size_t column) {
    return Pixels::Counting(static_cast<std::uint32_t>(column));
}

/// Runs the operator over full lanes.
template <class Pixels, class Operator>
void RunOnLanes(TnImagePixel* row, std::size_t column, std::size_t end, const Operator& op) {
    for (; column < end; column += Pixels::kCount) {
        op(Pixels::Load(row + column), ColumnsFrom<Pixels>(column)).Store(row + column);
    }
}

/// Runs the operator over full lanes as long as they are easy; returns where it stopped.
template <class Pixels, class Operator>
std::size_t RunWhileEasy(TnImagePixel* row, std::size_t column, std::size_t end, const Operator& op) {
    for (; column < end; column += Pixels::kCount) {
        const Pixels pixels = Pixels::Load(row + column);
        if (!Operator::IsEasy(pixels)) {
            break;
        }
        op.Easily(pixels, ColumnsFrom<Pixels>(column)).Store(row + column);
    }
    return column;
}

/// Runs the operator over the row, a full lane at a time; the rest of the row goes through a lane of which only the
/// first pixels are read and written.
template <class Pixels, class Operator>
void RunOnRow(TnImagePixel* row, std::size_t length, const Operator& theOperator) {
    const Operator op = theOperator; // a copy, which the stores cannot touch, so its fields stay in registers
    const std::size_t rest = length % Pixels::kCount;
    const std::size_t end = length - rest;
    if constexpr (HasEasyWay<Operator, Pixels>) {
        for (std::size_t column = 0; column < end;) {
            column = RunWhileEasy<Pixels>(row, column, end, op);
            const std::size_t look = end - column < kPixelsBetweenLooks ? end : column + kPixelsBetweenLooks;
            RunOnLanes<Pixels>(row, column, look, op);
            column = look;
        }
    } else {
        RunOnLanes<Pixels>(row, 0, end, op);
    }
    if (rest > 0) {
        op(Pixels::LoadFirst(row + end, rest), ColumnsFrom<Pixels>(end)).StoreFirst(row + end, rest);
    }
}

template <class Pixels, class Table> struct LevelKernels;

/// The kernels of every operator in the table over one lane type.
template <class Pixels, class... Operators> struct LevelKernels<Pixels, KernelTable<Operators...>> {
    static constexpr KernelTable<Operators...> kTable = {{&RunOnRow<Pixels, Operators>}...};
};

} // namespace tn
