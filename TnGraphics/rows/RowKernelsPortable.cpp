#include "TnGraphics/rows/RowLoop.h"
#include "TnGraphics/rows/lanes/PortableLanes.h"

namespace tn::portable {

constexpr RowKernels kRowKernels = LevelKernels<Pixels, RowKernels>::kTable;

} // namespace tn::portable
