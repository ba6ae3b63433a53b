// Private: the procedures of the colour engine `Huex`.
#pragma once

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/// A colour: components in a colour space. References to it are counted.
typedef struct HuexColorObject* HuexColor;

typedef int32_t HuexColorSpace;

enum {
    kHuexNoSpace = -1, ///< The space of a null colour.
    kHuexGray = 0,     ///< One component: 0 black, 1 white.
    kHuexAlphaRgb = 1  ///< Four: alpha, red, green, blue.
};

// A colour lives on when the engine is stopped. With a null colour, or nowhere to write to, the procedures do nothing.

/// A new colour with one reference, which is the caller's. Null for an unknown space, another number of components than
/// the space has, without memory, and while the engine is stopped.
typedef HuexColor (*HuexNewColorType)(HuexColorSpace space, const float* components, int32_t count);

typedef void (*HuexColorAddReferenceType)(HuexColor color);
typedef void (*HuexColorReleaseType)(HuexColor color);

typedef HuexColorSpace (*HuexColorGetSpaceType)(HuexColor color);

/// Writes the components in the colour's own space as they were given: one or four. Gives their number.
typedef int32_t (*HuexColorGetComponentsType)(HuexColor color, float* components);

/// Writes the colour as alpha, red, green and blue, or as gray and alpha, each cut to 0..1, no number to 0,
/// and as a byte, trunc(255 v + 0.5). Gray becomes equal parts with alpha 255; red, green and blue become gray by the
/// weights 19595, 38470 and 7471 over 65536.
typedef void (*HuexColorGetAlphaRgbBytesType)(HuexColor color, uint8_t* alphaRgb);
typedef void (*HuexColorGetGrayAlphaBytesType)(HuexColor color, uint8_t* grayAlpha);

#ifdef __cplusplus
}
#endif
