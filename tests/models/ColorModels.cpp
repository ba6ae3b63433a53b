#include "tests/models/ColorModels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace tn::test::model {
namespace {

using Wide = std::int64_t;

int Clamped(Wide value) {
    if (value < 0) {
        return 0;
    }
    return value > 255 ? 255 : static_cast<int>(value);
}

// The value of the lowest bits, the highest of them counted as negative.
Wide LowBits(Wide value, int bits) {
    const Wide count = Wide{1} << bits;
    const Wide remainder = ((value % count) + count) % count;
    return remainder < count / 2 ? remainder : remainder - count;
}

Wide FloorOf256th(Wide value) {
    Wide floor = value / 256;
    while (floor * 256 > value) {
        --floor;
    }
    return floor;
}

} // namespace

Triple YuvOfRgb(const Triple& rgb) {
    const auto [red, green, blue] = rgb;
    const int y = (299 * red + 587 * green + 114 * blue) / 1000;
    return {y, 128 + 495 * (blue - y) / 1000, Clamped(128 + 877 * (red - y) / 1000)};
}

Triple RgbOfYuv(const Triple& yuv) {
    const Wide y = 1000 * yuv[0];
    const Wide u = yuv[1] - 128;
    const Wide v = yuv[2] - 128;
    return {Clamped((y + 1140 * v) / 1000), Clamped((y - 395 * u - 580 * v) / 1000), Clamped((y + 2032 * u) / 1000)};
}

int LeftByInks(int ink, int black) { return Clamped(255 - (255 - ink) - (255 - black)); }

int NearestWebStep(int channel) {
    int nearest = 0;
    for (const int step : {51, 102, 153, 204, 255}) {
        if (std::abs(step - channel) < std::abs(nearest - channel)) {
            nearest = step;
        }
    }
    return nearest;
}

int VideoLevel(int channel) {
    int level = channel;
    while (level * 255 > channel * 219) {
        --level;
    }
    return level + 16;
}

// Each result is one correctly rounded division of integers, and narrowing it to single precision is exact or far from
// any half, for the divisors are bytes. So the way on which a formula reaches the same number does not show.
Hsv HsvOfRgb(const Triple& rgb) {
    const auto [red, green, blue] = rgb;
    const int greatest = std::max(red, std::max(green, blue));
    const int range = greatest - std::min(red, std::min(green, blue));
    int degreesTimesRange = 0;
    if (red == greatest) {
        degreesTimesRange = 60 * (green - blue) + (green < blue ? 360 * range : 0);
    } else if (green == greatest) {
        degreesTimesRange = 60 * (blue - red) + 120 * range;
    } else {
        degreesTimesRange = 60 * (red - green) + 240 * range;
    }
    const auto quotient = [](int dividend, int divisor) {
        return divisor == 0 ? 0.0F : static_cast<float>(double(dividend) / double(divisor));
    };
    return {quotient(degreesTimesRange, range), quotient(range, greatest), quotient(greatest, 255)};
}

// Red, green and blue run through one curve over the circle, each a third of a turn behind the one before.
Triple RgbOfHsv(const Hsv& hsv) {
    const double value = hsv.value;
    const double saturation = hsv.saturation;
    if (saturation == 0.0) {
        const int grey = static_cast<int>(value * 255.0);
        return {grey, grey, grey};
    }
    const double sixths = hsv.hue == 360.0F ? 0.0 : double(hsv.hue) / 60.0;
    const auto whole = static_cast<std::size_t>(sixths);
    const double rest = sixths - double(whole);
    const double low = value * (1.0 - saturation);
    const double falling = value * (1.0 - rest * saturation);
    const double rising = value * (1.0 - (1.0 - rest) * saturation);
    const std::array<double, 6> curve = {value, falling, low, low, rising, value};
    const auto channel = [&](std::size_t behind) {
        return static_cast<int>(curve[(whole + 6 - behind) % 6] * 255.0 + 0.5);
    };
    return {channel(0), channel(2), channel(4)};
}

Triple Darkened(const Triple& rgb, float factor) {
    Hsv hsv = HsvOfRgb(rgb);
    const double product = double(hsv.value) * double(factor);
    hsv.value = product > 1.0 ? 1.0F : static_cast<float>(product);
    return RgbOfHsv(hsv);
}

int TransformedChannel(int channel, int scale, int offset) {
    return Clamped(FloorOf256th(Wide{channel} * scale) + offset);
}

Mix MixTowards(const Triple& rgb, int percent) {
    const Wide k = LowBits(Wide{percent} * 255, 32) / 100;
    const auto word = [](Wide product) { return static_cast<int>(LowBits(LowBits(product, 32) / 255, 16)); };
    return {word((255 - k) * 256), {word(rgb[0] * k), word(rgb[1] * k), word(rgb[2] * k)}};
}

} // namespace tn::test::model
