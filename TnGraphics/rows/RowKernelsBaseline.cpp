#include "TnGraphics/rows/LevelKernels.h"
#include "TnGraphics/rows/lanes/BaselineSet.h"
#include "TnGraphics/rows/lanes/MatteSquare.h"
#include "TnGraphics/rows/lanes/MatteSums.h"
#include "TnGraphics/rows/lanes/VectorSums.h"

namespace tn::baseline {

constexpr RowKernels kRowKernels = LevelKernels<PixelLanes<InstructionSet>, RowKernels>::kTable;

} // namespace tn::baseline
