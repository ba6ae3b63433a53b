// StCoerceToTopFieldOnly on an image whose content was set before. The content is lost, but meanwhile the field starts
// at its corner.

#include "TnGraphics/port/StCoerceToTopFieldOnly.h"

#include "tests/port/sampling/SmallPictures.h"
#include "tests/support/AssertionRecorder.h"

#include "TnGraphics/port/Assertion.h"

#include <gtest/gtest.h>
#include <optional>

namespace tn::test {
namespace {

constexpr TnImagePixel kOutside = 0x00FFFFFF;
constexpr TnImagePixel kNew = 0xFF123456;

class TopFieldOfContent : public ::testing::Test {
protected:
    TopFieldOfContent() { PaintNumbers(image_); }

    TnImage image_{{10, 5}};
};

TEST_F(TopFieldOfContent, IsThatOfTheWholeImageAfterwards) {
    image_.Content({2, 1, 3, 3});
    {
        const StCoerceToTopFieldOnly field(image_);
        EXPECT_EQ(image_.Content(), (TnRect{0, 0, 10, 2}));
    }
    EXPECT_EQ(image_.Content(), (TnRect{0, 0, 10, 5}));
    EXPECT_EQ(image_.Get(0, 0), TnImagePixel(NumberOf(0, 0)));
}

TEST_F(TopFieldOfContent, TellsTheStorageNothingOfItsContent) {
    image_.Content({2, 1, 3, 3});
    {
        const StCoerceToTopFieldOnly field(image_);
        EXPECT_EQ(image_.Storage()->contentOrigin, (TnPoint{2, 1}));
    }
    EXPECT_EQ(image_.Storage()->contentOrigin, (TnPoint{2, 1}));
}

TEST_F(TopFieldOfContent, StartsAtTheCornerOfTheContent) {
    for (const bool isLockedBefore : {false, true}) {
        PaintNumbers(image_);
        image_.Content({2, 1, 3, 3});
        std::optional<ClientLock<TnImage>> lock;
        if (isLockedBefore) {
            lock.emplace(image_);
        }
        {
            const StCoerceToTopFieldOnly field(image_);
            EXPECT_EQ(image_.Get(0, 0), TnImagePixel(NumberOf(2, 1)));
            EXPECT_EQ(image_.Get(1, 1), TnImagePixel(NumberOf(3, 3)));
        }
        if (isLockedBefore) {
            EXPECT_EQ(image_.Get(0, 0), TnImagePixel(NumberOf(2, 1))); // the first lock's pixel base
        }
        lock.reset();
        EXPECT_EQ(image_.Get(0, 0), TnImagePixel(NumberOf(0, 0)));
    }
}

TEST_F(TopFieldOfContent, IsOutsideWhereItLeavesTheBlock) {
    image_.Content({2, 3, 3, 2});
    const StCoerceToTopFieldOnly field(image_);
    EXPECT_EQ(image_.Get(7, 0), TnImagePixel(NumberOf(9, 3)));
    EXPECT_EQ(image_.Get(7, 1), kOutside); // row 5
    EXPECT_EQ(image_.Get(At(0), At(0)), kOutside);
    image_.Set(kNew, 0, 1);
    image_.Set(kNew, 0, 0);
    EXPECT_EQ(image_.Get(0, 0), kNew);
}

TEST_F(TopFieldOfContent, HasNoWalksThatWouldLeaveTheBlock) {
    image_.Content({2, 3, 3, 2});
    const AssertionRecorder recorder;
    const StCoerceToTopFieldOnly field(image_);
    EXPECT_TRUE(image_.begin().AtEnd());
    EXPECT_FALSE(image_.begin({0, 0, 8, 1}).AtEnd());
    EXPECT_EQ(recorder.Reports().size(), kDebugBuild ? 1U : 0U);
}

} // namespace
} // namespace tn::test
