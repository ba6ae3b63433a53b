#include "Alpha.h"

#include "ContactSheet.h"
#include "Picture.h"
#include "Shapes.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr TnPoint kTile = {432, 286};
constexpr TnPoint kCorner = {0, 0};
constexpr std::int32_t kBadgeSide = 196;
constexpr TnColor kInk = {255, 20, 16, 28};
constexpr TnColor kPaper = {255, 246, 239, 224};
constexpr TnColor kAmber = {255, 255, 176, 32};
constexpr TnColor kRose = {255, 214, 64, 122};
constexpr TnColor kPlum = {255, 66, 42, 82};
constexpr TnColor kMauve = {255, 176, 150, 182};
constexpr TnColor kNight = {255, 14, 16, 34};

/// Modes of ProcessAlphaChannel.
constexpr int kSoften = 1;
constexpr int kGrow = 2;
constexpr int kShrink = 3;

TnMatte Filtered(TnMatte matte, int mode, int radius) {
    ProcessAlphaChannel(matte, mode, radius);
    return matte;
}

TnMatte Inverted(TnMatte matte) {
    InvertAlpha(matte);
    return matte;
}

TnMatte Smooth(const TnMask& mask) {
    TnMatte matte({mask.Size().x / kMaskScale, mask.Size().y / kMaskScale}, true);
    DownSample(mask, matte, kCorner);
    return matte;
}

// One pixel of each cell, as if the mask were no larger than the matte.
TnMatte Hard(const TnMask& mask) {
    TnMatte matte({mask.Size().x / kMaskScale, mask.Size().y / kMaskScale});
    for (auto value = matte.begin(); !value.AtEnd(); ++value) {
        const TnPoint at = value.Position();
        const TnPoint middle = {kMaskScale * at.x + kMaskScale / 2, kMaskScale * at.y + kMaskScale / 2};
        *value = IsSet(mask, middle) ? 255 : 0;
    }
    return matte;
}

TnImage Painted(const TnMatte& matte, const TnColor& color) {
    TnImage image(matte.Size());
    ColorFill(image, image.Bounds(), color);
    TnCopyAlpha(matte, image, kCorner);
    return image;
}

void Paint(TnImage& image, const TnMatte& matte, const TnColor& color, const TnPoint& at = kCorner, int opacity = 255) {
    BlendImage(Painted(matte, color), opacity, image, at);
}

// The picture at less light, for what shines or is bright.
TnImage Dimmed(TnImage image, std::uint8_t share) {
    AlphaFill(image, image.Bounds(), share);
    BlendInColorAndFillAlpha(image, kNight, 255);
    return image;
}

void FrameContent(TnImage& image) {
    const TnRect content = CalculateContentArea(image);
    DrawFrame(image, Grown(content, 1), kRose);
    DrawFrame(image, Grown(content, 2), kRose);
}

/// Shows the texture through the matte.
void PaintTexture(TnImage& image, const TnImage& texture, const TnMatte& matte) {
    TnCopyAlpha(matte, image, kCorner);
    BlendTexture(texture, image, image.Bounds());
    SetAlphaRect(image, image.Bounds());
}

// Threads in two colours, two over and two under.
TnImage WeaveCloth() {
    constexpr int kThread = 3;
    constexpr int kThreads = 8;
    TnImage cloth({kThread * kThreads, kThread * kThreads});
    for (int y = 0; y < kThreads; ++y) {
        for (int x = 0; x < kThreads; ++x) {
            const bool isWarpOnTop = (x + y) % 4 < 2;
            const bool isPale = (isWarpOnTop ? x : y) % 8 < 4;
            ColorFill(cloth, {kThread * x, kThread * y, kThread, kThread}, isPale ? kMauve : kPlum);
        }
    }
    return cloth;
}

TnImage PaintStripes() {
    TnImage stripes({20, 20});
    ColorFill(stripes, stripes.Bounds(), kPaper);
    Paint(stripes, Smooth(DrawStripes(stripes.Size().x)), kRose);
    return stripes;
}

// The subject in a badge, right of the middle of its picture, where photographers like to place things.
TnImage MakeBadge(TnImage picture) {
    const TnPoint size = picture.Size();
    const std::int32_t width = std::max(size.x * 3 / 10, 1);
    picture.Content({size.x / 2, size.y / 5, width, width});
    TnImage badge = Fitted(picture, {kBadgeSide, kBadgeSide});
    TnCopyAlpha(Smooth(DrawBadge(kBadgeSide)), badge, kCorner);
    return badge;
}

class AlphaSheet {
public:
    AlphaSheet(const TnImage& backdrop, const TnImage& subject)
        : backdrop_(Fitted(backdrop, kTile)), subject_(Fitted(subject, kTile)), badge_(kTile, true),
          mask_(DrawLettering(kTile)), lettering_(Smooth(mask_)) {
        TnCopy(MakeBadge(subject), badge_, {(kTile.x - kBadgeSide) / 2, (kTile.y - kBadgeSide) / 2 - 4});
    }

    TnImage Make();

private:
    void AddEdges();
    void AddShadow();
    void AddOutline();
    void AddGlow();
    void AddBounds();
    void AddSticker();
    void AddWindow();
    void AddCopiedTexture();
    void AddBlendedTexture();
    void AddTextureAround();

    TnMatte BadgeMatte() const;
    TnImage Sticker() const;

    TnImage backdrop_;
    TnImage subject_;
    TnImage badge_;
    TnMask mask_;
    TnMatte lettering_;
    ContactSheet sheet_{kTile, 3, 4, "Lettering and cut-outs, made of alphas",
                        "Shadows, outlines and glows are mattes that have been softened, grown and shrunk"};
};

TnMatte AlphaSheet::BadgeMatte() const {
    TnMatte matte(kTile);
    TnCopyAlpha(badge_, matte, kCorner);
    return matte;
}

// The badge with a rim of paper and a shadow.
TnImage AlphaSheet::Sticker() const {
    const TnMatte rim = Filtered(Filtered(BadgeMatte(), kGrow, 5), kSoften, 1);
    TnImage sticker = Painted(rim, kPaper);
    BlendImage(badge_, 255, sticker, kCorner);
    TnImage withShadow(kTile, true);
    TnCopy(Painted(Filtered(rim, kSoften, 14), kInk), withShadow, {5, 9});
    SetOpacity(withShadow, 75);
    PreBlendImageAndAlpha(sticker, 255, withShadow, kCorner);
    return withShadow;
}

// The same lettering with hard and with smooth edges, and a part of both side by side.
void AlphaSheet::AddEdges() {
    const TnRect detail = {216, 96, 27, 36};
    const TnImage ground = Dimmed(backdrop_, 110);
    TnImage hard = ground;
    TnImage smooth = ground;
    Paint(hard, Hard(mask_), kPaper);
    Paint(smooth, lettering_, kPaper);
    TnImage details(kTile);
    TnCopy(Magnified(hard, detail, {kTile.x / 2, kTile.y}), details, kCorner);
    TnCopy(Magnified(smooth, detail, {kTile.x / 2, kTile.y}), details, {kTile.x / 2, 0});
    ColorFill(details, {kTile.x / 2 - 2, 0, 4, kTile.y}, kNight);
    DrawFrame(hard, Grown(detail, 1), kAmber);
    DrawFrame(smooth, Grown(detail, 1), kAmber);
    sheet_.Add(hard, "A mask", "as large as the picture");
    sheet_.Add(smooth, "DownSample", "of a mask four times as large");
    sheet_.Add(details, "Both edges", "8 times");
}

void AlphaSheet::AddShadow() {
    TnImage tile = backdrop_;
    Paint(tile, Filtered(lettering_, kSoften, 9), kInk, {6, 9}, 215);
    Paint(tile, lettering_, kPaper);
    sheet_.Add(tile, "A shadow", "ProcessAlphaChannel, mean");
}

void AlphaSheet::AddOutline() {
    TnImage outline = Painted(Filtered(Filtered(lettering_, kGrow, 3), kSoften, 1), kPaper);
    SubtractAlpha(Painted(lettering_, kPaper), 255, outline, kCorner);
    TnImage tile = subject_;
    BlendImage(outline, 255, tile, kCorner);
    sheet_.Add(tile, "An outline", "maximum, less the lettering");
}

void AlphaSheet::AddGlow() {
    TnImage tile = Dimmed(backdrop_, 60);
    Paint(tile, Filtered(Filtered(lettering_, kGrow, 6), kSoften, 30), kRose, kCorner, 230);
    Paint(tile, Filtered(lettering_, kSoften, 4), kRose);
    Paint(tile, Filtered(Filtered(lettering_, kShrink, 4), kSoften, 2), kPaper);
    sheet_.Add(tile, "A glow", "minimum, mean and maximum");
}

void AlphaSheet::AddBounds() {
    TnImage tile = badge_;
    FrameContent(tile);
    sheet_.Add(tile, "CalculateContentArea", "of a cut-out");
}

void AlphaSheet::AddSticker() {
    TnImage tile = Sticker();
    FrameContent(tile);
    sheet_.Add(tile, "CalculateContentArea", "with a rim and a shadow");
}

// A sheet of paper from which the lettering is cut out, above the subject.
void AlphaSheet::AddWindow() {
    const TnMatte paper = Inverted(lettering_);
    TnImage tile = subject_;
    Paint(tile, Filtered(paper, kSoften, 7), kInk, {4, 6}, 190);
    Paint(tile, paper, kPaper);
    sheet_.Add(tile, "InvertAlpha", "a window in paper");
}

void AlphaSheet::AddCopiedTexture() {
    TnImage tile(kTile, true);
    SetAlphaRect(tile, tile.Bounds());
    CopyTexture(WeaveCloth(), tile, kCorner, tile.Bounds());
    BlendImage(Sticker(), 255, tile, kCorner);
    sheet_.Add(tile, "CopyTexture", "24 x 24 pixels of cloth");
}

void AlphaSheet::AddBlendedTexture() {
    TnImage tile = backdrop_;
    Paint(tile, Filtered(lettering_, kSoften, 9), kInk, {6, 9}, 215);
    PaintTexture(tile, PaintStripes(), lettering_);
    sheet_.Add(tile, "BlendTexture", "stripes through lettering");
}

void AlphaSheet::AddTextureAround() {
    TnImage oval(kTile);
    CutOutOval(oval, 0.82, 0.83);
    TnMatte matte(kTile);
    TnCopyAlpha(oval, matte, kCorner);
    TnImage tile = subject_;
    PaintTexture(tile, WeaveCloth(), Inverted(Filtered(matte, kSoften, 24)));
    sheet_.Add(tile, "BlendTexture", "cloth around what is shown");
}

TnImage AlphaSheet::Make() {
    AddEdges();
    AddShadow();
    AddOutline();
    AddGlow();
    AddBounds();
    AddSticker();
    AddWindow();
    AddCopiedTexture();
    AddBlendedTexture();
    AddTextureAround();
    return sheet_.Picture();
}

} // namespace

TnImage MakeAlphaSheet(const TnImage& backdrop, const TnImage& subject) { return AlphaSheet(backdrop, subject).Make(); }
