// Private: what lies between the pixels of an image.
#pragma once

#include "TnGraphics/rows/PixelAlphas.h"

#include <cstdint>

namespace tn {

/// Samples amid four neighbouring pixels by the weights of the right and of the lower ones, 0 to 256 each.
///
/// Transparent pixels take no part in the colour, which the visible ones share by their weights, but they do in the
/// alpha. Where nothing visible has a weight, all channels are 0.
struct SubPixelSampler {
    std::uint16_t right;
    std::uint16_t lower;

    template <class Pixels> struct Neighbors { Pixels upperLeft, upperRight, lowerLeft, lowerRight; };

    /// Sums of channel times weight, 65536 being the weights' sum; at most 255 x 65536.
    template <class Pixels> typename Pixels::Sums WeightedSums(const Neighbors<Pixels>& pixels) const {
        return Pixels::Sums::Weighted(Across(pixels.lowerLeft, pixels.lowerRight),
                                      Across(pixels.upperLeft, pixels.upperRight), lower);
    }

    template <class Pixels> Pixels operator()(const Neighbors<Pixels>& pixels) const {
        const Neighbors<Pixels> colors = {CountedColor(pixels.upperLeft), CountedColor(pixels.upperRight),
                                          CountedColor(pixels.lowerLeft), CountedColor(pixels.lowerRight)};
        return Pixels::Narrowed(WeightedSums(colors).DividedByFourth()).WithAlphaOf(Easily(pixels));
    }

    /// Where no pixel is transparent the weights need no sum.
    template <class Pixels> static bool IsEasy(const Neighbors<Pixels>& pixels) {
        const Pixels upper = MinBytes(pixels.upperLeft, pixels.upperRight);
        return !Transparent(MinBytes(upper, MinBytes(pixels.lowerLeft, pixels.lowerRight))).Any();
    }

    template <class Pixels> Pixels Easily(const Neighbors<Pixels>& pixels) const {
        return Pixels::Narrowed(WeightedSums(pixels).UpperHalves());
    }

private:
    template <class Pixels> typename Pixels::Channels Across(Pixels leftPixels, Pixels rightPixels) const {
        using Channels = typename Pixels::Channels;
        const Channels left = Channels::All16(static_cast<std::uint16_t>(256U - right));
        return leftPixels.Widened() * left + rightPixels.Widened() * Channels::All16(right);
    }

    /// The colour with 1 as fourth channel, so that its sum is that of the visible weights; nothing when transparent.
    template <class Pixels> static Pixels CountedColor(Pixels pixels) {
        constexpr std::uint32_t kOne = 0x01000000;
        const Pixels counted = (pixels & Pixels::All(~kAlphaBits)) | Pixels::All(kOne);
        return Select(Transparent(pixels), Pixels::All(0), counted);
    }
};

} // namespace tn
