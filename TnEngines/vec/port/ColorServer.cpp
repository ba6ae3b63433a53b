#include "TnEngines/vec/port/ColorServer.h"

#include "TnEngines/vec/Runtime.h"

#include <utility>

namespace tn::vec {
namespace {

// Those of the runtime that the engine was last started with, looked up once for each start.
struct ColorProcedures {
    std::uint64_t start = 0;
    HuexColorAddReferenceType addReference = nullptr;
    HuexColorReleaseType release = nullptr;
    HuexColorGetAlphaRgbBytesType getAlphaRgbBytes = nullptr;
    HuexColorGetGrayAlphaBytesType getGrayAlphaBytes = nullptr;
};
constinit ColorProcedures theProcedures;

template <class Type> Type ColorProcedure(abi::Color place) {
    return RuntimeProcedure<Type>(abi::kColorInterface, abi::kColorProcedures, place);
}

const ColorProcedures& Procedures() {
    if (theProcedures.start != StartCount()) {
        theProcedures = {StartCount(), ColorProcedure<HuexColorAddReferenceType>(abi::Color::kAddReference),
                         ColorProcedure<HuexColorReleaseType>(abi::Color::kRelease),
                         ColorProcedure<HuexColorGetAlphaRgbBytesType>(abi::Color::kGetAlphaRgbBytes),
                         ColorProcedure<HuexColorGetGrayAlphaBytesType>(abi::Color::kGetGrayAlphaBytes)};
    }
    return theProcedures;
}

// Calls a procedure, unless there is none.
template <class Procedure, class... Arguments> void Call(Procedure procedure, Arguments... arguments) {
    if (procedure != nullptr) {
        procedure(arguments...);
    }
}

} // namespace

ColorServer::ColorServer(HuexColor color) : client_(color) {
    std::uint8_t alphaRgb[4] = {255, 0, 0, 0};
    std::uint8_t grayAlpha[2] = {0, 255};
    Call(Procedures().addReference, color);
    Call(Procedures().getAlphaRgbBytes, color, alphaRgb);
    Call(Procedures().getGrayAlphaBytes, color, grayAlpha);
    forImages_ = {alphaRgb[0], alphaRgb[1], alphaRgb[2], alphaRgb[3], 0};
    forGray_ = {grayAlpha[1], 0, 0, 0, grayAlpha[0]};
}

ColorServer::ColorServer(const ColorServer& other)
    : client_(other.client_), forImages_(other.forImages_), forGray_(other.forGray_) {
    if (client_ != nullptr) {
        Call(Procedures().addReference, client_);
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
        Call(Procedures().release, client_);
    }
}

} // namespace tn::vec
