#include "Comparison.h"
#include "Pictures.h"
#include "Rivals.h"

#include "TnGraphics/ops/Compositing.h"
#include "TnGraphics/ops/Copies.h"

#include <algorithm>
#include <iterator>
#include <type_traits>
#include <vector>

namespace tn::bench {
namespace {

constexpr int kOpaque = 255;
constexpr TnPoint kCorner = {0, 0};

/// No stretch of noise is easy.
template <class SurfaceType> Shared<SurfaceType> MakeNoise(const TnPoint& size, Picture noise) {
    if constexpr (std::is_same_v<SurfaceType, TnImage>) {
        return MakePicture(size, noise);
    } else {
        return MakeMatte(size, noise);
    }
}

/// Works between two mattes are measured against moving mattes, all others against moving images.
template <class From, class To>
Comparison Operator(const std::string& name, const TnPoint& size, void (*operation)(const From&, To&)) {
    using Moved = std::conditional_t<std::is_same_v<From, To>, From, TnImage>;
    return {.name = name + " " + SizeName(size),
            .items = PixelCount(size),
            .ours = [operation, from = MakeNoise<From>(size, Picture::kNoise),
                     to = MakeNoise<To>(size, Picture::kOtherNoise)] { operation(*from, *to); },
            .rivals = {
                ReadReadWrite(MakeNoise<Moved>(size, Picture::kNoise), MakeNoise<Moved>(size, Picture::kOtherNoise))}};
}

std::vector<Comparison> BetweenImages(const TnPoint& size) {
    const auto with = [&size](const char* name, void (*operation)(const TnImage&, TnImage&)) {
        return Operator(name, size, operation);
    };
    return {
        with("PreBlendImageAndAlpha", [](auto& from, auto& to) { PreBlendImageAndAlpha(from, kOpaque, to, kCorner); }),
        with("IntersectAlpha", [](auto& from, auto& to) { IntersectAlpha(from, kOpaque, to, kCorner); }),
        with("IntersectAlphaNoColor", [](auto& from, auto& to) { IntersectAlphaNoColor(from, kOpaque, to, kCorner); }),
        with("SubtractAlpha", [](auto& from, auto& to) { SubtractAlpha(from, kOpaque, to, kCorner); }),
        with("XORAlpha", [](auto& from, auto& to) { XORAlpha(from, kOpaque, to, kCorner); }),
        with("TnCopyColor", [](auto& from, auto& to) { TnCopyColor(from, to, kCorner); }),
        with("CopyLuminenceToAlpha", [](auto& from, auto& to) { CopyLuminenceToAlpha(from, to, kCorner); }),
    };
}

std::vector<Comparison> WithMattes(const TnPoint& size) {
    return {
        Operator<TnImage, TnMatte>("TnCopyAlpha, image to matte", size,
                                   [](auto& from, auto& to) { TnCopyAlpha(from, to, kCorner); }),
        Operator<TnMatte, TnImage>("TnCopyAlpha, matte to image", size,
                                   [](auto& from, auto& to) { TnCopyAlpha(from, to, kCorner); }),
        Operator<TnImage, TnMatte>("CopyLuminenceToAlpha, image to matte", size,
                                   [](auto& from, auto& to) { CopyLuminenceToAlpha(from, to, kCorner); }),
        Operator<TnMatte, TnImage>("CopyAlphaToLuminence, matte to image", size,
                                   [](auto& from, auto& to) { CopyAlphaToLuminence(from, to, kCorner); }),
        Operator<TnMatte, TnImage>("IntersectAlpha, matte and image", size,
                                   [](auto& from, auto& to) { IntersectAlpha(from, kOpaque, to, kCorner); }),
        Operator<TnMatte, TnMatte>("IntersectAlpha, mattes", size,
                                   [](auto& from, auto& to) { IntersectAlpha(from, kOpaque, to, kCorner); }),
        Operator<TnMatte, TnMatte>("TnCopy, mattes", size, [](auto& from, auto& to) { TnCopy(from, to, kCorner); }),
    };
}

/// A picture of eight colours, each of which becomes another.
Comparison MapColors(const TnPoint& size) {
    const std::vector<TnImagePixel> from = {0xFF000000, 0xFF0000FF, 0xFF00FF00, 0xFF00FFFF,
                                            0xFFFF0000, 0xFFFF00FF, 0xFFFFFF00, 0xFFFFFFFF};
    const std::vector<TnImagePixel> to(from.rbegin(), from.rend());
    const auto poster = MakePicture(size, Picture::kNoise);
    for (auto pixel = poster->begin(); !pixel.AtEnd(); ++pixel) {
        *pixel = from[*pixel % from.size()];
    }
    const auto destination = MakePicture(size, Picture::kOtherNoise);
    return {.name = "TnCopyMapColor, 8 colours " + SizeName(size),
            .items = PixelCount(size),
            .ours = [=] { TnCopyMapColor(*poster, *destination, kCorner, from, to); },
            .rivals = {ReadReadWrite(poster, destination)}};
}

} // namespace

Section OperatorComparisons() {
    Section section = {"Other operators, for information", {}};
    auto& comparisons = section.comparisons;
    for (const TnPoint& size : {kFullHd, kCached}) {
        std::ranges::move(BetweenImages(size), std::back_inserter(comparisons));
        std::ranges::move(WithMattes(size), std::back_inserter(comparisons));
        comparisons.push_back(MapColors(size));
    }
    return section;
}

} // namespace tn::bench
