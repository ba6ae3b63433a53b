/// \file
/// Angles in degrees: conversion, reduction to one turn, and what they have to do with points.
///
/// Angles are counted from the positive x axis, counter-clockwise on a screen: y grows downwards, and the point above
/// the origin lies at 90 degrees.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/TnFloat.h"
#include "TnGraphics/geometry/TnPoint.h"

/// degrees * 0.01745329252. The factor is pi / 180 in eleven decimals and part of the interface: no longer one takes
/// its place.
TN_EXPORT double DegreesToRadians(double degrees);

/// A whole number of degrees: radians * 57.29577951289617, rounded with halves away from zero.
///
/// The factor is the reciprocal of that of DegreesToRadians(). A number of degrees past 32 bits, or NaN, has no
/// meaning; 0 is never negative.
TN_EXPORT double RadiansToDegrees(double radians);

/// The same direction from 0 to 360 degrees, 360 excluded but for rounding: -1e-20 gives 360, the sum's nearest double.
/// Negative whole turns give -0.0; NaN and infinities give NaN.
TN_EXPORT double NormalizeAngle(double degrees);

/// The angle of the line from one point to the other.
///
/// The line's angle is rounded to whole degrees: 270 to 450 for lines to the right, straight up and down among them,
/// and 90 to 270 for lines to the left. Then it is snapped, the offset is subtracted, and the result is wrapped.
///
/// \param step   snaps to the nearest multiple of this many degrees, halves upwards, before the offset; 0 does not
/// \param offset degrees to subtract
/// \param wrap   true brings the result to one turn like NormalizeAngle(); false adds 360 once where it is negative,
/// and
///               leaves 360 and more
///
/// Two equal points count as a horizontal line to the right.
TN_EXPORT double PointsToAngle(const TnFloatPoint& from, const TnFloatPoint& to, double step, double offset, bool wrap);

/// The offset in pixels that leads depth pixels against the direction of the angle: (-depth, 0) for 0 degrees, and
/// (0, depth) for 90.
///
/// Sine and cosine are those of single precision, of the angle in radians narrowed to it; both coordinates are rounded
/// with halves away from zero. An angle that is NaN or infinite gives {0, 0}.
TN_EXPORT TnPoint ConvertAngleDepthToOffsets(double degrees, short depth);
