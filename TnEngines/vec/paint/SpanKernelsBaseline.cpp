#include "TnEngines/vec/paint/LevelSpanKernels.h"

namespace tn::vec::baseline {

constexpr SpanKernels kSpanKernels = kLevelKernels;

} // namespace tn::vec::baseline
