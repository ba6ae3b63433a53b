#include "Sketch.h"

#include <cmath>

void AddPentagram(TnDrawPort& port) {
    for (int n = 0; n < 5; ++n) {
        const double angle = DegreesToRadians(144.0 * n - 90.0);
        const TnFloatPoint tip = {60 + 38 * std::cos(angle), 45 + 38 * std::sin(angle)};
        n == 0 ? port.MoveTo(tip) : port.LineTo(tip);
    }
    port.ClosePath();
}

void StrokeThin(TnDrawPort& port, const TnColor& color) {
    StrokeWidth(port, 1);
    PaintWith(port, color);
    port.Stroke();
}

void StrokeWide(TnDrawPort& port, double width, const TnColor& color) {
    StrokeWidth(port, width);
    PaintWith(port, color);
    port.Stroke();
}

void FillStripes(TnDrawPort& port) {
    for (int x = 0; x < kPanel.x; x += 12) {
        port.DrawRect(TnRect{x, 0, 6, kPanel.y});
    }
    PaintWith(port, kRose);
    port.Fill();
}
