// The least that memory asks of any operation over the rows of an image, as fast as this machine's compiler makes it.
#pragma once

#include "TnGraphics/port/TnImage.h"

namespace tn::bench {

/// Row by row std::memset.
void SetRows(TnImage& image, int byte);

/// Row by row, every pixel is read, changed by the cheapest instruction and written.
void ReadModifyWriteRows(TnImage& image);

} // namespace tn::bench
