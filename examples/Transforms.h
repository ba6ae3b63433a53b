// A picture seen through matrices, nearest and smooth side by side.
#pragma once

#include "TnGraphics/TnGraphics.h"

/// A sheet on which a print of the subject is turned, skewed and put in perspective, the subject is enlarged and fitted
/// to the tiles' size, and the top field of an interlaced picture is shown, in which the subject moves before the
/// backdrop. Each comes with a magnified detail.
TnImage MakeTransformSheet(const TnImage& backdrop, const TnImage& subject);
