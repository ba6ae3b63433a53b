// Private: the position query of the pattern fills.
#pragma once

#include "TnGraphics/port/SurfaceIterator.h"

namespace tn {

/// The iterator's Position(), whose check of the byte distance covers the rest of the line and reports in every build,
/// not in debug builds alone: the phase of a pattern hangs on it.
template <class SurfaceType, Lines lines> TnPoint ReportedPosition(const SurfaceIterator<SurfaceType, lines>& iterator);

} // namespace tn
