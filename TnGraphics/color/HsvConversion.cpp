#include "TnGraphics/color/HsvConversion.h"

#include "TnGraphics/geometry/Rounding.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

// The colour circle has six sectors of 60 degrees. Within each, one component is greatest, one is smallest and the
// third runs between them.
constexpr double kSectorDegrees = 60.0;
constexpr double kCircleDegrees = 360.0;

struct Components {
    double red;
    double green;
    double blue;
};

Components ComponentsOf(const TnColor& color) { return {color.red / 255.0, color.green / 255.0, color.blue / 255.0}; }

// The place on the circle in sectors, -1 to 5, of a colour whose components reach from max - delta to max.
double PlaceOnCircle(const Components& components, double max, double delta) {
    const auto [red, green, blue] = components;
    if (red == max) {
        return (green - blue) / delta;
    }
    if (green == max) {
        return (blue - red) / delta + 2.0;
    }
    return (red - green) / delta + 4.0;
}

double HueOf(const Components& components, double max, double delta) {
    const double degrees = PlaceOnCircle(components, max, delta) * kSectorDegrees;
    return degrees < 0.0 ? degrees + kCircleDegrees : degrees;
}

Components SaturatedComponents(double hue, double saturation, double value) {
    const double place = (hue == kCircleDegrees ? 0.0 : hue) / kSectorDegrees;
    const double sector = std::floor(place);
    const double fraction = place - sector;
    const double smallest = value * (1.0 - saturation);
    const double falling = value * (1.0 - fraction * saturation);
    const double rising = value * (1.0 - (1.0 - fraction) * saturation);
    switch (tn::TruncateToInt32(sector)) {
    case 0:
        return {value, rising, smallest};
    case 1:
        return {falling, value, smallest};
    case 2:
        return {smallest, value, rising};
    case 3:
        return {smallest, falling, value};
    case 4:
        return {rising, smallest, value};
    default: // 5, and hues that are on no circle
        return {value, smallest, falling};
    }
}

std::uint8_t TruncatedByte(double value) { return static_cast<std::uint8_t>(tn::TruncateToInt32(value)); }

std::uint8_t RoundedChannel(double component) { return TruncatedByte(component * 255.0 + 0.5); }

} // namespace

void RGBToHSV(const TnColor& color, TnHSVColor& hsv) {
    const Components components = ComponentsOf(color);
    const auto [min, max] = std::minmax({components.red, components.green, components.blue});
    const double delta = max - min;
    hsv.hue = static_cast<float>(delta == 0.0 ? 0.0 : HueOf(components, max, delta));
    hsv.saturation = static_cast<float>(delta == 0.0 ? 0.0 : delta / max);
    hsv.value = static_cast<float>(max);
}

void HSVToRGB(const TnHSVColor& hsv, TnColor& color) {
    if (hsv.saturation == 0.0F) {
        const std::uint8_t grey = TruncatedByte(hsv.value * 255.0);
        color = {color.alpha, grey, grey, grey};
        return;
    }
    const auto [red, green, blue] = SaturatedComponents(hsv.hue, hsv.saturation, hsv.value);
    color = {color.alpha, RoundedChannel(red), RoundedChannel(green), RoundedChannel(blue)};
}

TnColor DarkenColor(const TnColor& color, float factor) {
    TnHSVColor hsv;
    RGBToHSV(color, hsv);
    hsv.value = static_cast<float>(std::min(double{hsv.value} * double{factor}, 1.0));
    TnColor darkened;
    HSVToRGB(hsv, darkened);
    return darkened;
}
