#include "tests/models/AlphaModels.h"

#include "tests/models/RectModels.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tn::test::model {
namespace {

using Wide = std::int64_t;

TnRect FrameOf(const TnPoint& size) { return {0, 0, size.x, size.y}; }

template <class Value> TnPoint SizeOf(const ModelPicture<Value>& picture) {
    return {picture.Width(), picture.Height()};
}

enum class Order { kRows, kColumns };

// A place in a rectangle that is walked line by line, and the changes from one line to the next so far. After the last
// pixel of the last line comes the end.
class Walker {
public:
    Walker(const TnRect& rect, Order order)
        : rect_(rect), order_(order), lines_(order == Order::kRows ? rect.height : rect.width),
          length_(order == Order::kRows ? rect.width : rect.height) {
        if (lines_ < 1 || length_ < 1) {
            lines_ = 0;
        }
    }

    static Walker FromLast(const TnRect& rect, Order order) {
        Walker walker(rect, order);
        walker.line_ = walker.lines_ - 1;
        walker.along_ = walker.length_ - 1;
        return walker;
    }

    bool AtEnd() const { return line_ == lines_; }
    bool OnFirst() const { return line_ == 0 && along_ == 0; }
    bool OnLast() const { return line_ == lines_ - 1 && along_ == length_ - 1; }
    int X() const { return rect_.left + (order_ == Order::kRows ? along_ : line_); }
    int Y() const { return rect_.top + (order_ == Order::kRows ? line_ : along_); }
    int Polls() const { return lineChanges_ / 32; }

    void Forward() {
        ++along_;
        if (along_ == length_) {
            along_ = 0;
            ++line_;
            ++lineChanges_;
        }
    }

    void Backward() {
        --along_;
        if (along_ < 0) {
            along_ = length_ - 1;
            --line_;
            ++lineChanges_;
        }
    }

private:
    TnRect rect_;
    Order order_;
    int lines_;
    int length_;
    int line_ = 0;
    int along_ = 0;
    int lineChanges_ = 0;
};

// From the last pixel backwards to content, or to the first pixel.
Walker BackToContent(const TnRect& rect, Order order, const IsContent& isContent) {
    Walker walker = Walker::FromLast(rect, order);
    while (!walker.OnFirst() && !isContent(walker.X(), walker.Y())) {
        walker.Backward();
    }
    return walker;
}

std::uint32_t AlphaOf(std::uint32_t pixel) { return pixel / 0x1000000; }
std::uint32_t RedOf(std::uint32_t pixel) { return pixel / 0x10000 % 256; }
std::uint32_t GreenOf(std::uint32_t pixel) { return pixel / 0x100 % 256; }
std::uint32_t BlueOf(std::uint32_t pixel) { return pixel % 256; }

template <class Value>
Answer<bool> AreEqualPictures(const ModelPicture<Value>& a, const ModelPicture<Value>& b, const TnPoint& at) {
    const Placement placement = CalcIterBnds(SizeOf(a), SizeOf(b), at, FrameOf(SizeOf(b)));
    if (!placement.isPlaced) {
        return {true, 0};
    }
    Walker inA(placement.source, Order::kRows);
    Walker inB(placement.destination, Order::kRows);
    while (!inB.AtEnd()) {
        if (a.At(inA.X(), inA.Y()) != b.At(inB.X(), inB.Y())) {
            return {false, inB.Polls()};
        }
        inA.Forward();
        inB.Forward();
    }
    return {true, inB.Polls()};
}

// One side of the square around a point, of which everything beyond the first position outside is left out.
struct Stretch {
    Wide first;
    Wide last;

    Stretch(Wide middle, Wide radius, Wide side)
        : first(std::max<Wide>(middle - radius, -1)), last(std::min(middle + radius, side)) {}

    bool IsBeside() const { return first > last; }
};

} // namespace

Answer<bool> HasAlpha(const ModelImage& image) {
    Walker walker(FrameOf(SizeOf(image)), Order::kRows);
    while (!walker.AtEnd()) {
        if (AlphaOf(image.At(walker.X(), walker.Y())) != 0) {
            return {true, walker.Polls()};
        }
        walker.Forward();
    }
    return {false, walker.Polls()};
}

Answer<TnRect> ContentArea(const TnPoint& size, const TnRect& rect, const IsContent& isContent) {
    const TnRect walked = SharedRect(FrameOf(size), rect);
    if (walked.width == 0) {
        return {{0, 0, 0, 0}, 0};
    }
    const int right = walked.left + walked.width;
    const int bottom = walked.top + walked.height;

    Walker first(walked, Order::kRows);
    while (!first.OnLast() && !isContent(first.X(), first.Y())) {
        first.Forward();
    }
    if (first.OnLast()) {
        return {{0, 0, 0, 0}, first.Polls()};
    }

    Walker leftmost({walked.left, walked.top, first.X() - walked.left, walked.height}, Order::kColumns);
    while (!leftmost.AtEnd() && !isContent(leftmost.X(), leftmost.Y())) {
        leftmost.Forward();
    }
    const int left = leftmost.AtEnd() ? first.X() : leftmost.X();
    const int rowOfLeft = leftmost.AtEnd() ? first.Y() : leftmost.Y();

    const Walker lowest = BackToContent({left, rowOfLeft, right - left, bottom - rowOfLeft}, Order::kRows, isContent);
    const int height = lowest.Y() - first.Y() + 1;
    const Walker rightmost = BackToContent({left, first.Y(), right - left, height}, Order::kColumns, isContent);
    return {{left, first.Y(), rightmost.X() - left + 1, height},
            first.Polls() + leftmost.Polls() + lowest.Polls() + rightmost.Polls()};
}

TnRect ExtentOfContent(const TnPoint& size, const TnRect& rect, const IsContent& isContent) {
    int left = size.x;
    int top = size.y;
    int right = -1;
    int bottom = -1;
    for (int y = 0; y < size.y; ++y) {
        for (int x = 0; x < size.x; ++x) {
            if (Contains(rect, x, y) && isContent(x, y)) {
                left = std::min(left, x);
                top = std::min(top, y);
                right = std::max(right, x);
                bottom = std::max(bottom, y);
            }
        }
    }
    return right < 0 ? TnRect{0, 0, 0, 0} : TnRect{left, top, right - left + 1, bottom - top + 1};
}

bool HasHit(const ReadSurface& surface, const TnPoint& point, int radius) {
    const auto isHit = [&](Wide x, Wide y) { return GetAt(surface, x, y).alpha != 0; };
    if (isHit(point.x, point.y)) {
        return true;
    }
    if (radius < 1) {
        return false;
    }
    const Stretch columns(point.x, radius, surface.size.x);
    const Stretch rows(point.y, radius, surface.size.y);
    if (columns.IsBeside() || rows.IsBeside()) {
        return surface.outside.alpha != 0;
    }
    for (Wide x = columns.first; x <= columns.last; ++x) {
        for (Wide y = rows.first; y <= rows.last; ++y) {
            if (isHit(x, y)) {
                return true;
            }
        }
    }
    return false;
}

int LevelOf(std::uint32_t pixel) {
    return static_cast<int>((RedOf(pixel) * 7684 + GreenOf(pixel) * 15086 + BlueOf(pixel) * 2930) / 65536);
}

Answer<int> RepresentativeBrightness(const ModelImage& image) {
    const TnPoint size = SizeOf(image);
    std::array<Wide, 101> counters = {};
    Walker walker({1, 1, size.x - 2, size.y - 2}, Order::kRows);
    while (!walker.AtEnd()) {
        ++counters[static_cast<std::size_t>(LevelOf(image.At(walker.X(), walker.Y())))];
        walker.Forward();
    }
    Wide need = 2 * ((Wide{size.x} - 2) + (Wide{size.y} - 2));
    int level = 100;
    while (level > 0 && counters[static_cast<std::size_t>(level)] < need) {
        need -= counters[static_cast<std::size_t>(level)];
        --level;
    }
    return {level, walker.Polls()};
}

Answer<Inspection> Inspect(const ModelImage& image, const TnRect& rect) {
    Inspection found;
    const TnRect walked = SharedRect(FrameOf(SizeOf(image)), rect);
    Walker walker(walked, Order::kRows);
    while (!walker.AtEnd()) {
        const std::uint32_t pixel = image.At(walker.X(), walker.Y());
        const bool isGrey = RedOf(pixel) == GreenOf(pixel) && GreenOf(pixel) == BlueOf(pixel);
        const bool isWhite = isGrey && RedOf(pixel) == 255;
        found.hasAlpha = found.hasAlpha || AlphaOf(pixel) != AlphaOf(image.At(walked.left, walked.top));
        found.hasColor = found.hasColor || !isGrey || (isWhite && AlphaOf(pixel) != 0);
        if (found.hasColor && found.hasAlpha) {
            break;
        }
        walker.Forward();
    }
    return {found, walker.Polls()};
}

Answer<bool> AreEqual(const ModelImage& a, const ModelImage& b, const TnPoint& at) {
    return AreEqualPictures(a, b, at);
}

Answer<bool> AreEqual(const ModelMatte& a, const ModelMatte& b, const TnPoint& at) {
    return AreEqualPictures(a, b, at);
}

void BuildAlpha(ModelImage& image, const TnColor& key) {
    if (HasAlpha(image).value) {
        return;
    }
    for (int y = 0; y < image.Height(); ++y) {
        for (int x = 0; x < image.Width(); ++x) {
            std::uint32_t& pixel = image.At(x, y);
            const bool isKey = RedOf(pixel) == key.red && GreenOf(pixel) == key.green && BlueOf(pixel) == key.blue;
            if (!isKey) {
                pixel = 0xFF000000 + pixel % 0x1000000;
            }
        }
    }
}

void SetAlphaRect(ModelImage& image, const TnRect& rect) {
    for (int y = 0; y < image.Height(); ++y) {
        for (int x = 0; x < image.Width(); ++x) {
            if (Contains(rect, x, y)) {
                image.At(x, y) = 0xFF000000 + image.At(x, y) % 0x1000000;
            }
        }
    }
}

void InvertAlpha(ModelMatte& matte) {
    for (int y = 0; y < matte.Height(); ++y) {
        for (int x = 0; x < matte.Width(); ++x) {
            matte.At(x, y) = static_cast<std::uint8_t>(255 - matte.At(x, y));
        }
    }
}

Walks WalksOfBuildingAlpha(const ModelImage& before) {
    if (before.Width() == 0 || before.Height() == 0) {
        return {};
    }
    const Answer<bool> hasAlpha = HasAlpha(before);
    const TnRect search = {0, 0, 0, 32 * hasAlpha.polls};
    return hasAlpha.value ? Walks{search} : Walks{search, {0, 0, before.Width(), before.Height()}};
}

} // namespace tn::test::model
