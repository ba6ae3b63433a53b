#include "TnGraphics/TnGraphics.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

using Make = MakeMatrix<double>;

TEST(PublicPointTransform, MapsPointsOfEveryKind) {
    TnPoint point = {10, 20};
    Transform(point, point, Make::Translate(0.5, 0.5));
    EXPECT_EQ(point, (TnPoint{11, 21}));
    TnFloatPoint floatPoint = {10, 20};
    Transform(floatPoint, floatPoint, Make::Scale(0.25, 2));
    EXPECT_EQ(floatPoint, (TnFloatPoint{2.5, 40}));
    TnFixedPoint fixedPoint = {{3}, {4}};
    Transform(fixedPoint, fixedPoint, Make::Flip(true, false));
    EXPECT_EQ(fixedPoint, (TnFixedPoint{{-3}, {4}}));
}

TEST(PublicPointTransform, MapsBoxesOfEveryKind) {
    TnBox box = {{{1, 2}, {3, 4}, {5, 6}, {7, 8}}};
    Transform(box, box, Make::Skew(1, 0));
    EXPECT_EQ(box, (TnBox{{{3, 2}, {7, 4}, {11, 6}, {15, 8}}}));
    TnFloatBox floatBox = {{{1, 2}, {3, 4}, {5, 6}, {7, 8}}};
    Transform(floatBox, floatBox, Make::Rotate(0));
    EXPECT_EQ(floatBox, (TnFloatBox{{{1, 2}, {3, 4}, {5, 6}, {7, 8}}}));
    TnFixedBox fixedBox = {{{{1}, {2}}, {{3}, {4}}, {{5}, {6}}, {{7}, {8}}}};
    Transform(fixedBox, fixedBox, Make::Identity());
    EXPECT_EQ(fixedBox, (TnFixedBox{{{{1}, {2}}, {{3}, {4}}, {{5}, {6}}, {{7}, {8}}}}));
}

TEST(PublicPointTransform, MakesMatricesOfSpace) {
    EXPECT_EQ(Make::RotateX(0), Make::Identity());
    EXPECT_EQ(Make::RotateY(0), Make::Identity());
    EXPECT_EQ(Make::Perspective(0, 0, 1), Make::Identity());
    EXPECT_EQ(Make::PerspectiveInverse(0, 0), Make::Identity());
}

TEST(PublicAngles, AreInDegrees) {
    EXPECT_EQ(DegreesToRadians(180), 3.1415926536);
    EXPECT_EQ(RadiansToDegrees(1), 57);
    EXPECT_EQ(NormalizeAngle(-90), 270);
    EXPECT_EQ(PointsToAngle({0, 0}, {0, -5}, 0, 0, true), 90);
    EXPECT_EQ(ConvertAngleDepthToOffsets(90, 5), (TnPoint{0, 5}));
}

} // namespace
} // namespace tn::test
