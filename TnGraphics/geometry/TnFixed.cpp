#include "TnGraphics/geometry/TnFixed.h"

#include "TnGraphics/geometry/Rounding.h"

TnFixed TnFixed::FromDouble(double value) { return {tn::RoundToInt32(value * 65536.0)}; }
