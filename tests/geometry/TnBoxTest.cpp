#include "TnGraphics/geometry/TnBox.h"

#include <gtest/gtest.h>
#include <iterator>
#include <type_traits>

namespace tn::test {
namespace {

template <class Box> class BoxTest : public testing::Test {};

using Boxes = testing::Types<TnBox, TnFloatBox, TnFixedBox>;
TYPED_TEST_SUITE(BoxTest, Boxes);

static_assert(std::is_same_v<decltype(TnBox::corners), TnPoint[4]>);
static_assert(std::is_same_v<decltype(TnFloatBox::corners), TnFloatPoint[4]>);
static_assert(std::is_same_v<decltype(TnFixedBox::corners), TnFixedPoint[4]>);

TYPED_TEST(BoxTest, IsFourCornersOneAfterAnother) {
    static_assert(std::is_aggregate_v<TypeParam>);
    static_assert(std::is_trivially_copyable_v<TypeParam>);
    static_assert(std::is_standard_layout_v<TypeParam>);
    static_assert(sizeof(TypeParam) == 4 * sizeof(TypeParam::corners[0]));
    EXPECT_EQ(std::size(TypeParam().corners), 4U);
}

TYPED_TEST(BoxTest, EqualsOnlyInEveryCorner) {
    using Corner = std::remove_extent_t<decltype(TypeParam::corners)>;
    const TypeParam box = {};
    for (Corner& corner : TypeParam(box).corners) {
        EXPECT_EQ(corner, Corner{});
    }
    for (std::size_t i = 0; i < 4; ++i) {
        TypeParam other = box;
        EXPECT_EQ(other, box);
        other.corners[i].y = {1};
        EXPECT_NE(other, box) << "corner " << i;
    }
}

TEST(TnBox, KeepsTheOrderOfItsCorners) {
    constexpr TnBox box = {{{1, 2}, {3, 4}, {5, 6}, {7, 8}}};
    EXPECT_EQ(box.corners[0], (TnPoint{1, 2}));
    EXPECT_EQ(box.corners[3], (TnPoint{7, 8}));
}

} // namespace
} // namespace tn::test
