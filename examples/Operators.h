// Every operator that combines two pictures, side by side.
#pragma once

#include "TnGraphics/TnGraphics.h"

/// A sheet on which an oval cut-out of the subject is combined with the backdrop by each operator, tinted, dimmed and
/// between pixels where the operator can do that.
TnImage MakeOperatorSheet(const TnImage& backdrop, const TnImage& subject);
