// The arithmetic of matrices, which the library leaves to its host.
#pragma once

#include "TnGraphics/TnGraphics.h"

using Mapping = Matrix<double, 3, 3>;

/// First the second mapping, then the first one.
Mapping Product(const Mapping& first, const Mapping& second);

/// The mapping back. The given one must have one.
Mapping Inverse(const Mapping& mapping);

/// The mapping with another point in place of the origin.
Mapping About(const TnFloatPoint& origin, const Mapping& mapping);
