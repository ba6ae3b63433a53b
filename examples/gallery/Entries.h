// The table of the gallery: what is shown, and how it is drawn.
#pragma once

#include "TnGraphics/TnGraphics.h"

#include <span>
#include <string_view>

struct Entry {
    std::string_view group;      ///< What it is listed under.
    std::string_view file;       ///< The name of the picture's file, without its ending.
    std::string_view operations; ///< The operations that it shows, apart by spaces.
    TnImage (*show)();
};

std::span<const Entry> Entries();
