// A title card for the screen: lettering from a font, shapes and shadows over a photograph.
#pragma once

#include "FontOutlines.h"

#include "TnGraphics/TnGraphics.h"

/// A card of 1920 x 1080 pixels: the photograph in the light of dusk, the programme's title, a caption with a name
/// above what its bearer does, and a turned print of the second picture, whose content is framed. A TnGraphicsMem must
/// be alive.
TnImage MakeTitleCard(const TnImage& photo, const TnImage& second, const Typeface& type);
