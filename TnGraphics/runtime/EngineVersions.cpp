#include "TnGraphics/runtime/EngineVersions.h"

#include "TnEngines/abi/glyphon.h"
#include "TnEngines/abi/vec.h"

#include <cstdint>
#include <locale>
#include <sstream>

namespace {

std::string VersionText(std::uint32_t packed) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << (packed >> 16 & 0x7FFF) << '.' << (packed >> 8 & 0xFF) << '.' << (packed & 0xFF);
    return text.str();
}

} // namespace

std::string GlyphonVersionString() { return VersionText(GlyphonVersion()); }

std::string VecVersionString() { return VersionText(VecVersion()); }
