// Private: where the boxes of a row of pixels lie.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tn {

/// How many boxes are placed at a time.
inline constexpr std::size_t kMostBoxes = 256;

/// Boxes around affine positions along one axis of the source, in single precision.
struct BoxAxis {
    float perColumn;
    float perRow;
    float origin;
    float half;     ///< From the middle of a box to its ends.
    float farthest; ///< Where boxes are cut, as they are at 0.
};

struct BoxField {
    BoxAxis x;
    BoxAxis y;
};

/// A row of boxes in 256ths of a pixel; see rows/BoxMeans.h.
struct PlacedBoxes {
    alignas(64) std::int32_t left[kMostBoxes];
    alignas(64) std::int32_t width[kMostBoxes];
    alignas(64) std::int32_t top[kMostBoxes];
    alignas(64) std::int32_t height[kMostBoxes];
};

// Templates over the lanes that loops are compiled for, so that each level has functions of its own. Compilers turn the
// loops into the level's instructions by themselves as long as each does one thing.

/// The ends of boxes along one axis: where they start and how long they are. What is no number stays none.
template <class Pixels>
void PlaceBoxesAlong(const BoxAxis& axis, std::int32_t row, std::int32_t column, float* start, float* size,
                     std::size_t length) {
    const float rowPart = axis.perRow * static_cast<float>(row);
    for (std::size_t i = 0; i < length; ++i) {
        const auto x = static_cast<float>(column + static_cast<std::int32_t>(i));
        const float middle = (rowPart + axis.perColumn * x) + axis.origin;
        const float low = middle - axis.half;
        const float high = middle + axis.half;
        start[i] = low < 0.0F ? 0.0F : low;
        size[i] = high > axis.farthest ? axis.farthest : high;
    }
    for (std::size_t i = 0; i < length; ++i) {
        size[i] -= start[i];
    }
}

/// Numbers from 0 on in 256ths, rounded. The whole part of a float and what is left of it are exact.
template <class Pixels> void RoundTo256ths(const float* numbers, std::int32_t* rounded, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) {
        const float in256ths = numbers[i] * 256.0F;
        const auto whole = static_cast<std::int32_t>(in256ths);
        rounded[i] = whole + static_cast<std::int32_t>((in256ths - static_cast<float>(whole)) * 2.0F);
    }
}

/// 1 where the box is at least a pixel wide and high; 0 elsewhere, also for what is no number.
template <class Pixels>
void FindBoxes(const float* widths, const float* heights, std::int32_t* areBoxes, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) {
        const float smaller = widths[i] < heights[i] ? widths[i] : heights[i];
        areBoxes[i] = (smaller >= 1.0F ? 1 : 0) & (widths[i] >= 1.0F ? 1 : 0);
    }
}

/// Clears what belongs to no box.
template <class Pixels> void KeepBoxes(float* numbers, const std::int32_t* areBoxes, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) {
        numbers[i] = areBoxes[i] != 0 ? numbers[i] : 0.0F;
    }
}

/// The boxes of a row from a column on, at most kMostBoxes. One that is not a pixel wide and high is empty.
template <class Pixels>
void PlaceBoxes(const BoxField& field, std::int32_t row, std::int32_t column, PlacedBoxes& boxes, std::size_t length) {
    float left[kMostBoxes];
    float top[kMostBoxes];
    float width[kMostBoxes];
    float height[kMostBoxes];
    std::int32_t areBoxes[kMostBoxes];
    PlaceBoxesAlong<Pixels>(field.x, row, column, left, width, length);
    PlaceBoxesAlong<Pixels>(field.y, row, column, top, height, length);
    FindBoxes<Pixels>(width, height, areBoxes, length);
    const auto finish = [&](float* numbers, std::int32_t* rounded) {
        KeepBoxes<Pixels>(numbers, areBoxes, length);
        RoundTo256ths<Pixels>(numbers, rounded, length);
    };
    finish(left, boxes.left);
    finish(width, boxes.width);
    finish(top, boxes.top);
    finish(height, boxes.height);
}

} // namespace tn
