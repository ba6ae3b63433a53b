#include "TnGraphics/TnGraphics.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

TEST(PublicGeometry, FixedPointComesFromDoubles) {
    EXPECT_EQ(TnFixed::FromDouble(-0.5).raw, -32768);
    EXPECT_EQ(TnFixed::FromDouble(1.00001).raw, 65537);
    EXPECT_EQ(TnFixed::FromDouble(1.5).ToDouble(), 1.5);
}

TEST(PublicGeometry, RectanglesIntersect) {
    TnRect rect = {-5, -5, 10, 10};
    rect.Intersect({0, 0, 4, 4});
    EXPECT_EQ(rect, (TnRect{0, 0, 4, 4}));
    EXPECT_EQ(Intersection({0, 0, 10, 10}, {10, 0, 5, 5}), TnRect{});
}

TEST(PublicGeometry, PlacesOneSurfaceInAnother) {
    TnRect source;
    TnRect destination;
    ASSERT_TRUE(CalcIterBnds({4, 5}, {10, 12}, {-1, 9}, {0, 0, 2, 100}, &source, &destination));
    EXPECT_EQ(source, (TnRect{1, 0, 2, 3}));
    EXPECT_EQ(destination, (TnRect{0, 9, 2, 3}));
    EXPECT_FALSE(CalcIterBnds({4, 5}, {10, 12}, {10, 0}, {0, 0, 100, 100}, &source, &destination));
    EXPECT_EQ(destination, TnRect{});
}

TEST(PublicGeometry, ColorsBecomePixels) {
    EXPECT_EQ(TnImagePixel(TnColor(0x80, 0x10, 0x20, 0x30)), TnImagePixel(0x80102030));
    EXPECT_EQ(TnMattePixel(0, 255, 0), TnMattePixel(149));
    EXPECT_TRUE(TnMaskPixel(true));
}

} // namespace
} // namespace tn::test
