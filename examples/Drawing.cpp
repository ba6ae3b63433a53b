#include "Drawing.h"

#include <cmath>

namespace {

constexpr TnColor kDusk = {255, 33, 38, 84};
constexpr TnColor kGlow = {255, 232, 104, 84};
constexpr TnColor kSun = {255, 255, 196, 72};
constexpr TnColor kFarRange = {255, 84, 82, 132};
constexpr TnColor kSnow = {255, 250, 246, 236};
constexpr TnColor kShade = {255, 164, 172, 202};
constexpr TnColor kLake = {255, 14, 20, 46};

/// Control points that make a quarter of a circle lie this share of the radius from its ends.
constexpr double kQuarter = 0.5522847498;

// The emblem is drawn 200 units wide around its middle.

void FillDisc(TnDrawPort& port, const TnFloatPoint& centre, double radius, const TnColor& color, double opacity = 1.0) {
    AddCircle(port, centre, radius);
    PaintWith(port, color, opacity);
    port.Fill();
}

void DrawSky(TnDrawPort& port) {
    constexpr TnFloatPoint kSunPlace = {30, -12};
    FillDisc(port, {0, 0}, 100, kDusk);
    for (double radius = 96; radius > 36; radius -= 19) {
        FillDisc(port, kSunPlace, radius, kGlow, 0.24);
    }
    FillDisc(port, kSunPlace, 25, kSun);
}

void DrawFarRange(TnDrawPort& port) {
    port.MoveTo(TnFloatPoint{-110, 34});
    port.CurveTo(TnFloatPoint{-84, 22}, TnFloatPoint{-72, 2}, TnFloatPoint{-56, -4});
    port.CurveTo(TnFloatPoint{-30, 20}, TnFloatPoint{10, 22}, TnFloatPoint{34, 30});
    port.CurveTo(TnFloatPoint{48, 18}, TnFloatPoint{54, 10}, TnFloatPoint{62, 6});
    port.CurveTo(TnFloatPoint{78, 16}, TnFloatPoint{94, 26}, TnFloatPoint{110, 30});
    port.LineTo(TnFloatPoint{110, 110});
    port.LineTo(TnFloatPoint{-110, 110});
    port.ClosePath();
    PaintWith(port, kFarRange);
    port.Fill();
}

void DrawPeak(TnDrawPort& port) {
    port.MoveTo(TnFloatPoint{-18, -60});
    port.CurveTo(TnFloatPoint{-4, -38}, TnFloatPoint{14, -20}, TnFloatPoint{28, 0});
    port.CurveTo(TnFloatPoint{46, 26}, TnFloatPoint{64, 42}, TnFloatPoint{96, 60});
    port.LineTo(TnFloatPoint{-100, 60});
    port.CurveTo(TnFloatPoint{-70, 32}, TnFloatPoint{-40, -22}, TnFloatPoint{-18, -60});
    port.ClosePath();
    PaintWith(port, kSnow);
    port.Fill();
    // The side away from the sun, down along the ridge.
    port.MoveTo(TnFloatPoint{-18, -60});
    port.CurveTo(TnFloatPoint{-40, -22}, TnFloatPoint{-70, 32}, TnFloatPoint{-100, 60});
    port.LineTo(TnFloatPoint{4, 60});
    port.CurveTo(TnFloatPoint{-30, 44}, TnFloatPoint{10, 22}, TnFloatPoint{-14, 2});
    port.CurveTo(TnFloatPoint{-30, -12}, TnFloatPoint{-8, -30}, TnFloatPoint{-18, -60});
    port.ClosePath();
    PaintWith(port, kShade);
    port.Fill();
}

void AddRipple(TnDrawPort& port, double y, double from, double to) {
    port.MoveTo(TnFloatPoint{from, y});
    port.LineTo(TnFloatPoint{to, y});
}

// A lake in which the sun glitters.
void DrawLake(TnDrawPort& port) {
    AddRectangle(port, {-110, 44, 220, 70});
    PaintWith(port, kLake);
    port.Fill();
    AddRipple(port, 55, -8, 58);
    AddRipple(port, 66, 6, 46);
    AddRipple(port, 77, 20, 34);
    port.LineCap(TnDrawPort::kRoundCap);
    StrokeWidth(port, 5);
    PaintWith(port, kSun);
    port.Stroke();
}

void DrawRim(TnDrawPort& port) {
    AddCircle(port, {0, 0}, 95);
    StrokeWidth(port, 10);
    PaintWith(port, kSnow);
    port.Stroke();
}

void DrawCorner(TnDrawPort& port, const TnFloatPoint& corner, const TnFloatPoint& inwards) {
    port.MoveTo(TnFloatPoint{corner.x + inwards.x, corner.y});
    port.LineTo(corner);
    port.LineTo(TnFloatPoint{corner.x, corner.y + inwards.y});
}

} // namespace

TnFixedPoint FixedPoint(double x, double y) { return {TnFixed::FromDouble(x), TnFixed::FromDouble(y)}; }

void PaintWith(TnDrawPort& port, const TnColor& color, double opacity) {
    const auto share = [](double level) { return static_cast<float>(level / 255.0); };
    port.RGBColor(share(color.red), share(color.green), share(color.blue), share(opacity * color.alpha));
}

void StrokeWidth(TnDrawPort& port, double width) { port.LineWidth(TnFixed::FromDouble(width)); }

void AddCircle(TnDrawPort& port, const TnFloatPoint& centre, double radius) {
    const auto at = [&](double x, double y) { return TnFloatPoint{centre.x + radius * x, centre.y + radius * y}; };
    port.MoveTo(at(1, 0));
    port.CurveTo(at(1, kQuarter), at(kQuarter, 1), at(0, 1));
    port.CurveTo(at(-kQuarter, 1), at(-1, kQuarter), at(-1, 0));
    port.CurveTo(at(-1, -kQuarter), at(-kQuarter, -1), at(0, -1));
    port.CurveTo(at(kQuarter, -1), at(1, -kQuarter), at(1, 0));
    port.ClosePath();
}

void AddRectangle(TnDrawPort& port, const TnFloatRect& rect) {
    const TnFixedPoint corner = FixedPoint(rect.left, rect.top);
    const TnFixedPoint size = FixedPoint(rect.width, rect.height);
    port.DrawRect(TnFixedRect{corner.x, corner.y, size.x, size.y});
}

void AddLeaningBar(TnDrawPort& port, const TnFloatRect& rect, double lean, double radius) {
    const double bottom = rect.top + rect.height;
    const double right = rect.left + rect.width;
    const double length = std::hypot(lean, rect.height);
    // A place on the leaning side, some way below its top.
    const auto below = [&](double way) {
        return TnFloatPoint{right - lean * way / length, rect.top + rect.height * way / length};
    };
    port.MoveTo(TnFloatPoint{rect.left, rect.top});
    port.LineTo(TnFloatPoint{right - radius, rect.top});
    port.CurveTo(below(0), below(0), below(radius));
    port.LineTo(below(length - radius));
    port.CurveTo(below(length), below(length), TnFloatPoint{right - lean - radius, bottom});
    port.LineTo(TnFloatPoint{rect.left, bottom});
    port.ClosePath();
}

void DrawEmblem(TnDrawPort& port, const TnFloatPoint& centre, double radius) {
    port.SaveState();
    port.Translate(FixedPoint(centre.x, centre.y));
    port.Scale(FixedPoint(radius / 100, radius / 100));
    port.SaveState();
    AddCircle(port, {0, 0}, 95);
    port.Clip();
    port.NewPath();
    DrawSky(port);
    DrawFarRange(port);
    DrawPeak(port);
    DrawLake(port);
    port.RestoreState();
    DrawRim(port);
    port.RestoreState();
}

void DrawBounds(TnDrawPort& port, const TnRect& rect, const TnColor& line, const TnColor& corners) {
    constexpr double kCorner = 26;
    port.DrawRect(rect);
    StrokeWidth(port, 1.5);
    PaintWith(port, line);
    port.Stroke();
    const double right = rect.left + rect.width;
    const double bottom = rect.top + rect.height;
    DrawCorner(port, {1.0 * rect.left, 1.0 * rect.top}, {kCorner, kCorner});
    DrawCorner(port, {right, 1.0 * rect.top}, {-kCorner, kCorner});
    DrawCorner(port, {right, bottom}, {-kCorner, -kCorner});
    DrawCorner(port, {1.0 * rect.left, bottom}, {kCorner, -kCorner});
    StrokeWidth(port, 4);
    PaintWith(port, corners);
    port.Stroke();
}

// Two pixels, enlarged.
TnImage Gradient(const TnPoint& size, const TnColor& from, const TnColor& to, const TnPoint& along) {
    TnImage ends({2, 1});
    ends.Set(from, 0, 0);
    ends.Set(to, 1, 0);
    const double square = 1.0 * along.x * along.x + 1.0 * along.y * along.y;
    Matrix<double, 3, 3> toEnds;
    toEnds.m[0][0] = along.x / square;
    toEnds.m[0][1] = along.y / square;
    TnImage gradient(size);
    Transform(ends, gradient, toEnds, InterpolationType::kSmooth);
    return gradient;
}
