// What the filter of alphas makes of a picture in one way and in another.

#include "tests/ops/alpha/AlphaFilterPictures.h"
#include "tests/port/SurfaceKinds.h"
#include "tests/support/Cases.h"
#include "tests/support/PixelDiff.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>

namespace tn::test {
namespace {

// Each relation holds of the same random picture filtered in two ways.
template <class SurfaceType> class ProcessAlphaChannelRelations : public ::testing::Test {
protected:
    using Value = ValueOf<SurfaceType>;
    using Model = ModelPicture<Value>;

    static constexpr int kCases = 300;

    template <class Body> static void ForEachPicture(const Body& body) {
        ForEachCase(kCases, [&](Random& random) {
            const TnPoint size = {random.Between(1, 60), random.Between(1, 60)};
            const PictureToFilter<SurfaceType> picture(random, size);
            body(ContentOf(picture.Surface()), random.Between(0, 20));
        });
    }

    static Model Filtered(const Model& picture, const AlphaFilter& filter) {
        auto surface = SurfaceOf<SurfaceType>(picture);
        filter.Run(surface);
        return ContentOf(surface);
    }

    template <class Change> static Model WithAlphas(Model picture, const Change& change) {
        for (Value& value : picture.values) {
            model::PutAlpha(value, static_cast<std::uint8_t>(change(model::AlphaOf(value))));
        }
        return picture;
    }

    static Model Inverted(const Model& picture) {
        return WithAlphas(picture, [](int alpha) { return 255 - alpha; });
    }

    static Model Mirrored(Model picture) {
        std::reverse(picture.values.begin(), picture.values.end());
        return picture;
    }

    static Model Transposed(const Model& picture) {
        Model transposed = UniformPicture<Value>(picture.Height(), picture.Width(), 0);
        for (int y = 0; y < picture.Height(); ++y) {
            for (int x = 0; x < picture.Width(); ++x) {
                transposed.At(y, x) = picture.At(x, y);
            }
        }
        return transposed;
    }
};
TYPED_TEST_SUITE(ProcessAlphaChannelRelations, SurfaceKinds);

TYPED_TEST(ProcessAlphaChannelRelations, ShrinkingIsGrowingOfTheInverse) {
    this->ForEachPicture([](const auto& picture, int radius) {
        const auto inverse = TestFixture::Filtered(TestFixture::Inverted(picture), {3, radius});
        EXPECT_TRUE(SamePixels(TestFixture::Filtered(picture, {2, radius}), TestFixture::Inverted(inverse)));
    });
}

TYPED_TEST(ProcessAlphaChannelRelations, GrowingTwiceIsGrowingByTheSum) {
    this->ForEachPicture([](const auto& picture, int radius) {
        for (const int mode : {2, 3}) {
            const auto once = TestFixture::Filtered(picture, {mode, radius});
            const auto twice = TestFixture::Filtered(once, {mode, radius + 3});
            EXPECT_TRUE(SamePixels(TestFixture::Filtered(picture, {mode, 2 * radius + 3}), twice));
        }
    });
}

TYPED_TEST(ProcessAlphaChannelRelations, AllButTheMeansDoNotCareWhichSideIsTheRow) {
    this->ForEachPicture([](const auto& picture, int radius) {
        for (const int mode : {0, 2, 3}) {
            const auto transposed = TestFixture::Filtered(TestFixture::Transposed(picture), {mode, radius});
            EXPECT_TRUE(
                SamePixels(TestFixture::Filtered(picture, {mode, radius}), TestFixture::Transposed(transposed)));
        }
    });
}

TYPED_TEST(ProcessAlphaChannelRelations, Modes1To4DoNotCareWhichEndComesFirst) {
    this->ForEachPicture([](const auto& picture, int radius) {
        for (const int mode : {1, 2, 3, 4}) {
            const auto mirrored = TestFixture::Filtered(TestFixture::Mirrored(picture), {mode, radius});
            EXPECT_TRUE(SamePixels(TestFixture::Filtered(picture, {mode, radius}), TestFixture::Mirrored(mirrored)));
        }
    });
}

// No mean of values up to 127 is 128.
TYPED_TEST(ProcessAlphaChannelRelations, Mode4IsMode1WhereNothingIsHalfTransparent) {
    this->ForEachPicture([](const auto& picture, int radius) {
        const auto thin = TestFixture::WithAlphas(picture, [](int alpha) { return alpha / 2; });
        EXPECT_TRUE(SamePixels(TestFixture::Filtered(thin, {1, radius}), TestFixture::Filtered(thin, {4, radius})));
    });
}

TYPED_TEST(ProcessAlphaChannelRelations, MeansLieBetweenTheSmallestAndTheLargest) {
    this->ForEachPicture([](const auto& picture, int radius) {
        const auto mean = TestFixture::Filtered(picture, {1, radius});
        const auto largest = TestFixture::Filtered(picture, {2, radius});
        const auto smallest = TestFixture::Filtered(picture, {3, radius});
        for (std::size_t i = 0; i < mean.values.size(); ++i) {
            EXPECT_LE(model::AlphaOf(smallest.values[i]), model::AlphaOf(mean.values[i]));
            EXPECT_LE(model::AlphaOf(mean.values[i]), model::AlphaOf(largest.values[i]));
        }
    });
}

} // namespace
} // namespace tn::test
