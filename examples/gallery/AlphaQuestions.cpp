#include "../Picture.h"
#include "Pictures.h"
#include "Plate.h"
#include "Scene.h"

#include <string>

namespace {

const char* YesOrNo(bool answer) { return answer ? "true" : "false"; }

TnImage Answered(TnImage image, std::string_view answer) {
    Answer(image, answer);
    return image;
}

// The badge somewhere in a panel that is transparent otherwise.
TnImage BadgeAt(const TnPoint& at) {
    TnImage image(kPanel, true);
    TnCopy(Badge(), image, at);
    return image;
}

TnImage AskedForHit(const TnPoint& point, int radius) {
    TnImage image = BadgeAt({4, 2});
    const bool isHit = TestForHit(image, point, radius);
    DrawFrame(image, Grown({point.x, point.y, 1, 1}, radius), kRose);
    ColorFill(image, {point.x, point.y, 1, 1}, kNight);
    return Answered(image, "radius " + std::to_string(radius) + " - " + YesOrNo(isHit));
}

TnImage Inspected(const TnImage& image) {
    bool hasColor = false;
    bool hasAlpha = false;
    InspectImage(image, image.Bounds(), hasColor, hasAlpha);
    return Answered(image, std::string(hasColor ? "colour, " : "no colour, ") + (hasAlpha ? "alpha" : "no alpha"));
}

TnImage Measured(const TnImage& image) {
    return Answered(image, "brightness " + std::to_string(GetRepresentativeBrightness(image)));
}

TnImage Greyscale(TnImage image) {
    for (auto pixel = image.begin(); !pixel.AtEnd(); ++pixel) {
        const std::uint8_t grey = pixel->Green();
        *pixel = TnColor(255, grey, grey, grey);
    }
    return image;
}

} // namespace

TnImage ShowTestForAlpha() {
    const TnImage clear(kPanel, true);
    const TnImage badge = BadgeAt({28, 2});
    return Plate()
        .Add(Answered(clear, YesOrNo(TestForAlpha(clear))), "transparent")
        .Add(Answered(badge, YesOrNo(TestForAlpha(badge))), "with content")
        .Picture();
}

TnImage ShowTestForHit() {
    return Plate()
        .Add(AskedForHit({36, 30}, 0), "a point")
        .Add(AskedForHit({84, 30}, 6), "a square")
        .Add(AskedForHit({84, 30}, 24), "a larger square")
        .Picture();
}

TnImage ShowCalculateContentArea() {
    TnImage image = BadgeAt({44, 12});
    const TnRect content = CalculateContentArea(image);
    DrawFrame(image, Grown(content, 1), kNight);
    return Plate().Add(BadgeAt({44, 12}), "before").Add(image, "the content area").Picture();
}

TnImage ShowGetRepresentativeBrightness() {
    TnImage dark = Landscape();
    AlphaFill(dark, dark.Bounds(), 100);
    BlendInColorAndFillAlpha(dark, kNight, 255);
    return Plate().Add(Measured(Landscape()), "a bright picture").Add(Measured(dark), "a dark one").Picture();
}

TnImage ShowInspectImage() {
    return Plate()
        .Add(Inspected(Landscape()), "colours")
        .Add(Inspected(Greyscale(Landscape())), "greys")
        .Add(Inspected(FadingLandscape()), "several alphas")
        .Picture();
}

TnImage ShowTnIsEqual() {
    TnImage whole = Landscape();
    TnImage part = Landscape();
    part.Content({30, 10, 60, 50});
    const bool inPlace = TnIsEqual(part, whole, {30, 10});
    const bool moved = TnIsEqual(part, whole, {31, 10});
    return Plate()
        .Add(part, "a part")
        .Add(Answered(whole, YesOrNo(inPlace)), "at (30, 10)")
        .Add(Answered(whole, YesOrNo(moved)), "at (31, 10)")
        .Picture();
}
