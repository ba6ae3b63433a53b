/// \file
/// The versions of the engines.
#pragma once

#include "TnGraphics/TnExport.h"

#include <string>

/// The font engine's version as major.minor.patch, in decimal. The engine is asked each time; it need not be started.
TN_EXPORT std::string GlyphonVersionString();

/// The vector engine's version as major.minor.patch, in decimal. The engine is asked each time; it need not be started.
TN_EXPORT std::string VecVersionString();
