/// \file
/// Makes the elementary matrices.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/Matrix.h"

/// Makes elementary matrices; there are some of doubles only.
template <class Element> struct MakeMatrix;

/// The elementary mappings of the plane.
///
/// Angles are in degrees and of any size; they become radians by DegreesToRadians(), so right angles are not quite
/// right: the cosine of 90 degrees is not 0 but about -5e-12. Sines and cosines are those of the C runtime and may
/// differ in the last place between platforms.
template <> struct MakeMatrix<double> {
    /// Keeps every point.
    TN_EXPORT static Matrix<double, 3, 3> Identity();

    /// Moves every point, to the right and down where the distances are positive.
    ///
    /// \image html gallery/Translate.png
    TN_EXPORT static Matrix<double, 3, 3> Translate(double horizontal, double vertical);

    /// Negates the chosen coordinates: mirrors at the origin, without moving the result back.
    ///
    /// \image html gallery/Flip.png
    TN_EXPORT static Matrix<double, 3, 3> Flip(bool flipX, bool flipY);

    /// Turns about the origin from the positive x axis towards the positive y axis: since y grows downwards, a positive
    /// angle turns clockwise on a screen. 90 degrees take (1, 0) to (0, 1).
    ///
    /// \image html gallery/Rotate.png
    TN_EXPORT static Matrix<double, 3, 3> Rotate(double degrees);

    /// Multiplies each coordinate by its factor.
    ///
    /// \image html gallery/Scale.png
    TN_EXPORT static Matrix<double, 3, 3> Scale(double horizontal, double vertical);

    /// Shears: adds horizontal * y to x, and vertical * x to y. These are factors, not angles.
    ///
    /// \image html gallery/Skew.png
    TN_EXPORT static Matrix<double, 3, 3> Skew(double horizontal, double vertical);

    /// Tilts the plane about its two axes.
    ///
    /// \image html gallery/Perspective.png
    ///
    /// \param aboutX   degrees of the tilt about the horizontal axis: shortens y by its cosine, and makes w grow with y
    ///                 by strength times its sine
    /// \param aboutY   degrees of the tilt about the vertical axis: the same for x
    /// \param strength scales both projective terms; 0 leaves an affine mapping
    TN_EXPORT static Matrix<double, 3, 3> Perspective(double aboutX, double aboutY, double strength);

    /// Undoes roughly what Perspective() with a strength of 0.01 does.
    ///
    /// It is not the exact inverse, and hosts count on what it is: x is multiplied by the cosine of aboutX and y by
    /// that of aboutY, the other way round than in Perspective(), and the projective terms keep their positive signs.
    /// They are scaled by the number of single precision nearest to 0.01, which is 0.009999999776482582.
    ///
    /// \image html gallery/PerspectiveInverse.png
    TN_EXPORT static Matrix<double, 3, 3> PerspectiveInverse(double aboutX, double aboutY);

    /// The rotation of space about the x axis, where the third coordinate stands for z.
    TN_EXPORT static Matrix<double, 3, 3> RotateX(double degrees);

    /// The rotation of space about the y axis, where the third coordinate stands for z.
    TN_EXPORT static Matrix<double, 3, 3> RotateY(double degrees);
};
