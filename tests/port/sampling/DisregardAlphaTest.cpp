// StDisregardAlphaInGet.

#include "TnGraphics/port/StDisregardAlphaInGet.h"

#include "tests/port/SurfaceKinds.h"
#include "tests/port/sampling/SmallPictures.h"

#include <gtest/gtest.h>
#include <memory>
#include <new>

namespace tn::test {
namespace {

constexpr TnImagePixel kTransparentWhite = 0x00FFFFFF;
constexpr TnImagePixel kOpaqueBlack = 0xFF000000;
constexpr TnImagePixel kRed = 0xFFFF0000;

class DisregardAlpha : public ::testing::Test {
protected:
    TnImagePixel Interpolated() const { return image_.Get(At(0.5), At(0)); }

    void ExpectRegarded() const { EXPECT_EQ(Interpolated(), TnImagePixel(0x7FFF0000)); }
    void ExpectDisregarded() const { EXPECT_EQ(Interpolated(), TnImagePixel(0x7F7F007F)); }

    TnImage image_ = SurfaceOf<TnImage>({{0xFFFF0000, 0x000000FF}});
};

TEST_F(DisregardAlpha, LastsAsLongAsTheScope) {
    ExpectRegarded();
    {
        const StDisregardAlphaInGet scope(image_, kOpaqueBlack);
        ExpectDisregarded();
    }
    ExpectRegarded();
}

TEST_F(DisregardAlpha, SetsWhatIsReadOutsideMeanwhile) {
    {
        const StDisregardAlphaInGet scope(image_, kOpaqueBlack);
        EXPECT_EQ(image_.OutsidePixel(), kOpaqueBlack);
        EXPECT_EQ(image_.Get(-1, 0), kOpaqueBlack);
        EXPECT_EQ(image_.Get(0, 1), kOpaqueBlack);
        EXPECT_EQ(image_.Get(At(2), At(0)), kOpaqueBlack);
        EXPECT_EQ(image_.Get(TnFloatRect{0, 0, 0.5, 1}), kOpaqueBlack);
    }
    EXPECT_EQ(image_.OutsidePixel(), kTransparentWhite);
    EXPECT_EQ(image_.Get(-1, 0), kTransparentWhite);
}

TEST_F(DisregardAlpha, HoldsTheImageLocked) {
    {
        const StDisregardAlphaInGet scope(image_, kOpaqueBlack);
        EXPECT_EQ(image_.Clients(), 1U);
        EXPECT_NE(image_.PixelBase(), nullptr);
    }
    EXPECT_EQ(image_.Clients(), 0U);
    EXPECT_EQ(image_.PixelBase(), nullptr);
}

TEST_F(DisregardAlpha, LeavesTheOtherReadsAlone) {
    const auto image = SurfaceOf<TnImage>({{0x000000C8, 0xFF000000}, {0x000000C8, 0xFF000000}});
    const TnFixed factor = {256};
    const StDisregardAlphaInGet scope(image, kOpaqueBlack);
    EXPECT_EQ(image.Get(0, 0), TnImagePixel(0x000000C8));
    EXPECT_EQ(image.Get(TnFloatRect{0, 0, 2, 2}), TnImagePixel(0x80000064));
    EXPECT_EQ(image.Get(0L, 0L, &factor, 1UL, &factor, 1UL), TnImagePixel(0x000000C8));
}

TEST_F(DisregardAlpha, Nests) {
    const StDisregardAlphaInGet outer(image_, kOpaqueBlack);
    {
        const StDisregardAlphaInGet inner(image_, kRed);
        EXPECT_EQ(image_.Get(-1, 0), kRed);
        EXPECT_EQ(image_.Clients(), 2U);
        ExpectDisregarded();
    }
    EXPECT_EQ(image_.Get(-1, 0), kOpaqueBlack);
    EXPECT_EQ(image_.Clients(), 1U);
    ExpectDisregarded();
}

// Only in reverse order does the outside pixel come back right.
TEST_F(DisregardAlpha, PutsBackWhatEachScopeFound) {
    auto first = std::make_unique<StDisregardAlphaInGet>(image_, kOpaqueBlack);
    auto second = std::make_unique<StDisregardAlphaInGet>(image_, kRed);
    first.reset();
    EXPECT_EQ(image_.OutsidePixel(), kTransparentWhite);
    ExpectDisregarded();
    second.reset();
    EXPECT_EQ(image_.OutsidePixel(), kOpaqueBlack);
    ExpectRegarded();
}

TEST_F(DisregardAlpha, IsAStateOfOneImage) {
    const TnImage other(image_);
    const StDisregardAlphaInGet scope(other, kOpaqueBlack);
    ExpectRegarded();
    EXPECT_EQ(image_.OutsidePixel(), kTransparentWhite);
}

TEST_F(DisregardAlpha, IsNotCopiedWithTheImage) {
    const StDisregardAlphaInGet scope(image_, kOpaqueBlack);
    const TnImage copy(image_);
    EXPECT_EQ(copy.Get(At(0.5), At(0)), TnImagePixel(0x7FFF0000));
    EXPECT_EQ(copy.OutsidePixel(), kOpaqueBlack);
    EXPECT_EQ(copy.Clients(), 0U);
}

TEST_F(DisregardAlpha, NeedsAnImageThatCanBeLocked) {
    const TnImage withoutStorage(nullptr, {2, 2});
    EXPECT_THROW(StDisregardAlphaInGet(withoutStorage, kRed), std::bad_alloc);
    EXPECT_EQ(withoutStorage.OutsidePixel(), kTransparentWhite);
    EXPECT_EQ(withoutStorage.Clients(), 0U);
    const TnImage empty;
    const StDisregardAlphaInGet scope(empty, kRed);
    EXPECT_EQ(empty.Get(0, 0), kRed);
}

TEST_F(DisregardAlpha, UnlocksTheStorageAgain) {
    StorageProbe probe;
    const TnImage image(NewRecordingStorage<TnImage>(probe, {2, 2}), {2, 2});
    {
        const StDisregardAlphaInGet scope(image, kRed);
        EXPECT_TRUE(probe.IsLocked());
        image.Get(0, 0);
    }
    EXPECT_EQ(probe.locks, 1);
    EXPECT_FALSE(probe.IsLocked());
}

} // namespace
} // namespace tn::test
