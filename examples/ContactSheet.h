// Pictures of one size in rows on a dark ground, each with a caption. Where they are transparent a checkerboard shows.
#pragma once

#include "TnGraphics/TnGraphics.h"

#include <string_view>

class ContactSheet {
public:
    ContactSheet(const TnPoint& tileSize, int columns, int rows, std::string_view title, std::string_view subtitle);

    /// Adds a picture of the tiles' size at the next free place.
    void Add(const TnImage& picture, std::string_view name, std::string_view remark);

    const TnImage& Picture() const { return sheet_; }

private:
    TnRect NextTile();

    TnPoint tileSize_;
    int columns_;
    int count_ = 0;
    TnImage sheet_;
};
