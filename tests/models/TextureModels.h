// Tiling and down-sampling, pixel by pixel.
#pragma once

#include "tests/models/ModelPicture.h"
#include "tests/models/RectModels.h"

#include <cstdint>
#include <vector>

namespace tn::test::model {

/// A word that wraps into signed 32 bits.
inline std::int64_t Wrapped32(std::int64_t value) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

/// The index from 0 on of a position in a pattern that is repeated in both directions.
inline int IndexInPeriod(std::int64_t position, int period) {
    const auto remainder = static_cast<int>(position % period);
    return remainder < 0 ? remainder + period : remainder;
}

/// Calls change with each pixel of the area and the texture's pixel that falls there. The walk begins with the texture
/// pixel of the area's corner, wherever the area is cut.
template <class Change>
void ForEachTiled(const ModelImage& texture, ModelImage& picture, const TnPoint& origin, const TnRect& area,
                  const Change& change) {
    if (texture.Width() == 0 || texture.Height() == 0) {
        return;
    }
    const TnRect walked = SharedRect({0, 0, picture.Width(), picture.Height()}, area);
    const int column = IndexInPeriod(Wrapped32(std::int64_t{area.left} - origin.x), texture.Width());
    const int row = IndexInPeriod(Wrapped32(std::int64_t{area.top} - origin.y), texture.Height());
    for (int y = 0; y < walked.height; ++y) {
        for (int x = 0; x < walked.width; ++x) {
            std::uint32_t& pixel = picture.At(walked.left + x, walked.top + y);
            pixel = change(pixel, texture.At((column + x) % texture.Width(), (row + y) % texture.Height()));
        }
    }
}

inline std::uint32_t WithColorOf(std::uint32_t pixel, std::uint32_t other) {
    return (pixel & 0xFF000000) | (other & 0x00FFFFFF);
}

inline std::uint32_t PaintedThroughAlpha(std::uint32_t pixel, std::uint32_t texture) {
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 0) {
        return pixel;
    }
    if (alpha == 255) {
        return WithColorOf(pixel, texture);
    }
    std::uint32_t result = alpha << 24;
    for (int shift = 0; shift < 24; shift += 8) {
        const std::uint32_t d = pixel >> shift & 255;
        const std::uint32_t t = texture >> shift & 255;
        result |= (d * (255 - alpha) + t * alpha) / 255 << shift;
    }
    return result;
}

/// A mask as truth values, row after row.
struct ModelMask {
    TnPoint size;
    std::vector<bool> bits;

    bool At(int x, int y) const {
        return bits[static_cast<std::size_t>(y) * static_cast<std::size_t>(size.x) + static_cast<std::size_t>(x)];
    }
};

inline int CoverageOf(int setPixels) {
    switch (setPixels) {
    case 4:
        return 64;
    case 5:
        return 78;
    case 16:
        return 255;
    default:
        break;
    }
    // From six on the values rise by 16 from one below a multiple of 16, but the first three stand on one.
    constexpr int kOthers[] = {96, 112, 128, 143, 159, 175, 191, 207, 223, 239};
    return setPixels < 4 ? 0 : kOthers[setPixels - 6];
}

/// Calls store with each position in a picture where a cell of the mask lands, and the cell's coverage.
template <class Store>
void ForEachCovered(const ModelMask& mask, const TnPoint& pictureSize, const TnPoint& at, const Store& store) {
    for (int cellY = 0; cellY < mask.size.y / 4; ++cellY) {
        for (int cellX = 0; cellX < mask.size.x / 4; ++cellX) {
            int count = 0;
            for (int n = 0; n < 16; ++n) {
                count += mask.At(4 * cellX + n % 4, 4 * cellY + n / 4) ? 1 : 0;
            }
            const std::int64_t x = std::int64_t{at.x} + cellX;
            const std::int64_t y = std::int64_t{at.y} + cellY;
            if (0 <= x && x < pictureSize.x && 0 <= y && y < pictureSize.y) {
                store(static_cast<int>(x), static_cast<int>(y), CoverageOf(count));
            }
        }
    }
}

} // namespace tn::test::model
