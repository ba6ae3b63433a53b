// Private: squares of a matte's values in registers, to be turned.
#pragma once

#include "TnGraphics/rows/lanes/MatteLanes.h"

#include <cstddef>
#include <cstdint>

namespace tn {

/// 16 columns of 16 rows, or of twice as many in registers twice as long.
template <class Set> struct MatteLanes<Set>::Square {
    static constexpr std::size_t kSide = 16;
    static constexpr std::size_t kRows = kCount;

    typename Set::Register lines[kSide];

    /// A line of which holds 16 values of a row and of the row 16 below.
    static Square OfRows(const TnMattePixel* from, std::size_t rowBytes) {
        Square square;
        for (std::size_t i = 0; i < kSide; ++i) {
            square.lines[i] = Set::LoadRows(from + i * rowBytes, rowBytes * kSide);
        }
        return square;
    }
    void StoreRows(TnMattePixel* to, std::size_t rowBytes) const {
        for (std::size_t i = 0; i < kSide; ++i) {
            Set::StoreRows(to + i * rowBytes, rowBytes * kSide, lines[i]);
        }
    }

    /// A line of which holds a column; columns stand side by side, each in a row.
    static Square OfColumns(const TnMattePixel* from, std::size_t columnBytes) {
        Square square;
        for (std::size_t i = 0; i < kSide; ++i) {
            square.lines[i] = Set::Load(from + i * columnBytes);
        }
        return square;
    }
    void StoreColumns(TnMattePixel* to, std::size_t columnBytes) const {
        for (std::size_t i = 0; i < kSide; ++i) {
            Set::Store(to + i * columnBytes, lines[i]);
        }
    }

    /// Rows become columns and columns rows. Each round puts the values of lines i and i + 8 by turns into two lines,
    /// which moves the uppermost bit of a value's line number to the lowest of its column's, and so on around.
    void Turn() {
        constexpr int kRounds = 4;
        for (int round = 0; round < kRounds; ++round) {
            Square mixed;
            for (std::size_t i = 0; i < kSide / 2; ++i) {
                mixed.lines[2 * i] = Set::InterleaveLow8(lines[i], lines[i + kSide / 2]);
                mixed.lines[2 * i + 1] = Set::InterleaveHigh8(lines[i], lines[i + kSide / 2]);
            }
            *this = mixed;
        }
    }
};

} // namespace tn
