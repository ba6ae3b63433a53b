/// \file
/// Maps points and boxes by a matrix.
///
/// Each overload takes what is mapped, where the result goes, and the matrix; source and destination may be the same
/// object. With x' = (m01 * y + m00 * x) + m02, where m01 is m[0][1], and y' and w likewise, the result is (x', y')
/// where m20 and m21 are both 0, whatever m22 is, and also where w is 0. Otherwise it is x' and y' multiplied by 1 / w.
/// Every value is first brought into the arithmetic of the overload, also before m20 and m21 are compared with 0.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/Matrix.h"
#include "TnGraphics/geometry/TnBox.h"
#include "TnGraphics/geometry/TnFixed.h"
#include "TnGraphics/geometry/TnFloat.h"
#include "TnGraphics/geometry/TnPoint.h"

/// Maps an integer point in single precision; the result is rounded, halves away from zero.
///
/// A result that leaves 32 bits has no meaning: NaN and what does not fit 64 bits give 0, the rest keeps its low 32
/// bits.
TN_EXPORT void Transform(const TnPoint& source, TnPoint& destination, const Matrix<double, 3, 3>& matrix);

/// Maps a point in single precision and widens the result. Values beyond single precision become infinite.
TN_EXPORT void Transform(const TnFloatPoint& source, TnFloatPoint& destination, const Matrix<double, 3, 3>& matrix);

/// Maps a fixed-point position in 16.16 arithmetic.
///
/// The elements are rounded as by TnFixed::FromDouble(), so projective terms below 1 / 131072 vanish. Each product and
/// the reciprocal of w are truncated towards zero by themselves; what leaves 32 bits keeps its low 32 bits.
TN_EXPORT void Transform(const TnFixedPoint& source, TnFixedPoint& destination, const Matrix<double, 3, 3>& matrix);

/// Maps each of the four corners as an integer point. The result is any quadrilateral, not a bounding box.
TN_EXPORT void Transform(const TnBox& source, TnBox& destination, const Matrix<double, 3, 3>& matrix);

/// Maps each of the four corners as a point in single precision.
///
/// \image html gallery/TransformBox.png
TN_EXPORT void Transform(const TnFloatBox& source, TnFloatBox& destination, const Matrix<double, 3, 3>& matrix);

/// Maps each of the four corners as a fixed-point position.
TN_EXPORT void Transform(const TnFixedBox& source, TnFixedBox& destination, const Matrix<double, 3, 3>& matrix);
