// Private: searching rows for pixels that a predicate seeks; see rows/SearchPredicates.h. Included by the level sources
// alone.
#pragma once

#include "TnGraphics/rows/Portability.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace tn {

/// Which of the pixels of a lane have a bit set.
template <class Pixel, class Pixels> class PixelsWithBits {
public:
    explicit PixelsWithBits(Pixels found) { found.Store(reinterpret_cast<Pixel*>(bytes_)); }

    /// The index of the first of count pixels, or count.
    std::size_t First(std::size_t count) const {
        std::size_t index = 0;
        while (index < count && !Has(index)) {
            ++index;
        }
        return index;
    }

    /// The index of the last of count pixels, or count.
    std::size_t Last(std::size_t count) const {
        for (std::size_t index = count; index > 0; --index) {
            if (Has(index - 1)) {
                return index - 1;
            }
        }
        return count;
    }

private:
    bool Has(std::size_t index) const { return reinterpret_cast<const Pixel*>(bytes_)[index].value != 0; }

    alignas(Pixel) std::uint8_t bytes_[Pixels::kCount * sizeof(Pixel)];
};

template <class Pixel, class Pixels> std::size_t FirstWithBits(Pixels found, std::size_t count) {
    return PixelsWithBits<Pixel, Pixels>(found).First(count);
}

template <class Pixel, class Pixels> std::size_t LastWithBits(Pixels found, std::size_t count) {
    return PixelsWithBits<Pixel, Pixels>(found).Last(count);
}

/// True when the predicate seeks any pixel of four lanes.
template <class Pixels, class Predicate, class Pixel> bool FourHaveBits(const Pixel* row, const Predicate& isSought) {
    const auto lane = [&](std::size_t n) { return isSought(Pixels::Load(row + n * Pixels::kCount)); };
    return ((lane(0) | lane(1)) | (lane(2) | lane(3))).HasBits();
}

template <class Pixels, class Predicate, class Pixel>
std::size_t FindFirst(const Pixel* row, std::size_t length, const Predicate& predicate) {
    using Narrower = typename Pixels::Narrower;
    const Predicate isSought = predicate;
    const std::size_t rest = length % Pixels::kCount;
    const std::size_t end = length - rest;
    std::size_t column = 0;
    while (column + 4 * Pixels::kCount <= end && !FourHaveBits<Pixels>(row + column, isSought)) {
        column += 4 * Pixels::kCount;
    }
    for (; column < end; column += Pixels::kCount) {
        const Pixels found = isSought(Pixels::Load(row + column));
        if (found.HasBits()) {
            return column + FirstWithBits<Pixel>(found, Pixels::kCount);
        }
    }
    if (rest == 0) {
        return length;
    }
    if constexpr (std::is_void_v<Narrower>) {
        return end + FirstWithBits<Pixel>(isSought(Pixels::LoadFirst(row + end, rest)), rest);
    } else {
        return end + FindFirst<Narrower>(row + end, rest, isSought);
    }
}

/// True when the predicate seeks any pixel of a row; its last lane may overlap the one before it.
template <class Pixels, class Predicate, class Pixel>
TN_ALWAYS_INLINE bool HasAny(const Pixel* row, std::size_t length, const Predicate& isSought) {
    if (length < Pixels::kCount) {
        return FindFirst<Pixels>(row, length, isSought) < length;
    }
    for (std::size_t column = 0; column + Pixels::kCount < length; column += Pixels::kCount) {
        if (isSought(Pixels::Load(row + column)).HasBits()) {
            return true;
        }
    }
    return isSought(Pixels::Load(row + length - Pixels::kCount)).HasBits();
}

template <class Pixels, class Predicate, class Pixel>
std::size_t FindRow(const Pixel* first, std::size_t rowBytes, std::size_t rows, std::size_t length,
                    const Predicate& predicate) {
    if constexpr (!std::is_void_v<typename Pixels::Narrower>) {
        if (length < Pixels::kCount) {
            return FindRow<typename Pixels::Narrower>(first, rowBytes, rows, length, predicate);
        }
    }
    constexpr std::size_t kRowsAhead = 16; // rows are too far apart for the processor to see them coming
    const Predicate isSought = predicate;
    const auto start = reinterpret_cast<std::uintptr_t>(first);
    std::size_t row = 0;
    for (; row < rows; ++row) {
        PrefetchRead(start + (row + kRowsAhead) * rowBytes);
        if (HasAny<Pixels>(reinterpret_cast<const Pixel*>(start + row * rowBytes), length, isSought)) {
            break;
        }
    }
    return row;
}

template <class Pixels, class Predicate, class Pixel>
std::size_t FindLast(const Pixel* row, std::size_t length, const Predicate& predicate) {
    using Narrower = typename Pixels::Narrower;
    const Predicate isSought = predicate;
    const std::size_t rest = length % Pixels::kCount;
    const std::size_t end = length - rest;
    if (rest > 0) {
        std::size_t last = rest;
        if constexpr (std::is_void_v<Narrower>) {
            last = LastWithBits<Pixel>(isSought(Pixels::LoadFirst(row + end, rest)), rest);
        } else {
            last = FindLast<Narrower>(row + end, rest, isSought);
        }
        if (last < rest) {
            return end + last;
        }
    }
    for (std::size_t column = end; column > 0; column -= Pixels::kCount) {
        const std::size_t start = column - Pixels::kCount;
        const Pixels found = isSought(Pixels::Load(row + start));
        if (found.HasBits()) {
            return start + LastWithBits<Pixel>(found, Pixels::kCount);
        }
    }
    return length;
}

} // namespace tn
