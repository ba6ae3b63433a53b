// Erasing outside a rectangle, pixel by pixel.
#pragma once

#include "tests/models/ModelPicture.h"
#include "tests/models/PollModels.h"
#include "tests/models/RectModels.h"

namespace tn::test::model {

template <class Value> void EraseOutside(ModelPicture<Value>& picture, const TnRect& rect) {
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
            if (!Contains(rect, x, y)) {
                picture.At(x, y) = 0;
            }
        }
    }
}

/// The bands around the rectangle in the order in which they are erased: above, below, left, right.
inline Walks WalksOfErasing(const TnPoint& size, const TnRect& rect) {
    const TnRect kept = SharedRect({0, 0, size.x, size.y}, rect);
    const int rowsBelow = size.y - kept.top - kept.height;
    const int columnsRight = size.x - kept.left - kept.width;
    const Walks bands = {{0, 0, size.x, kept.top},
                         {0, kept.top + kept.height, size.x, rowsBelow},
                         {0, kept.top, kept.left, kept.height},
                         {kept.left + kept.width, kept.top, columnsRight, kept.height}};
    Walks walks;
    for (const TnRect& band : bands) {
        if (band.width > 0 && band.height > 0) {
            walks.push_back(band);
        }
    }
    return walks;
}

} // namespace tn::test::model
