#include "Pictures.h"
#include "Plate.h"
#include "Scene.h"
#include "Sketch.h"

namespace {

void AddHouse(TnDrawPort& port) {
    port.MoveTo(TnFloatPoint{10, 40});
    port.LineTo(TnFloatPoint{10, 20});
    port.LineTo(TnFloatPoint{25, 6});
    port.LineTo(TnFloatPoint{40, 20});
    port.LineTo(TnFloatPoint{40, 40});
    port.ClosePath();
}

void FillHouse(TnDrawPort& port, const TnColor& color) {
    AddHouse(port);
    PaintWith(port, color);
    port.Fill();
}

TnImage House() {
    return Drawn([](TnDrawPort& port) { FillHouse(port, kNight); });
}

/// The house in rose, drawn after the change, above where it was.
template <class Work> TnImage HouseAfter(const Work& change) {
    return Drawn([&](TnDrawPort& port) {
        FillHouse(port, kSky);
        change(port);
        FillHouse(port, kRose);
    });
}

// Enlarged four times, so that edges can be seen.
TnImage Edges(TnDrawPort::AntiAliasPolicy policy) {
    TnImage small({kPanel.x / 4, kPanel.y / 4});
    ColorFill(small, small.Bounds(), kPaper);
    const auto work = [](TnDrawPort& port) {
        PaintWith(port, kNight);
        AddCircle(port, {10, 10}, 8.2);
        port.Fill();
        port.MoveTo(TnFloatPoint{19, 20});
        port.LineTo(TnFloatPoint{28, 1});
        StrokeWide(port, 0.4);
    };
    Draw(small, work, policy);
    TnImage panel(kPanel);
    Transform(small, panel, MakeMatrix<double>::Scale(0.25, 0.25), InterpolationType::kNearest);
    return panel;
}

} // namespace

// A disc between the two that the clip has no effect on.
TnImage ShowSaveState() {
    const auto work = [](bool isKept) {
        return Drawn([isKept](TnDrawPort& port) {
            if (isKept) {
                port.SaveState();
            }
            port.DrawRect(TnRect{0, 0, 60, 84});
            port.Clip();
            port.NewPath();
            FillStripes(port);
            if (isKept) {
                port.RestoreState();
            }
            AddCircle(port, {60, 42}, 26);
            port.Fill();
        });
    };
    return Plate().Add(work(false), "without").Add(work(true), "saved and restored").Picture();
}

TnImage ShowTranslatePort() {
    const TnImage moved = HouseAfter([](TnDrawPort& port) { port.Translate(FixedPoint(64, 34)); });
    return Plate().Add(House(), "before").Add(moved, "by (64, 34)").Picture();
}

TnImage ShowScalePort() {
    const TnImage scaled = HouseAfter([](TnDrawPort& port) { port.Scale(FixedPoint(2.5, 1.75)); });
    return Plate().Add(House(), "before").Add(scaled, "by 2.5 and 1.75").Picture();
}

TnImage ShowSetMatrix() {
    Matrix<double, 3, 3> matrix = MakeMatrix<double>::Rotate(35);
    matrix.m[0][2] = 68;
    matrix.m[1][2] = 14;
    const TnImage turned = HouseAfter([&](TnDrawPort& port) { port.SetMatrix(matrix); });
    return Plate().Add(House(), "before").Add(turned, "turned and moved").Picture();
}

TnImage ShowGray() {
    const auto steps = [](TnDrawPort& port) {
        for (int n = 0; n <= 5; ++n) {
            port.Gray(static_cast<float>(n) / 5);
            port.DrawRect(TnRect{20 * n, 12, 20, 60});
            port.Fill();
        }
    };
    return Plate().Add(Drawn([](TnDrawPort&) {}), "before").Add(Drawn(steps), "0, 0.2 to 1").Picture();
}

TnImage ShowRGBColor() {
    const auto discs = [](TnDrawPort& port) {
        constexpr double kRadius = 24;
        AddCircle(port, {46, 34}, kRadius);
        port.RGBColor(0.9F, 0.2F, 0.4F, 0.6F);
        port.Fill();
        AddCircle(port, {74, 34}, kRadius);
        port.RGBColor(0.2F, 0.5F, 0.9F, 0.6F);
        port.Fill();
        AddCircle(port, {60, 54}, kRadius);
        port.RGBColor(1, 0.7F, 0.1F, 0.6F);
        port.Fill();
    };
    return Plate().Add(Drawn([](TnDrawPort&) {}), "before").Add(Drawn(discs), "alpha 0.6").Picture();
}

TnImage ShowBeginDrawing() {
    return Plate(2)
        .Add(Edges(TnDrawPort::kSmooth), "kSmooth")
        .Add(Edges(TnDrawPort::kHard), "kHard")
        .Add(Edges(TnDrawPort::kHardThinLines), "kHardThinLines")
        .Add(Edges(TnDrawPort::kSmoothThinLines), "kSmoothThinLines")
        .Picture();
}

TnImage ShowTnRasterPort() {
    const auto work = [](TnDrawPort& port) {
        AddPentagram(port);
        port.EvenOddFill();
    };
    TnImage image = Landscape();
    Draw(image, work);
    TnMatte matte(kPanel, true);
    Draw(matte, work);
    TnMask mask(kPanel, true);
    Draw(mask, work);
    return Plate().Add(image, "on an image").Add(matte, "on a matte").Add(ToMatte(mask), "on a mask").Picture();
}
