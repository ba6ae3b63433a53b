// Shapes as masks, drawn pixel by pixel and four times as large as the pictures that they are for.
#pragma once

#include "TnGraphics/TnGraphics.h"

/// How many pixels of a mask lie side by side in a pixel of a picture.
inline constexpr int kMaskScale = 4;

bool IsSet(const TnMask& mask, const TnPoint& at);

/// A word in round-ended strokes, in the middle of a picture of the size.
TnMask DrawLettering(const TnPoint& size);

/// A badge with a scalloped rim that touches the edges of a square picture.
TnMask DrawBadge(std::int32_t side);

/// Stripes at 45 degrees, as wide as the gaps between them, that go on when pictures of the size are tiled.
TnMask DrawStripes(std::int32_t side);
