#include "PortDrawing.h"

#include "TnGraphics/draw/TnRasterPort.h"
#include "TnGraphics/runtime/TnGraphicsMem.h"

namespace tn::bench {
namespace {

/// The engines run as long as anybody draws.
std::shared_ptr<TnGraphicsMem> Engines() {
    static const auto engines = std::make_shared<TnGraphicsMem>(1 << 20, BasekitFromAscii("en_US"));
    return engines;
}

struct PortPen {
    TnDrawPort& port;

    static TnFloatPoint At(const Spot& spot) { return {spot.x, spot.y}; }

    void Move(const Spot& to) { port.MoveTo(At(to)); }
    void Line(const Spot& to) { port.LineTo(At(to)); }
    void Curve(const Spot& a, const Spot& b, const Spot& to) { port.CurveTo(At(a), At(b), At(to)); }
    void Close() { port.ClosePath(); }
};

void SetColor(TnDrawPort& port, const TnImage&) {
    const auto part = [](int channel) { return static_cast<float>(channel) / 255.0F; };
    port.RGBColor(part(kPaint.red), part(kPaint.green), part(kPaint.blue), 1.0F);
}

void SetColor(TnDrawPort& port, const TnMatte&) { port.Gray(1.0F); }

template <class SurfaceType> class Canvas {
public:
    Canvas(const std::shared_ptr<SurfaceType>& to, const SharedDrawing& drawing) : to_(to), drawing_(drawing) {}

    void Begin() {
        port_.BeginDrawing(TnDrawPort::kSmooth, 0);
        SetColor(port_, *to_);
        port_.LineWidth(TnFixed::FromDouble(drawing_->lineWidth));
    }

    void Draw() {
        for (const Outline& outline : drawing_->outlines) {
            Draw(outline);
        }
    }

    void BeginDrawEnd() {
        for (const Outline& outline : drawing_->outlines) {
            port_.BeginDrawing(TnDrawPort::kSmooth, 0);
            Draw(outline);
            port_.EndDrawing();
        }
    }

private:
    void Draw(const Outline& outline) {
        PortPen pen = {port_};
        Trace(outline, pen);
        if (drawing_->IsFilled()) {
            port_.Fill();
        } else {
            port_.Stroke();
        }
    }

    std::shared_ptr<TnGraphicsMem> engines_ = Engines();
    std::shared_ptr<SurfaceType> to_;
    SharedDrawing drawing_;
    TnRasterPort port_{*to_};
};

template <class SurfaceType> Work Prepared(const std::shared_ptr<SurfaceType>& to, const SharedDrawing& drawing) {
    const auto canvas = std::make_shared<Canvas<SurfaceType>>(to, drawing);
    canvas->Begin();
    return [canvas] { canvas->Draw(); };
}

template <class SurfaceType> Work Complete(const std::shared_ptr<SurfaceType>& to, const SharedDrawing& drawing) {
    return [canvas = std::make_shared<Canvas<SurfaceType>>(to, drawing)] { canvas->BeginDrawEnd(); };
}

} // namespace

Work PortDraw(const std::shared_ptr<TnImage>& to, const SharedDrawing& drawing) { return Prepared(to, drawing); }
Work PortDraw(const std::shared_ptr<TnMatte>& to, const SharedDrawing& drawing) { return Prepared(to, drawing); }

Work PortBeginDrawEnd(const std::shared_ptr<TnImage>& to, const SharedDrawing& drawing) {
    return Complete(to, drawing);
}
Work PortBeginDrawEnd(const std::shared_ptr<TnMatte>& to, const SharedDrawing& drawing) {
    return Complete(to, drawing);
}

} // namespace tn::bench
