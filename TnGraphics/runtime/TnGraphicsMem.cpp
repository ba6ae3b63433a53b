#include "TnGraphics/runtime/TnGraphicsMem.h"

#include "TnEngines/abi/glyphon.h"
#include "TnEngines/abi/huex.h"
#include "TnEngines/abi/vec.h"
#include "TnGraphics/draw/Binding.h"
#include "TnGraphics/runtime/FontSupport.h"
#include "TnGraphics/runtime/RuntimeState.h"

#include <string_view>

namespace {

constexpr std::uint32_t kVecClient = 0x41A11;
constexpr std::uint32_t kGlyphonClient = 18;
constexpr std::u16string_view kJapanese = u"ja_JP";

void StartFontsOnce(const BasekitString& locale) {
    tn::RuntimeState& state = tn::TheRuntimeState();
    if (state.fontsStarted) {
        return;
    }
    const bool isJapanese = BasekitCompare(locale.data(), locale.size(), kJapanese.data(), kJapanese.size()) == 0;
    tn::SetUpFontSupport(state.getAddress, kGlyphonClient, isJapanese ? 1 : 0, tn::kSuiteR50);
    state.fontsStarted = true; // whatever came of it
}

} // namespace

TnGraphicsMem::TnGraphicsMem(std::uint64_t size, const BasekitString& locale) {
    tn::RuntimeState& state = tn::TheRuntimeState();
    state.getAddress = KelStartup(size);
    tn::TheBinding().Start(state.getAddress);
    huexStarted_ = HuexStartup(state.getAddress, 0) != 0;
    vecStarted_ = VecStartup(state.getAddress, kVecClient, 0, 0) != 0;
    StartFontsOnce(locale);
}

TnGraphicsMem::~TnGraphicsMem() {
    if (tn::TheRuntimeState().fontsStarted) {
        GlyphonShutdown();
    }
    VecShutdown();
    HuexShutdown();
    tn::TheBinding().Stop();
}

KelGetAddressProc TnGraphicsMem::GetKelGetAddressProc() { return tn::TheRuntimeState().getAddress; }
