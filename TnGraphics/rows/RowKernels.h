// Private: the row kernels of each processor level and the table that chooses among them.
#pragma once

#include "TnGraphics/port/TnImagePixel.h"
#include "TnGraphics/rows/FillOperators.h"
#include "TnGraphics/rows/ProcessorLevel.h"

#include <cstddef>

namespace tn {

/// Runs an operator on each pixel of a row.
template <class Operator> using RowKernel = void (*)(TnImagePixel* row, std::size_t length, const Operator& op);

/// The kernels of the listed operators at one level, one for each.
template <class... Operators> struct KernelTable;

/// Every operator on one row is in this list.
using RowKernels =
    KernelTable<StorePixel, SetAlpha, ScaleAlpha, BlendBehind, BlendBehindVisible, BlendBehindAndSetAlpha, CrossLines>;

template <class Operator> struct KernelSlot { RowKernel<Operator> kernel; };

template <class... Operators> struct KernelTable : KernelSlot<Operators>... {};

namespace portable {
extern const RowKernels kRowKernels;
}
namespace baseline {
extern const RowKernels kRowKernels;
}
namespace avx2 {
extern const RowKernels kRowKernels;
}
namespace avx512 {
extern const RowKernels kRowKernels;
}

/// The kernels in use. While the library loads they become those of the processor's best level; nothing else changes
/// them but ForceLevel.
const RowKernels& ActiveRowKernels();

/// The level of the kernels in use.
ProcessorLevel ActiveLevel();

/// For tests and measurements: uses the kernels of a supported level from now on.
void ForceLevel(ProcessorLevel level);

/// The kernel in use for an operator.
template <class Operator> RowKernel<Operator> ActiveKernel() {
    return static_cast<const KernelSlot<Operator>&>(ActiveRowKernels()).kernel;
}

} // namespace tn
