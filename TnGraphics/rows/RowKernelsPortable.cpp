#include "TnGraphics/rows/LevelKernels.h"
#include "TnGraphics/rows/lanes/PortableLanes.h"

namespace tn::portable {

constexpr RowKernels kRowKernels = LevelKernels<Pixels, RowKernels>::kTable;

} // namespace tn::portable
