#include "TnEngines/vec/scan/CellRow.h"

namespace tn::vec {

// What is beyond the left end winds around all of the row; what is beyond the right end, around none of it.
CellRange CellRow::AddCut(double left, double right, std::int32_t height) {
    if (right <= 0) {
        AddAlongLeftEnd(height);
        return {0, -1};
    }
    if (left >= width_) {
        return {width_, width_ - 1};
    }
    const double slope = height / (right - left);
    const std::int32_t beyondLeft = left < 0 ? static_cast<std::int32_t>(-left * slope) : 0;
    const std::int32_t beyondRight = right > width_ ? static_cast<std::int32_t>((right - width_) * slope) : 0;
    AddAlongLeftEnd(beyondLeft);
    return AddWithin(Fixed(std::max(left, 0.0)), Fixed(std::min(right, 1.0 * width_)),
                     height - beyondLeft - beyondRight);
}

} // namespace tn::vec
