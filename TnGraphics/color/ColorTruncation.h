/// \file
/// Bringing a colour into the narrower ranges of the web and of video.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/port/TnColor.h"

/// Moves red, green and blue to the nearest of the web palette's steps 0, 51, 102, 153, 204 and 255; the alpha stays.
///
/// \image html gallery/RGBTruncToWebColor.png
TN_EXPORT void RGBTruncToWebColor(TnColor& color);

/// Compresses red, green and blue from 0 to 255 into the 16 to 235 that ITU-R BT.601 leaves to them; the alpha stays.
///
/// Each channel becomes channel x 219 / 255 + 16, the division truncated. Every colour is compressed, also one that is
/// within the range already: a second call compresses again.
///
/// \image html gallery/RGBTruncToVideoSafe.png
TN_EXPORT void RGBTruncToVideoSafe(TnColor& color);
