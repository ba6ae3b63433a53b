// The shapes that drawing is measured on, at random places, which are the same on every run.
#pragma once

#include "TnGraphics/geometry/TnPoint.h"
#include "peers/Outline.h"

#include <string>

namespace tn::bench {

/// How rectangles lie between the pixels.
enum class Lie {
    kAligned,   ///< On whole pixels.
    kUnaligned, ///< Upright, between pixels.
    kRotated,   ///< Each by an angle of its own.
};

std::string NameOf(Lie lie);

/// Polygons over the whole size that cross themselves in every way.
Drawing RandomPolygons(int vertices, const TnPoint& size);

/// Closed paths of curves over the whole size, drawn as areas.
Drawing RandomCurves(int curves, const TnPoint& size);

/// Open paths of curves over the whole size, drawn as lines.
Drawing RandomLines(int curves, double lineWidth, const TnPoint& size);

/// Smooth outlines about a hole, as high as the size allows.
Drawing Blobs(const TnPoint& size);

/// Squares, in the size as far as they are upright on whole pixels.
Drawing Rectangles(int side, Lie lie, const TnPoint& size);

/// Circles of four curves, in the size.
Drawing Circles(int diameter, const TnPoint& size);

} // namespace tn::bench
