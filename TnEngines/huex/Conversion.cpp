#include "TnEngines/huex/Conversion.h"

namespace tn::huex {

double Cut(float component) {
    if (component >= 1) {
        return 1;
    }
    return component > 0 ? static_cast<double>(component) : 0;
}

std::uint8_t ByteOf(double component) {
    const double toBeCut = 255 * component + 0.5;
    return static_cast<std::uint8_t>(toBeCut);
}

double GrayOf(double red, double green, double blue) { return (19595 * red + 38470 * green + 7471 * blue) / 65536; }

} // namespace tn::huex
