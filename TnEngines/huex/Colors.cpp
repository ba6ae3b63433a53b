#include "TnEngines/abi/huex_procedures.h"
#include "TnEngines/abi/procedure_table.h"
#include "TnEngines/huex/Conversion.h"
#include "TnEngines/huex/Engine.h"

#include <algorithm>
#include <cstddef>
#include <new>

struct HuexColorObject {
    HuexColorSpace space;
    float components[4];
    std::size_t references;
};

namespace tn::huex {
namespace {

constexpr std::uint8_t kOpaque = 255;

std::int32_t ComponentsOf(HuexColorSpace space) {
    switch (space) {
    case kHuexGray:
        return 1;
    case kHuexAlphaRgb:
        return 4;
    default:
        return 0;
    }
}

HuexColor NewColor(HuexColorSpace space, const float* components, std::int32_t count) noexcept {
    if (!IsStarted() || components == nullptr || count == 0 || count != ComponentsOf(space)) {
        return nullptr;
    }
    HuexColor const color = new (std::nothrow) HuexColorObject{space, {}, 1};
    if (color != nullptr) {
        std::copy_n(components, count, color->components);
    }
    return color;
}

void AddReference(HuexColor color) noexcept {
    if (color != nullptr) {
        ++color->references;
    }
}

void Release(HuexColor color) noexcept {
    if (color != nullptr && --color->references == 0) {
        delete color;
    }
}

HuexColorSpace GetSpace(HuexColor color) noexcept { return color != nullptr ? color->space : kHuexNoSpace; }

std::int32_t GetComponents(HuexColor color, float* components) noexcept {
    if (color == nullptr || components == nullptr) {
        return 0;
    }
    const std::int32_t count = ComponentsOf(color->space);
    std::copy_n(color->components, count, components);
    return count;
}

void GetAlphaRgbBytes(HuexColor color, std::uint8_t* alphaRgb) noexcept {
    if (color == nullptr || alphaRgb == nullptr) {
        return;
    }
    const float* const components = color->components;
    if (color->space == kHuexGray) {
        alphaRgb[0] = kOpaque;
        std::fill_n(alphaRgb + 1, 3, ByteOf(Cut(components[0])));
        return;
    }
    std::transform(components, components + 4, alphaRgb, [](float component) { return ByteOf(Cut(component)); });
}

void GetGrayAlphaBytes(HuexColor color, std::uint8_t* grayAlpha) noexcept {
    if (color == nullptr || grayAlpha == nullptr) {
        return;
    }
    const float* const components = color->components;
    if (color->space == kHuexGray) {
        grayAlpha[0] = ByteOf(Cut(components[0]));
        grayAlpha[1] = kOpaque;
        return;
    }
    grayAlpha[0] = ByteOf(GrayOf(Cut(components[1]), Cut(components[2]), Cut(components[3])));
    grayAlpha[1] = ByteOf(Cut(components[0]));
}

constexpr auto kTable = abi::MakeProcedureTable(
    abi::kColorInterface, abi::kColorProcedures,
    {&abi::AddressOf<HuexNewColorType, &NewColor>, &abi::AddressOf<HuexColorAddReferenceType, &AddReference>,
     &abi::AddressOf<HuexColorReleaseType, &Release>, &abi::AddressOf<HuexColorGetSpaceType, &GetSpace>,
     &abi::AddressOf<HuexColorGetComponentsType, &GetComponents>,
     &abi::AddressOf<HuexColorGetAlphaRgbBytesType, &GetAlphaRgbBytes>,
     &abi::AddressOf<HuexColorGetGrayAlphaBytesType, &GetGrayAlphaBytes>});

} // namespace
} // namespace tn::huex

const EngineProcedure* HuexProcedures(size_t* count) {
    *count = tn::huex::kTable.size();
    return tn::huex::kTable.data();
}
