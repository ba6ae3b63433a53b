#include "TnGraphics/rows/RowLoop.h"
#include "TnGraphics/rows/lanes/Avx2Set.h"
#include "TnGraphics/rows/lanes/VectorLanes.h"

namespace tn::avx2 {

constexpr RowKernels kRowKernels = LevelKernels<PixelLanes<InstructionSet>, RowKernels>::kTable;

} // namespace tn::avx2
