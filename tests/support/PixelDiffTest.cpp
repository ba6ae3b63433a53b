#include "tests/support/PixelDiff.h"

#include "tests/support/Surfaces.h"

#include <gtest/gtest.h>
#include <string>

namespace tn::test {
namespace {

TEST(SamePixels, AgreeOnEqualPictures) {
    EXPECT_TRUE(SamePixels(UniformPicture(4, 3, 7U), UniformPicture(4, 3, 7U)));
    TnMatte matte({4, 3});
    SetAll(matte, 9);
    EXPECT_TRUE(SamePixels(UniformPicture<std::uint8_t>(4, 3, 9), matte));
    EXPECT_TRUE(SamePixels(matte, TnMatte(matte)));
}

TEST(SamePixels, TellTheFirstDifferenceAndTheNumberOfDifferences) {
    ModelImage actual = UniformPicture(4, 3, 7U);
    actual.At(2, 1) = 0x12345678;
    actual.At(0, 2) = 0;
    const auto result = SamePixels(UniformPicture(4, 3, 7U), actual);
    EXPECT_FALSE(result);
    EXPECT_EQ(std::string(result.message()), "2 of 12 pixels differ, first at (2, 1) in the 4 x 3 content: expected "
                                             "0x00000007, but it is 0x12345678");
}

TEST(SamePixels, SeeAChangedPixelOfASurface) {
    TnImage image({4, 3});
    SetAll(image, 7);
    EXPECT_TRUE(SamePixels(UniformPicture(4, 3, 7U), image));
    SetPixel(image, 3, 2, 8);
    EXPECT_FALSE(SamePixels(UniformPicture(4, 3, 7U), image));
}

TEST(SamePixels, SeeAChangedValueOutsideTheContent) {
    ModelImage expected = UniformPicture(4, 3, 7U);
    expected.content = {1, 1, 2, 1};
    ModelImage actual = expected;
    actual.values[0] = 8;
    const auto result = SamePixels(expected, actual);
    EXPECT_FALSE(result);
    EXPECT_NE(std::string(result.message()).find("first at (-1, -1)"), std::string::npos);
}

TEST(SamePixels, SeeAnotherSize) {
    EXPECT_FALSE(SamePixels(UniformPicture(4, 3, 7U), UniformPicture(3, 4, 7U)));
    EXPECT_FALSE(SamePixels(UniformPicture(4, 3, 7U), TnImage({4, 2})));
}

} // namespace
} // namespace tn::test
