// Private: the procedures of the vector engine `Vec`, by the interfaces that TnEngines/abi/interfaces.h lists.
//
// Coordinates are in user space, from where the port's matrix takes them to device space: pixels of the target, x to
// the right and y down. The bounds of a port and of its clip are in device space. Errors that a procedure gives back
// are borrowed until the port's next paint procedure.
#pragma once

#include "TnEngines/abi/huex_procedures.h"
#include "TnEngines/abi/kel.h"

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/// A port of any kind.
typedef struct VecPortObject* VecPort;

typedef struct VecPoint {
    float x, y;
} VecPoint;

typedef struct VecRect {
    float left, top, right, bottom;
} VecRect;

/// x' = a x + c y + tx, y' = b x + d y + ty
typedef struct VecMatrix {
    float a, b, c, d, tx, ty;
} VecMatrix;

/// Pixels of the client's that a raster port paints into.
typedef struct VecBitmap {
    void* pixels;
    uint32_t rowBytes;
    int32_t left, top, right, bottom; ///< The bounds of the pixels, the far edges exclusive.
    int32_t bitsPerPixel;     ///< 32 as blue, green, red, alpha; 8; or 1, the leftmost pixel in the highest bit.
    HuexColorSpace colorKind; ///< kHuexAlphaRgb for 32 bits, kHuexGray for the others.
} VecBitmap;

enum { kVecRasterPort = 1 };       ///< The type of a port over a bitmap.
enum { kVecAntiAliasOptions = 1 }; ///< The option group of smooth edges.
enum {
    kVecSmoothClips = 1,  ///< Smooth edges of clips.
    kVecSmoothPaint = 2,  ///< Smooth edges of painted areas.
    kVecThinLineCare = 16 ///< Strokes narrower than a pixel get a pixel's width and, painted smooth, less alpha.
};

// "VecNewRasterPortInterface"

/// Makes a port over a bitmap, which the caller keeps until the port is released. With an error there is no port.
typedef KelError (*VecRasterPortNewBitmapPortV3Type)(const VecBitmap* bitmap, VecPort* port);

// Every port

typedef int32_t (*VecPortQueryType)(VecPort port);
typedef void (*VecPortCommandType)(VecPort port);
typedef KelError (*VecPortPaintType)(VecPort port);
typedef KelError (*VecPortGetErrorType)(VecPort port);
typedef void (*VecPortPointType)(VecPort port, float x, float y);
typedef void (*VecPortCurveType)(VecPort port, float x1, float y1, float x2, float y2, float x3, float y3);
typedef void (*VecPortRectPathType)(VecPort port, const VecRect* rect);
typedef KelError (*VecPortRectPaintType)(VecPort port, const VecRect* rect);
typedef void (*VecPortNumberType)(VecPort port, float number);
typedef void (*VecPortChoiceType)(VecPort port, int32_t choice);
typedef float (*VecPortGetNumberType)(VecPort port);

/// Gives 0 where there is no point or no area to tell of.
typedef int32_t (*VecPortGetPointType)(VecPort port, VecPoint* point);
typedef int32_t (*VecPortGetRectType)(VecPort port, VecRect* rect);

/// Whether the path's inside holds a point.
typedef int32_t (*VecPortPointQueryType)(VecPort port, float x, float y);

typedef void (*VecPortGetMatrixType)(VecPort port, VecMatrix* matrix);
typedef void (*VecPortConcatMatrixType)(VecPort port, const VecMatrix* matrix);

/// The two last arguments have no meaning yet.
typedef void (*VecPortSetColorServerV4Type)(VecPort port, HuexColor color, int32_t reserved1, int32_t reserved2);

/// The colour that was set last, borrowed; null before one was set.
typedef HuexColor (*VecPortGetColorServerType)(VecPort port);

/// Sets an option of a group.
typedef void (*VecPortOptionsV3Type)(VecPort port, int32_t group, int32_t value);
typedef int32_t (*VecPortGetOptionsType)(VecPort port, int32_t group);

/// The interface of the port's graphics state: null where it offers none.
typedef VecPort (*VecPortGetGStatePortType)(VecPort port);

// "VecGStatePortInterface"

typedef void (*VecGStatePortSetMatrixType)(VecPort gstate, float a, float b, float c, float d, float tx, float ty);

#ifdef __cplusplus
}
#endif
