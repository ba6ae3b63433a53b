// What can be done with alphas alone: smooth edges, shadows, outlines, bounds and textures.
#pragma once

#include "TnGraphics/TnGraphics.h"

/// A sheet on which lettering from a mask stands on the backdrop, softened, grown and shrunk into a shadow, an outline
/// and a glow, on which the subject is cut out and framed by its content area, and on which textures are tiled.
TnImage MakeAlphaSheet(const TnImage& backdrop, const TnImage& subject);
