#include "tests/public/Pixels.h"
#include "tests/support/RecordingStorage.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

namespace tn::test {
namespace {

class PublicStorage : public testing::Test {
protected:
    // An image of 5 x 4 pixels over storage of the host's own; rows have 4 spare bytes.
    TnImage MakeImage() {
        storage_ = new RecordingStorage(probe_, 24, 4);
        return TnImage(storage_, {5, 4});
    }

    StorageProbe probe_;
    RecordingStorage* storage_ = nullptr;
};

TEST_F(PublicStorage, OfTheHostsOwnIsWrittenByTheLibrary) {
    TnImage image = MakeImage();
    ColorFill(image, {4, 3, 100, 100}, {0x80, 0x10, 0x20, 0x30});
    const std::vector<std::uint8_t> pixel = {0x30, 0x20, 0x10, 0x80};
    EXPECT_TRUE(std::equal(pixel.begin(), pixel.end(), storage_->Bytes().begin() + 3 * 24 + 4 * 4));
    EXPECT_EQ(std::count(storage_->Bytes().begin(), storage_->Bytes().end(), 0), 4 * 24 - 4);
}

TEST_F(PublicStorage, OfTheHostsOwnIsLockedAndUnlockedByTheLibrary) {
    TnImage image = MakeImage();
    ColorFill(image, image.Bounds(), {});
    EXPECT_EQ(probe_.locks, 1);
    EXPECT_EQ(probe_.unlocks, 1);
    EXPECT_EQ(probe_.refreshes, 0);
}

TEST_F(PublicStorage, OfTheHostsOwnLearnsTheContentOrigin) {
    TnImage image = MakeImage();
    image.Content({2, 1, 2, 2});
    EXPECT_EQ(storage_->contentOrigin, (TnPoint{2, 1}));
}

TEST_F(PublicStorage, OfTheHostsOwnIsDeletedByTheLibrary) {
    TnImage image = MakeImage();
    image.ReInit({3, 2});
    EXPECT_EQ(probe_.destructions, 1);
    { const TnMatte matte(new RecordingStorage(probe_, 5, 4), {5, 4}); }
    EXPECT_EQ(probe_.destructions, 2);
}

// Storage that leaves to the library what it may.
class QuietStorage : public TnBitMapHelper {
public:
    void* BaseAddr() const override { return nullptr; }
    std::uint32_t RowBytes() const override { return 0; }
    std::uint32_t ByteSize() const override { return 0; }
    bool Contains(const void*) const override { return false; }
    void Refresh() override {}
};

TEST_F(PublicStorage, NeedNotCareAboutLocks) {
    const TnMatte matte(new QuietStorage, {5, 4});
    EXPECT_TRUE(matte.begin().AtEnd());
}

TEST_F(PublicStorage, OfTheLibraryAnswersAHost) {
    const TnImage image({3, 2}, true);
    auto* storage = dynamic_cast<WinBitMapHelper*>(image.Storage());
    ASSERT_NE(storage, nullptr);
    EXPECT_EQ(storage->RowBytes(), 20U);
    EXPECT_EQ(storage->ByteSize(), 40U);
    EXPECT_EQ(storage->ImageBytes(), 40U);
    EXPECT_EQ(storage->Depth(), 32U);
    EXPECT_EQ(storage->Size(), (TnPoint{3, 2}));
    EXPECT_TRUE(storage->Contains(storage->BaseAddr()));
    EXPECT_FALSE(storage->Contains(&image));
    storage->Lock();
    storage->Refresh();
    storage->Unlock();
}

TEST_F(PublicStorage, OfTheLibraryIsMadeAndCopiedByAHost) {
    auto made = std::make_unique<WinBitMapHelper>(TnPoint{3, 2}, 8U, true);
    auto copied = std::make_unique<WinBitMapHelper>(*made);
    EXPECT_NE(copied->BaseAddr(), made->BaseAddr());
    const TnMatte matte(copied.release(), {3, 2});
    EXPECT_EQ(matte.RowBytes(), 11U);
}

} // namespace
} // namespace tn::test
