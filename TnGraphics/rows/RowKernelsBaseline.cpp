#include "TnGraphics/rows/RowLoop.h"
#include "TnGraphics/rows/lanes/BaselineSet.h"
#include "TnGraphics/rows/lanes/VectorLanes.h"

namespace tn::baseline {

constexpr RowKernels kRowKernels = LevelKernels<PixelLanes<InstructionSet>, RowKernels>::kTable;

} // namespace tn::baseline
