#include "TnEngines/abi/glyphon.h"

namespace {

constexpr uint32_t kRecordVersion = 1;
constexpr uint32_t kVersion = 0x10000;

} // namespace

// Nothing is drawn with fonts yet: the start looks at what it is given and keeps none of it.
uint32_t GlyphonStartup(KelGetAddressProc getAddress, uint32_t, uint32_t, const FontSupportParams* params) {
    return getAddress != nullptr && params != nullptr && params->version == kRecordVersion ? 1 : 0;
}

void GlyphonShutdown() {}

uint32_t GlyphonVersion() { return kVersion; }
