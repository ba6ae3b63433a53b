// The colour conversions and the colour matrix, one value at a time.
#pragma once

#include <array>
#include <cstdint>

namespace tn::test::model {

/// Three channels of a colour in the order of their names, each 0 to 255.
using Triple = std::array<int, 3>;

Triple YuvOfRgb(const Triple& rgb);
Triple RgbOfYuv(const Triple& yuv);

/// What two inks leave of white; both are given as complements.
int LeftByInks(int ink, int black);

/// The nearest step of the web palette, by search.
int NearestWebStep(int channel);

/// The channel in the range of video, by search.
int VideoLevel(int channel);

struct Hsv {
    float hue;
    float saturation;
    float value;

    friend constexpr bool operator==(const Hsv&, const Hsv&) = default;
};

/// The exact hue, saturation and value, rounded once to the precision of the record.
Hsv HsvOfRgb(const Triple& rgb);

/// Of a hue from 0 to 360, saturation and value from 0 to 1.
Triple RgbOfHsv(const Hsv& hsv);

/// Of factors that are not negative.
Triple Darkened(const Triple& rgb, float factor);

int TransformedChannel(int channel, int scale, int offset);

struct Mix {
    int scale;
    Triple offsets;

    friend constexpr bool operator==(const Mix&, const Mix&) = default;
};

/// The common scale and the three offsets that mix towards a colour.
Mix MixTowards(const Triple& rgb, int percent);

} // namespace tn::test::model
