// Private: the coverage of cells of four by four pixels of a mask. Included by the level sources alone.
#pragma once

#include "TnGraphics/port/TnMattePixel.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tn {

/// Rows of a mask's bytes that cells are made of. Each byte has a part of two cells, the left one in its upper half.
inline constexpr std::size_t kRowsOfCell = 4;

/// 16 times the number of pixels that are set, less one above the middle and less two for five of them; fewer than four
/// count as none.
template <class Pixels> std::uint8_t CoverageOf(std::uint8_t setPixels) {
    const int lessOne = setPixels > 8 ? 1 : 0;
    const int lessTwo = setPixels == 5 ? 2 : 0;
    return static_cast<std::uint8_t>(setPixels < 4 ? 0 : 16 * setPixels - lessOne - lessTwo);
}

/// Counts and covers cells of some bytes at a time, in plain loops that compilers turn into the level's instructions as
/// long as each does one thing.
template <class Pixels> class CellStretch {
public:
    static constexpr std::size_t kBytes = 64;

    /// \param count at most kBytes
    void Count(const std::uint8_t* mask, std::size_t rowBytes, std::size_t count) {
        std::memset(left_, 0, kBytes);
        std::memset(right_, 0, kBytes);
        for (std::size_t row = 0; row < kRowsOfCell; ++row) {
            std::memcpy(bits_, mask + row * rowBytes, count);
            for (std::size_t i = 0; i < kBytes; ++i) {
                const std::uint8_t pairs = Byte(bits_[i] - (bits_[i] >> 1 & 0x55));
                const std::uint8_t halves = Byte((pairs & 0x33) + (pairs >> 2 & 0x33));
                left_[i] = Byte(left_[i] + (halves >> 4));
                right_[i] = Byte(right_[i] + (halves & 0x0F));
            }
        }
    }

    void Cover(TnMattePixel* coverage, std::size_t count) {
        for (std::size_t i = 0; i < kBytes; ++i) {
            left_[i] = CoverageOf<Pixels>(left_[i]);
        }
        for (std::size_t i = 0; i < kBytes; ++i) {
            right_[i] = CoverageOf<Pixels>(right_[i]);
        }
        for (std::size_t i = 0; i < count; ++i) {
            coverage[2 * i].value = left_[i];
            coverage[2 * i + 1].value = right_[i];
        }
    }

private:
    static std::uint8_t Byte(int value) { return static_cast<std::uint8_t>(value); }

    std::uint8_t bits_[kBytes];
    std::uint8_t left_[kBytes];
    std::uint8_t right_[kBytes];
};

/// The coverage of the two cells of each byte.
template <class Pixels>
void CoverCells(const std::uint8_t* mask, std::size_t rowBytes, TnMattePixel* coverage, std::size_t bytes) {
    CellStretch<Pixels> stretch;
    for (std::size_t done = 0; done < bytes; done += stretch.kBytes) {
        const std::size_t count = bytes - done < stretch.kBytes ? bytes - done : stretch.kBytes;
        stretch.Count(mask + done, rowBytes, count);
        stretch.Cover(coverage + 2 * done, count);
    }
}

} // namespace tn
