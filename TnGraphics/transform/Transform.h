/// \file
/// Resampling of a whole surface through a matrix.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/Matrix.h"
#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"

/// How positions between pixels are read: 0 takes the nearest pixel, every other value smooths.
enum class InterpolationType { kNearest = 0, kSmooth = 1 };

/// Fills the destination's content with the source, seen through a matrix that maps destination to source.
///
/// Destination pixel (X, Y) gets what the source has at M (X, Y, 1), both in the frames of the contents; no half pixel
/// is added on either side. To move a picture by T, pass the inverse of T. Every pixel of the content is written; where
/// the position lies outside the source it gets the source's outside pixel. From an image to a matte the alpha is
/// taken.
///
/// An affine matrix (m[2][0] and m[2][1] are 0) steps in 16.16 fixed point, from each row's start on:
/// - nearest: the pixel in which the position falls;
/// - smooth: TnImage::Get(TnFixed, TnFixed), or the matte's, between the pixels;
/// - smooth, with m[0][0] or m[1][1] above 2: the mean of a box of 0.8 times these entries, 1.2 pixels at least, around
///   the position, cut at the content, in single precision. Rotation and shear have no part in that choice. A box that
///   is cut to less than a pixel is outside: a move by half a destination pixel keeps the first row and column.
///
/// A projective matrix steps in single precision:
/// - nearest: the pixel nearest to the position, halves rounded away from zero;
/// - smooth: an image's pixel at the position truncated towards zero, deliberately not interpolated, or
///   TnMatte::Get(float, float).
///
/// Every matrix gives a defined picture, whatever its entries. Positions in fixed point wrap in 32 bits; projective
/// positions that are no finite number, or leave 32 bits, lie outside.
///
/// The source is locked meanwhile. Every 32 rows the destination's cancel procedure is called and then, but for the
/// mean of boxes, the source's; what they throw leaves exactly the rows done. Nothing is allocated. A surface that is
/// both source and destination ends up with any pixels.
///
/// \image html gallery/Transform.png
/// \image html gallery/TransformEnlarged.png
/// \image html gallery/TransformReduced.png
/// \image html gallery/TransformMatte.png
///
/// \tparam Source      TnImage or TnMatte
/// \tparam Destination TnImage or TnMatte; from a matte a TnMatte
/// \throws std::bad_alloc ("bad allocation") for a surface without storage
template <class Source, class Destination>
TN_EXPORT void Transform(const Source& source, Destination& destination, const Matrix<double, 3, 3>& matrix,
                         InterpolationType type);
