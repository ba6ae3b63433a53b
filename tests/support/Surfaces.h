// Small surfaces for worked examples, written and read pixel by pixel.
#pragma once

#include "tests/models/ModelPicture.h"

#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tn::test {

/// The pixel at a position of the content.
template <class SurfaceType> auto PixelAt(const SurfaceType& surface, int x, int y) {
    return (*surface.begin({x, y, 1, 1})).value;
}

template <class SurfaceType> void SetPixel(SurfaceType& surface, int x, int y, typename SurfaceType::Pixel pixel) {
    *surface.begin({x, y, 1, 1}) = pixel;
}

/// Gives every pixel of the content the same value.
template <class SurfaceType> void SetAll(SurfaceType& surface, typename SurfaceType::Pixel pixel) {
    for (int y = 0; y < surface.Size().y; ++y) {
        for (int x = 0; x < surface.Size().x; ++x) {
            SetPixel(surface, x, y, pixel);
        }
    }
}

/// An image of one pixel. What a fill of a whole image does to a pixel, it does to this one.
class OnePixelImage : public TnImage {
public:
    explicit OnePixelImage(std::uint32_t pixel) : TnImage({1, 1}) { SetPixel(*this, 0, 0, pixel); }

    std::uint32_t Word() const { return PixelAt(*this, 0, 0); }
};

using Rows = std::vector<std::string>;

/// The rows of a picture as text: '#' for one value, '.' for another, '?' for any else.
template <class Value> Rows Drawing(const ModelPicture<Value>& picture, Value hash, Value dot) {
    Rows rows;
    for (int y = 0; y < picture.Height(); ++y) {
        std::string row;
        for (int x = 0; x < picture.Width(); ++x) {
            const Value value = picture.At(x, y);
            row += value == hash ? '#' : value == dot ? '.' : '?';
        }
        rows.push_back(row);
    }
    return rows;
}

} // namespace tn::test
