// Polls, locks and what is done when one of the cancel procedures throws; nothing is allocated.

#include "tests/support/AllocationFailure.h"
#include "tests/support/PairWatch.h"
#include "tests/support/Pictures.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/RecordingStorage.h"
#include "tests/support/Surfaces.h"
#include "tests/transform/Calls.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <string>

namespace tn::test {
namespace {

struct Sampling {
    const char* name;
    Matrix3x3 matrix;
    InterpolationType type;
    const char* pollsOf32Rows;
};

constexpr Sampling kSamplings[] = {
    {"nearest", Moving(1, 0), kNearest, "ds"},
    {"interpolated", Moving(0.5, 0), kSmooth, "ds"},
    {"area", Scaling(3, 0.1), kSmooth, "d"},
    {"projective, nearest", HardlyProjective(Moving(1, 0)), kNearest, "ds"},
    {"projective, smooth", HardlyProjective(Moving(1, 0)), kSmooth, "ds"},
};

constexpr TnPoint kSize = {6, 100};
constexpr std::uint32_t kRowBytes = 40;

template <class KindsType> class TransformWatched : public ::testing::Test {
protected:
    using Source = typename KindsType::Source;
    using Destination = typename KindsType::Destination;

    static constexpr auto kOld = static_cast<ValueOf<Destination>>(0x99999999);

    static std::string Polls(const Sampling& sampling, int rows) {
        std::string polls;
        for (int i = 0; i < rows / 32; ++i) {
            polls += sampling.pollsOf32Rows;
        }
        return polls;
    }

    template <class Body> void ForEachSampling(const Body& body) {
        for (const Sampling& sampling : kSamplings) {
            SCOPED_TRACE(sampling.name);
            SetAll(destination_, kOld);
            body(sampling);
            ExpectUnlocked();
        }
    }

    void Run(const Sampling& sampling) { Transform(source_, destination_, sampling.matrix, sampling.type); }

    void ExpectUnlocked() const {
        EXPECT_EQ(source_.Clients(), 0U);
        EXPECT_EQ(destination_.Clients(), 0U);
        EXPECT_FALSE(sourceProbe_.IsLocked());
        EXPECT_FALSE(destinationProbe_.IsLocked());
    }

    StorageProbe sourceProbe_;
    StorageProbe destinationProbe_;
    Source source_{new RecordingStorage(sourceProbe_, kRowBytes, 100, 0x30), kSize, &PairWatch::SourceProc};
    Destination destination_{new RecordingStorage(destinationProbe_, kRowBytes, 100, 0x80), kSize,
                             &PairWatch::DestinationProc};
};
TYPED_TEST_SUITE(TransformWatched, TransformKinds);

// The source is not polled while means are taken.
TYPED_TEST(TransformWatched, PollsTheDestinationAndThenTheSourceOnceEvery32Rows) {
    for (const int rows : {1, 31, 32, 33, 64, 95, 96, 100}) {
        this->destination_.Content({0, 0, 5, rows});
        this->ForEachSampling([&](const Sampling& sampling) {
            const PairWatch watch;
            this->Run(sampling);
            EXPECT_EQ(watch.Polls(), TestFixture::Polls(sampling, rows)) << rows << " rows";
        });
    }
}

TYPED_TEST(TransformWatched, HasDoneExactlyTheRowsBeforeThePollThatCancelsIt) {
    this->ForEachSampling([this](const Sampling& sampling) {
        this->Run(sampling);
        const auto completed = ContentOf(this->destination_);
        const std::string polls = TestFixture::Polls(sampling, kSize.y);
        for (std::size_t poll = 1; poll <= polls.size(); ++poll) {
            SetAll(this->destination_, this->kOld);
            const PairWatch watch(poll);
            EXPECT_THROW(this->Run(sampling), Cancelled);
            EXPECT_EQ(watch.Polls(), polls.substr(0, poll));
            this->ExpectUnlocked();
            const int rowsDone = 32 * static_cast<int>((poll - 1) * 3 / polls.size() + 1);
            auto expected = completed;
            for (int y = rowsDone; y < kSize.y; ++y) {
                for (int x = 0; x < kSize.x; ++x) {
                    expected.At(x, y) = this->kOld;
                }
            }
            EXPECT_TRUE(SamePixels(expected, this->destination_)) << "at poll " << poll;
        }
    });
}

TYPED_TEST(TransformWatched, HoldsBothSurfacesLockedAtEveryPoll) {
    typename TestFixture::Source source(kSize, true, &PollWatch::Proc);
    typename TestFixture::Destination destination(kSize, true, &PollWatch::Proc);
    for (const Sampling& sampling : kSamplings) {
        const PollWatch watch([&](int) {
            EXPECT_NE(source.PixelBase(), nullptr);
            EXPECT_NE(destination.PixelBase(), nullptr);
        });
        Transform(source, destination, sampling.matrix, sampling.type);
        EXPECT_EQ(watch.Polls(), static_cast<int>(TestFixture::Polls(sampling, kSize.y).size()));
    }
}

TYPED_TEST(TransformWatched, LeavesTheLocksOfItsCallerAlone) {
    const ClientLock<typename TestFixture::Source> sourceLock(this->source_);
    const ClientLock<typename TestFixture::Destination> lock(this->destination_);
    for (const Sampling& sampling : kSamplings) {
        this->Run(sampling);
        EXPECT_EQ(this->source_.Clients(), 1U);
        EXPECT_EQ(this->destination_.Clients(), 1U);
    }
}

TYPED_TEST(TransformWatched, LeavesTheOtherUnlockedWhenAStorageCannotBeLocked) {
    for (StorageProbe* probe : {&this->sourceProbe_, &this->destinationProbe_}) {
        this->ForEachSampling([&](const Sampling& sampling) {
            const auto before = ContentOf(this->destination_);
            probe->throwAtLock = true;
            EXPECT_THROW(this->Run(sampling), StorageFault);
            probe->throwAtLock = false;
            probe->throwAtBaseAddr = true;
            EXPECT_THROW(this->Run(sampling), StorageFault);
            probe->throwAtBaseAddr = false;
            EXPECT_TRUE(SamePixels(before, this->destination_));
        });
    }
}

TYPED_TEST(TransformWatched, AllocatesNothing) {
    this->ForEachSampling([this](const Sampling& sampling) {
        const FailAllocation fail(1);
        EXPECT_NO_THROW(this->Run(sampling));
        EXPECT_FALSE(fail.HasFailed());
    });
}

TYPED_TEST(TransformWatched, KeepsTheSource) {
    const auto before = ContentOf(this->source_);
    this->ForEachSampling([this](const Sampling& sampling) { this->Run(sampling); });
    EXPECT_TRUE(SamePixels(before, this->source_));
}

} // namespace
} // namespace tn::test
