// Private: the coverage of cells of four by four pixels of a mask. Included by the level sources alone.
#pragma once

#include "TnGraphics/port/TnMattePixel.h"
#include "TnGraphics/rows/Portability.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tn {

/// Rows of a mask's bytes that cells are made of. Each byte has a part of two cells, the left one in its upper half.
inline constexpr std::size_t kRowsOfCell = 4;

/// The cells of a lane of mask bytes. Lanes hold bytes as the values of mattes.
template <class Lanes> class CellLane {
public:
    /// \param load gives the bytes of a row
    template <class Load> TN_ALWAYS_INLINE explicit CellLane(const Load& load) {
        const Lanes upper = HalvesOf(load(0)) + HalvesOf(load(1)); // at most 8 in each half
        const Lanes lower = HalvesOf(load(2)) + HalvesOf(load(3));
        const Lanes half = Each(0x0F);
        left_ = CoverageOf(upper.template BytesShiftedRight<4>() + lower.template BytesShiftedRight<4>());
        right_ = CoverageOf((upper & half) + (lower & half));
    }

    TN_ALWAYS_INLINE void Store(TnMattePixel* to) const { Lanes::StoreInTurns(to, left_, right_); }

private:
    static Lanes Each(std::uint32_t byte) { return Lanes::All(byte << 24); }

    /// The number of bits that are set, in each half of each byte.
    static Lanes HalvesOf(Lanes bits) {
        const Lanes pairs = bits - (bits.template BytesShiftedRight<1>() & Each(0x55));
        return (pairs & Each(0x33)) + (pairs.template BytesShiftedRight<2>() & Each(0x33));
    }

    /// 16 times the number of pixels that are set, less one above the middle and less two for five of them; fewer than
    /// four count as none.
    static Lanes CoverageOf(Lanes setPixels) {
        const Lanes twice = setPixels + setPixels;
        const Lanes fourfold = twice + twice;
        const Lanes eightfold = fourfold + fourfold;
        const Lanes isFive = MoreThan(setPixels, 4) ^ MoreThan(setPixels, 5);
        const Lanes less = (MoreThan(setPixels, 8) & Each(1)) + (isFive & Each(2));
        return (eightfold + eightfold - less) & MoreThan(setPixels, 3);
    }

    Lanes left_;
    Lanes right_;
};

/// The coverage of the two cells of each byte.
template <class Lanes>
void CoverCells(const std::uint8_t* mask, std::size_t rowBytes, TnMattePixel* coverage, std::size_t bytes) {
    const auto* const rows = reinterpret_cast<const TnMattePixel*>(mask);
    const std::size_t rest = bytes % Lanes::kCount;
    const std::size_t end = bytes - rest;
    for (std::size_t byte = 0; byte < end; byte += Lanes::kCount) {
        const auto load = [&](std::size_t row) { return Lanes::Load(rows + row * rowBytes + byte); };
        CellLane<Lanes>(load).Store(coverage + 2 * byte);
    }
    if (rest > 0) {
        const auto load = [&](std::size_t row) { return Lanes::LoadFirst(rows + row * rowBytes + end, rest); };
        std::uint8_t values[2 * Lanes::kCount];
        CellLane<Lanes>(load).Store(reinterpret_cast<TnMattePixel*>(values));
        std::memcpy(static_cast<void*>(coverage + 2 * end), values, 2 * rest);
    }
}

} // namespace tn
