// Positions are tested against the storage's size, but count from the content's corner. Where that would leave the
// storage block is outside.

#include "tests/port/SurfaceKinds.h"
#include "tests/port/sampling/ReadSurfaces.h"
#include "tests/port/sampling/SmallPictures.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

// A surface on a block with a page that faults behind it. Rows have two pixels more than the surface shows.
template <class SurfaceType> class SamplingOfContent : public ::testing::Test {
protected:
    using Pixel = typename SurfaceType::Pixel;

    static constexpr TnPoint kSize = {6, 4};
    static constexpr std::uint32_t kColumns = 8;
    static constexpr Pixel kNew = 0x42;

    SamplingOfContent() : surface_(NewBlock(), kSize), outside_(surface_.OutsidePixel()) {
        for (std::uint32_t i = 0; i < 4 * kColumns; ++i) {
            Stored(i) = Number(i);
        }
        surface_.Content({2, 1, 3, 3});
    }

    static GuardedBlock* NewBlock() { return new GuardedBlock(kColumns * sizeof(Pixel), 4, Guard::kAfterRows); }
    static Pixel Number(std::uint32_t i) { return static_cast<ValueOf<SurfaceType>>(0x80000001U + i); }
    static Pixel NumberAt(std::uint32_t column, std::uint32_t row) { return Number(row * kColumns + column); }
    Pixel& Stored(std::uint32_t i) { return static_cast<Pixel*>(surface_.Storage()->BaseAddr())[i]; }

    SurfaceType surface_;
    Pixel outside_;
};
TYPED_TEST_SUITE(SamplingOfContent, SurfaceKinds);

TYPED_TEST(SamplingOfContent, CountsPositionsFromItsCorner) {
    EXPECT_EQ(this->surface_.Get(0, 0), this->NumberAt(2, 1));
    EXPECT_EQ(this->surface_.Get(2, 2), this->NumberAt(4, 3));
    EXPECT_EQ(this->surface_.Get(At(1), At(1)), this->NumberAt(3, 2));
    EXPECT_EQ(this->surface_.Get(-1, 0), this->outside_);
    EXPECT_EQ(this->surface_.Get(0, -1), this->outside_);
}

TYPED_TEST(SamplingOfContent, GoesOnBesideIt) {
    EXPECT_EQ(this->surface_.Get(3, 0), this->NumberAt(5, 1));
    EXPECT_EQ(this->surface_.Get(5, 0), this->NumberAt(7, 1)); // beside the storage's columns
    EXPECT_EQ(this->surface_.Get(6, 0), this->outside_);
    EXPECT_EQ(this->surface_.Get(At(4), At(0)), this->NumberAt(6, 1));
}

TYPED_TEST(SamplingOfContent, GoesOnIntoTheNextRow) {
    this->surface_.Content({4, 0, 1, 1});
    EXPECT_EQ(this->surface_.Get(5, 0), this->NumberAt(1, 1));
}

TYPED_TEST(SamplingOfContent, EndsWithTheBlock) {
    EXPECT_EQ(this->surface_.Get(5, 2), this->NumberAt(7, 3)); // the block's last pixel
    EXPECT_EQ(this->surface_.Get(0, 3), this->outside_);
    this->surface_.Content({3, 1, 1, 1});
    EXPECT_EQ(this->surface_.Get(4, 2), this->NumberAt(7, 3));
    EXPECT_EQ(this->surface_.Get(5, 2), this->outside_);
}

TYPED_TEST(SamplingOfContent, HasNothingBetweenPixelsOfWhichOneWouldLeaveTheBlock) {
    EXPECT_EQ(this->surface_.Get(At(0), At(1)), this->NumberAt(2, 2));
    EXPECT_EQ(this->surface_.Get(At(0), At(2)), this->outside_);
    this->surface_.Content({3, 2, 1, 1});
    EXPECT_EQ(this->surface_.Get(At(3), At(0)), this->NumberAt(6, 2));
    EXPECT_EQ(this->surface_.Get(At(4), At(0)), this->outside_); // the lower right one would
}

TYPED_TEST(SamplingOfContent, WritesWhereItReads) {
    this->surface_.Set(this->kNew, 5, 2);
    EXPECT_EQ(this->Stored(31), this->kNew);
    this->surface_.Set(this->kNew, 0, 0);
    EXPECT_EQ(this->Stored(10), this->kNew);
}

TYPED_TEST(SamplingOfContent, DropsWritesThatWouldLeaveTheBlock) {
    const auto before = BytesOf(*this->surface_.Storage());
    this->surface_.Set(this->kNew, 0, 3);
    this->surface_.Set(this->kNew, 5, 3);
    this->surface_.Set(this->kNew, 6, 0);
    EXPECT_EQ(BytesOf(*this->surface_.Storage()), before);
}

TYPED_TEST(SamplingOfContent, HasMeansFromItsCorner) {
    EXPECT_EQ(this->surface_.Get(TnFloatRect{0, 0, 2, 1.5}).value % 256, (2 * 11 + 2 * 12 + 19 + 20) / 6);
}

TYPED_TEST(SamplingOfContent, IsEmptyAtTheStoragesCornerWhenItLiesOutside) {
    this->surface_.Content({9, 9, 2, 2});
    EXPECT_EQ(this->surface_.Get(0, 0), this->NumberAt(0, 0));
    EXPECT_EQ(this->surface_.Get(5, 3), this->NumberAt(5, 3));
}

// The pixel base stays where the first lock put it.
TYPED_TEST(SamplingOfContent, ThatIsSetWhileLockedTakesEffectLater) {
    const ClientLock<TypeParam> lock(this->surface_);
    this->surface_.Content({0, 0, 6, 4});
    EXPECT_EQ(this->surface_.Get(0, 0), this->NumberAt(2, 1));
    EXPECT_EQ(this->surface_.Get(0, 3), this->outside_);
    this->surface_.Set(this->kNew, 5, 3);
}

} // namespace
} // namespace tn::test
