/// \file
/// The colour matrix: a scale and an offset for each channel.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/port/TnColor.h"
#include "TnGraphics/port/TnImagePixel.h"
#include "TnGraphics/port/TnMattePixel.h"

#include <cstdint>

/// What becomes of one channel: ((channel x scale) >> 8) + offset, stopped at 0 and 255.
///
/// The shift rounds towards minus infinity, so a scale of -1 turns every value but 0 into -1 before the offset.
struct TnChannelTransform {
    std::int16_t scale = 256; ///< The factor in 1/256: 256 keeps the channel, 0 removes it, -256 negates it.
    std::int16_t offset = 0;  ///< Added after scaling, in steps of the channel.

    /// True when scale and offset are equal.
    friend constexpr bool operator==(const TnChannelTransform&, const TnChannelTransform&) = default;
};

/// What becomes of a colour, each channel by itself: eight 16-bit words in the order of the fields.
///
/// By default it is the identity, which keeps every colour.
struct TnColorTransform {
    TnChannelTransform red;   ///< For red.
    TnChannelTransform green; ///< For green.
    TnChannelTransform blue;  ///< For blue.
    TnChannelTransform alpha; ///< For the alpha.
};

/// True when all scales and offsets are equal.
TN_EXPORT bool operator==(const TnColorTransform& a, const TnColorTransform& b);

/// True for the identity: every scale 256, every offset 0.
///
/// It compares words only: a transform that differs in any of them counts as a change, also when the ends of the range
/// undo what it does.
TN_EXPORT bool IsNoChangeColorTransform(const TnColorTransform& transform);

/// The transform that mixes pixels towards the colour's red, green and blue. The alpha stays what it is in the pixel;
/// the colour's own is not used.
///
/// \image html gallery/GetColorMatrixForBlend.png
///
/// \param color what to mix towards
/// \param percent 0 keeps pixels as they are, and gives the identity; 100 replaces their colour. Beyond these ends the
///     same formulas hold, so pixels are moved away from the colour or past it
///
/// The mix is k = percent x 255 / 100, the common scale (255 - k) x 256 / 255 and a channel's offset channel x k / 255,
/// all in signed 32 bits: products keep their low 32 bits, divisions truncate towards zero, and the fields keep the low
/// 16 bits. Since every step truncates, a pixel may end up one or two short of the exact mix.
TN_EXPORT TnColorTransform GetColorMatrixForBlend(const TnColor& color, int percent);

/// The colour with all four channels transformed.
///
/// \image html gallery/ColorTransform.png
TN_EXPORT TnColor ColorTransform(const TnColor& color, const TnColorTransform& transform);

/// The pixel with all four channels transformed.
TN_EXPORT TnImagePixel ColorTransform(const TnImagePixel& pixel, const TnColorTransform& transform);

/// The same pixel, whatever the transform: a matte has no colour, and its coverage is not an image's alpha.
TN_EXPORT TnMattePixel ColorTransform(const TnMattePixel& pixel, const TnColorTransform& transform);
