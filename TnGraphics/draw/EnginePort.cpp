#include "TnGraphics/draw/EnginePort.h"

#include "TnGraphics/draw/CKelError.h"
#include "TnGraphics/draw/EngineErrors.h"
#include "TnGraphics/port/Raise.h"

#include <memory>
#include <new>
#include <utility>

namespace tn {
namespace {

constinit ProcedureTable<abi::NewRasterPort, abi::kNewRasterPortProcedures.size()>
    newPorts(abi::kNewRasterPortInterface, abi::kNewRasterPortProcedures);
constinit ProcedureTable<abi::Port, abi::kPortProcedures.size()> ports(abi::kRasterPortInterface, abi::kPortProcedures);
constinit ProcedureTable<abi::GStatePort, abi::kGStatePortProcedures.size()> gstatePorts(abi::kGStatePortInterface,
                                                                                         abi::kGStatePortProcedures);
constinit ProcedureTable<abi::Color, abi::kColorProcedures.size()> colors(abi::kColorInterface, abi::kColorProcedures);

/// A new colour's one reference.
class OwnColor {
public:
    OwnColor(HuexColorSpace space, const float* components, std::int32_t count)
        : color_(TheBinding().Valid(colors).At<HuexNewColorType>(abi::Color::kNewColor)(space, components, count)) {
        if (color_ == nullptr) {
            RaiseBadAllocation();
        }
    }
    ~OwnColor() {
        if (TheBinding().Validate(colors.Cache(), Need::kOptional)) { // else its colour went away with the interface
            colors.At<HuexColorReleaseType>(abi::Color::kRelease)(color_);
        }
    }
    OwnColor(const OwnColor&) = delete;
    OwnColor& operator=(const OwnColor&) = delete;

    HuexColor Get() const { return color_; }

private:
    HuexColor color_;
};

} // namespace

void* EnginePort::ProcedureAt(abi::Port place) { return TheBinding().Valid(ports).At<void*>(place); }

EnginePort* EnginePort::New(const VecBitmap& bitmap) {
    const auto make =
        TheBinding().Valid(newPorts).At<VecRasterPortNewBitmapPortV3Type>(abi::NewRasterPort::kNewBitmapPort);
    TheBinding().Valid(ports);
    VecPort port = nullptr;
    ThrowIfError(make(&bitmap, &port));
    if (port == nullptr) {
        return nullptr;
    }
    try {
        return new EnginePort(port);
    } catch (const std::bad_alloc&) {
        Procedure<VecPortCommandType>(abi::Port::kRelease)(port);
        RaiseBadAllocation();
    }
}

EnginePort::~EnginePort() { Release(); }

void EnginePort::SetColor(HuexColorSpace space, const float* components, std::int32_t count) const {
    TheBinding().Valid(ports); // before a colour is made in vain
    const OwnColor color(space, components, count);
    Call<VecPortSetColorServerV4Type>(abi::Port::kSetColorServer, color.Get(), std::int32_t{0}, std::int32_t{0});
}

void EnginePort::SetMatrix(const VecMatrix& matrix) const {
    const VecPort gstate = Call<VecPortGetGStatePortType>(abi::Port::kGetGStatePort);
    if (gstate == nullptr || !TheBinding().Validate(gstatePorts.Cache(), Need::kOptional)) {
        return;
    }
    gstatePorts.At<VecGStatePortSetMatrixType>(abi::GStatePort::kSetMatrix)(gstate, matrix.a, matrix.b, matrix.c,
                                                                            matrix.d, matrix.tx, matrix.ty);
}

void EnginePort::GiveUp() noexcept {
    Release();
    if (isAbandoned_) {
        delete this;
    }
}

void EnginePort::Release() noexcept {
    const VecPort port = std::exchange(port_, nullptr);
    if (port == nullptr) {
        return;
    }
    try {
        Procedure<VecPortCommandType>(abi::Port::kRelease)(port);
    } catch (const CKelError&) { // whoever took the interface away took the port with it
    }
}

} // namespace tn
