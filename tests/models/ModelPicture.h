// A picture as plain values, on which the slow exact models work.
#pragma once

#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/geometry/TnRect.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tn::test {

/// Every value of a storage, row after row, with the content rectangle within it. Values outside the content are there
/// so that a comparison shows whether they stayed.
template <class Value> struct ModelPicture {
    TnPoint storageSize;
    TnRect content;
    std::vector<Value> values;

    int Width() const { return content.width; }
    int Height() const { return content.height; }

    /// The value at a position within the content.
    Value& At(int x, int y) { return values[IndexOf(x, y)]; }
    const Value& At(int x, int y) const { return values[IndexOf(x, y)]; }

private:
    std::size_t IndexOf(int x, int y) const {
        return static_cast<std::size_t>(content.top + y) * static_cast<std::size_t>(storageSize.x) +
               static_cast<std::size_t>(content.left + x);
    }
};

using ModelImage = ModelPicture<std::uint32_t>;
using ModelMatte = ModelPicture<std::uint8_t>;

/// A picture whose content is all there is, with one value everywhere.
template <class Value> ModelPicture<Value> UniformPicture(int width, int height, Value value) {
    return {{width, height},
            {0, 0, width, height},
            std::vector<Value>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), value)};
}

} // namespace tn::test
