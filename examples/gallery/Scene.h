// The pictures that the gallery's operations work on.
#pragma once

#include "TnGraphics/TnGraphics.h"

#include <string_view>

inline constexpr TnColor kNight = {255, 24, 28, 60};
inline constexpr TnColor kSky = {255, 92, 148, 214};
inline constexpr TnColor kAmber = {255, 255, 176, 32};
inline constexpr TnColor kRose = {255, 214, 64, 122};
inline constexpr TnColor kLeaf = {255, 72, 140, 84};
inline constexpr TnColor kPaper = {255, 246, 239, 224};

/// Where the badge is put.
inline constexpr TnPoint kCorner = {42, 10};

/// Hills below a low sun: opaque, as large as a panel.
TnImage Landscape();

/// The landscape with alphas that fall from 255 on the left to 0 on the right; its colours are everywhere.
TnImage FadingLandscape();

/// A disc of 64 x 64 pixels with a star, a soft rim and transparent corners.
TnImage Badge();

/// A rose star of 64 x 64 pixels, transparent black around it.
TnImage Star();

/// The badge's alphas.
TnMatte BadgeOutline();

/// A picture of four colours, 64 x 64 pixels.
TnImage Poster();

/// A tile of 16 x 16 pixels.
TnImage Texture();

/// A star, four times as large as a panel.
TnMask StarMask();

/// A star in a matte of the panels' size, with hard edges and some that are soft.
TnMatte StarMatte();

/// Text on a ground of its own, for what operations answer.
void Answer(TnImage& image, std::string_view text);

/// A copy that shows the colours of all pixels, also of transparent ones.
TnImage Opaque(TnImage image);

/// The picture's alphas.
TnMatte Alphas(const TnImage& image);

/// The mask with 255 where it is set.
TnMatte ToMatte(const TnMask& mask);
