#include "ContactSheet.h"

#include "PixelText.h"

namespace {

constexpr TnColor kGround = {255, 24, 27, 34};
constexpr TnColor kLight = {255, 238, 238, 232};
constexpr TnColor kDim = {255, 150, 156, 168};
constexpr TnColor kPaleSquare = {255, 214, 214, 214};
constexpr TnColor kGreySquare = {255, 178, 178, 178};

constexpr int kMargin = 28;
constexpr int kSquare = 10;
constexpr int kDot = 2;
constexpr int kTitleDot = 3;
constexpr int kLineHeight = (kTextHeight + 1) * kDot;
constexpr int kSubtitleTop = (kTextHeight + 3) * kTitleDot;
constexpr int kTitleHeight = kSubtitleTop + kTextHeight * kDot + kMargin;
constexpr int kCaptionGap = 8;
constexpr int kCaptionHeight = kCaptionGap + 2 * kLineHeight;

TnPoint SheetSize(const TnPoint& tileSize, int columns, int rows) {
    return {kMargin + columns * (tileSize.x + kMargin),
            kMargin + kTitleHeight + rows * (tileSize.y + kCaptionHeight + kMargin)};
}

void DrawCheckerboard(TnImage& image, const TnRect& rect) {
    ColorFill(image, rect, kPaleSquare);
    for (int y = 0; y < rect.height; y += kSquare) {
        for (int x = y / kSquare % 2 * kSquare; x < rect.width; x += 2 * kSquare) {
            ColorFill(image, Intersection(rect, {rect.left + x, rect.top + y, kSquare, kSquare}), kGreySquare);
        }
    }
}

} // namespace

ContactSheet::ContactSheet(const TnPoint& tileSize, int columns, int rows, std::string_view title,
                           std::string_view subtitle)
    : tileSize_(tileSize), columns_(columns), sheet_(SheetSize(tileSize, columns, rows)) {
    ColorFill(sheet_, sheet_.Bounds(), kGround);
    DrawText(sheet_, {kMargin, kMargin}, title, kLight, kTitleDot);
    DrawText(sheet_, {kMargin, kMargin + kSubtitleTop}, subtitle, kDim, kDot);
}

void ContactSheet::Add(const TnImage& picture, std::string_view name, std::string_view remark) {
    const TnRect tile = NextTile();
    DrawCheckerboard(sheet_, tile);
    BlendImage(picture, 255, sheet_, {tile.left, tile.top});
    const TnPoint caption = {tile.left, tile.top + tile.height + kCaptionGap};
    DrawText(sheet_, caption, name, kLight, kDot);
    DrawText(sheet_, {caption.x, caption.y + kLineHeight}, remark, kDim, kDot);
}

TnRect ContactSheet::NextTile() {
    const int column = count_ % columns_;
    const int row = count_ / columns_;
    ++count_;
    return {kMargin + column * (tileSize_.x + kMargin),
            kMargin + kTitleHeight + row * (tileSize_.y + kCaptionHeight + kMargin), tileSize_.x, tileSize_.y};
}
