// Reads of a surface by position, on coordinates and in wide numbers.
#pragma once

#include "tests/models/CombinationModels.h"

#include "TnGraphics/geometry/TnFloat.h"
#include "TnGraphics/geometry/TnPoint.h"

#include <cstdint>
#include <vector>

namespace tn::test::model {

/// All that reads of a surface depend on: every byte of its storage block, and how positions lead there.
struct ReadSurface {
    std::vector<std::uint8_t> block;
    std::int64_t rowBytes = 0;
    std::int64_t corner = 0; ///< The byte at which position (0, 0) lies.
    int pixelBytes = 4;      ///< 4 for an image, 1 for a matte.
    TnPoint size;            ///< Positions beyond it are outside, and those that leave the block.
    TnPoint contentSize;
    Channels outside; ///< A matte's value is the alpha, here and in all results.
    bool disregardsAlpha = false;

    bool Has(std::int64_t x, std::int64_t y) const;
    Channels At(std::int64_t x, std::int64_t y) const; ///< Within the block.
};

/// The value of an integer's low 32 bits, the highest of them counted as negative.
std::int32_t LowWord(std::int64_t value);

/// An integer divided and rounded down, and what remains.
std::int64_t FloorQuotient(std::int64_t value, std::int64_t divisor);
std::int64_t FloorRemainder(std::int64_t value, std::int64_t divisor);

Channels GetAt(const ReadSurface& surface, std::int64_t x, std::int64_t y);

/// Between the pixels, at a position in 65536ths.
Channels GetBetween(const ReadSurface& surface, std::int32_t x, std::int32_t y);

/// Between the pixels of a matte.
Channels GetBetweenAtFloat(const ReadSurface& matte, float x, float y);

/// True for a rectangle that has a mean.
bool IsArea(const TnFloatRect& rect);

/// True when the surface has every pixel that is read for the rectangle's mean.
bool HasArea(const ReadSurface& surface, const TnFloatRect& rect);

/// The mean of a rectangle; it must be one that the surface has, or none at all.
Channels GetArea(const ReadSurface& surface, const TnFloatRect& rect);

/// The weighted sum over a block of an image's pixels, which it must have.
Channels GetKernel(const ReadSurface& image, std::int64_t x, std::int64_t y, const std::vector<std::int32_t>& kx,
                   const std::vector<std::int32_t>& ky);

} // namespace tn::test::model
