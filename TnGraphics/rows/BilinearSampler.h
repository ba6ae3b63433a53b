// Private: the mean of four neighbouring pixels in lanes.
#pragma once

#include "TnGraphics/rows/PixelAlphas.h"

#include <cstdint>

namespace tn {

/// Four neighbouring pixels for each pixel of a lane.
template <class Pixels> struct Neighbors { Pixels upperLeft, upperRight, lowerLeft, lowerRight; };

/// True when all of them are visible; then weights need no sum.
template <class Pixels> bool AreVisible(const Neighbors<Pixels>& pixels) {
    const Pixels upper = MinBytes(pixels.upperLeft, pixels.upperRight);
    return !Transparent(MinBytes(upper, MinBytes(pixels.lowerLeft, pixels.lowerRight))).Any();
}

template <class Pixels> bool AreTransparent(const Neighbors<Pixels>& pixels) {
    const Pixels any = pixels.upperLeft | pixels.upperRight | pixels.lowerLeft | pixels.lowerRight;
    return !(any & Pixels::All(kAlphaBits)).HasBits();
}

/// The colour with 1 as fourth channel, so that its sum is that of the visible weights; nothing when transparent.
template <class Pixels> Pixels CountedColor(Pixels pixels) {
    constexpr std::uint32_t kOne = 0x01000000;
    const Pixels counted = (pixels & Pixels::All(~kAlphaBits)) | Pixels::All(kOne);
    return Select(Transparent(pixels), Pixels::All(0), counted);
}

/// The weighted mean of every channel.
template <class Pixels, class Weights> Pixels PlainMean(const Neighbors<Pixels>& pixels, const Weights& weights) {
    return typename Pixels::Sums(pixels, weights).UpperHalves();
}

/// The weighted mean in which transparent pixels take part in the alpha but not in the colour. Where nothing visible
/// has a weight, all channels are 0.
template <class Pixels, class Weights> Pixels VisibleMean(const Neighbors<Pixels>& pixels, const Weights& weights) {
    if (AreVisible(pixels)) {
        return PlainMean(pixels, weights);
    }
    if (AreTransparent(pixels)) {
        return Pixels::All(0);
    }
    const Neighbors<Pixels> colors = {CountedColor(pixels.upperLeft), CountedColor(pixels.upperRight),
                                      CountedColor(pixels.lowerLeft), CountedColor(pixels.lowerRight)};
    const typename Pixels::Sums sums(colors, weights);
    return sums.DividedByFourth().WithAlphaOf(PlainMean(pixels, weights));
}

} // namespace tn
