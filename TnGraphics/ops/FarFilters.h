// Private: the filters of alphas that need no lanes, for any radius.
#pragma once

#include "TnGraphics/rows/ColumnFilters.h"

namespace tn {

/// The means of TriangleMeans.
template <bool keepsHalf> void FilterByFarMeans(const ColumnsToFilter& work);

/// 255 where more than 2 x radius + 1 values of 255 follow each other up to the value that is radius further on; else
/// 0.
void FilterByRuns(const ColumnsToFilter& work);

} // namespace tn
