#include "TnGraphics/draw/TnDrawPort.h"

#include "TnGraphics/draw/EngineErrors.h"
#include "TnGraphics/draw/EnginePort.h"

#include <cstdint>

namespace {

using tn::EnginePort;
using tn::abi::Port;

using OwnPort = std::unique_ptr<EnginePort>;

bool IsLive(const OwnPort& port) { return port != nullptr && port->IsAlive(); }

// What calls are forwarded to, if there is anything.
const EnginePort& Live(const OwnPort& port) {
    if (!IsLive(port)) {
        tn::ThrowNewError("Missing Interface");
    }
    return *port;
}

// As the engine takes coordinates: in single precision.

float Narrowed(std::int64_t whole) { return static_cast<float>(whole); }
float Narrowed(double number) { return static_cast<float>(number); }
float FromRaw(std::int64_t raw) { return static_cast<float>(raw) * 1.52587890625e-05F; }
float Narrowed(TnFixed fixed) { return FromRaw(fixed.raw); }

template <class Point> void AddPoint(const EnginePort& port, Port verb, const Point& to) {
    port.Call<VecPortPointType>(verb, Narrowed(to.x), Narrowed(to.y));
}
void AddPoint(const EnginePort& port, Port verb, const TnPoint& to) {
    port.Call<VecPortPointType>(verb, Narrowed(std::int64_t{to.x}), Narrowed(std::int64_t{to.y}));
}

template <class Point>
void AddCurve(const EnginePort& port, const Point& control1, const Point& control2, const Point& to) {
    port.Call<VecPortCurveType>(Port::kCurveTo, Narrowed(control1.x), Narrowed(control1.y), Narrowed(control2.x),
                                Narrowed(control2.y), Narrowed(to.x), Narrowed(to.y));
}

// The first corner is visited twice, by the last line and by the close.
void AddRect(const EnginePort& port, float left, float top, float right, float bottom) {
    port.Call<VecPortPointType>(Port::kMoveTo, left, top);
    port.Call<VecPortPointType>(Port::kLineTo, right, top);
    port.Call<VecPortPointType>(Port::kLineTo, right, bottom);
    port.Call<VecPortPointType>(Port::kLineTo, left, bottom);
    port.Call<VecPortPointType>(Port::kLineTo, left, top);
    port.Call<VecPortCommandType>(Port::kClosePath);
}

void Paint(const EnginePort& port, Port procedure) { tn::ThrowIfError(port.Call<VecPortPaintType>(procedure)); }

} // namespace

TnDrawPort::TnDrawPort() = default;
TnDrawPort::~TnDrawPort() = default;

void TnDrawPort::NewPath() { Live(enginePort_).Call<VecPortCommandType>(Port::kNewPath); }

void TnDrawPort::MoveTo(const TnPoint& to) { AddPoint(Live(enginePort_), Port::kMoveTo, to); }
void TnDrawPort::MoveTo(const TnFixedPoint& to) { AddPoint(Live(enginePort_), Port::kMoveTo, to); }
void TnDrawPort::MoveTo(const TnFloatPoint& to) { AddPoint(Live(enginePort_), Port::kMoveTo, to); }

void TnDrawPort::LineTo(const TnPoint& to) { AddPoint(Live(enginePort_), Port::kLineTo, to); }
void TnDrawPort::LineTo(const TnFixedPoint& to) { AddPoint(Live(enginePort_), Port::kLineTo, to); }
void TnDrawPort::LineTo(const TnFloatPoint& to) { AddPoint(Live(enginePort_), Port::kLineTo, to); }

void TnDrawPort::CurveTo(const TnFixedPoint& control1, const TnFixedPoint& control2, const TnFixedPoint& to) {
    AddCurve(Live(enginePort_), control1, control2, to);
}
void TnDrawPort::CurveTo(const TnFloatPoint& control1, const TnFloatPoint& control2, const TnFloatPoint& to) {
    AddCurve(Live(enginePort_), control1, control2, to);
}

void TnDrawPort::ClosePath() { Live(enginePort_).Call<VecPortCommandType>(Port::kClosePath); }

void TnDrawPort::DrawRect(const TnRect& rect) {
    AddRect(Live(enginePort_), Narrowed(std::int64_t{rect.left}), Narrowed(std::int64_t{rect.top}),
            Narrowed(std::int64_t{rect.left} + rect.width), Narrowed(std::int64_t{rect.top} + rect.height));
}
void TnDrawPort::DrawRect(const TnFixedRect& rect) {
    AddRect(Live(enginePort_), FromRaw(rect.left.raw), FromRaw(rect.top.raw),
            FromRaw(std::int64_t{rect.left.raw} + rect.width.raw),
            FromRaw(std::int64_t{rect.top.raw} + rect.height.raw));
}

void TnDrawPort::Clip() { Paint(Live(enginePort_), Port::kClip); }
void TnDrawPort::EvenOddClip() { Paint(Live(enginePort_), Port::kEOClip); }
void TnDrawPort::Fill() { Paint(Live(enginePort_), Port::kFill); }
void TnDrawPort::EvenOddFill() { Paint(Live(enginePort_), Port::kEOFill); }
void TnDrawPort::Stroke() { Paint(Live(enginePort_), Port::kStroke); }

void TnDrawPort::SaveState() { Live(enginePort_).Call<VecPortCommandType>(Port::kGSave); }
void TnDrawPort::RestoreState() { Live(enginePort_).Call<VecPortCommandType>(Port::kGRestore); }

void TnDrawPort::LineWidth(const TnFixed& width) {
    Live(enginePort_).Call<VecPortNumberType>(Port::kSetLineWidth, Narrowed(width));
}
void TnDrawPort::LineCap(CapStyle style) {
    Live(enginePort_).Call<VecPortChoiceType>(Port::kSetLineCap, static_cast<std::int32_t>(style));
}
void TnDrawPort::LineJoin(JoinStyle style) {
    Live(enginePort_).Call<VecPortChoiceType>(Port::kSetLineJoin, static_cast<std::int32_t>(style));
}

void TnDrawPort::Translate(const TnFixedPoint& by) { AddPoint(Live(enginePort_), Port::kTranslate, by); }
void TnDrawPort::Scale(const TnFixedPoint& by) { AddPoint(Live(enginePort_), Port::kScale, by); }

void TnDrawPort::SetMatrix(const Matrix<double, 3, 3>& matrix) {
    const auto& m = matrix.m;
    Live(enginePort_)
        .SetMatrix({Narrowed(m[0][0]), Narrowed(m[1][0]), Narrowed(m[0][1]), Narrowed(m[1][1]), Narrowed(m[0][2]),
                    Narrowed(m[1][2])});
}

void TnDrawPort::Gray(float gray) { Live(enginePort_).SetColor<1>(kHuexGray, {gray}); }

void TnDrawPort::RGBColor(float red, float green, float blue, float alpha) {
    Live(enginePort_).SetColor<4>(kHuexAlphaRgb, {alpha, red, green, blue});
}

long TnDrawPort::Error() const {
    return IsLive(enginePort_) && enginePort_->Call<VecPortGetErrorType>(Port::kGetKelError) != nullptr ? 1 : 0;
}
