#include "tests/models/EraseModels.h"
#include "tests/support/Cases.h"
#include "tests/support/Differential.h"
#include "tests/support/RecordingStorage.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/Erase.h"

#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr int kHighest = std::numeric_limits<int>::max();
constexpr int kCases = 2500;

// EraseOutside and PrepareMargin are one operation under two names, so every test runs for both and for both surfaces.
template <class Surface> struct EraseOutsideOperation {
    using SurfaceType = Surface;
    static void Run(SurfaceType& surface, const TnRect& rect) { EraseOutside<SurfaceType>(surface, rect); }
};

template <class Surface> struct PrepareMarginOperation {
    using SurfaceType = Surface;
    static void Run(SurfaceType& surface, const TnRect& rect) { PrepareMargin(surface, rect); }
};

template <class Operation> class Erasing : public ::testing::Test {
protected:
    using Surface = typename Operation::SurfaceType;
    using Value = ValueOf<Surface>;

    static constexpr Value kOld = static_cast<Value>(0xFFEEDDCC);

    static Rows DrawingAfter(const TnPoint& size, const TnRect& rect) {
        Surface surface(size);
        SetAll(surface, kOld);
        Operation::Run(surface, rect);
        return DrawingOf(surface);
    }

    static Rows DrawingOf(const Surface& surface) { return Drawing<Value>(ContentOf(surface), kOld, 0); }
};

using Operations = ::testing::Types<EraseOutsideOperation<TnImage>, EraseOutsideOperation<TnMatte>,
                                    PrepareMarginOperation<TnImage>, PrepareMarginOperation<TnMatte>>;
TYPED_TEST_SUITE(Erasing, Operations);

TYPED_TEST(Erasing, LeavesTheRectangleAndSetsAllElseTo0) {
    EXPECT_EQ(this->DrawingAfter({10, 10}, {2, 2, 3, 3}),
              (Rows{"..........", "..........", "..###.....", "..###.....", "..###.....", "..........", "..........",
                    "..........", "..........", ".........."}));
}

TYPED_TEST(Erasing, ChangesNothingWhenTheRectangleCoversTheSurface) {
    const Rows untouched = {"####", "####", "####"};
    EXPECT_EQ(this->DrawingAfter({4, 3}, {0, 0, 4, 3}), untouched);
    EXPECT_EQ(this->DrawingAfter({4, 3}, {-1, -1, 9, 9}), untouched);
    EXPECT_EQ(this->DrawingAfter({4, 3}, {-5, -5, kHighest, kHighest}), untouched);
}

TYPED_TEST(Erasing, DoesNotEvenLockWhenTheRectangleCoversTheSurface) {
    StorageProbe probe;
    typename TypeParam::SurfaceType surface(new RecordingStorage(probe, 16, 3), {4, 3});
    TypeParam::Run(surface, {0, 0, 4, 3});
    EXPECT_EQ(probe.locks, 0);
}

TYPED_TEST(Erasing, ClearsEverythingForARectangleOutside) {
    const Rows cleared = {"....", "....", "...."};
    EXPECT_EQ(this->DrawingAfter({4, 3}, {4, 0, 2, 2}), cleared);
    EXPECT_EQ(this->DrawingAfter({4, 3}, {0, 3, 2, 2}), cleared);
    EXPECT_EQ(this->DrawingAfter({4, 3}, {-2, -2, 2, 2}), cleared);
}

TYPED_TEST(Erasing, ClearsEverythingForAnEmptyRectangle) {
    const Rows cleared = {"....", "....", "...."};
    EXPECT_EQ(this->DrawingAfter({4, 3}, {1, 1, 0, 2}), cleared);
    EXPECT_EQ(this->DrawingAfter({4, 3}, {1, 1, 2, 0}), cleared);
    EXPECT_EQ(this->DrawingAfter({4, 3}, {3, 2, -2, -2}), cleared);
}

TYPED_TEST(Erasing, CutsTheRectangleAtTheEdges) {
    EXPECT_EQ(this->DrawingAfter({4, 3}, {-1, -1, 3, 3}), (Rows{"##..", "##..", "...."}));
    EXPECT_EQ(this->DrawingAfter({4, 3}, {2, 1, 9, 9}), (Rows{"....", "..##", "..##"}));
    EXPECT_EQ(this->DrawingAfter({4, 3}, {3, -5, kHighest, kHighest}), (Rows{"...#", "...#", "...#"}));
}

TYPED_TEST(Erasing, StaysWithinTheContent) {
    using SurfaceType = typename TypeParam::SurfaceType;
    SurfaceType surface({6, 5});
    SetAll(surface, this->kOld);
    surface.Content({1, 1, 4, 3});
    TypeParam::Run(surface, {1, 1, 1, 1});
    surface.Content({0, 0, 6, 5});
    EXPECT_EQ(this->DrawingOf(surface), (Rows{"######", "#....#", "#.#..#", "#....#", "######"}));
}

// Each band has 40 rows and so one poll of its own, whichever came before it.
TYPED_TEST(Erasing, TakesTheBandsAboveBelowLeftAndRightInThisOrder) {
    using SurfaceType = typename TypeParam::SurfaceType;
    const TnRect kept = {3, 40, 4, 40};
    const TnRect above = {0, 0, 10, 40};
    const TnRect below = {0, 80, 10, 40};
    const TnRect left = {0, 40, 3, 40};
    const model::Walks erasedByPoll[] = {{{0, 0, 10, 32}},
                                         {above, {0, 80, 10, 32}},
                                         {above, below, {0, 40, 3, 32}},
                                         {above, below, left, {7, 40, 3, 32}}};
    const auto old = UniformPicture(10, 120, this->kOld);
    const auto erased = UniformPicture(10, 120, decltype(this->kOld){0});
    for (int poll = 1; poll <= 4; ++poll) {
        SurfaceType surface({10, 120}, false, &PollWatch::Proc);
        SetAll(surface, this->kOld);
        const CancelAtPoll cancel(poll);
        EXPECT_THROW(TypeParam::Run(surface, kept), Cancelled);
        EXPECT_EQ(surface.Clients(), 0U);
        EXPECT_TRUE(SamePixels(model::PartlyDone(old, erased, erasedByPoll[poll - 1]), surface)) << "at poll " << poll;
    }
}

TYPED_TEST(Erasing, PollsOnceEvery32RowsOfEachBand) {
    typename TypeParam::SurfaceType surface({10, 200}, false, &PollWatch::Proc);
    const auto pollsFor = [&](const TnRect& kept) {
        const PollWatch watch;
        TypeParam::Run(surface, kept);
        return watch.Polls();
    };
    EXPECT_EQ(pollsFor({3, 31, 4, 138}), 4 + 4); // bands of 31 rows do not poll, those at the sides do
    EXPECT_EQ(pollsFor({0, 32, 10, 136}), 1 + 1);
    EXPECT_EQ(pollsFor({3, 0, 4, 200}), 6 + 6);
    EXPECT_EQ(pollsFor({0, 0, 0, 0}), 6);
    EXPECT_EQ(pollsFor({0, 0, 10, 200}), 0);
}

TYPED_TEST(Erasing, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases / 2, [](Random& random) {
        using SurfaceType = typename TypeParam::SurfaceType;
        Picture<SurfaceType> picture(random);
        const TnPoint size = picture.Surface().Size();
        const TnRect rect = random.Rect(size);
        ExpectLikeModel(
            picture, [&](SurfaceType& surface) { TypeParam::Run(surface, rect); },
            [&](auto& model) { model::EraseOutside(model, rect); }, model::WalksOfErasing(size, rect));
    });
}

TEST(EraseOutsideOfAnImage, LeavesTransparentBlackWhateverTheColorWas) {
    OnePixelImage image(0xFF123456);
    EraseOutside<TnImage>(image, {0, 0, 0, 0});
    EXPECT_EQ(image.Word(), 0U);
    SetPixel(image, 0, 0, 0x00FFFFFF);
    EraseOutside<TnImage>(image, {0, 0, 0, 0});
    EXPECT_EQ(image.Word(), 0U);
}

} // namespace
} // namespace tn::test
