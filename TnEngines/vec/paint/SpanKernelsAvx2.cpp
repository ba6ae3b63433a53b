#include "TnEngines/vec/paint/LevelSpanKernels.h"

namespace tn::vec::avx2 {

constexpr SpanKernels kSpanKernels = kLevelKernels;

} // namespace tn::vec::avx2
