// Surfaces that cannot be locked, cannot be read or have nothing to read, and the locks that every operation leaves.

#include "tests/ops/EveryOperation.h"
#include "tests/support/AssertionRecorder.h"

#include "TnGraphics/ops/AlphaAnalysis.h"
#include "TnGraphics/ops/AlphaEditing.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

// Each of them reads every row of a transparent image, or of a matte of 0.
struct AlphaOperationsOnImages {
    using Surface = TnImage;
    static constexpr NamedOperation<TnImage> kAll[] = {
        {"TestForAlpha", [](TnImage& image) { TestForAlpha(image); }},
        {"CalculateContentArea", [](TnImage& image) { CalculateContentArea(image); }},
        {"CalculateContentArea of a rectangle",
         [](TnImage& image) {
             CalculateContentArea(image, {-3, -3, 1000, 1000});
         }},
        {"GetRepresentativeBrightness", [](TnImage& image) { GetRepresentativeBrightness(image); }},
        {"InspectImage",
         [](TnImage& image) {
             bool hasColor = true;
             bool hasAlpha = true;
             InspectImage(image, image.Bounds(), hasColor, hasAlpha);
         }},
        {"TnIsEqual",
         [](TnImage& image) {
             TnIsEqual<TnImage>(image, image, {0, 0});
         }},
        {"BuildAlpha",
         [](TnImage& image) {
             BuildAlpha(image, {0, 1, 2, 3});
         }},
        {"SetAlphaRect", [](TnImage& image) { SetAlphaRect(image, image.Bounds()); }},
    };
};

struct AlphaOperationsOnMattes {
    using Surface = TnMatte;
    static constexpr NamedOperation<TnMatte> kAll[] = {
        {"CalculateContentArea", [](TnMatte& matte) { CalculateContentArea(matte, 0); }},
        {"CalculateContentArea of a rectangle",
         [](TnMatte& matte) {
             CalculateContentArea(matte, 0, {-3, -3, 1000, 1000});
         }},
        {"TnIsEqual",
         [](TnMatte& matte) {
             TnIsEqual<TnMatte>(matte, matte, {0, 0});
         }},
        {"InvertAlpha", [](TnMatte& matte) { InvertAlpha<TnMatte>(matte); }},
    };
};

using AlphaOperations = ::testing::Types<AlphaOperationsOnImages, AlphaOperationsOnMattes>;
INSTANTIATE_TYPED_TEST_SUITE_P(AlphaOperations, EveryOperation, AlphaOperations);

template <class List> class EveryAlphaOperation : public EveryOperation<List> {};
TYPED_TEST_SUITE(EveryAlphaOperation, AlphaOperations);

// Walks that would leave the block are empty.
TYPED_TEST(EveryAlphaOperation, DoesNotLeaveTheBlockOfASurfaceThatGotANewSizeOrContentWhileLocked) {
    const AssertionRecorder recorder;
    this->ForEach([this](const auto& operation) {
        typename TypeParam::Surface resized(this->kSize, true);
        resized.AddClient();
        resized.ReInit({70, 70}, true);
        EXPECT_NO_THROW(operation.run(resized));
        EXPECT_EQ(resized.Clients(), 1U);
        resized.RemoveClient();

        typename TypeParam::Surface moved(this->kSize, true);
        moved.Content({9, 38, 1, 2});
        moved.AddClient();
        moved.Content({0, 0, this->kSize.x, this->kSize.y});
        EXPECT_NO_THROW(operation.run(moved));
        EXPECT_EQ(moved.Clients(), 1U);
        moved.RemoveClient();
    });
}

} // namespace
} // namespace tn::test
