#include "../Drawing.h"
#include "../Mapping.h"
#include "../Picture.h"
#include "Pictures.h"
#include "Plate.h"
#include "Scene.h"

namespace {

using Make = MakeMatrix<double>;

constexpr TnFloatPoint kMiddle = {kPanel.x / 2.0, kPanel.y / 2.0};

// A transform asks where each pixel comes from, so the matrix is that of the way back.
TnImage Moved(const TnImage& image, const Mapping& mapping, InterpolationType type = InterpolationType::kSmooth) {
    TnImage moved(kPanel);
    Transform(image, moved, Inverse(mapping), type);
    return moved;
}

TnImage BeforeAndMoved(const Mapping& mapping, std::string_view caption) {
    return Plate().Add(Landscape(), "before").Add(Moved(Landscape(), mapping), caption).Picture();
}

TnImage BeforeAndMovedAboutMiddle(const Mapping& mapping, std::string_view caption) {
    return BeforeAndMoved(About(kMiddle, mapping), caption);
}

TnImage Large() {
    TnImage large({8 * kPanel.x, 8 * kPanel.y}, true);
    Draw(large, [](TnDrawPort& port) { DrawEmblem(port, {4.0 * kPanel.x, 4.0 * kPanel.y}, 330); });
    return large;
}

TnImage Reduced(InterpolationType type) {
    TnImage reduced(kPanel);
    Transform(Large(), reduced, Make::Scale(8, 8), type);
    return reduced;
}

void StrokeBox(TnImage& image, const TnFloatBox& box, const TnColor& color) {
    Draw(image, [&](TnDrawPort& port) {
        port.MoveTo(box.corners[0]);
        port.LineTo(box.corners[1]);
        port.LineTo(box.corners[2]);
        port.LineTo(box.corners[3]);
        port.ClosePath();
        StrokeWidth(port, 2);
        PaintWith(port, color);
        port.Stroke();
    });
}

} // namespace

TnImage ShowTransform() {
    const Mapping turn = About(kMiddle, Make::Rotate(20));
    return Plate()
        .Add(Landscape(), "before")
        .Add(Moved(Landscape(), turn, InterpolationType::kNearest), "nearest")
        .Add(Moved(Landscape(), turn), "smooth")
        .Picture();
}

TnImage ShowTransformEnlarged() {
    const Mapping enlarge = Product(Make::Scale(8, 8), Make::Translate(-90, -20));
    return Plate()
        .Add(Landscape(), "before")
        .Add(Moved(Landscape(), enlarge, InterpolationType::kNearest), "nearest")
        .Add(Moved(Landscape(), enlarge), "smooth")
        .Picture();
}

TnImage ShowTransformReduced() {
    return Plate()
        .Add(Reduced(InterpolationType::kNearest), "nearest of 8 x 8")
        .Add(Reduced(InterpolationType::kSmooth), "mean of a box")
        .Picture();
}

TnImage ShowTransformMatte() {
    TnMatte turned(kPanel);
    Transform(StarMatte(), turned, About(kMiddle, Make::Rotate(-20)), InterpolationType::kSmooth);
    return Plate().Add(StarMatte(), "before").Add(turned, "turned").Picture();
}

TnImage ShowTransformBox() {
    const TnFloatBox box = {{{20, 16}, {84, 16}, {84, 64}, {20, 64}}};
    TnFloatBox mapped;
    Transform(box, mapped, About(kMiddle, Make::Rotate(24)));
    TnImage before = Landscape();
    StrokeBox(before, box, kPaper);
    TnImage after(before);
    StrokeBox(after, mapped, kRose);
    return Plate().Add(before, "a box").Add(after, "turned by 24 degrees").Picture();
}

TnImage ShowTranslate() { return BeforeAndMoved(Make::Translate(24, 12), "by (24, 12)"); }

TnImage ShowFlip() { return BeforeAndMovedAboutMiddle(Make::Flip(true, false), "x flipped"); }

TnImage ShowRotate() { return BeforeAndMovedAboutMiddle(Make::Rotate(30), "by 30 degrees"); }

TnImage ShowScale() { return BeforeAndMovedAboutMiddle(Make::Scale(0.5, 0.75), "by 0.5 and 0.75"); }

TnImage ShowSkew() { return BeforeAndMovedAboutMiddle(Make::Skew(0.4, 0), "by 0.4 and 0"); }

TnImage ShowPerspective() { return BeforeAndMovedAboutMiddle(Make::Perspective(30, 45, 0.01), "30 and 45 degrees"); }

TnImage ShowPerspectiveInverse() {
    TnImage tilted(kPanel);
    Transform(Landscape(), tilted, About(kMiddle, Make::PerspectiveInverse(30, 45)), InterpolationType::kSmooth);
    return Plate().Add(Landscape(), "before").Add(tilted, "30 and 45 degrees").Picture();
}
