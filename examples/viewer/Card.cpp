#include "examples/viewer/Card.h"

#include "examples/Drawing.h"
#include "examples/Layer.h"
#include "examples/PixelText.h"

namespace viewer {
namespace {

constexpr TnPoint kSize = {640, 360};
constexpr TnRect kPanel = {40, 30, 560, 290};
constexpr TnRect kBand = {40, 268, 560, 52};
constexpr TnFloatPoint kEmblem = {172, 150};
constexpr double kEmblemRadius = 88;
constexpr TnColor kInk = {255, 20, 24, 52};
constexpr TnColor kTeal = {255, 30, 96, 122};
constexpr TnColor kGold = {255, 255, 176, 32};
constexpr TnColor kPaper = {255, 252, 249, 242};
constexpr TnColor kPale = {255, 176, 200, 214};

// Letters of height 1 from their top-left corner on.

void AddA(TnDrawPort& port) {
    port.MoveTo(TnFloatPoint{0.0, 1.0});
    port.LineTo(TnFloatPoint{0.4, 0.0});
    port.LineTo(TnFloatPoint{0.8, 1.0});
    port.MoveTo(TnFloatPoint{0.14, 0.66});
    port.LineTo(TnFloatPoint{0.66, 0.66});
}

void AddL(TnDrawPort& port) {
    port.MoveTo(TnFloatPoint{0.0, 0.0});
    port.LineTo(TnFloatPoint{0.0, 1.0});
    port.LineTo(TnFloatPoint{0.5, 1.0});
}

void AddP(TnDrawPort& port) {
    port.MoveTo(TnFloatPoint{0.0, 1.0});
    port.LineTo(TnFloatPoint{0.0, 0.0});
    port.LineTo(TnFloatPoint{0.28, 0.0});
    port.CurveTo(TnFloatPoint{0.67, 0.0}, TnFloatPoint{0.67, 0.58}, TnFloatPoint{0.28, 0.58});
    port.LineTo(TnFloatPoint{0.0, 0.58});
}

void AddS(TnDrawPort& port) {
    port.MoveTo(TnFloatPoint{0.56, 0.14});
    port.CurveTo(TnFloatPoint{0.48, 0.05}, TnFloatPoint{0.39, 0.0}, TnFloatPoint{0.29, 0.0});
    port.CurveTo(TnFloatPoint{0.13, 0.0}, TnFloatPoint{0.02, 0.1}, TnFloatPoint{0.02, 0.25});
    port.CurveTo(TnFloatPoint{0.02, 0.42}, TnFloatPoint{0.16, 0.46}, TnFloatPoint{0.3, 0.5});
    port.CurveTo(TnFloatPoint{0.46, 0.545}, TnFloatPoint{0.58, 0.6}, TnFloatPoint{0.58, 0.76});
    port.CurveTo(TnFloatPoint{0.58, 0.9}, TnFloatPoint{0.46, 1.0}, TnFloatPoint{0.29, 1.0});
    port.CurveTo(TnFloatPoint{0.17, 1.0}, TnFloatPoint{0.07, 0.95}, TnFloatPoint{0.0, 0.86});
}

void DrawWord(TnDrawPort& port) {
    constexpr double kHeight = 67;
    constexpr double kLetterSpace = 0.34;
    port.Translate(FixedPoint(318, 102));
    port.Scale(FixedPoint(kHeight, kHeight));
    AddA(port);
    port.Translate(FixedPoint(0.8 + kLetterSpace, 0));
    AddL(port);
    port.Translate(FixedPoint(0.5 + kLetterSpace - 0.04, 0));
    AddP(port);
    port.Translate(FixedPoint(0.57 + kLetterSpace - 0.04, 0));
    AddS(port);
    port.LineCap(TnDrawPort::kRoundCap);
    port.LineJoin(TnDrawPort::kRoundJoin);
    StrokeWidth(port, 0.17);
    port.Stroke();
}

Layer Panel() {
    const auto draw = [](TnDrawPort& port) {
        port.DrawRect(kPanel);
        port.Fill();
    };
    Layer panel(kSize);
    Draw(panel.outline, draw);
    DrawInColors(panel.image, Gradient(kSize, kInk, kTeal, {kSize.x, 0}), draw);
    ColorFill(panel.image, kBand, kGold);
    DrawText(panel.image, {312, 198}, "Summits and seasons", kPale, 2);
    DrawText(panel.image, {312, 284}, "Tonight at nine", kInk, 2);
    return panel;
}

Layer Front() {
    Layer front(kSize);
    Draw(front.outline, [](TnDrawPort& port) {
        AddCircle(port, kEmblem, kEmblemRadius);
        port.Fill();
        DrawWord(port);
    });
    Draw(front.image, [](TnDrawPort& port) {
        DrawEmblem(port, kEmblem, kEmblemRadius);
        PaintWith(port, kPaper);
        DrawWord(port);
    });
    return front;
}

} // namespace

TnImage DrawCard() {
    const TnGraphicsMem graphics(1 << 20, BasekitFromAscii("en_US"));
    TnImage card(kSize, true);
    Place(Panel(), {0, 0}, 255, {{16, 8, 150}}, card);
    Place(Front(), {0, 0}, 255, {{8, 4, 150}}, card);
    return card;
}

} // namespace viewer
