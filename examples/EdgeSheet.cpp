#include "EdgeSheet.h"

#include "ContactSheet.h"
#include "Drawing.h"
#include "Picture.h"
#include "Shapes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <string>

namespace {

constexpr TnPoint kDrawn = {80, 60};
constexpr int kStrength = 3;
constexpr TnPoint kTile = {400, 300};
constexpr TnColor kInk = {255, 20, 24, 52};
constexpr TnColor kPaper = {255, 252, 249, 242};
constexpr TnColor kGold = {255, 255, 176, 32};

using Work = std::function<void(TnDrawPort&)>;

TnMatte DrawnHard(const Work& work) {
    TnMatte matte(kDrawn, true);
    Draw(matte, work, TnDrawPort::kHard);
    return matte;
}

TnMatte DrawnSmooth(const Work& work) {
    TnMatte matte(kDrawn, true);
    Draw(matte, work);
    return matte;
}

TnMatte SampledDown(const Work& work) {
    TnMask mask({kMaskScale * kDrawn.x, kMaskScale * kDrawn.y}, true);
    Draw(mask, [&work](TnDrawPort& port) {
        port.Scale(FixedPoint(kMaskScale, kMaskScale));
        work(port);
    });
    TnMatte matte(kDrawn, true);
    DownSample(mask, matte, {0, 0});
    return matte;
}

TnImage Shown(const TnMatte& matte, const TnColor& color) {
    TnImage drawn(kDrawn);
    ColorFill(drawn, drawn.Bounds(), color);
    TnCopyAlpha(matte, drawn, {0, 0});
    BlendInColorAndFillAlpha(drawn, kInk, 255);
    return Magnified(drawn, drawn.Bounds(), kTile);
}

TnMatte Difference(TnMatte a, TnMatte b) {
    auto other = b.begin();
    for (auto value = a.begin(); !value.AtEnd(); ++value, ++other) {
        *value = static_cast<std::uint8_t>(std::abs(int{value->value} - int{other->value}));
    }
    return a;
}

// Faint values made plain.
TnMatte Stronger(TnMatte matte) {
    for (TnMattePixel& pixel : matte) {
        pixel = static_cast<std::uint8_t>(std::min(kStrength * int{pixel.value}, 255));
    }
    return matte;
}

int Largest(TnMatte matte) {
    int largest = 0;
    for (const TnMattePixel pixel : matte) {
        largest = std::max<int>(largest, pixel.value);
    }
    return largest;
}

void DrawLetters(TnDrawPort& port, const Typeface& type) {
    type.bold.AddText(port, {6, 43}, U"Rg", {46});
    type.light.AddText(port, {61.5, 43}, U"f", {46});
    port.Fill();
}

void DrawSmallPrint(TnDrawPort& port, const Typeface& type) {
    type.bold.AddText(port, {3, 14}, U"Last light", {14});
    type.light.AddText(port, {3, 29}, U"Above the tree", {11});
    type.light.AddText(port, {3, 42}, U"line, a winter", {11});
    type.light.AddText(port, {3, 54}, U"Alpine Research", {9});
    port.Fill();
}

// Lines from one point, from a quarter of a pixel to two pixels wide.
void DrawFan(TnDrawPort& port) {
    constexpr int kLines = 8;
    for (int n = 0; n < kLines; ++n) {
        const double angle = DegreesToRadians(3.0 + 84.0 * n / (kLines - 1));
        port.MoveTo(TnFloatPoint{3 + 12 * std::cos(angle), 57 - 12 * std::sin(angle)});
        port.LineTo(TnFloatPoint{3 + 74 * std::cos(angle), 57 - 52 * std::sin(angle)});
        StrokeWidth(port, 0.25 * (n + 1));
        port.Stroke();
    }
}

void DrawRings(TnDrawPort& port) {
    for (double radius = 3; radius < 28; radius += 4) {
        AddCircle(port, {40, 30}, radius);
        StrokeWidth(port, radius / 9);
        port.Stroke();
    }
}

void AddRow(ContactSheet& sheet, const std::string& name, const Work& work) {
    const TnMatte sampled = SampledDown(work);
    const TnMatte smooth = DrawnSmooth(work);
    const TnMatte difference = Difference(sampled, smooth);
    sheet.Add(Shown(DrawnHard(work), kPaper), name, "drawn hard");
    sheet.Add(Shown(sampled, kPaper), name, "a larger mask, sampled down");
    sheet.Add(Shown(smooth, kPaper), name, "a matte, drawn smooth");
    sheet.Add(Shown(Stronger(difference), kGold), "Their difference, 3 times",
              "at most " + std::to_string(Largest(difference)) + " of 255");
}

} // namespace

TnImage MakeEdgeSheet(const Typeface& type) {
    ContactSheet sheet(kTile, 4, 4, "Masks sampled down, and mattes drawn smooth",
                       "A cell of a mask tells 14 coverages apart, a matte 256. All is magnified 5 times");
    AddRow(sheet, "Letters", [&type](TnDrawPort& port) { DrawLetters(port, type); });
    AddRow(sheet, "Small print", [&type](TnDrawPort& port) { DrawSmallPrint(port, type); });
    AddRow(sheet, "Lines of 0.25 to 2 pixels", DrawFan);
    AddRow(sheet, "Rings", DrawRings);
    return sheet.Picture();
}
