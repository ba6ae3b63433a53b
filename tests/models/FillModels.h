// The fills, pixel by pixel.
#pragma once

#include "tests/models/ModelPicture.h"
#include "tests/models/PollModels.h"

#include "TnGraphics/port/TnColor.h"

#include <cstdint>

namespace tn::test::model {

/// The word 0xAARRGGBB of a colour.
std::uint32_t WordOf(const TnColor& color);

/// The pixel with another alpha.
std::uint32_t WithAlpha(std::uint32_t pixel, std::uint8_t alpha);

/// The pixel with its alpha scaled by a 16.16 factor and cut to 8 bits.
std::uint32_t WithScaledAlpha(std::uint32_t pixel, std::int64_t factor);

/// The colour shining through the pixel from behind.
std::uint32_t WithColorBehind(std::uint32_t pixel, const TnColor& color, bool fillTransparent);

/// The 16.16 factor of a percentage.
std::int64_t OpacityFactor(int percent);

void ColorFill(ModelImage& image, const TnRect& rect, const TnColor& color);
void AlphaFill(ModelImage& image, const TnRect& rect, std::uint8_t alpha);
void AlphaFill(ModelMatte& matte, const TnRect& rect, std::uint8_t value);
void XFill(ModelImage& image, const TnRect& rect, const TnColor& ground, const TnColor& line);
void CrossHatchFill(ModelImage& image, const TnRect& rect, const TnColor& ground, const TnColor& line,
                    long sizeExponent);
void BlendInColor(ModelImage& image, const TnColor& color, bool fillTransparent);
void BlendInColorAndFillAlpha(ModelImage& image, const TnColor& color, std::uint8_t alpha);
void SetOpacity(ModelImage& image, int percent);

/// The walks of a fill over the rectangle in a content of the given size.
Walks WalksOfFill(const TnPoint& size, const TnRect& rect);

} // namespace tn::test::model
