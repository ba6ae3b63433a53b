#include "TnEngines/vec/port/ColorServer.h"

#include "TnEngines/vec/Runtime.h"

#include <utility>

namespace tn::vec {
namespace {

// Calls a procedure of the colour engine, unless there is none.
template <class Type, class... Arguments> void Call(abi::Color place, Arguments... arguments) {
    const auto procedure = RuntimeProcedure<Type>(abi::kColorInterface, abi::kColorProcedures, place);
    if (procedure != nullptr) {
        procedure(arguments...);
    }
}

} // namespace

ColorServer::ColorServer(HuexColor color) : client_(color) {
    std::uint8_t alphaRgb[4] = {255, 0, 0, 0};
    std::uint8_t grayAlpha[2] = {0, 255};
    Call<HuexColorAddReferenceType>(abi::Color::kAddReference, color);
    Call<HuexColorGetAlphaRgbBytesType>(abi::Color::kGetAlphaRgbBytes, color, alphaRgb);
    Call<HuexColorGetGrayAlphaBytesType>(abi::Color::kGetGrayAlphaBytes, color, grayAlpha);
    forImages_ = {alphaRgb[0], alphaRgb[1], alphaRgb[2], alphaRgb[3], 0};
    forGray_ = {grayAlpha[1], 0, 0, 0, grayAlpha[0]};
}

ColorServer::ColorServer(const ColorServer& other)
    : client_(other.client_), forImages_(other.forImages_), forGray_(other.forGray_) {
    if (client_ != nullptr) {
        Call<HuexColorAddReferenceType>(abi::Color::kAddReference, client_);
    }
}

ColorServer::ColorServer(ColorServer&& other) noexcept
    : client_(std::exchange(other.client_, nullptr)), forImages_(other.forImages_), forGray_(other.forGray_) {}

ColorServer& ColorServer::operator=(ColorServer other) noexcept {
    std::swap(client_, other.client_);
    forImages_ = other.forImages_;
    forGray_ = other.forGray_;
    return *this;
}

ColorServer::~ColorServer() {
    if (client_ != nullptr) {
        Call<HuexColorReleaseType>(abi::Color::kRelease, client_);
    }
}

} // namespace tn::vec
