#include "Pictures.h"
#include "Plate.h"
#include "Scene.h"

namespace {

constexpr int kSoften = 1;
constexpr int kGrow = 2;
constexpr int kShrink = 3;
constexpr int kSoftenButMiddle = 4;
constexpr int kLongRuns = 5;

TnMatte Filtered(TnMatte matte, int mode, int radius) {
    ProcessAlphaChannel(matte, mode, radius);
    return matte;
}

// A star on a ground of one colour, with no alpha yet.
TnImage KeyedStar(const TnColor& key) {
    TnImage image(kPanel);
    ColorFill(image, image.Bounds(), kRose);
    TnCopyAlpha(StarMatte(), image, {0, 0});
    BlendInColorAndFillAlpha(image, key, 0);
    return image;
}

} // namespace

TnImage ShowBuildAlpha() {
    const TnImage before = KeyedStar(kPaper);
    TnImage after(before);
    BuildAlpha(after, kPaper);
    return Plate().Add(Opaque(before), "colours, no alpha").Add(after, "paper is the key").Picture();
}

TnImage ShowSetAlphaRect() {
    return BeforeAndAfter(FadingLandscape(), "after", [](TnImage& image) { SetAlphaRect(image, {40, 20, 60, 44}); });
}

TnImage ShowInvertAlpha() {
    return BeforeAndAfter(StarMatte(), "after", [](TnMatte& matte) { InvertAlpha(matte); });
}

TnImage ShowProcessAlphaChannel() {
    return Plate()
        .Add(StarMatte(), "before")
        .Add(Filtered(StarMatte(), kSoften, 5), "mode 1, radius 5")
        .Add(Filtered(StarMatte(), kGrow, 5), "mode 2, radius 5")
        .Add(Filtered(StarMatte(), kShrink, 5), "mode 3, radius 5")
        .Add(Filtered(StarMatte(), kSoftenButMiddle, 5), "mode 4, radius 5")
        .Add(Filtered(StarMatte(), kLongRuns, 5), "mode 5, radius 5")
        .Picture();
}

TnImage ShowProcessAlphaChannelImage() {
    return BeforeAndAfter(Badge(), "mode 1, radius 8", [](TnImage& image) { ProcessAlphaChannel(image, kSoften, 8); });
}

TnImage ShowDownSample() {
    TnMatte matte(kPanel, true);
    DownSample(StarMask(), matte, {0, 0});
    TnImage image(kPanel, true);
    DownSample(StarMask(), image, kRose, {0, 0});
    TnMatte tip = ToMatte(StarMask());
    tip.Content({180, 30, kPanel.x, kPanel.y});
    return Plate().Add(tip, "a part of a mask").Add(matte, "into a matte").Add(image, "into an image").Picture();
}
