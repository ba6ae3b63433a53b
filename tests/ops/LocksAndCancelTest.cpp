// Fills: what becomes of locks, storage and cancelled work.

#include "tests/ops/EveryOperation.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/Erase.h"
#include "TnGraphics/ops/Fills.h"

#include <gtest/gtest.h>
#include <new>

namespace tn::test {
namespace {

constexpr TnColor kColor = {0x40, 0x10, 0x20, 0x30};
constexpr TnColor kLine = {0x40, 0xE0, 0xE1, 0xE2};

// Each of them writes every row of the content.
struct FillsOfImages {
    using Surface = TnImage;
    static constexpr NamedOperation<TnImage> kAll[] = {
        {"ColorFill", [](TnImage& image) { ColorFill(image, image.Bounds(), kColor); }},
        {"AlphaFill", [](TnImage& image) { AlphaFill(image, image.Bounds(), 0x40); }},
        {"XFill", [](TnImage& image) { XFill(image, image.Bounds(), kColor, kLine); }},
        {"CrossHatchFill", [](TnImage& image) { CrossHatchFill(image, image.Bounds(), kColor, kLine, 3); }},
        {"BlendInColor", [](TnImage& image) { BlendInColor(image, kColor, true); }},
        {"BlendInColorAndFillAlpha", [](TnImage& image) { BlendInColorAndFillAlpha(image, kColor, 0x40); }},
        {"SetOpacity", [](TnImage& image) { SetOpacity(image, 50); }},
        {"EraseOutside", [](TnImage& image) { EraseOutside<TnImage>(image, {}); }},
        {"PrepareMargin", [](TnImage& image) { PrepareMargin(image, {}); }},
    };
};

struct FillsOfMattes {
    using Surface = TnMatte;
    static constexpr NamedOperation<TnMatte> kAll[] = {
        {"AlphaFill", [](TnMatte& matte) { AlphaFill(matte, matte.Bounds(), 0x40); }},
        {"EraseOutside", [](TnMatte& matte) { EraseOutside<TnMatte>(matte, {}); }},
        {"PrepareMargin", [](TnMatte& matte) { PrepareMargin(matte, {}); }},
    };
};

using Fills = ::testing::Types<FillsOfImages, FillsOfMattes>;
INSTANTIATE_TYPED_TEST_SUITE_P(Fills, EveryOperation, Fills);

template <class List> class EveryFill : public EveryOperation<List> {
protected:
    static constexpr auto kOld = static_cast<typename List::Surface::Pixel>(0x80A1B2C3);
};
TYPED_TEST_SUITE(EveryFill, Fills);

TYPED_TEST(EveryFill, DoesNothingOnASurfaceThatNeverHadAnything) {
    this->ForEach([](const auto& operation) {
        typename TypeParam::Surface surface;
        EXPECT_NO_THROW(operation.run(surface));
        EXPECT_EQ(surface.Clients(), 0U);
    });
}

TYPED_TEST(EveryFill, PollsOnceEvery32Rows) {
    this->ForEach([](const auto& operation) {
        for (const int rows : {1, 31, 32, 33, 63, 64, 100}) {
            typename TypeParam::Surface surface({5, rows}, false, &PollWatch::Proc);
            const PollWatch watch;
            operation.run(surface);
            EXPECT_EQ(watch.Polls(), rows / 32) << rows << " rows";
        }
    });
}

TYPED_TEST(EveryFill, HasDoneExactlyTheRowsBeforeThePollThatCancelsIt) {
    this->ForEach([this](const auto& operation) {
        for (const int poll : {1, 2, 3}) {
            typename TypeParam::Surface cancelled({9, 100}, false, &PollWatch::Proc);
            typename TypeParam::Surface completed({9, 32 * poll});
            SetAll(cancelled, this->kOld);
            SetAll(completed, this->kOld);
            {
                const CancelAtPoll cancel(poll);
                EXPECT_THROW(operation.run(cancelled), Cancelled);
            }
            EXPECT_EQ(cancelled.Clients(), 0U);
            operation.run(completed);
            const auto untouched = UniformPicture(9, 100 - 32 * poll, this->kOld.value);
            cancelled.Content({0, 32 * poll, 9, 100});
            EXPECT_TRUE(SamePixels(untouched, cancelled));
            cancelled.Content({0, 0, 9, 32 * poll});
            EXPECT_TRUE(SamePixels(completed, cancelled));
        }
    });
}

TEST(EraseOutside, AsksNothingOfASurfaceWithoutStorageWhenThereIsNothingToClear) {
    TnImage image(nullptr, {5, 3});
    EXPECT_NO_THROW(EraseOutside<TnImage>(image, {0, 0, 5, 3}));
}

TEST(ColorFill, ThrowsOnASurfaceWithoutStorageAlsoForAnEmptyRectangle) {
    TnImage image(nullptr, {5, 3});
    EXPECT_THROW(ColorFill(image, {}, kColor), std::bad_alloc);
}

} // namespace
} // namespace tn::test
