#include "TnGraphics/rows/LevelKernels.h"
#include "TnGraphics/rows/lanes/Avx512Set.h"
#include "TnGraphics/rows/lanes/MatteLanes.h"
#include "TnGraphics/rows/lanes/VectorSums.h"

namespace tn::avx512 {

constexpr RowKernels kRowKernels = LevelKernels<PixelLanes<InstructionSet>, RowKernels>::kTable;

} // namespace tn::avx512
