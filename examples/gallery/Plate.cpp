#include "Plate.h"

#include "../Picture.h"
#include "../PixelText.h"

#include <algorithm>

namespace {

constexpr TnColor kGround = {255, 244, 245, 248};
constexpr TnColor kInk = {255, 44, 50, 64};
constexpr TnColor kRim = {255, 150, 156, 168};
constexpr TnColor kPaleSquare = {255, 226, 226, 226};
constexpr TnColor kGreySquare = {255, 198, 198, 198};

constexpr int kMargin = 6;
constexpr int kSquare = 6;
constexpr int kCaptionGap = 5;
constexpr TnPoint kCell = {kPanel.x + kMargin, kPanel.y + kCaptionGap + kTextHeight + kMargin};

void DrawCheckerboard(TnImage& image, const TnRect& rect) {
    ColorFill(image, rect, kPaleSquare);
    for (int y = 0; y < rect.height; y += kSquare) {
        for (int x = y / kSquare % 2 * kSquare; x < rect.width; x += 2 * kSquare) {
            ColorFill(image, Intersection(rect, {rect.left + x, rect.top + y, kSquare, kSquare}), kGreySquare);
        }
    }
}

TnImage Greys(const TnMatte& matte) {
    TnMatte inverted(matte);
    InvertAlpha(inverted);
    TnImage greys(matte.Size());
    AlphaFill(greys, greys.Bounds(), 255);
    CopyAlphaToLuminence(inverted, greys, {0, 0});
    return greys;
}

void DrawPanel(TnImage& plate, const TnPoint& at, const TnImage& picture, std::string_view caption) {
    const TnPoint size = picture.Size();
    const TnRect place = {at.x + (kPanel.x - size.x) / 2, at.y + (kPanel.y - size.y) / 2, size.x, size.y};
    DrawFrame(plate, Grown(place, 1), kRim);
    DrawCheckerboard(plate, place);
    BlendImage(picture, 255, plate, {place.left, place.top});
    DrawText(plate, {at.x, at.y + kPanel.y + kCaptionGap}, caption, kInk, 1);
}

} // namespace

Plate& Plate::Add(const TnImage& picture, std::string_view caption) {
    panels_.push_back({picture, std::string(caption)});
    return *this;
}

Plate& Plate::Add(const TnMatte& matte, std::string_view caption) { return Add(Greys(matte), caption); }

TnImage Plate::Picture() const {
    const int count = static_cast<int>(panels_.size());
    const int columns = std::min(columns_, count);
    const int rows = (count + columns - 1) / columns;
    TnImage plate({kMargin + columns * kCell.x, kMargin + rows * kCell.y});
    ColorFill(plate, plate.Bounds(), kGround);
    for (int n = 0; n < count; ++n) {
        const TnPoint at = {kMargin + n % columns * kCell.x, kMargin + n / columns * kCell.y};
        const Panel& panel = panels_[static_cast<std::size_t>(n)];
        DrawPanel(plate, at, panel.picture, panel.caption);
    }
    return plate;
}
