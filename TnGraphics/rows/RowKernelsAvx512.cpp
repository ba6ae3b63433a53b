#include "TnGraphics/rows/RowLoop.h"
#include "TnGraphics/rows/lanes/Avx512Set.h"
#include "TnGraphics/rows/lanes/VectorLanes.h"

namespace tn::avx512 {

constexpr RowKernels kRowKernels = LevelKernels<PixelLanes<InstructionSet>, RowKernels>::kTable;

} // namespace tn::avx512
