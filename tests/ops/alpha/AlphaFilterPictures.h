// Pictures for the filter of alphas: values in long stretches, along rows and along columns.
#pragma once

#include "tests/models/AlphaFilterModels.h"
#include "tests/support/Pictures.h"

#include "TnGraphics/ops/AlphaFilter.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace tn::test {

/// What the filter is told.
struct AlphaFilter {
    int mode;
    int radius;

    template <class SurfaceType> void Run(SurfaceType& surface) const { ProcessAlphaChannel(surface, mode, radius); }
    template <class Value> void Model(ModelPicture<Value>& picture) const {
        model::FilterAlphas(picture, mode, radius);
    }

    std::string Text() const { return "mode " + std::to_string(mode) + ", radius " + std::to_string(radius); }
};

/// Gives a rectangle of the picture's content one alpha that the filter treats specially, or any.
template <class Value> void PutStretch(Random& random, ModelPicture<Value>& picture, const TnRect& rect) {
    constexpr std::array<std::uint8_t, 6> kFavoured = {0, 0, 255, 255, 255, 128};
    const bool isMixed = random.OneIn(5);
    const std::uint8_t alpha = random.OneOf(kFavoured);
    for (int y = rect.top; y < rect.top + rect.height; ++y) {
        for (int x = rect.left; x < rect.left + rect.width; ++x) {
            model::PutAlpha(picture.At(x, y), isMixed ? random.Alpha() : alpha);
        }
    }
}

/// Fills the picture's content with stretches of random alphas, often from side to side.
template <class Value> void PutStretches(Random& random, ModelPicture<Value>& picture) {
    const TnPoint size = {picture.Width(), picture.Height()};
    PutStretch(random, picture, {0, 0, size.x, size.y});
    for (int n = random.Between(0, 6); n > 0; --n) {
        TnRect rect = random.RectWithin(size);
        if (random.OneIn(3)) {
            rect = {0, rect.top, size.x, rect.height};
        } else if (random.OneIn(3)) {
            rect = {rect.left, 0, rect.width, size.y};
        }
        if (rect.width != size.x || rect.height != size.y) {
            PutStretch(random, picture, rect);
        }
    }
}

/// A surface of random backing whose content has the given size, with spare pixels around it at times.
template <class SurfaceType> class PictureToFilter : public Picture<SurfaceType> {
public:
    PictureToFilter(Random& random, const TnPoint& size)
        : PictureToFilter(random, size,
                          random.OneIn(3) ? TnPoint{random.Between(0, 20), random.Between(0, 3)} : TnPoint{0, 0}) {}

private:
    PictureToFilter(Random& random, const TnPoint& size, const TnPoint& spare)
        : Picture<SurfaceType>(random, {size.x + spare.x, size.y + spare.y}, &PollWatch::Proc) {
        if (this->Surface().Storage() != nullptr) {
            this->Surface().Content({random.Between(0, spare.x), random.Between(0, spare.y), size.x, size.y});
        }
        auto model = this->Snapshot();
        PutStretches(random, model);
        this->Restore(model);
    }
};

/// A value of each mode that has one, and values of the others.
inline constexpr std::array<int, 10> kEveryKindOfMode = {
    1, 2, 3, 4, -1, 0, 5, 6, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};

/// Alphas row after row.
using Values = std::vector<int>;
using Grid = std::vector<Values>;

/// A picture with these alphas and colours of all kinds.
template <class Value> ModelPicture<Value> PictureOf(const Grid& grid) {
    const auto width = static_cast<int>(grid.front().size());
    ModelPicture<Value> picture = UniformPicture<Value>(width, static_cast<int>(grid.size()), 0);
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < width; ++x) {
            picture.At(x, y) = static_cast<Value>(0x00A1B2C3 + 977 * x + 65537 * y);
            model::PutAlpha(picture.At(x, y),
                            static_cast<std::uint8_t>(grid[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]));
        }
    }
    return picture;
}

/// Gives the content the values of a picture of its size.
template <class SurfaceType> void Paint(SurfaceType& surface, const ModelPicture<ValueOf<SurfaceType>>& picture) {
    auto pixel = surface.begin();
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
            *pixel = picture.At(x, y);
            ++pixel;
        }
    }
}

template <class SurfaceType> SurfaceType SurfaceOf(const ModelPicture<ValueOf<SurfaceType>>& picture) {
    SurfaceType surface({picture.Width(), picture.Height()});
    Paint(surface, picture);
    return surface;
}

} // namespace tn::test
