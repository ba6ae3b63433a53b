#include "TnGraphics/color/InkConversion.h"

#include "TnGraphics/color/ClampToByte.h"

namespace {

std::uint8_t Complement(std::uint8_t channel) { return static_cast<std::uint8_t>(255 - channel); }

} // namespace

void CMYKtoRGB(const ColorCMYKSpec& cmyk, TnImagePixel& pixel) {
    const auto left = [&cmyk](std::uint8_t ink) { return tn::ClampToByte(ink + cmyk.k - 255); };
    pixel = TnColor(255, left(cmyk.c), left(cmyk.m), left(cmyk.y));
}

void RGBtoCMY(const TnColor& color, TnCMYColor& cmy) {
    cmy = {color.alpha, Complement(color.red), Complement(color.green), Complement(color.blue)};
}

void CMYtoRGB(const TnCMYColor& cmy, TnColor& color) { color = cmy; }
