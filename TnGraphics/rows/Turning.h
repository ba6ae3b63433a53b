// Private: turning rows of a matte into columns and back, so that one filter serves both. Included by the level sources
// alone.
#pragma once

#include "TnGraphics/rows/ColumnFilters.h"
#include "TnGraphics/rows/Portability.h"

#include <cstddef>

namespace tn {

/// Value j of row i becomes value i of row j, one by one.
template <class Lanes>
void TurnValues(const MatteRows& from, const MatteRows& to, std::size_t rows, std::size_t length) {
    for (std::size_t row = 0; row < rows; ++row) {
        for (std::size_t column = 0; column < length; ++column) {
            to.first[column * to.rowBytes + row].value = from.first[row * from.rowBytes + column].value;
        }
    }
}

/// Calls turn with the first row and column of squares that together cover all, if there are such squares. The last
/// ones of a row may overlap those before them.
template <class Lanes, class Turn>
TN_ALWAYS_INLINE bool TurnSquares(std::size_t rows, std::size_t length, const Turn& turn) {
    using Square = typename Lanes::Square;
    if (rows % Square::kRows != 0 || length < Square::kSide) {
        return false;
    }
    for (std::size_t row = 0; row < rows; row += Square::kRows) {
        for (std::size_t column = 0; column < length; column += Square::kSide) {
            turn(row, column + Square::kSide <= length ? column : length - Square::kSide);
        }
    }
    return true;
}

template <class Lanes>
void TurnIntoColumns(const MatteRows& from, const MatteRows& to, std::size_t rows, std::size_t length) {
    const bool done = TurnSquares<Lanes>(rows, length, [&](std::size_t row, std::size_t column) {
        auto square = Lanes::Square::OfRows(from.first + row * from.rowBytes + column, from.rowBytes);
        square.Turn();
        square.StoreColumns(to.first + column * to.rowBytes + row, to.rowBytes);
    });
    if (!done) {
        TurnValues<Lanes>(from, to, rows, length);
    }
}

template <class Lanes>
void TurnIntoRows(const MatteRows& from, const MatteRows& to, std::size_t rows, std::size_t length) {
    const bool done = TurnSquares<Lanes>(rows, length, [&](std::size_t row, std::size_t column) {
        auto square = Lanes::Square::OfColumns(from.first + column * from.rowBytes + row, from.rowBytes);
        square.Turn();
        square.StoreRows(to.first + row * to.rowBytes + column, to.rowBytes);
    });
    if (!done) {
        TurnValues<Lanes>(from, to, length, rows);
    }
}

} // namespace tn
