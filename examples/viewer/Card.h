// The card that the viewer shows when it is given no picture.
#pragma once

#include "TnGraphics/TnGraphics.h"

namespace viewer {

/// A title card with an emblem and stroked letters, on nothing, with soft shadows.
TnImage DrawCard();

} // namespace viewer
