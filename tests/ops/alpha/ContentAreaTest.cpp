#include "tests/ops/alpha/Questions.h"
#include "tests/port/SurfaceKinds.h"
#include "tests/support/Cases.h"
#include "tests/support/SparseStorage.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/AlphaAnalysis.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <limits>

namespace tn::test {
namespace {

constexpr int kHighest = std::numeric_limits<int>::max();
constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kCases = 4000;
constexpr TnRect kNone = {0, 0, 0, 0};

template <class SurfaceType> class ContentArea : public ::testing::Test {
protected:
    using Pixel = typename SurfaceType::Pixel;

    // A matte's background is not 0, and its content not above it.
    static constexpr Pixel kBackground = sizeof(Pixel) == 4 ? 0x00FFFFFF : 200;
    static constexpr Pixel kContent = sizeof(Pixel) == 4 ? 0x01000000 : 0;

    static SurfaceType WithContentAt(const TnPoint& size, std::initializer_list<TnPoint> spots) {
        SurfaceType surface(size, false, &PollWatch::Proc);
        SetAll(surface, kBackground);
        for (const TnPoint& spot : spots) {
            SetPixel(surface, spot.x, spot.y, kContent);
        }
        return surface;
    }

    static TnRect AreaOf(const TnImage& image, const TnRect& rect) { return CalculateContentArea(image, rect); }
    static TnRect AreaOf(const TnMatte& matte, const TnRect& rect) {
        return CalculateContentArea(matte, kBackground, rect);
    }
    static TnRect AreaOf(const TnImage& image) { return CalculateContentArea(image); }
    static TnRect AreaOf(const TnMatte& matte) { return CalculateContentArea(matte, kBackground); }

    static int PollsFor(const SurfaceType& surface) {
        return PollsDuring([&] { AreaOf(surface); });
    }
};
TYPED_TEST_SUITE(ContentArea, SurfaceKinds);

TYPED_TEST(ContentArea, IsASinglePixel) {
    EXPECT_EQ(this->AreaOf(this->WithContentAt({20, 20}, {{5, 7}})), (TnRect{5, 7, 1, 1}));
    EXPECT_EQ(this->AreaOf(this->WithContentAt({20, 20}, {{0, 0}})), (TnRect{0, 0, 1, 1}));
    EXPECT_EQ(this->AreaOf(this->WithContentAt({20, 20}, {{18, 19}})), (TnRect{18, 19, 1, 1}));
    EXPECT_EQ(this->AreaOf(this->WithContentAt({20, 20}, {{19, 18}})), (TnRect{19, 18, 1, 1}));
}

TYPED_TEST(ContentArea, IsEmptyWithoutContent) { EXPECT_EQ(this->AreaOf(this->WithContentAt({20, 20}, {})), kNone); }

TYPED_TEST(ContentArea, IsEmptyWithContentInTheLastPixelAlone) {
    EXPECT_EQ(this->AreaOf(this->WithContentAt({20, 20}, {{19, 19}})), kNone);
    EXPECT_EQ(this->AreaOf(this->WithContentAt({20, 1}, {{19, 0}})), kNone);
    EXPECT_EQ(this->AreaOf(this->WithContentAt({1, 20}, {{0, 19}})), kNone);
}

TYPED_TEST(ContentArea, IsEmptyInARectangleOfOnePixel) {
    EXPECT_EQ(this->AreaOf(this->WithContentAt({1, 1}, {{0, 0}})), kNone);
    const TypeParam surface = this->WithContentAt({20, 20}, {{5, 7}});
    EXPECT_EQ(this->AreaOf(surface, {5, 7, 1, 1}), kNone);
    EXPECT_EQ(this->AreaOf(surface, {5, 7, 2, 1}), (TnRect{5, 7, 1, 1}));
}

TYPED_TEST(ContentArea, ReachesToTheLastPixelWhenThereIsOtherContent) {
    EXPECT_EQ(this->AreaOf(this->WithContentAt({20, 20}, {{18, 19}, {19, 19}})), (TnRect{18, 19, 2, 1}));
    EXPECT_EQ(this->AreaOf(this->WithContentAt({20, 20}, {{0, 0}, {19, 19}})), (TnRect{0, 0, 20, 20}));
    EXPECT_EQ(this->AreaOf(this->WithContentAt({20, 20}, {{19, 0}, {19, 19}})), (TnRect{19, 0, 1, 20}));
}

TYPED_TEST(ContentArea, LeavesOutTheLastPixelOfTheRectangleAsItIsClipped) {
    const TypeParam last = this->WithContentAt({20, 20}, {{19, 19}});
    EXPECT_EQ(this->AreaOf(last, {10, 10, 100, 100}), kNone);
    EXPECT_EQ(this->AreaOf(last, {-5, -5, kHighest, kHighest}), kNone);
    const TypeParam inside = this->WithContentAt({20, 20}, {{5, 6}});
    EXPECT_EQ(this->AreaOf(inside, {2, 3, 4, 4}), kNone);
    EXPECT_EQ(this->AreaOf(inside, {-2, -3, 8, 10}), kNone);
    EXPECT_EQ(this->AreaOf(inside, {2, 3, 5, 4}), (TnRect{5, 6, 1, 1}));
}

TYPED_TEST(ContentArea, LooksOnlyIntoTheRectangle) {
    const TypeParam surface = this->WithContentAt({20, 20}, {{1, 10}, {4, 4}, {5, 12}, {10, 1}, {10, 18}, {18, 8}});
    EXPECT_EQ(this->AreaOf(surface, {2, 2, 14, 14}), (TnRect{4, 4, 2, 9}));
    EXPECT_EQ(this->AreaOf(surface), (TnRect{1, 1, 18, 18}));
    EXPECT_EQ(this->AreaOf(surface, {6, 2, 10, 14}), kNone);
}

TYPED_TEST(ContentArea, FindsWhatLiesLeftAndRightOfTheFirst) {
    EXPECT_EQ(this->AreaOf(this->WithContentAt({20, 20}, {{10, 2}, {3, 15}})), (TnRect{3, 2, 8, 14}));
    EXPECT_EQ(this->AreaOf(this->WithContentAt({20, 20}, {{10, 2}, {16, 5}})), (TnRect{10, 2, 7, 4}));
    EXPECT_EQ(this->AreaOf(this->WithContentAt({20, 20}, {{10, 2}, {3, 4}, {17, 3}})), (TnRect{3, 2, 15, 3}));
}

TYPED_TEST(ContentArea, IsInTheFrameOfTheContentRectangle) {
    TypeParam surface = this->WithContentAt({30, 30}, {{2, 2}, {9, 12}, {14, 24}, {25, 3}});
    surface.Content({5, 6, 10, 19});
    EXPECT_EQ(this->AreaOf(surface), (TnRect{4, 6, 6, 13})); // the last pixel, (14, 24), counts with the other
    EXPECT_EQ(this->AreaOf(surface, {5, 0, 5, 19}), kNone);
    EXPECT_EQ(this->AreaOf(surface, {-5, -6, 30, 30}), (TnRect{4, 6, 6, 13}));
}

TYPED_TEST(ContentArea, IsEmptyInEmptyAndOutsideRectangles) {
    const TypeParam full = this->WithContentAt({2, 2}, {{0, 0}, {1, 0}, {0, 1}, {1, 1}});
    for (const TnRect rect : {kNone,
                              TnRect{0, 0, 2, 0},
                              {0, 0, 0, 2},
                              {1, 1, -1, -1},
                              {2, 0, 5, 5},
                              {0, -3, 2, 3},
                              {kHighest, kHighest, kHighest, kHighest},
                              {kLowest, kLowest, kHighest, kHighest},
                              {kLowest, kLowest, kLowest, kLowest}}) {
        EXPECT_EQ(this->AreaOf(full, rect), kNone);
    }
    for (const TnPoint size : {TnPoint{0, 0}, {0, 9}, {9, 0}}) {
        EXPECT_EQ(this->AreaOf(TypeParam(size)), kNone);
    }
}

TYPED_TEST(ContentArea, OfAFullPictureNeedsNoPoll) {
    TypeParam full = this->WithContentAt({50, 100}, {});
    SetAll(full, this->kContent);
    EXPECT_EQ(this->AreaOf(full), full.Bounds());
    EXPECT_EQ(this->PollsFor(full), 0);
}

TYPED_TEST(ContentArea, PollsInEachScanFromItsOwnStart) {
    const TypeParam surface = this->WithContentAt({200, 200}, {{100, 100}});
    EXPECT_EQ(this->PollsFor(surface), 3 + 3 + 3 + 3);
    // 40 rows to the first, no column to its left, none below the first, 68 columns from the right
    EXPECT_EQ(this->PollsFor(this->WithContentAt({100, 41}, {{0, 40}, {31, 40}})), 1 + 0 + 0 + 2);
    // 32 columns to the left end without content, the step onto their end included
    EXPECT_EQ(this->PollsFor(this->WithContentAt({33, 2}, {{32, 0}})), 1);
    EXPECT_EQ(this->PollsFor(this->WithContentAt({33, 2}, {{31, 0}, {32, 0}})), 0);
}

// The first scan stops on the last pixel and does not step past it.
TYPED_TEST(ContentArea, PollsOnceEvery32RowsBeforeTheLast) {
    for (const int rows : {1, 32, 33, 64, 65, 100}) {
        EXPECT_EQ(this->PollsFor(this->WithContentAt({5, rows}, {})), (rows - 1) / 32) << rows << " rows";
    }
}

TYPED_TEST(ContentArea, IsFoundInRowsThatLieFarApart) {
    constexpr TnPoint kSize = {21, 6};
    TypeParam surface(new SparseStorage(kSize, sizeof(typename TypeParam::Pixel), 0x40000040), kSize);
    SetAll(surface, this->kBackground);
    for (const TnPoint spot : {TnPoint{9, 1}, {4, 5}, {18, 3}}) {
        SetPixel(surface, spot.x, spot.y, this->kContent);
    }
    ForEachSupportedLevel([&](ProcessorLevel) {
        EXPECT_EQ(this->AreaOf(surface), (TnRect{4, 1, 15, 5}));
        EXPECT_EQ(this->AreaOf(surface, {0, 4, 21, 2}), (TnRect{4, 5, 1, 1}));
    });
}

TEST(ContentAreaOfAMatte, IsWhatDiffersFromTheBackground) {
    TnMatte matte({5, 5}, true);
    SetPixel(matte, 1, 2, 255);
    EXPECT_EQ(CalculateContentArea(matte, 0), (TnRect{1, 2, 1, 1}));
    EXPECT_EQ(CalculateContentArea(matte, 255), (TnRect{0, 0, 5, 5}));
    EXPECT_EQ(CalculateContentArea(matte, 7), (TnRect{0, 0, 5, 5}));
}

// Where the scans leave out nothing, they find what looking everywhere finds.
void ExpectExtent(const model::Answer<TnRect>& answer, const TnRect& extent) {
    if (answer.value != kNone) {
        EXPECT_EQ(answer.value, extent);
    } else {
        EXPECT_LE(extent.width * extent.height, 1);
    }
}

TEST(ContentAreaOfAnImage, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        SparseImage picture(random);
        const ModelImage before = picture.Snapshot();
        const TnPoint size = picture.Surface().Size();
        const TnRect rect = random.Rect(size);
        const auto expected = model::ContentArea(size, rect, model::ContentOfImage(before));
        ExpectExtent(expected, model::ExtentOfContent(size, rect, model::ContentOfImage(before)));
        ExpectAnswer(
            picture, [&](const TnImage& image) { return CalculateContentArea(image, rect); }, expected);
    });
}

TEST(ContentAreaOfAMatte, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        const std::uint8_t background = random.Alpha();
        SparseMatte picture(random, background);
        const ModelMatte before = picture.Snapshot();
        const TnPoint size = picture.Surface().Size();
        const TnRect rect = random.Rect(size);
        const auto expected = model::ContentArea(size, rect, model::ContentOfMatte(before, background));
        ExpectExtent(expected, model::ExtentOfContent(size, rect, model::ContentOfMatte(before, background)));
        ExpectAnswer(
            picture, [&](const TnMatte& matte) { return CalculateContentArea(matte, background, rect); }, expected);
    });
}

TEST(ContentAreaOfAll, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases / 2, [](Random& random) {
        SparseImage image(random);
        const ModelImage before = image.Snapshot();
        const auto expected =
            model::ContentArea(image.Surface().Size(), image.Surface().Bounds(), model::ContentOfImage(before));
        ExpectAnswer(
            image, [](const TnImage& picture) { return CalculateContentArea(picture); }, expected);
    });
}

} // namespace
} // namespace tn::test
