// The filter of alphas: two passes of runs, rules and taps.
#pragma once

#include "tests/models/ModelPicture.h"

#include <cstdint>
#include <vector>

namespace tn::test::model {

inline std::uint8_t AlphaOf(std::uint8_t value) { return value; }
inline std::uint8_t AlphaOf(std::uint32_t pixel) { return static_cast<std::uint8_t>(pixel >> 24); }

inline void PutAlpha(std::uint8_t& value, std::uint8_t alpha) { value = alpha; }
inline void PutAlpha(std::uint32_t& pixel, std::uint8_t alpha) {
    pixel = std::uint32_t{alpha} << 24 | (pixel & 0x00FFFFFF);
}

using Line = std::vector<std::uint8_t>;

/// What one pass makes of a line.
Line FilteredLine(const Line& line, int mode, int radius);

/// The rows of a picture's alphas, filtered.
template <class Value> ModelMatte WithFilteredRows(const ModelPicture<Value>& picture, int mode, int radius) {
    ModelMatte matte = UniformPicture<std::uint8_t>(picture.Width(), picture.Height(), 0);
    for (int y = 0; y < picture.Height(); ++y) {
        Line row;
        for (int x = 0; x < picture.Width(); ++x) {
            row.push_back(AlphaOf(picture.At(x, y)));
        }
        const Line filtered = FilteredLine(row, mode, radius);
        for (int x = 0; x < picture.Width(); ++x) {
            matte.At(x, y) = filtered[static_cast<std::size_t>(x)];
        }
    }
    return matte;
}

/// Gives the picture the filtered columns of a matte as alphas.
template <class Value>
void PutFilteredColumns(const ModelMatte& matte, ModelPicture<Value>& picture, int mode, int radius) {
    for (int x = 0; x < picture.Width(); ++x) {
        Line column;
        for (int y = 0; y < picture.Height(); ++y) {
            column.push_back(matte.At(x, y));
        }
        const Line filtered = FilteredLine(column, mode, radius);
        for (int y = 0; y < picture.Height(); ++y) {
            PutAlpha(picture.At(x, y), filtered[static_cast<std::size_t>(y)]);
        }
    }
}

template <class Value> void FilterAlphas(ModelPicture<Value>& picture, int mode, int radius) {
    if (radius >= 0) {
        PutFilteredColumns(WithFilteredRows(picture, mode, radius), picture, mode, radius);
    }
}

} // namespace tn::test::model
