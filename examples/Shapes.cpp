#include "Shapes.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

/// The bits of a row, which is locked, from the left.
class MaskRow {
public:
    MaskRow(const TnMask& mask, std::int32_t y)
        : bytes_(mask.PixelAddress() + static_cast<std::size_t>(y) * mask.RowBytes()) {}

    bool IsSet(std::int32_t x) const { return (bytes_[x / 8] & Bit(x)) != 0; }
    void Set(std::int32_t x) { bytes_[x / 8] = static_cast<std::uint8_t>(bytes_[x / 8] | Bit(x)); }

private:
    static int Bit(std::int32_t x) { return 0x80 >> x % 8; }

    std::uint8_t* bytes_;
};

/// Sets the pixels whose middles, in pixels of the picture, are inside.
template <class IsInside> TnMask Draw(const TnPoint& size, const IsInside& isInside) {
    TnMask mask({kMaskScale * size.x, kMaskScale * size.y}, true);
    mask.AddClient();
    for (std::int32_t y = 0; y < mask.Size().y; ++y) {
        MaskRow row(mask, y);
        for (std::int32_t x = 0; x < mask.Size().x; ++x) {
            if (isInside(TnFloatPoint{(x + 0.5) / kMaskScale, (y + 0.5) / kMaskScale})) {
                row.Set(x);
            }
        }
    }
    mask.RemoveClient();
    return mask;
}

struct Stroke {
    TnFloatPoint from;
    TnFloatPoint to;
};

double Distance(const TnFloatPoint& point, const Stroke& stroke) {
    const TnFloatPoint along = {stroke.to.x - stroke.from.x, stroke.to.y - stroke.from.y};
    const TnFloatPoint away = {point.x - stroke.from.x, point.y - stroke.from.y};
    const double length = along.x * along.x + along.y * along.y;
    const double share = std::clamp((away.x * along.x + away.y * along.y) / length, 0.0, 1.0);
    return std::hypot(away.x - share * along.x, away.y - share * along.y);
}

// Letters with capitals of height 1, from their top-left corner on.

using Strokes = std::vector<Stroke>;

Strokes LetterA() { return {{{0.0, 1.0}, {0.4, 0.0}}, {{0.4, 0.0}, {0.8, 1.0}}, {{0.16, 0.68}, {0.64, 0.68}}}; }

Strokes LetterH() { return {{{0.0, 0.0}, {0.0, 1.0}}, {{0.62, 0.0}, {0.62, 1.0}}, {{0.0, 0.5}, {0.62, 0.5}}}; }

Strokes LetterL() { return {{{0.0, 0.0}, {0.0, 1.0}}, {{0.0, 1.0}, {0.48, 1.0}}}; }

Strokes LetterP() {
    constexpr double kRadius = 0.29;
    constexpr int kSteps = 16;
    const auto onBowl = [](int step) {
        const double angle = DegreesToRadians(180.0 * step / kSteps - 90.0);
        return TnFloatPoint{0.26 + kRadius * std::cos(angle), kRadius + kRadius * std::sin(angle)};
    };
    Strokes strokes = {{{0.0, 1.0}, {0.0, 0.0}}, {{0.0, 0.0}, onBowl(0)}, {onBowl(kSteps), {0.0, 2 * kRadius}}};
    for (int step = 0; step < kSteps; ++step) {
        strokes.push_back({onBowl(step), onBowl(step + 1)});
    }
    return strokes;
}

struct Letter {
    double left;
    Strokes strokes;
};

constexpr double kWordWidth = 4.77;
constexpr double kHalfStroke = 0.115;

std::vector<Letter> Word() {
    return {{0.0, LetterA()}, {1.18, LetterL()}, {2.05, LetterP()}, {2.97, LetterH()}, {3.97, LetterA()}};
}

} // namespace

bool IsSet(const TnMask& mask, const TnPoint& at) {
    mask.AddClient();
    const bool isSet = MaskRow(mask, at.y).IsSet(at.x);
    mask.RemoveClient();
    return isSet;
}

TnMask DrawLettering(const TnPoint& size) {
    constexpr double kShareOfWidth = 0.84;
    const std::vector<Letter> word = Word();
    const double height = kShareOfWidth * size.x / kWordWidth;
    const TnFloatPoint corner = {(size.x - kWordWidth * height) / 2, (size.y - height) / 2};
    return Draw(size, [&](const TnFloatPoint& at) {
        return std::ranges::any_of(word, [&](const Letter& letter) {
            const TnFloatPoint inLetter = {(at.x - corner.x) / height - letter.left, (at.y - corner.y) / height};
            return std::ranges::any_of(letter.strokes, [&inLetter](const Stroke& stroke) {
                return Distance(inLetter, stroke) <= kHalfStroke;
            });
        });
    });
}

TnMask DrawBadge(std::int32_t side) {
    constexpr int kScallops = 14;
    constexpr double kDepth = 0.045;
    const double middle = side / 2.0;
    return Draw({side, side}, [middle](const TnFloatPoint& at) {
        const double x = at.x / middle - 1.0;
        const double y = at.y / middle - 1.0;
        return std::hypot(x, y) <= 1.0 - kDepth * (1.0 - std::cos(kScallops * std::atan2(y, x)));
    });
}

TnMask DrawStripes(std::int32_t side) {
    return Draw({side, side}, [side](const TnFloatPoint& at) { return std::fmod(at.x + at.y, side) < side / 2.0; });
}
