#include "tests/support/GuardedStorage.h"

#include "tests/support/SparseStorage.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

constexpr std::size_t kColumns = 5;
constexpr TnPoint kSize = {kColumns, 3};

// Rows of bytes, of which each is the storage's only way to be touched here.
volatile std::uint8_t* Row(const TnBitMapHelper& storage, int row) {
    return static_cast<std::uint8_t*>(storage.BaseAddr()) + static_cast<std::size_t>(row) * storage.RowBytes();
}

void TouchAll(const TnBitMapHelper& storage, std::size_t rowLength) {
    for (int row = 0; row < kSize.y; ++row) {
        for (std::size_t i = 0; i < rowLength; ++i) {
            Row(storage, row)[i] = 1;
        }
    }
}

TEST(GuardedStorage, LetsEveryPixelBeTouched) {
    for (const std::size_t pixelBytes : {sizeof(std::uint8_t), sizeof(std::uint32_t)}) {
        for (const Guard guard : {Guard::kAfterRows, Guard::kBeforeRows}) {
            TouchAll(GuardedStorage(kSize, pixelBytes, guard), kColumns * pixelBytes);
        }
    }
}

TEST(GuardedStorage, HasAnAddressWithoutColumnsOrRows) {
    EXPECT_NE(GuardedStorage({0, 3}, 4, Guard::kAfterRows).BaseAddr(), nullptr);
    EXPECT_NE(GuardedStorage({3, 0}, 4, Guard::kBeforeRows).BaseAddr(), nullptr);
}

TEST(GuardedStorageDeathTest, FaultsPastTheLastByteOfARow) {
    EXPECT_DEATH(Row(GuardedStorage(kSize, 1, Guard::kAfterRows), 0)[kColumns] = 1, "");
    EXPECT_DEATH(Row(GuardedStorage(kSize, 4, Guard::kAfterRows), 2)[4 * kColumns] = 1, "");
}

TEST(GuardedStorageDeathTest, FaultsBeforeTheFirstByteOfARow) {
    EXPECT_DEATH(Row(GuardedStorage(kSize, 1, Guard::kBeforeRows), 0)[-1] = 1, "");
    EXPECT_DEATH(Row(GuardedStorage(kSize, 4, Guard::kBeforeRows), 2)[-1] = 1, "");
}

TEST(SparseStorage, LetsEveryPixelBeTouchedHoweverFarApartRowsAre) {
    TouchAll(SparseStorage(kSize, 4, 0xFFFFFFFC), kColumns * sizeof(std::uint32_t));
}

} // namespace
} // namespace tn::test
