// What the viewer shows.
#pragma once

#include "TnGraphics/TnGraphics.h"

#include <optional>

namespace viewer {

/// Reads a picture from a file, in any format that GDI+ reads.
std::optional<TnImage> ReadPicture(const wchar_t* path);

/// The ground of transparent pictures.
TnImage DrawCheckerboard(const TnPoint& size);

} // namespace viewer
