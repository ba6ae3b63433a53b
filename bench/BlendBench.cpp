#include "Comparison.h"
#include "Pictures.h"
#include "Rivals.h"
#include "peers/Peers.h"

#include "TnGraphics/ops/Compositing.h"

#include <algorithm>
#include <iterator>

namespace tn::bench {
namespace {

constexpr int kOpaque = 255;
constexpr int kDimmed = 180;
constexpr TnColorTransform kNoChange;
constexpr TnColorTransform kTint = {.red = {230, 20}, .green = {200, -10}, .blue = {300, 5}, .alpha = {250, 1}};
constexpr Offset kBetweenPixels = {0.3, 0.6};

constexpr double kCachedLimit = 4.0;
constexpr double kFullHdLimit = 1.3;
constexpr double kOpacityLimit = 1.3;
constexpr double kMatrixAndOpacityLimit = 1.6;
constexpr double kFractionalLimit = 1.0;
constexpr double kFractionalStraightLimit = 1.0 / 5.0;
constexpr double kSmallBlendLimit = 2.5;

constexpr double StraightLimit(const TnPoint& size) { return size == kCached ? 1.0 / 7.0 : 1.0 / 5.0; }

/// A picture blended over an opaque one of its size, in every way that is compared.
class Blends {
public:
    Blends(const TnPoint& size, Picture picture)
        : size_(size), picture_(picture), from_(MakePicture(size, picture)),
          to_(MakePicture(size, Picture::kPhotograph)), source_(StraightRows(*from_)), destination_(StraightRows(*to_)),
          premultipliedSource_(PremultipliedRows(*from_)), premultipliedDestination_(PremultipliedRows(*to_)) {}

    Comparison Plain() const;
    Comparison WithOpacity() const;
    Comparison WithMatrix() const;
    Comparison WithMatrixAndOpacity() const;
    Comparison BetweenPixels() const;

private:
    Comparison Blend(const std::string& way, const Work& ours, std::vector<Rival> rivals) const {
        return {Name(way), PixelCount(size_), ours, std::move(rivals)};
    }
    std::string Name(const std::string& way) const {
        return "BlendImage" + way + ", " + NameOf(picture_) + " " + SizeName(size_);
    }
    Work Prepared(const TnColorTransform& transform, int opacity) const {
        return [from = from_, to = to_, transform, opacity] {
            BlendImage(*from, transform, opacity, *to, TnPoint{0, 0}, to->Bounds());
        };
    }
    std::optional<double> LimitAt(const TnPoint& size, double limit) const {
        return size_ == size ? std::optional(limit) : std::nullopt;
    }

    TnPoint size_;
    Picture picture_;
    Shared<TnImage> from_;
    Shared<TnImage> to_;
    Rows source_;
    Rows destination_;
    Rows premultipliedSource_;
    Rows premultipliedDestination_;
};

Comparison Blends::Plain() const {
    const Rows& from = premultipliedSource_;
    const Rows& to = premultipliedDestination_;
    return Blend("",
                 [from = from_, to = to_] {
                     BlendImage(*from, kOpaque, *to, {0, 0});
                 },
                 {ReadReadWrite(from_, to_, LimitAt(kFullHd, kFullHdLimit)),
                  CopyByRows(from_, to_, LimitAt(kCached, kCachedLimit)),
                  {"Qt, straight", QtOver(source_, destination_, QtAlpha::kStraight), StraightLimit(size_)},
                  {"Qt, premultiplied", QtOver(from, to, QtAlpha::kPremultiplied), {}},
                  {"pixman, premultiplied", PixmanOver(from, to), {}},
                  {"cairo, premultiplied", CairoOver(from, to), {}},
                  {"libyuv, premultiplied", LibyuvBlend(from, to), {}}});
}

Comparison Blends::WithOpacity() const {
    return Blend(" with opacity", Prepared(kNoChange, kDimmed), {Ours(Name(""), kOpacityLimit)});
}

Comparison Blends::WithMatrix() const { return Blend(" with matrix", Prepared(kTint, kOpaque), {Ours(Name(""))}); }

Comparison Blends::WithMatrixAndOpacity() const {
    return Blend(" with matrix and opacity", Prepared(kTint, kDimmed), {Ours(Name(""), kMatrixAndOpacityLimit)});
}

Comparison Blends::BetweenPixels() const {
    const Rows& from = premultipliedSource_;
    const Rows& to = premultipliedDestination_;
    const TnFixedPoint at = {TnFixed::FromDouble(kBetweenPixels.x), TnFixed::FromDouble(kBetweenPixels.y)};
    const auto qt = [](const Rows& source, const Rows& destination, QtAlpha alpha) {
        return QtOverAt(source, destination, alpha, kBetweenPixels);
    };
    return Blend(" between pixels",
                 [from = from_, to = to_, at] { BlendImage(*from, kNoChange, kOpaque, *to, at, to->Bounds()); },
                 {ReadReadWrite(from_, to_),
                  {"Qt, straight", qt(source_, destination_, QtAlpha::kStraight), kFractionalStraightLimit},
                  {"Qt, premultiplied", qt(from, to, QtAlpha::kPremultiplied), kFractionalLimit},
                  {"pixman, premultiplied", PixmanOverAt(from, to, kBetweenPixels), {}},
                  {"cairo, premultiplied", CairoOverAt(from, to, kBetweenPixels), {}}});
}

Comparison SmallBlend() {
    const auto from = MakePicture({8, 8}, Picture::kNoise);
    const auto to = MakePicture({8, 8}, Picture::kPhotograph);
    return {.name = "8x8: BlendImage",
            .items = 1,
            .ours =
                [=] {
                    BlendImage(*from, kOpaque, *to, {0, 0});
                },
            .rivals = {{"lock, copy rows, unlock",
                        [from, scratch = std::make_shared<TnImage>(*to)] { CopySmallImage(*from, *scratch); },
                        kSmallBlendLimit}}};
}

} // namespace

Section BlendComparisons() {
    Section section = {"Blending", {SmallBlend()}};
    for (const TnPoint& size : {kFullHd, kCached}) {
        for (const Picture picture : kPictures) {
            const Blends blends(size, picture);
            std::ranges::move(std::vector{blends.Plain(), blends.WithOpacity(), blends.WithMatrix(),
                                          blends.WithMatrixAndOpacity(), blends.BetweenPixels()},
                              std::back_inserter(section.comparisons));
        }
    }
    return section;
}

} // namespace tn::bench
