#include "Comparison.h"
#include "Pictures.h"
#include "Rivals.h"

#include "TnGraphics/ops/Textures.h"

namespace tn::bench {
namespace {

/// Within the first texture, which the area then cuts on all sides.
constexpr TnPoint kOrigin = {-5, -3};

constexpr TnPoint kTextureSizes[] = {{64, 64}, {256, 256}};

/// What is painted through: where alphas are 0 or 255 nothing has to be mixed.
constexpr Picture kPainted[] = {Picture::kTitle, Picture::kNoise};

/// How much of the time of copying the same area may be taken.
struct Limits {
    double copy;
    double blend;
};

std::string WorkName(const std::string& work, const TnPoint& texture, const TnPoint& size) {
    return work + ", texture " + SizeName(texture) + ", " + SizeName(size);
}

Comparison Copied(const TnPoint& textureSize, const TnPoint& size, double limit) {
    const auto texture = MakePicture(textureSize, Picture::kPhotograph);
    const auto to = MakePicture(size, Picture::kNoise);
    return {.name = WorkName("CopyTexture", textureSize, size),
            .items = PixelCount(size),
            .ours = [=] { CopyTexture(*texture, *to, kOrigin, to->Bounds()); },
            .rivals = {CopyByRows(MakePicture(size, Picture::kPhotograph), to, limit)}};
}

Comparison Blended(const TnPoint& textureSize, const TnPoint& size, Picture painted, double limit) {
    const auto texture = MakePicture(textureSize, Picture::kPhotograph);
    const auto to = MakePicture(size, painted);
    return {.name = WorkName("BlendTexture, " + NameOf(painted), textureSize, size),
            .items = PixelCount(size),
            .ours = [=] { BlendTexture(*texture, *to, to->Bounds()); },
            .rivals = {CopyByRows(MakePicture(size, Picture::kPhotograph), to, limit)}};
}

} // namespace

Section TextureComparisons() {
    Section section = {"Textures", {}};
    auto& comparisons = section.comparisons;
    const std::pair<TnPoint, Limits> sizes[] = {{kFullHd, {.copy = 1.3, .blend = 1.5}},
                                                {kCached, {.copy = 2.0, .blend = 4.0}}};
    for (const auto& [size, limits] : sizes) {
        for (const TnPoint& textureSize : kTextureSizes) {
            comparisons.push_back(Copied(textureSize, size, limits.copy));
            for (const Picture painted : kPainted) {
                comparisons.push_back(Blended(textureSize, size, painted, limits.blend));
            }
        }
    }
    return section;
}

} // namespace tn::bench
