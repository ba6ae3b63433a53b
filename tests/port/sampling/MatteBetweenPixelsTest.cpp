// TnMatte::Get(TnFixed, TnFixed) and TnMatte::Get(float, float).

#include "tests/port/sampling/SmallPictures.h"

#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr TnMattePixel kOutside = 0;
constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

class MatteBetweenPixels : public ::testing::Test {
protected:
    TnMatte matte_ = SurfaceOf<TnMatte>({{10, 20, 31}, {30, 40, 52}, {250, 255, 9}});
};
using MatteAtFloats = MatteBetweenPixels;

TEST_F(MatteBetweenPixels, WeighTheFourNeighbors) {
    EXPECT_EQ(matte_.Get(At(0.25), At(0.5)), TnMattePixel(22));  // 22.5
    EXPECT_EQ(matte_.Get(At(0.75), At(0.75)), TnMattePixel(32)); // 32.5
    EXPECT_EQ(matte_.Get(At(1.5), At(0)), TnMattePixel(25));     // 25.5
    EXPECT_EQ(matte_.Get(At(1), At(1)), TnMattePixel(40));
    EXPECT_EQ(matte_.Get(Raw(0x00FF), Raw(0x00FF)), TnMattePixel(10));
    EXPECT_EQ(matte_.Get(Raw(0x0100), Raw(0x8000)), TnMattePixel(20)); // 20.04
}

TEST_F(MatteBetweenPixels, AreOutsideInTheLastColumnAndTheLastRow) {
    EXPECT_NE(matte_.Get(Raw(2 * 65536 - 1), Raw(2 * 65536 - 1)), kOutside);
    for (const TnFixed last : {At(2), At(2.5)}) {
        EXPECT_EQ(matte_.Get(last, At(0)), kOutside);
        EXPECT_EQ(matte_.Get(At(0), last), kOutside);
    }
}

TEST_F(MatteBetweenPixels, AreOutsideFartherAway) {
    for (const std::int32_t bad : {-1, -65536, 3 * 65536, 65536000, kLowest, kHighest}) {
        EXPECT_EQ(matte_.Get(TnFixed{bad}, At(0)), kOutside) << bad;
        EXPECT_EQ(matte_.Get(At(0), TnFixed{bad}), kOutside) << bad;
    }
}

TEST(MatteOfOneColumnOrRow, HasNothingBetweenPixels) {
    for (const TnPoint size : {TnPoint{1, 5}, {5, 1}, {1, 1}}) {
        TnMatte matte(size);
        SetAll(matte, 9);
        EXPECT_EQ(matte.Get(At(0), At(0)), kOutside);
        EXPECT_EQ(matte.Get(0.0F, 0.0F), kOutside);
        EXPECT_EQ(matte.Get(0.5F, 0.5F), kOutside);
    }
}

TEST(MatteOverGivenStorage, IsOpaqueOutside) {
    const TnMatte matte(new GuardedStorage({3, 3}, 1, Guard::kAfterRows), {3, 3});
    EXPECT_EQ(matte.Get(At(2), At(0)), TnMattePixel(255));
    EXPECT_EQ(matte.Get(0.0F, 2.0F), TnMattePixel(255));
    EXPECT_EQ(matte.Get(At(1), At(1)), TnMattePixel(0));
}

TEST_F(MatteAtFloats, AreWeighedAlike) {
    EXPECT_EQ(matte_.Get(0.25F, 0.5F), TnMattePixel(22));
    EXPECT_EQ(matte_.Get(0.75F, 0.75F), TnMattePixel(32));
    EXPECT_EQ(matte_.Get(1.0F, 1.0F), TnMattePixel(40));
    EXPECT_EQ(matte_.Get(1.5F, 0.0F), TnMattePixel(25));
}

TEST_F(MatteAtFloats, AreRoundedTo256ths) {
    const auto matte = SurfaceOf<TnMatte>({{0, 255}, {0, 255}});
    constexpr float kStep = 1.0F / 256;
    EXPECT_EQ(matte.Get(1.5F * kStep, 0.0F), TnMattePixel(1)); // 2 * 255 / 256
    EXPECT_EQ(matte.Get(1.49F * kStep, 0.0F), TnMattePixel(0));
    EXPECT_EQ(matte.Get(255.49F * kStep, 0.0F), TnMattePixel(254));
    EXPECT_EQ(matte.Get(255.5F * kStep, 0.0F), kOutside); // the next column
}

// Rounding truncates towards zero, so that the first step before the first pixel still belongs to it.
TEST_F(MatteAtFloats, AreInsideLittleBeforeTheFirstPixel) {
    constexpr float kStep = 1.0F / 256;
    EXPECT_EQ(matte_.Get(-1.49F * kStep, -1.49F * kStep), TnMattePixel(10));
    EXPECT_EQ(matte_.Get(-1.5F * kStep, 0.0F), kOutside);
    EXPECT_EQ(matte_.Get(0.0F, -1.5F * kStep), kOutside);
}

TEST_F(MatteAtFloats, AreOutsideInTheLastColumnAndTheLastRow) {
    EXPECT_NE(matte_.Get(1.99F, 1.99F), kOutside);
    EXPECT_EQ(matte_.Get(2.0F, 0.0F), kOutside);
    EXPECT_EQ(matte_.Get(0.0F, 2.0F), kOutside);
    EXPECT_EQ(matte_.Get(2.5F, 2.5F), kOutside);
}

// 256 times 2^24 is 2^32, of which the low 32 bits are 0.
TEST_F(MatteAtFloats, AreOutsideWhereTheyAreNoNumbersOrLeave32Bits) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    constexpr float kLargest = std::numeric_limits<float>::max();
    for (const float bad : {std::numeric_limits<float>::quiet_NaN(), kInfinity, -kInfinity, kLargest, -kLargest,
                            16777216.0F, -16777216.0F, 8388608.0F, -8388608.0F, 1e20F}) {
        EXPECT_EQ(matte_.Get(bad, 0.5F), kOutside) << bad;
        EXPECT_EQ(matte_.Get(0.5F, bad), kOutside) << bad;
        EXPECT_EQ(matte_.Get(bad, bad), kOutside) << bad;
    }
    EXPECT_EQ(matte_.Get(-0.0F, std::numeric_limits<float>::denorm_min()), TnMattePixel(10));
}

} // namespace
} // namespace tn::test
