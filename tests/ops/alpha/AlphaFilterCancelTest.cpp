// Polls of the filter of alphas, what is done when one of them or an allocation throws, and the locks.

#include "tests/models/PollModels.h"
#include "tests/ops/alpha/AlphaFilterPictures.h"
#include "tests/port/SurfaceKinds.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/Levels.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/RecordingStorage.h"
#include "tests/support/Surfaces.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <new>

namespace tn::test {
namespace {

constexpr int kHighest = std::numeric_limits<int>::max();
constexpr TnPoint kSize = {135, 70};
constexpr std::uint32_t kRowBytes = 4 * 140;

int PollsInFirstPass(const TnPoint& size) { return size.y / 32; }
int PollsInSecondPass(const TnPoint& size) { return size.x / 32; }
int PollsIn(const TnPoint& size) { return PollsInFirstPass(size) + PollsInSecondPass(size); }

// Values of which every mode changes some in every stretch of 32 columns.
template <class SurfaceType> void PaintStripes(SurfaceType& surface) {
    const TnPoint size = surface.Size();
    for (int y = 0; y < size.y; ++y) {
        for (int x = 0; x < size.x; ++x) {
            ValueOf<SurfaceType> value = static_cast<ValueOf<SurfaceType>>(0x00102030 + 7 * x + 1031 * y);
            model::PutAlpha(value, static_cast<std::uint8_t>(x % 16 < 12 ? 255 : 3 * y));
            SetPixel(surface, x, y, value);
        }
    }
}

template <class SurfaceType> class AlphaFilterWatched : public ::testing::Test {
protected:
    using Model = ModelPicture<ValueOf<SurfaceType>>;

    template <class Body> static void ForEachFilter(const Body& body) {
        for (const int mode : {1, 2, 3, 4, 0}) {
            for (const int radius : {0, 1, 5, 126, 127, kHighest}) {
                const AlphaFilter filter = {mode, radius};
                SCOPED_TRACE(filter.Text());
                body(filter);
            }
        }
    }

    static SurfaceType Striped(const TnPoint& size) {
        SurfaceType surface(size, true, &PollWatch::Proc);
        PaintStripes(surface);
        return surface;
    }

    static Model Filtered(Model picture, const AlphaFilter& filter) {
        filter.Model(picture);
        return picture;
    }

    // The picture with its first columns filtered.
    static Model WithColumnsDone(const Model& before, const Model& after, int columns) {
        return model::PartlyDone(before, after, {{0, 0, columns, before.Height()}});
    }

    static SurfaceType OnRecordingStorage(StorageProbe& probe) {
        return SurfaceType(new RecordingStorage(probe, kRowBytes, static_cast<std::uint32_t>(kSize.y), 0x80), kSize,
                           &PollWatch::Proc);
    }
};
TYPED_TEST_SUITE(AlphaFilterWatched, SurfaceKinds);

TYPED_TEST(AlphaFilterWatched, PollsOnceEvery32RowsAndThenOnceEvery32Columns) {
    this->ForEachFilter([](const AlphaFilter& filter) {
        for (const TnPoint size : {TnPoint{1, 1}, TnPoint{31, 31}, TnPoint{32, 1}, TnPoint{1, 32}, TnPoint{33, 64},
                                   TnPoint{63, 95}, TnPoint{96, 31}, TnPoint{100, 130}}) {
            TypeParam surface(size, true, &PollWatch::Proc);
            const PollWatch watch;
            filter.Run(surface);
            EXPECT_EQ(watch.Polls(), size.y / 32 + size.x / 32) << size.x << " x " << size.y;
        }
    });
}

TYPED_TEST(AlphaFilterWatched, PollsByTheSizeOfTheContent) {
    TypeParam surface(kSize, true, &PollWatch::Proc);
    for (const TnRect& content : {TnRect{0, 0, 40, 31}, TnRect{3, 2, 31, 65}, TnRect{2, 9, 64, 32}}) {
        surface.Content(content);
        this->ForEachFilter([&](const AlphaFilter& filter) {
            const PollWatch watch;
            filter.Run(surface);
            EXPECT_EQ(watch.Polls(), content.height / 32 + content.width / 32);
        });
    }
}

TYPED_TEST(AlphaFilterWatched, LeavesTheSurfaceAsItWasWhenRowsAreCancelled) {
    const TypeParam striped = TestFixture::Striped(kSize);
    const auto before = ContentOf(striped);
    this->ForEachFilter([&](const AlphaFilter& filter) {
        ForEachSupportedLevel([&](ProcessorLevel) {
            for (int poll = 1; poll <= PollsInFirstPass(kSize); ++poll) {
                TypeParam surface = striped;
                const CancelAtPoll cancel(poll);
                EXPECT_THROW(filter.Run(surface), Cancelled);
                EXPECT_EQ(cancel.Polls(), poll);
                EXPECT_EQ(surface.Clients(), 0U);
                EXPECT_TRUE(SamePixels(before, surface)) << "at poll " << poll;
            }
        });
    });
}

TYPED_TEST(AlphaFilterWatched, HasDoneExactlyTheColumnsBeforeThePollThatCancelsIt) {
    const TypeParam striped = TestFixture::Striped(kSize);
    const auto before = ContentOf(striped);
    this->ForEachFilter([&](const AlphaFilter& filter) {
        const auto after = TestFixture::Filtered(before, filter);
        ForEachSupportedLevel([&](ProcessorLevel) {
            for (int poll = 1; poll <= PollsInSecondPass(kSize); ++poll) {
                TypeParam surface = striped;
                const CancelAtPoll cancel(PollsInFirstPass(kSize) + poll);
                EXPECT_THROW(filter.Run(surface), Cancelled);
                EXPECT_EQ(cancel.Polls(), PollsInFirstPass(kSize) + poll);
                EXPECT_EQ(surface.Clients(), 0U);
                EXPECT_TRUE(SamePixels(TestFixture::WithColumnsDone(before, after, 32 * poll), surface))
                    << "at poll " << poll << " over columns";
            }
        });
    });
}

TYPED_TEST(AlphaFilterWatched, HasDoneTheColumnsOfTheContentBeforeThePollThatCancelsIt) {
    constexpr TnRect kContent = {9, 4, 70, 33};
    const TypeParam striped = TestFixture::Striped(kSize);
    auto before = ContentOf(striped);
    before.content = kContent;
    this->ForEachFilter([&](const AlphaFilter& filter) {
        auto expected = TestFixture::WithColumnsDone(before, TestFixture::Filtered(before, filter), 32);
        expected.content = {0, 0, kSize.x, kSize.y};
        TypeParam surface = striped;
        surface.Content(kContent);
        const CancelAtPoll cancel(2);
        EXPECT_THROW(filter.Run(surface), Cancelled);
        surface.Content({0, 0, kSize.x, kSize.y});
        EXPECT_TRUE(SamePixels(expected, surface));
    });
}

TYPED_TEST(AlphaFilterWatched, ReleasesEverythingWhereverItIsCancelled) {
    this->ForEachFilter([](const AlphaFilter& filter) {
        StorageProbe probe;
        TypeParam surface = TestFixture::OnRecordingStorage(probe);
        for (int poll = 1; poll <= PollsIn(kSize); ++poll) {
            const CancelAtPoll cancel(poll);
            const std::int64_t allocations = LiveAllocations();
            EXPECT_THROW(filter.Run(surface), Cancelled);
            EXPECT_EQ(LiveAllocations(), allocations);
            EXPECT_EQ(surface.Clients(), 0U);
            EXPECT_FALSE(probe.IsLocked());
        }
    });
}

TYPED_TEST(AlphaFilterWatched, HoldsTheSurfaceLockedAtEveryPoll) {
    this->ForEachFilter([](const AlphaFilter& filter) {
        auto surface = TestFixture::Striped(kSize);
        const PollWatch watch([&](int) { EXPECT_NE(surface.PixelBase(), nullptr); });
        filter.Run(surface);
        EXPECT_EQ(watch.Polls(), PollsIn(kSize));
    });
}

TYPED_TEST(AlphaFilterWatched, UnlocksTheStorageAsOftenAsItLocksIt) {
    this->ForEachFilter([](const AlphaFilter& filter) {
        StorageProbe probe;
        TypeParam surface = TestFixture::OnRecordingStorage(probe);
        const int locks = probe.locks;
        const std::int64_t allocations = LiveAllocations();
        filter.Run(surface);
        EXPECT_EQ(LiveAllocations(), allocations);
        EXPECT_GT(probe.locks, locks);
        EXPECT_FALSE(probe.IsLocked());
        EXPECT_EQ(probe.refreshes, 0);
    });
}

TYPED_TEST(AlphaFilterWatched, LeavesTheLocksOfItsCallerAlone) {
    this->ForEachFilter([](const AlphaFilter& filter) {
        auto surface = TestFixture::Striped(kSize);
        surface.AddClient();
        const void* const base = surface.PixelBase();
        filter.Run(surface);
        EXPECT_EQ(surface.Clients(), 1U);
        EXPECT_EQ(surface.PixelBase(), base);
        surface.RemoveClient();
    });
}

TYPED_TEST(AlphaFilterWatched, PassesOnWhatTheStorageThrows) {
    this->ForEachFilter([](const AlphaFilter& filter) {
        StorageProbe probe;
        TypeParam surface = TestFixture::OnRecordingStorage(probe);
        const auto before = ContentOf(surface);
        probe.throwAtLock = true;
        EXPECT_THROW(filter.Run(surface), StorageFault);
        probe.throwAtLock = false;
        probe.throwAtBaseAddr = true;
        EXPECT_THROW(filter.Run(surface), StorageFault);
        probe.throwAtBaseAddr = false;
        EXPECT_EQ(surface.Clients(), 0U);
        EXPECT_FALSE(probe.IsLocked());
        EXPECT_TRUE(SamePixels(before, surface));
    });
}

template <class SurfaceType> bool FailsAtAllocation(int nth, SurfaceType& surface, const AlphaFilter& filter) {
    const FailAllocation fail(nth);
    try {
        filter.Run(surface);
    } catch (const std::bad_alloc&) {
        EXPECT_TRUE(fail.HasFailed());
        return true;
    }
    EXPECT_FALSE(fail.HasFailed());
    return false;
}

TYPED_TEST(AlphaFilterWatched, ChangesNothingWithoutMemory) {
    this->ForEachFilter([](const AlphaFilter& filter) {
        auto surface = TestFixture::Striped(kSize);
        const auto before = ContentOf(surface);
        const std::int64_t allocations = LiveAllocations();
        int nth = 1;
        while (FailsAtAllocation(nth, surface, filter)) {
            ASSERT_EQ(LiveAllocations(), allocations);
            ASSERT_EQ(surface.Clients(), 0U);
            ASSERT_TRUE(SamePixels(before, surface)) << "allocation " << nth;
            ++nth;
        }
        EXPECT_TRUE(SamePixels(TestFixture::Filtered(before, filter), surface));
    });
}

template <class SurfaceType> int AllocationsOf(SurfaceType& surface, const AlphaFilter& filter) {
    int nth = 1;
    while (FailsAtAllocation(nth, surface, filter)) {
        ++nth;
    }
    return nth - 1;
}

TYPED_TEST(AlphaFilterWatched, NeedsNoMoreAllocationsForLargerPictures) {
    this->ForEachFilter([](const AlphaFilter& filter) {
        TypeParam small({40, 40}, true);
        TypeParam high({40, 400}, true);
        TypeParam wide({400, 40}, true);
        const int allocations = AllocationsOf(small, filter);
        EXPECT_LE(AllocationsOf(high, filter), allocations);
        EXPECT_LE(AllocationsOf(wide, filter), allocations);
    });
}

} // namespace
} // namespace tn::test
