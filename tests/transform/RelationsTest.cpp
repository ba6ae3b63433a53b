// What transforms undo, keep and have in common, to the bit.

#include "tests/port/sampling/ReadSurfaces.h"
#include "tests/support/Cases.h"
#include "tests/support/PixelDiff.h"
#include "tests/transform/Calls.h"
#include "tests/transform/RandomMatrices.h"

#include <cstddef>
#include <gtest/gtest.h>

namespace tn::test {
namespace {

constexpr int kCases = 300;
constexpr int kCasesOfAlphas = 3000;

template <class SurfaceType> using ModelOf = ModelPicture<ValueOf<SurfaceType>>;

/// The picture with another shape, made of the pixels at positions of it; 'outside' where it has none.
template <class Value, class Place>
ModelPicture<Value> Rearranged(const ModelPicture<Value>& picture, const TnPoint& size, Value outside,
                               const Place& placeOf) {
    auto result = UniformPicture<Value>(size.x, size.y, outside);
    for (int y = 0; y < size.y; ++y) {
        for (int x = 0; x < size.x; ++x) {
            const TnPoint place = placeOf(x, y);
            if (0 <= place.x && place.x < picture.Width() && 0 <= place.y && place.y < picture.Height()) {
                result.At(x, y) = picture.At(place.x, place.y);
            }
        }
    }
    return result;
}

// Mirrored at its middle; -1 turns into a shade more than that, which shows only far from the origin.
Matrix3x3 Flipping(const TnPoint& size, bool horizontally, bool vertically) {
    return Affine(horizontally ? -1 : 1, 0, horizontally ? size.x - 1 : 0, 0, vertically ? -1 : 1,
                  vertically ? size.y - 1 : 0);
}

// Clockwise: destination row y is the source's column y, from the bottom up.
Matrix3x3 QuarterTurn(const TnPoint& sourceSize) { return Affine(0, 1, 0, -1, 0, sourceSize.y - 1); }

TnPoint Turned(const TnPoint& size) { return {size.y, size.x}; }

template <class SurfaceType> class TransformRelations : public ::testing::Test {
protected:
    using Model = ModelOf<SurfaceType>;

    // Runs the body with random surfaces. With visible pixels only, an image has no transparent ones.
    template <class Body> static void ForEachSurface(int longestSide, bool onlyVisible, const Body& body) {
        ForEachCase(kCases, [&](Random& random) {
            SurfaceType surface({random.Between(1, longestSide), random.Between(1, random.OneIn(8) ? longestSide : 7)});
            for (auto& pixel : surface) {
                const std::uint32_t word = random.Pixel();
                pixel = static_cast<ValueOf<SurfaceType>>(onlyVisible ? word | 0x01000000U : word);
            }
            body(random, surface);
        });
    }

    static SurfaceType Mapped(const SurfaceType& source, const TnPoint& size, const Matrix3x3& matrix,
                              InterpolationType type) {
        return Transformed<SurfaceType>(source, size, matrix, type);
    }

    // What smoothing leaves of a picture: all of an image's, but for a matte's last row and column.
    static Model KeptBySmoothing(Model picture) {
        if (sizeof(ValueOf<SurfaceType>) == 1) {
            for (int y = 0; y < picture.Height(); ++y) {
                picture.At(picture.Width() - 1, y) = 0;
            }
            for (int x = 0; x < picture.Width(); ++x) {
                picture.At(x, picture.Height() - 1) = 0;
            }
        }
        return picture;
    }
};
using SurfaceTypes = ::testing::Types<TnImage, TnMatte>;
TYPED_TEST_SUITE(TransformRelations, SurfaceTypes);

// Nearest

TYPED_TEST(TransformRelations, TheIdentityCopies) {
    this->ForEachSurface(140, false, [](Random&, const TypeParam& source) {
        EXPECT_TRUE(SamePixels(source, TestFixture::Mapped(source, source.Size(), Moving(0, 0), kNearest)));
        EXPECT_TRUE(
            SamePixels(source, TestFixture::Mapped(source, source.Size(), HardlyProjective(Moving(0, 0)), kNearest)));
    });
}

TYPED_TEST(TransformRelations, WholeTranslationsShift) {
    this->ForEachSurface(140, false, [](Random& random, const TypeParam& source) {
        const TnPoint by = {random.Between(-150, 150), random.Between(-9, 9)};
        const TnPoint size = random.Size();
        const auto shifted = Rearranged(ContentOf(source), size, source.OutsidePixel().value, [&](int x, int y) {
            return TnPoint{x + by.x, y + by.y};
        });
        const Matrix3x3 matrix = Moving(by.x, by.y);
        EXPECT_TRUE(SamePixels(shifted, TestFixture::Mapped(source, size, matrix, kNearest)));
        EXPECT_TRUE(SamePixels(shifted, TestFixture::Mapped(source, size, HardlyProjective(matrix), kNearest)));
    });
}

TYPED_TEST(TransformRelations, AQuarterTurnTakesRowsToColumns) {
    this->ForEachSurface(140, false, [](Random&, const TypeParam& source) {
        const TnPoint size = source.Size();
        const auto turned = Rearranged(ContentOf(source), Turned(size), source.OutsidePixel().value, [&](int x, int y) {
            return TnPoint{y, size.y - 1 - x};
        });
        EXPECT_TRUE(SamePixels(turned, TestFixture::Mapped(source, Turned(size), QuarterTurn(size), kNearest)));
    });
}

TYPED_TEST(TransformRelations, FourQuarterTurnsReturnThePicture) {
    this->ForEachSurface(140, false, [](Random&, const TypeParam& source) {
        TypeParam turning(source);
        for (int turn = 0; turn < 4; ++turn) {
            turning = TestFixture::Mapped(turning, Turned(turning.Size()), QuarterTurn(turning.Size()), kNearest);
        }
        EXPECT_TRUE(SamePixels(source, turning));
    });
}

TYPED_TEST(TransformRelations, FlipsMirrorAndFlipBack) {
    this->ForEachSurface(600, false, [](Random& random, const TypeParam& source) {
        const TnPoint size = source.Size();
        const bool horizontally = random.OneIn(2);
        const bool vertically = random.OneIn(2);
        const Matrix3x3 matrix = Flipping(size, horizontally, vertically);
        const auto mirrored = Rearranged(ContentOf(source), size, source.OutsidePixel().value, [&](int x, int y) {
            return TnPoint{horizontally ? size.x - 1 - x : x, vertically ? size.y - 1 - y : y};
        });
        const TypeParam flipped = TestFixture::Mapped(source, size, matrix, kNearest);
        EXPECT_TRUE(SamePixels(mirrored, flipped));
        EXPECT_TRUE(SamePixels(source, TestFixture::Mapped(flipped, size, matrix, kNearest)));
    });
}

// Smooth

TYPED_TEST(TransformRelations, TheSmoothIdentityKeepsVisiblePixels) {
    this->ForEachSurface(300, true, [](Random&, const TypeParam& source) {
        const auto kept = TestFixture::KeptBySmoothing(ContentOf(source));
        EXPECT_TRUE(SamePixels(kept, TestFixture::Mapped(source, source.Size(), Moving(0, 0), kSmooth)));
    });
}

TYPED_TEST(TransformRelations, SmoothWholeTranslationsShift) {
    this->ForEachSurface(300, true, [](Random& random, const TypeParam& source) {
        const TnPoint by = {random.Between(-150, 150), random.Between(-9, 9)};
        const TnPoint size = random.Size();
        const auto kept = TestFixture::KeptBySmoothing(ContentOf(source));
        const auto shifted = Rearranged(kept, size, source.OutsidePixel().value, [&](int x, int y) {
            return TnPoint{x + by.x, y + by.y};
        });
        EXPECT_TRUE(SamePixels(shifted, TestFixture::Mapped(source, size, Moving(by.x, by.y), kSmooth)));
    });
}

TYPED_TEST(TransformRelations, SmoothFlipsMirrorUpTo255Pixels) {
    this->ForEachSurface(255, true, [](Random&, const TypeParam& source) {
        const TnPoint size = source.Size();
        const auto mirrored = Rearranged(TestFixture::KeptBySmoothing(ContentOf(source)), size,
                                         source.OutsidePixel().value, [&](int x, int y) {
                                             return TnPoint{size.x - 1 - x, size.y - 1 - y};
                                         });
        EXPECT_TRUE(SamePixels(mirrored, TestFixture::Mapped(source, size, Flipping(size, true, true), kSmooth)));
    });
}

TEST(TransformOfImages, TheSmoothIdentityClearsTransparentPixels) {
    TnImage source({3, 1});
    source.Set(0x00FFFFFF, 0, 0);
    source.Set(0x00123456, 1, 0);
    source.Set(0x01FFFFFF, 2, 0);
    const auto copy = Transformed<TnImage>(source, {3, 1}, Moving(0, 0), kSmooth);
    EXPECT_EQ(copy.Get(0, 0), TnImagePixel(0));
    EXPECT_EQ(copy.Get(1, 0), TnImagePixel(0));
    EXPECT_EQ(copy.Get(2, 0), TnImagePixel(0x01FFFFFF));
}

// Alphas

TEST(TransformOfImagesToMattes, GivesTheAlphasOfThatToImages) {
    ForEachCase(kCasesOfAlphas, [](Random& random) {
        const RandomSource<TnImage> source(random, {random.Between(1, 40), random.Between(1, 20)});
        const TnPoint size = {random.Between(0, 300), random.Between(0, 5)};
        const Matrix3x3 matrix = MatrixOf(RandomMatrix(random, source.Surface().Size(), size).Any());
        const InterpolationType type = random.OneIn(2) ? kNearest : kSmooth;
        const ModelImage image = ContentOf(Transformed<TnImage>(source.Surface(), size, matrix, type));
        auto alphas = UniformPicture<std::uint8_t>(size.x, size.y, 0);
        for (std::size_t i = 0; i < image.values.size(); ++i) {
            alphas.values[i] = static_cast<std::uint8_t>(image.values[i] >> 24);
        }
        EXPECT_TRUE(SamePixels(alphas, Transformed<TnMatte>(source.Surface(), size, matrix, type)));
    });
}

} // namespace
} // namespace tn::test
