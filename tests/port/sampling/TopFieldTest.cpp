// StCoerceToTopFieldOnly.

#include "TnGraphics/port/StCoerceToTopFieldOnly.h"

#include "tests/port/SurfaceKinds.h"
#include "tests/port/sampling/SmallPictures.h"
#include "tests/support/CancelAtPoll.h"

#include "TnGraphics/ops/Erase.h"
#include "TnGraphics/ops/Fills.h"

#include <gtest/gtest.h>
#include <new>
#include <vector>

namespace tn::test {
namespace {

constexpr TnPoint kSize = {10, 5};
constexpr TnRect kWhole = {0, 0, 10, 5};
constexpr TnImagePixel kOutside = 0x00FFFFFF;
constexpr TnImagePixel kNew = 0xFF123456;

class TopField : public ::testing::Test {
protected:
    TopField() { PaintNumbers(image_); }

    // Rows of the image that are new all along.
    std::vector<int> NewRows() const {
        std::vector<int> rows;
        for (int y = 0; y < image_.Size().y; ++y) {
            int count = 0;
            for (int x = 0; x < image_.Size().x; ++x) {
                count += PixelAt(image_, x, y) == kNew ? 1 : 0;
            }
            if (count == image_.Size().x) {
                rows.push_back(y);
            }
        }
        return rows;
    }

    TnImage image_{kSize};
};

TEST_F(TopField, HasEveryOtherRow) {
    const StCoerceToTopFieldOnly field(image_);
    EXPECT_EQ(image_.Size(), (TnPoint{10, 2}));
    EXPECT_EQ(image_.StorageSize(), (TnPoint{10, 2}));
    EXPECT_EQ(image_.Content(), (TnRect{0, 0, 10, 2}));
    EXPECT_EQ(image_.RowBytes(), 96U);
    EXPECT_EQ(image_.Get(3, 0), TnImagePixel(NumberOf(3, 0)));
    EXPECT_EQ(image_.Get(3, 1), TnImagePixel(NumberOf(3, 2)));
    EXPECT_EQ(image_.Get(9, 1), TnImagePixel(NumberOf(9, 2)));
    EXPECT_EQ(image_.Get(3, 2), kOutside);
}

TEST_F(TopField, GivesTheImageBack) {
    { const StCoerceToTopFieldOnly field(image_); }
    EXPECT_EQ(image_.Size(), kSize);
    EXPECT_EQ(image_.StorageSize(), kSize);
    EXPECT_EQ(image_.Content(), kWhole);
    EXPECT_EQ(image_.RowBytes(), 48U);
    EXPECT_EQ(image_.Get(3, 1), TnImagePixel(NumberOf(3, 1)));
    EXPECT_EQ(image_.Get(9, 4), TnImagePixel(NumberOf(9, 4)));
}

TEST_F(TopField, TruncatesTheHeight) {
    for (const int height : {0, 1, 2, 3, 6, 7}) {
        const TnImage image({4, height});
        const StCoerceToTopFieldOnly field(image);
        EXPECT_EQ(image.Size(), (TnPoint{4, height / 2}));
    }
}

TEST_F(TopField, TruncatesANegativeHeightTowardsZero) {
    StorageProbe probe;
    const TnImage image(new RecordingStorage(probe, 16, 3), {4, -3});
    const StCoerceToTopFieldOnly field(image);
    EXPECT_EQ(image.Size(), (TnPoint{4, -1}));
    EXPECT_EQ(image.Get(0, 0), kOutside);
}

TEST_F(TopField, OfOneRowIsEmpty) {
    const TnImage image({4, 1}, true);
    const StCoerceToTopFieldOnly field(image);
    EXPECT_EQ(image.Get(0, 0), kOutside);
    EXPECT_TRUE(image.begin().AtEnd());
}

TEST_F(TopField, IsWritten) {
    {
        const StCoerceToTopFieldOnly field(image_);
        image_.Set(kNew, 4, 1);
        image_.Set(kNew, 4, 2);
    }
    EXPECT_EQ(image_.Get(4, 2), kNew);
    EXPECT_EQ(image_.Get(4, 1), TnImagePixel(NumberOf(4, 1)));
    EXPECT_EQ(image_.Get(4, 4), TnImagePixel(NumberOf(4, 4)));
}

TEST_F(TopField, IsInterpolated) {
    const StCoerceToTopFieldOnly field(image_);
    EXPECT_EQ(image_.Get(At(1), At(0.5)), TnImagePixel(NumberOf(1, 1)));      // the mean of rows 0 and 2
    EXPECT_EQ(image_.Get(At(1), At(0.25)), TnImagePixel(NumberOf(1, 0) + 8)); // a quarter of 32
    EXPECT_EQ(image_.Get(At(1), At(1.5)), TnImagePixel(NumberOf(1, 2)));      // the field's last row, repeated
    EXPECT_EQ(image_.Get(At(1), At(2)), kOutside);
}

TEST_F(TopField, HasMeansAndWeightedSums) {
    const StCoerceToTopFieldOnly field(image_);
    EXPECT_EQ(image_.Get(TnFloatRect{0, 0, 2, 2}), TnImagePixel(NumberOf(0, 1) + 1)); // 0, 1, 32, 33
    const TnFixed half = {128};
    const TnFixed halves[] = {half, half};
    const TnFixed one = {256};
    EXPECT_EQ(image_.Get(2L, 0L, &one, 1UL, halves, 2UL), TnImagePixel(NumberOf(2, 1)));
}

TEST_F(TopField, IsWalked) {
    const StCoerceToTopFieldOnly field(image_);
    int y = 0;
    for (auto row = image_.begin(); !row.AtEnd(); row.NextLine()) {
        EXPECT_EQ(row->value, NumberOf(0, 2 * y));
        EXPECT_EQ(row.Position(), (TnPoint{0, y}));
        ++y;
    }
    EXPECT_EQ(y, 2);
    auto column = image_.beginVertical();
    column.Next();
    EXPECT_EQ(column->value, NumberOf(0, 2));
}

TEST_F(TopField, IsWhatOperationsWorkOn) {
    {
        const StCoerceToTopFieldOnly field(image_);
        ColorFill(image_, {0, 0, 100, 100}, TnColor(0xFF, 0x12, 0x34, 0x56));
    }
    EXPECT_EQ(NewRows(), (std::vector<int>{0, 2}));
}

TEST_F(TopField, IsPolledByItsOwnRows) {
    TnImage image({3, 131}, true, &PollWatch::Proc);
    const StCoerceToTopFieldOnly field(image);
    const PollWatch watch;
    AlphaFill(image, image.Bounds(), 9);
    EXPECT_EQ(watch.Polls(), 2);
}

TEST_F(TopField, HoldsTheImageLocked) {
    StorageProbe probe;
    const TnImage image(NewRecordingStorage<TnImage>(probe, kSize), kSize);
    {
        const StCoerceToTopFieldOnly field(image);
        EXPECT_EQ(image.Clients(), 1U);
        EXPECT_TRUE(probe.IsLocked());
        image.Get(0, 0);
    }
    EXPECT_EQ(image.Clients(), 0U);
    EXPECT_EQ(probe.locks, 1);
    EXPECT_FALSE(probe.IsLocked());
}

TEST_F(TopField, KeepsThePixelBaseOfAnImageThatIsLocked) {
    image_.AddClient();
    const void* const base = image_.PixelBase();
    {
        const StCoerceToTopFieldOnly field(image_);
        EXPECT_EQ(image_.PixelBase(), base);
        EXPECT_EQ(image_.Clients(), 2U);
        EXPECT_EQ(image_.Get(3, 1), TnImagePixel(NumberOf(3, 2)));
    }
    EXPECT_EQ(image_.PixelBase(), base);
    EXPECT_EQ(image_.Clients(), 1U);
    EXPECT_EQ(image_.Get(3, 1), TnImagePixel(NumberOf(3, 1)));
    image_.RemoveClient();
}

TEST_F(TopField, Nests) {
    TnImage image({4, 13});
    PaintNumbers(image);
    const StCoerceToTopFieldOnly field(image);
    {
        const StCoerceToTopFieldOnly fieldOfField(image);
        EXPECT_EQ(image.Size(), (TnPoint{4, 3}));
        EXPECT_EQ(image.Get(1, 1), TnImagePixel(NumberOf(1, 4)));
        EXPECT_EQ(image.Get(1, 2), TnImagePixel(NumberOf(1, 8)));
        EXPECT_EQ(image.Clients(), 2U);
    }
    EXPECT_EQ(image.Size(), (TnPoint{4, 6}));
    EXPECT_EQ(image.Get(1, 5), TnImagePixel(NumberOf(1, 10)));
}

TEST_F(TopField, NeedsAnImageThatCanBeLocked) {
    const TnImage withoutStorage(nullptr, {4, 6});
    EXPECT_THROW(StCoerceToTopFieldOnly{withoutStorage}, std::bad_alloc);
    EXPECT_EQ(withoutStorage.Size(), (TnPoint{4, 6}));
    EXPECT_EQ(withoutStorage.RowBytes(), 0U);
    EXPECT_EQ(withoutStorage.Clients(), 0U);
    const TnImage empty;
    const StCoerceToTopFieldOnly field(empty);
    EXPECT_EQ(empty.Get(0, 0), kOutside);
}

} // namespace
} // namespace tn::test
