#include "TnGraphics/rows/LevelKernels.h"
#include "TnGraphics/rows/lanes/BaselineSet.h"
#include "TnGraphics/rows/lanes/MatteLanes.h"
#include "TnGraphics/rows/lanes/VectorSums.h"

namespace tn::baseline {

constexpr RowKernels kRowKernels = LevelKernels<PixelLanes<InstructionSet>, RowKernels>::kTable;

} // namespace tn::baseline
