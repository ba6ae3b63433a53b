#include "Operators.h"

#include "ContactSheet.h"
#include "Picture.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace {

constexpr TnPoint kTile = {320, 212};
constexpr TnPoint kCutOut = {228, 176};
constexpr TnPoint kCorner = {46, 18};
constexpr int kOpacity = 175;
constexpr TnColor kAmber = {255, 255, 176, 32};
constexpr int kTintPercent = 25;

TnFixedPoint BetweenPixels() { return {TnFixed::FromDouble(kCorner.x + 0.4), TnFixed::FromDouble(kCorner.y + 0.7)}; }

// The backdrop fades out towards the right, where its colours stay in pixels that cannot be seen.
TnImage MakeBackdrop(const TnImage& picture) {
    TnImage backdrop = Fitted(picture, kTile);
    for (auto pixel = backdrop.begin(); !pixel.AtEnd(); ++pixel) {
        const double share = 1.0 * pixel.Position().x / kTile.x;
        pixel->Alpha(static_cast<std::uint8_t>(255.0 * std::clamp((0.78 - share) / 0.36, 0.0, 1.0)));
    }
    return backdrop;
}

// A window right of the middle, where photographers like to place things.
TnImage MakeCutOut(TnImage picture) {
    const TnPoint size = picture.Size();
    const std::int32_t width = std::max(size.x * 2 / 5, 1);
    picture.Content({size.x * 9 / 20, size.y / 5, width, std::max(width * kCutOut.y / kCutOut.x, 1)});
    TnImage cutOut = Fitted(picture, kCutOut);
    CutOutOval(cutOut, 0.75, 1.0);
    return cutOut;
}

// Four greys in place of all colours.
TnImage MakePoster(TnImage picture, const std::vector<TnImagePixel>& greys) {
    for (auto pixel = picture.begin(); !pixel.AtEnd(); ++pixel) {
        const TnMattePixel luma(pixel->Red(), pixel->Green(), pixel->Blue());
        *pixel = greys[luma.Value() * greys.size() / 256];
    }
    return picture;
}

class OperatorSheet {
public:
    OperatorSheet(const TnImage& backdrop, const TnImage& subject)
        : backdrop_(MakeBackdrop(backdrop)), cutOut_(MakeCutOut(subject)), matte_(kCutOut) {
        TnCopyAlpha(cutOut_, matte_, {0, 0});
    }

    TnImage Make();

private:
    template <class Combine> void Add(std::string_view name, std::string_view remark, const Combine& combine);
    void AddSources();
    void AddCopies();
    void AddPoster();
    void AddOperators();

    TnImage backdrop_;
    TnImage cutOut_;
    TnMatte matte_;
    TnColorTransform tint_ = GetColorMatrixForBlend(kAmber, kTintPercent);
    ContactSheet sheet_{kTile, 5, 3, "A cut-out on a picture that fades out, by each operator",
                        "From the second BlendImage on it lies at (46.4, 18.7), between pixels, tinted towards amber, "
                        "opacity 175 of 255"};
};

template <class Combine>
void OperatorSheet::Add(std::string_view name, std::string_view remark, const Combine& combine) {
    TnImage tile = backdrop_;
    combine(tile);
    sheet_.Add(tile, name, remark);
}

void OperatorSheet::AddSources() {
    Add("Source", "a cut-out with soft edges", [this](TnImage& tile) {
        tile.ReInit(kTile, true);
        TnCopy(cutOut_, tile, kCorner);
    });
    Add("Destination", "fades out to the right", [](TnImage&) {});
}

void OperatorSheet::AddCopies() {
    Add("TnCopy", "tinted, opacity 175",
        [this](TnImage& tile) { TnCopy(cutOut_, tint_, kOpacity, tile, kCorner, tile.Bounds()); });
    Add("TnCopyColor", "the alpha stays", [this](TnImage& tile) { TnCopyColor(cutOut_, tile, kCorner); });
    Add("TnCopyAlpha", "the colour stays", [this](TnImage& tile) { TnCopyAlpha(matte_, tile, kCorner); });
    Add("CopyLuminenceToAlpha", "bright becomes clear",
        [this](TnImage& tile) { CopyLuminenceToAlpha(cutOut_, tile, kCorner); });
    Add("CopyAlphaToLuminence", "opaque becomes black",
        [this](TnImage& tile) { CopyAlphaToLuminence(matte_, tile, kCorner); });
}

void OperatorSheet::AddPoster() {
    const std::vector<TnImagePixel> greys = {0xFF000000, 0xFF555555, 0xFFAAAAAA, 0xFFFFFFFF};
    const std::vector<TnImagePixel> colors = {0xFF1B1F4B, 0xFFB03060, 0xFFFFB020, 0xFFFFF4D6};
    Add("TnCopyMapColor", "four greys to four colours",
        [&](TnImage& tile) { TnCopyMapColor(MakePoster(cutOut_, greys), tile, kCorner, greys, colors); });
}

void OperatorSheet::AddOperators() {
    using Operator =
        void (*)(const TnImage&, const TnColorTransform&, int, TnImage&, const TnFixedPoint&, const TnRect&);
    const auto add = [this](std::string_view name, std::string_view remark, Operator combine) {
        Add(name, remark, [this, combine](TnImage& tile) {
            combine(cutOut_, tint_, kOpacity, tile, BetweenPixels(), tile.Bounds());
        });
    };
    Add("BlendImage", "source over destination", [this](TnImage& tile) { BlendImage(cutOut_, 255, tile, kCorner); });
    add("BlendImage", "between pixels, tinted", BlendImage);
    add("PreBlendImageAndAlpha", "weighed by both alphas", PreBlendImageAndAlpha);
    add("IntersectAlpha", "what both cover, mixed", IntersectAlpha);
    add("IntersectAlphaNoColor", "what both cover", IntersectAlphaNoColor);
    add("SubtractAlpha", "the source taken out", SubtractAlpha);
    add("XORAlpha", "what one of them covers", XORAlpha);
}

TnImage OperatorSheet::Make() {
    AddSources();
    AddCopies();
    AddPoster();
    AddOperators();
    return sheet_.Picture();
}

} // namespace

TnImage MakeOperatorSheet(const TnImage& backdrop, const TnImage& subject) {
    return OperatorSheet(backdrop, subject).Make();
}
