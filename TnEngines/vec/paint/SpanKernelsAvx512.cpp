#include "TnEngines/vec/paint/LevelSpanKernels.h"

namespace tn::vec::avx512 {

constexpr SpanKernels kSpanKernels = kLevelKernels;

} // namespace tn::vec::avx512
