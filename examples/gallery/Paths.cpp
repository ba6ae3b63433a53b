#include "Pictures.h"
#include "Plate.h"
#include "Scene.h"
#include "Sketch.h"

#include <array>

namespace {

constexpr std::array<TnFloatPoint, 4> kCurve = {{{14, 66}, {30, 4}, {84, 80}, {106, 16}}};

void AddCurve(TnDrawPort& port) {
    port.MoveTo(kCurve[0]);
    port.CurveTo(kCurve[1], kCurve[2], kCurve[3]);
}

} // namespace

TnImage ShowMoveTo() {
    const auto twoParts = [](TnDrawPort& port) {
        port.MoveTo(TnFloatPoint{12, 70});
        port.LineTo(TnFloatPoint{32, 14});
        port.LineTo(TnFloatPoint{52, 70});
        port.MoveTo(TnFloatPoint{68, 70});
        port.LineTo(TnFloatPoint{88, 14});
        port.LineTo(TnFloatPoint{108, 70});
        StrokeWide(port, 4);
    };
    return Plate().Add(Drawn([](TnDrawPort&) {}), "before").Add(Drawn(twoParts), "two parts, stroked").Picture();
}

TnImage ShowCurveTo() {
    const auto withControls = [](TnDrawPort& port) {
        port.MoveTo(kCurve[0]);
        port.LineTo(kCurve[1]);
        port.MoveTo(kCurve[2]);
        port.LineTo(kCurve[3]);
        StrokeThin(port, kRose);
        AddCurve(port);
        StrokeWide(port, 4);
    };
    const auto filled = [](TnDrawPort& port) {
        AddCurve(port);
        port.Fill();
    };
    return Plate().Add(Drawn(withControls), "stroked").Add(Drawn(filled), "filled").Picture();
}

TnImage ShowClosePath() {
    const auto stroked = [](bool isClosed) {
        return Drawn([isClosed](TnDrawPort& port) {
            port.MoveTo(TnFloatPoint{20, 66});
            port.LineTo(TnFloatPoint{60, 16});
            port.LineTo(TnFloatPoint{100, 66});
            if (isClosed) {
                port.ClosePath();
            }
            StrokeWide(port, 10);
        });
    };
    return Plate().Add(stroked(false), "open").Add(stroked(true), "closed").Picture();
}

TnImage ShowDrawRect() {
    const auto filled = [](TnDrawPort& port) {
        port.DrawRect(TnRect{16, 12, 36, 60});
        const TnFixedPoint corner = FixedPoint(64.5, 12.5);
        const TnFixedPoint size = FixedPoint(36.25, 59);
        port.DrawRect(TnFixedRect{corner.x, corner.y, size.x, size.y});
        port.Fill();
    };
    return Plate().Add(Drawn([](TnDrawPort&) {}), "before").Add(Drawn(filled), "two, filled").Picture();
}

// Both parts of the path would be filled.
TnImage ShowNewPath() {
    const auto filled = [](bool isForgotten) {
        return Drawn([isForgotten](TnDrawPort& port) {
            port.DrawRect(TnRect{12, 12, 40, 60});
            if (isForgotten) {
                port.NewPath();
            }
            AddCircle(port, {84, 42}, 26);
            port.Fill();
        });
    };
    return Plate().Add(filled(false), "without").Add(filled(true), "after the rectangle").Picture();
}

TnImage ShowFill() {
    const auto lines = [](TnDrawPort& port) {
        AddPentagram(port);
        StrokeThin(port, kNight);
    };
    const auto filled = [](TnDrawPort& port) {
        AddPentagram(port);
        port.Fill();
    };
    return Plate().Add(Drawn(lines), "the path").Add(Drawn(filled), "filled").Picture();
}

TnImage ShowEvenOddFill() {
    const auto lines = [](TnDrawPort& port) {
        AddPentagram(port);
        StrokeThin(port, kNight);
    };
    const auto filled = [](TnDrawPort& port) {
        AddPentagram(port);
        port.EvenOddFill();
    };
    return Plate().Add(Drawn(lines), "the path").Add(Drawn(filled), "filled").Picture();
}

TnImage ShowClip() {
    const auto clipped = [](TnDrawPort& port) {
        AddPentagram(port);
        port.Clip();
        port.NewPath();
        FillStripes(port);
    };
    return Plate().Add(Drawn(FillStripes), "without").Add(Drawn(clipped), "in the clip").Picture();
}

TnImage ShowEvenOddClip() {
    const auto clipped = [](TnDrawPort& port) {
        AddPentagram(port);
        port.EvenOddClip();
        port.NewPath();
        FillStripes(port);
    };
    return Plate().Add(Drawn(FillStripes), "without").Add(Drawn(clipped), "in the clip").Picture();
}
