#include "Pictures.h"
#include "Plate.h"
#include "Scene.h"
#include "Sketch.h"

namespace {

void AddZigzag(TnDrawPort& port) {
    port.MoveTo(TnFloatPoint{16, 64});
    port.LineTo(TnFloatPoint{46, 20});
    port.LineTo(TnFloatPoint{74, 64});
    port.LineTo(TnFloatPoint{104, 20});
}

TnImage Capped(TnDrawPort::CapStyle style) {
    return Drawn([style](TnDrawPort& port) {
        port.LineCap(style);
        port.MoveTo(TnFloatPoint{28, 60});
        port.LineTo(TnFloatPoint{92, 24});
        StrokeWide(port, 22, kSky);
        port.MoveTo(TnFloatPoint{28, 60});
        port.LineTo(TnFloatPoint{92, 24});
        port.LineCap(TnDrawPort::kButtCap);
        StrokeThin(port, kNight);
    });
}

TnImage Joined(TnDrawPort::JoinStyle style) {
    return Drawn([style](TnDrawPort& port) {
        port.LineJoin(style);
        AddZigzag(port);
        StrokeWide(port, 16, kSky);
        AddZigzag(port);
        StrokeThin(port, kNight);
    });
}

} // namespace

TnImage ShowStroke() {
    const auto stroked = [](double width) {
        return Drawn([width](TnDrawPort& port) {
            AddPentagram(port);
            StrokeWide(port, width);
        });
    };
    return Plate().Add(stroked(1), "width 1").Add(stroked(4), "width 4").Add(stroked(10), "width 10").Picture();
}

TnImage ShowLineWidth() {
    const auto lines = [](TnDrawPort& port) {
        double y = 8;
        for (const double width : {0.5, 1.0, 2.0, 4.0, 8.0, 12.0}) {
            port.MoveTo(TnFloatPoint{12, y + width / 2});
            port.LineTo(TnFloatPoint{108, y + width / 2});
            StrokeWide(port, width);
            y += width + 8;
        }
    };
    return Plate().Add(Drawn([](TnDrawPort&) {}), "before").Add(Drawn(lines), "0.5, 1, 2, 4, 8, 12").Picture();
}

TnImage ShowLineCap() {
    return Plate()
        .Add(Capped(TnDrawPort::kButtCap), "kButtCap")
        .Add(Capped(TnDrawPort::kRoundCap), "kRoundCap")
        .Add(Capped(TnDrawPort::kSquareCap), "kSquareCap")
        .Picture();
}

TnImage ShowLineJoin() {
    return Plate()
        .Add(Joined(TnDrawPort::kMiterJoin), "kMiterJoin")
        .Add(Joined(TnDrawPort::kRoundJoin), "kRoundJoin")
        .Add(Joined(TnDrawPort::kBevelJoin), "kBevelJoin")
        .Picture();
}
