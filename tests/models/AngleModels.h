// Angles, each found by another way than the library's.
#pragma once

namespace tn::test::model {

/// The direction from one point to another before it is rounded, in degrees: 270 to 450 where dx is not negative, else
/// 90 to 270.
///
/// \param dx how far the other point lies to the right
/// \param up how far it lies above
double UnroundedDirection(double dx, double up);

/// The whole degrees nearest to an angle that is not negative, halves upwards.
double WholeDegrees(double degrees);

/// The nearest multiple of a positive step, halves upwards, of an angle that is not negative.
double NearestMultiple(double degrees, double step);

/// The same direction in one turn.
double InOneTurn(double degrees);

} // namespace tn::test::model
