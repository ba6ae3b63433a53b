// Smooth edges in two ways, side by side.
#pragma once

#include "FontOutlines.h"

#include "TnGraphics/TnGraphics.h"

/// A sheet on which lettering and lines are drawn hard, as a mask of four times the size that is sampled down, and as a
/// matte, each magnified, with what the last two differ by. A TnGraphicsMem must be alive.
TnImage MakeEdgeSheet(const Typeface& type);
