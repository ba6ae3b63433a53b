// Text made of square dots, for captions.
#pragma once

#include "TnGraphics/TnGraphics.h"

#include <string_view>

/// Height of a line of text in dots: capitals are 7 high, letters such as g reach 2 below them.
inline constexpr int kTextHeight = 9;

/// Draws letters, digits and the signs . , - ( ) from their top-left corner on; other characters leave a gap.
void DrawText(TnImage& image, const TnPoint& at, std::string_view text, const TnColor& color, int dotSize);
