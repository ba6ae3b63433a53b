#include "TitleCard.h"

#include "Drawing.h"
#include "Layer.h"
#include "Picture.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace {

constexpr TnPoint kSize = {1920, 1080};
constexpr double kMargin = 96; // every screen shows what lies inside it

constexpr TnColor kInk = {255, 20, 24, 52};
constexpr TnColor kTeal = {255, 30, 96, 122};
constexpr TnColor kPaper = {255, 252, 249, 242};
constexpr TnColor kPaperShade = {255, 226, 221, 212};
constexpr TnColor kGold = {255, 255, 176, 32};

/// A tint that warms what lies above the photograph like the sun in it.
constexpr TnColorTransform kSunlit = {{258, 0}, {248, 0}, {230, 0}, {256, 0}};

/// Text in a place, in the weight of the font.
struct Line {
    const Font& font;
    TextStyle style;
    std::u32string_view text;

    double Width() const { return font.Width(text, style); }
    void AddTo(TnDrawPort& port, const TnFloatPoint& at) const { font.AddText(port, at, text, style); }

    /// With the capitals halfway between top and bottom.
    void AddTo(TnDrawPort& port, double left, const TnFloatRect& bar) const {
        AddTo(port, {left, bar.top + (bar.height + font.CapHeight(style)) / 2});
    }
};

// As much of the photograph as the card holds, from the top on. The tint gives brighter lights and bluer shadows.
TnImage AtDusk(TnImage photo) {
    constexpr TnColorTransform kTint = {{296, 4}, {284, 6}, {268, 18}, {256, 0}};
    const TnRect all = photo.Content();
    const std::int32_t height = std::min(all.width * kSize.y / kSize.x, all.height);
    photo.Content({all.left, all.top, all.width, height});
    TnImage card(kSize);
    TnCopy(Fitted(photo, kSize), kTint, 255, card, {0, 0}, card.Bounds());
    return card;
}

// Darker towards the left, where the lettering stands.
void Dim(TnImage& card) {
    constexpr TnPoint kDimmed = {1300, kSize.y};
    constexpr TnColor kDark = {150, 14, 18, 40};
    constexpr TnColor kClear = {0, 14, 18, 40};
    BlendImage(Gradient(kDimmed, kDark, kClear, {kDimmed.x, 0}), 255, card, {0, 0});
}

void AddTitle(TnImage& card, const Typeface& type) {
    constexpr double kLeft = 58; // in its layer, with room for the shadow
    constexpr TnFloatPoint kPlace = {kMargin - kLeft + 0.25, 60.5};
    constexpr double kBadge = 24;
    constexpr double kBaseline = 258;
    const Line programme = {type.bold, {30, 0.28}, U"HIGH COUNTRY"};
    const Line first = {type.light, {150, -0.01}, U"Last"};
    const Line second = {type.bold, {150, -0.01}, U"Light"};
    const Line subtitle = {type.light, {44}, U"A winter above the tree line"};
    const auto letter = [&](TnDrawPort& port) {
        programme.AddTo(port, {kLeft + 3 * kBadge, 70});
        first.AddTo(port, {kLeft, kBaseline});
        second.AddTo(port, {kLeft + first.Width() + 42, kBaseline});
        subtitle.AddTo(port, {kLeft, kBaseline + 92});
        port.Fill();
    };
    Layer title({1100, 430});
    Draw(title.outline, letter);
    Draw(title.image, [&](TnDrawPort& port) {
        PaintWith(port, kPaper);
        letter(port);
        DrawEmblem(port, {kLeft + kBadge, 59}, kBadge);
    });
    Place(title, kPlace, 245, {{22, 6, 150}}, card, kSunlit);
}

/// Two bars behind an emblem: a name, and what its bearer does.
class Caption {
public:
    explicit Caption(const Typeface& type)
        : name_{type.bold, {68}, U"Ava Tavelli"}, function_{type.light,
                                                            {35, 0.01},
                                                            U"Glaciologist, Alpine Research Station"} {}

    void AddTo(TnImage& card) const {
        Place(Bars(), {38.25, 760.5}, 250, {{40, 20, 120}, {8, 4, 110}}, card);
        Place(Emblem(), {38.25, 760.5}, 255, {{14, 5, 150}}, card);
    }

private:
    static constexpr TnPoint kSize = {1100, 320};
    static constexpr TnFloatPoint kEmblem = {150, 150};
    static constexpr double kRadius = 92;
    static constexpr double kText = 276;

    Layer Bars() const;
    static Layer Emblem();

    Line name_;
    Line function_;
};

Layer Caption::Bars() const {
    const TnFloatRect upper = {kEmblem.x, 72, kText - kEmblem.x + name_.Width() + 84, 98};
    const TnFloatRect lower = {kEmblem.x, 170, kText - kEmblem.x + function_.Width() + 62, 62};
    const auto drawUpper = [&upper](TnDrawPort& port) {
        AddLeaningBar(port, upper, 26, 7);
        port.Fill();
    };
    const auto drawLower = [&lower](TnDrawPort& port) {
        AddLeaningBar(port, lower, 17, 7);
        port.Fill();
    };
    Layer bars(kSize);
    Draw(bars.outline, drawUpper);
    Draw(bars.outline, drawLower);
    DrawInColors(bars.image, Gradient(kSize, kPaper, kPaperShade, {kSize.x, 0}), drawUpper);
    DrawInColors(bars.image, Gradient(kSize, kInk, kTeal, {kSize.x, 0}), drawLower);
    Draw(bars.image, [&](TnDrawPort& port) {
        PaintWith(port, kInk);
        name_.AddTo(port, kText, upper);
        port.Fill();
        PaintWith(port, kPaper);
        function_.AddTo(port, kText, lower);
        port.Fill();
    });
    return bars;
}

Layer Caption::Emblem() {
    Layer emblem(kSize);
    Draw(emblem.outline, [](TnDrawPort& port) {
        AddCircle(port, kEmblem, kRadius);
        port.Fill();
    });
    Draw(emblem.image, [](TnDrawPort& port) { DrawEmblem(port, kEmblem, kRadius); });
    return emblem;
}

// What lies right of the middle, where photographers like to place things.
TnImage Detail(TnImage picture, const TnPoint& size) {
    const TnPoint all = picture.Size();
    picture.Content({all.x * 42 / 100, all.y / 6, all.x * 48 / 100, all.y * 48 / 100});
    return Fitted(picture, size);
}

// A line of text on a bar that begins at the left edge.
Layer MakeLabel(const Font& font) {
    constexpr TnPoint kLabel = {560, 120};
    constexpr double kText = 22;
    const Line when = {font, {27}, U"Next week"};
    const Line what = {font, {27}, U"The meadows wake"};
    const double middle = kText + when.Width() + 16;
    const TnFloatRect bar = {0, 30, middle + what.Width() + 42, 58};
    const auto drawBar = [&bar](TnDrawPort& port) {
        AddLeaningBar(port, bar, 16, 7);
        port.Fill();
    };
    Layer label(kLabel);
    Draw(label.outline, drawBar);
    DrawInColors(label.image, Gradient(kLabel, kInk, kTeal, {kLabel.x, 0}), drawBar);
    Draw(label.image, [&](TnDrawPort& port) {
        PaintWith(port, kGold);
        when.AddTo(port, kText, bar);
        port.Fill();
        PaintWith(port, kPaper);
        what.AddTo(port, middle, bar);
        port.Fill();
    });
    return label;
}

// The picture on paper, with a label across it to which the tint gives the plum of the flowers.
Layer MakePrint(TnImage picture, const Font& font) {
    constexpr TnColorTransform kPlum = {{256, 52}, {256, -10}, {256, 14}, {256, 0}};
    constexpr TnRect kSheet = {90, 90, 520, 400};
    constexpr std::int32_t kBorder = 16;
    Place(MakeLabel(font), {-0.25, 258.75}, 242, {{16, 8, 180}}, picture, kPlum);
    Layer print({700, 580});
    AlphaFill(print.outline, kSheet, 255);
    ColorFill(print.image, kSheet, kPaper);
    TnCopy(picture, print.image, {kSheet.left + kBorder, kSheet.top + kBorder});
    return print;
}

// The print is turned with all that lies on it, and what it then covers is marked.
void AddPrint(TnImage& card, const TnImage& picture, const Font& font) {
    constexpr TnPoint kPhoto = {488, 368};
    constexpr TnFloatPoint kPlace = {1206, -23};
    const Layer print = Turned(MakePrint(Detail(picture, kPhoto), font), 4);
    Place(print, kPlace, 255, {{44, 22, 130}, {8, 4, 110}}, card, kSunlit);
    Draw(card, [&](TnDrawPort& port) {
        port.Translate(FixedPoint(kPlace.x, kPlace.y));
        DrawBounds(port, Grown(CalculateContentArea(print.image), 1), kPaper, kGold);
    });
}

} // namespace

TnImage MakeTitleCard(const TnImage& photo, const TnImage& second, const Typeface& type) {
    TnImage card = AtDusk(photo);
    Dim(card);
    AddTitle(card, type);
    AddPrint(card, second, type.bold);
    Caption(type).AddTo(card);
    return card;
}
