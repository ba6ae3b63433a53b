#include "TnGraphics/port/TnMatte.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

TEST(TnMatte, HasRowsOfItsBytesAndEightSpareOnes) {
    const TnMatte matte({3, 2});
    EXPECT_EQ(matte.RowBytes(), 11U);
    EXPECT_EQ(matte.Storage()->ByteSize(), 22U);
}

TEST(TnMatte, IsTransparentOutsideItsOwnStorage) {
    EXPECT_EQ(TnMatte().OutsidePixel(), TnMattePixel(0));
    EXPECT_EQ(TnMatte({3, 2}, true).OutsidePixel(), TnMattePixel(0));
}

TEST(TnMatte, IsOpaqueOutsideGivenStorage) { EXPECT_EQ(TnMatte(nullptr, {3, 2}).OutsidePixel(), TnMattePixel(255)); }

TEST(TnMatte, CopyForgetsTheOutsidePixel) {
    const TnMatte matte(nullptr, {3, 2});
    EXPECT_EQ(TnMatte(matte).OutsidePixel(), TnMattePixel(0));
}

} // namespace
} // namespace tn::test
