#include "TnGraphics/rows/LevelKernels.h"
#include "TnGraphics/rows/lanes/Avx512Set.h"
#include "TnGraphics/rows/lanes/MatteSquare.h"
#include "TnGraphics/rows/lanes/MatteSums.h"
#include "TnGraphics/rows/lanes/VectorSums.h"

namespace tn::avx512 {

constexpr RowKernels kRowKernels = LevelKernels<PixelLanes<InstructionSet>, RowKernels>::kTable;

} // namespace tn::avx512
