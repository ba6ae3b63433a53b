#include "TnGraphics/ops/FarFilters.h"

#include "TnGraphics/rows/Portability.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace tn {
namespace {

/// A column of values, with nothing before and after it.
class Column {
public:
    Column(const MatteRows& rows, std::size_t column, std::size_t length)
        : first_(rows.first + column), rowBytes_(rows.rowBytes), length_(length) {}

    /// A value, or 0 beside the column; rows before it come as huge numbers.
    std::uint8_t ValueOrNone(std::size_t row) const { return row < length_ ? At(row) : std::uint8_t{0}; }
    std::uint8_t& At(std::size_t row) const { return first_[row * rowBytes_].value; }

private:
    TnMattePixel* first_;
    std::size_t rowBytes_;
    std::size_t length_;
};

/// \tparam Sum wide enough for a weighted sum
template <class Sum, bool keepsHalf>
void FilterColumn(const Column& from, const Column& to, const ColumnsToFilter& work) {
    const std::size_t after = work.radius + 1;
    const std::size_t reached = std::min(after, work.length);
    Sum values = 0;
    Sum sum = 0;
    for (std::size_t row = 0; row < reached; ++row) {
        values += from.At(row);
        sum += values;
    }
    sum += (after - reached) * values;
    Sum slope = values + from.ValueOrNone(after) - 2 * Sum{from.At(0)}; // to the next value's sum; it wraps below 0
    for (std::size_t row = 0; row < work.length; ++row) {
        const bool stays = keepsHalf && from.At(row) == 128;
        to.At(row) = stays ? std::uint8_t{128} : static_cast<std::uint8_t>(sum / TriangleWeight<void>(work, row));
        sum += slope;
        slope += Sum{from.ValueOrNone(row + 1 + after)} + from.ValueOrNone(row - work.radius);
        slope -= 2 * Sum{from.ValueOrNone(row + 1)};
    }
}

} // namespace

template <bool keepsHalf> void FilterByFarMeans(const ColumnsToFilter& work) {
    const std::uint64_t weightsAtMost = std::uint64_t{work.radius + 1} * std::min(work.length, work.radius + 1);
    const bool fits = weightsAtMost < std::uint64_t{1} << 56;
    const auto filter = fits ? &FilterColumn<std::uint64_t, keepsHalf> : &FilterColumn<Unsigned128, keepsHalf>;
    for (std::size_t column = 0; column < work.columns; ++column) {
        filter(Column(work.from, column, work.length), Column(work.to, column, work.length), work);
    }
}

template void FilterByFarMeans<false>(const ColumnsToFilter& work);
template void FilterByFarMeans<true>(const ColumnsToFilter& work);

void FilterByRuns(const ColumnsToFilter& work) {
    const std::size_t window = 2 * work.radius + 1;
    for (std::size_t column = 0; column < work.columns; ++column) {
        const Column from(work.from, column, work.length);
        const Column to(work.to, column, work.length);
        std::size_t run = 0;
        for (std::size_t row = 0; row < work.length; ++row) {
            run = from.ValueOrNone(row + work.radius) == 255 ? run + 1 : 0;
            to.At(row) = run > window ? 255 : 0;
        }
    }
}

} // namespace tn
