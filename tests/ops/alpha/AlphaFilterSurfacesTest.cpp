// The filter of alphas on surfaces with contents, without pixels, without storage and with far rows.

#include "tests/ops/alpha/AlphaFilterPictures.h"
#include "tests/port/SurfaceKinds.h"
#include "tests/support/Levels.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/SparseStorage.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/port/StCoerceToTopFieldOnly.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <new>

namespace tn::test {
namespace {

constexpr int kHighest = std::numeric_limits<int>::max();
constexpr TnRect kNoRect = {0, 0, 0, 0};

template <class SurfaceType> class ProcessAlphaChannelSurfaces : public ::testing::Test {
protected:
    template <class Body> static void ForEachFilter(const Body& body) {
        for (const int mode : kEveryKindOfMode) {
            for (const int radius : {0, 1, 20, 126, 127, 1000, kHighest}) {
                const AlphaFilter filter = {mode, radius};
                SCOPED_TRACE(filter.Text());
                body(filter);
            }
        }
    }
};
TYPED_TEST_SUITE(ProcessAlphaChannelSurfaces, SurfaceKinds);

TYPED_TEST(ProcessAlphaChannelSurfaces, NeitherReadsNorWritesOutsideTheContent) {
    using Value = ValueOf<TypeParam>;
    this->ForEachFilter([](const AlphaFilter& filter) {
        for (const Value outside : {static_cast<Value>(0x00A1B200), static_cast<Value>(0xFFA1B2FF)}) {
            const auto inside = static_cast<Value>(0x7F01027F);
            TypeParam surface({9, 8});
            SetAll(surface, outside);
            surface.Content({2, 1, 4, 5});
            SetAll(surface, inside);
            auto expected = UniformPicture<Value>(9, 8, outside);
            for (int y = 1; y < 6; ++y) {
                for (int x = 2; x < 6; ++x) {
                    expected.At(x, y) = inside;
                    if (filter.mode < 1 || filter.mode > 4) {
                        model::PutAlpha(expected.At(x, y), 0);
                    }
                }
            }
            filter.Run(surface);
            EXPECT_EQ(surface.Content(), (TnRect{2, 1, 4, 5}));
            surface.Content({0, 0, 9, 8});
            EXPECT_TRUE(SamePixels(expected, surface));
        }
    });
}

TYPED_TEST(ProcessAlphaChannelSurfaces, KeepsASinglePixelInModes1To4) {
    using Value = ValueOf<TypeParam>;
    this->ForEachFilter([](const AlphaFilter& filter) {
        for (const int alpha : {0, 1, 127, 128, 255}) {
            const bool isOther = filter.mode < 1 || filter.mode > 4;
            auto surface = SurfaceOf<TypeParam>(PictureOf<Value>({{alpha}}));
            filter.Run(surface);
            EXPECT_TRUE(SamePixels(PictureOf<Value>({{isOther ? 0 : alpha}}), surface));
        }
    });
}

TYPED_TEST(ProcessAlphaChannelSurfaces, DoesNothingOnASurfaceOfNoSize) {
    this->ForEachFilter([](const AlphaFilter& filter) {
        TypeParam surface;
        EXPECT_NO_THROW(filter.Run(surface));
        EXPECT_EQ(surface.Clients(), 0U);
    });
}

TYPED_TEST(ProcessAlphaChannelSurfaces, DoesNothingAndNeverPollsWithoutColumnsOrRows) {
    this->ForEachFilter([](const AlphaFilter& filter) {
        for (const TnPoint size : {TnPoint{0, 100}, TnPoint{100, 0}}) {
            TypeParam surface(size, false, &PollWatch::Proc);
            const PollWatch watch;
            EXPECT_NO_THROW(filter.Run(surface));
            EXPECT_EQ(watch.Polls(), 0);
            EXPECT_EQ(surface.Clients(), 0U);
        }
    });
}

TYPED_TEST(ProcessAlphaChannelSurfaces, DoesNothingWithAnEmptyContent) {
    using Value = ValueOf<TypeParam>;
    this->ForEachFilter([](const AlphaFilter& filter) {
        const auto value = static_cast<Value>(0x8001027F);
        for (const TnRect& content : {kNoRect, TnRect{3, 2, 0, 40}, TnRect{3, 2, 40, 0}}) {
            TypeParam surface({60, 50}, false, &PollWatch::Proc);
            SetAll(surface, value);
            surface.Content(content);
            const PollWatch watch;
            filter.Run(surface);
            EXPECT_EQ(watch.Polls(), 0);
            surface.Content({0, 0, 60, 50});
            EXPECT_TRUE(SamePixels(UniformPicture<Value>(60, 50, value), surface));
        }
    });
}

TYPED_TEST(ProcessAlphaChannelSurfaces, ThrowsForASurfaceWithoutStorage) {
    this->ForEachFilter([](const AlphaFilter& filter) {
        TypeParam surface(nullptr, {5, 3});
        EXPECT_THROW(filter.Run(surface), std::bad_alloc);
        EXPECT_EQ(surface.Clients(), 0U);
    });
}

TYPED_TEST(ProcessAlphaChannelSurfaces, ThrowsForASurfaceThatGotNoMemory) {
    this->ForEachFilter([](const AlphaFilter& filter) {
        TypeParam surface({5, 3});
        EXPECT_THROW(surface.ReInit({5, kHighest}), std::bad_alloc);
        EXPECT_THROW(filter.Run(surface), std::bad_alloc);
        EXPECT_EQ(surface.Clients(), 0U);
        surface.ReInit({5, 3});
        EXPECT_NO_THROW(filter.Run(surface));
    });
}

// All bytes lie within 2 GiB, then within 4 GiB, then not.
TYPED_TEST(ProcessAlphaChannelSurfaces, MayHaveRowsThatLieFarApart) {
    constexpr TnPoint kFarSize = {21, 6};
    Random random(1);
    auto before = UniformPicture<ValueOf<TypeParam>>(kFarSize.x, kFarSize.y, 0);
    for (auto& value : before.values) {
        model::PutAlpha(value, random.Alpha());
    }
    for (const std::uint32_t rowBytes : {0x10000010U, 0x20000020U, 0x40000040U}) {
        TypeParam surface(new SparseStorage(kFarSize, sizeof(ValueOf<TypeParam>), rowBytes), kFarSize);
        for (const AlphaFilter filter : {AlphaFilter{1, 2}, {2, 1}, {3, 1}, {4, 3}, {0, 0}, {1, 127}}) {
            auto expected = before;
            filter.Model(expected);
            ForEachSupportedLevel([&](ProcessorLevel) {
                SCOPED_TRACE(filter.Text());
                Paint(surface, before);
                filter.Run(surface);
                EXPECT_TRUE(SamePixels(expected, surface));
            });
        }
    }
}

TEST(ProcessAlphaChannel, FiltersTheTopFieldAloneWhileAnImageShowsIt) {
    // The field's rows are 0 2 4 of the image: 0 255 0, of which columns make 85 127 85.
    auto image = SurfaceOf<TnImage>(PictureOf<std::uint32_t>({{0}, {9}, {255}, {9}, {0}, {9}}));
    {
        const StCoerceToTopFieldOnly field(image);
        ProcessAlphaChannel(image, 1, 1);
    }
    EXPECT_TRUE(SamePixels(PictureOf<std::uint32_t>({{85}, {9}, {127}, {9}, {85}, {9}}), image));
}

} // namespace
} // namespace tn::test
