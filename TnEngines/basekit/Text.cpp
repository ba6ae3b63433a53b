#include "TnEngines/abi/basekit.h"
#include "TnEngines/basekit/Export.h"

#include <algorithm>

namespace {

constexpr char16_t kReplacement = u'\uFFFD';

char16_t ConvertedAscii(char character) {
    const auto code = static_cast<unsigned char>(character);
    return code < 0x80 ? static_cast<char16_t>(code) : kReplacement;
}

} // namespace

BASEKIT_EXPORT void BasekitConvertAscii(const char* ascii, std::size_t length, char16_t* to) {
    std::transform(ascii, ascii + length, to, &ConvertedAscii);
}

BASEKIT_EXPORT int BasekitCompare(const char16_t* a, std::size_t aLength, const char16_t* b, std::size_t bLength) {
    return std::u16string_view(a, aLength).compare({b, bLength});
}
