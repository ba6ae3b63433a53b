// Polls, locks and what is done when one of the cancel procedures throws.

#include "tests/ops/compositing/Forms.h"
#include "tests/support/PairWatch.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/RecordingStorage.h"
#include "tests/support/Surfaces.h"

#include <gtest/gtest.h>
#include <string>
#include <type_traits>

namespace tn::test {
namespace {

constexpr TnPoint kSize = {6, 100};
constexpr std::uint32_t kRowBytes = 40;

// A source on recording storage and a destination likewise, both polled by PairWatch.
template <class SourceType, class DestinationType> struct RecordedPair {
    StorageProbe sourceProbe;
    StorageProbe destinationProbe;
    SourceType source{new RecordingStorage(sourceProbe, kRowBytes, 100, 0x30), kSize, &PairWatch::SourceProc};
    DestinationType destination{new RecordingStorage(destinationProbe, kRowBytes, 100, 0x80), kSize,
                                &PairWatch::DestinationProc};

    void ExpectUnlocked() const {
        EXPECT_EQ(source.Clients(), 0U);
        EXPECT_EQ(destination.Clients(), 0U);
        EXPECT_FALSE(sourceProbe.IsLocked());
        EXPECT_FALSE(destinationProbe.IsLocked());
        EXPECT_EQ(sourceProbe.refreshes + destinationProbe.refreshes, 0);
    }
};

// Runs the body with each form and a pair for it, which must be left unlocked.
template <class Body> void WithPairs(const Body& body) {
    ForEachForm([&]<class SourceType, class DestinationType>(const Form<SourceType, DestinationType>& form) {
        RecordedPair<SourceType, DestinationType> pair;
        body(form, pair);
        pair.ExpectUnlocked();
    });
}

// A request for the whole pair; the rows from the given one on are outside the overlap.
Request RequestOfRows(int rows) {
    Request request;
    request.at = {0, rows - kSize.y};
    request.subPixelAt = {{16384}, {request.at.y * 65536 + 32768}};
    request.clip = {0, 0, kSize.x, kSize.y};
    request.to = {0x55667788};
    return request;
}

TEST(CompositingPolls, AreOfTheDestinationAndThenOfTheSourceOnceEvery32Rows) {
    for (const int rows : {1, 31, 32, 33, 64, 95, 96, 100}) {
        WithPairs([&](const auto& form, auto& pair) {
            const PairWatch watch;
            form.run(pair.source, pair.destination, RequestOfRows(rows));
            std::string expected;
            for (int poll = 0; poll < rows / 32; ++poll) {
                expected += "ds";
            }
            if (form.ErasesOutside()) {
                expected.append(static_cast<std::size_t>((100 - rows) / 32), 'd');
            }
            EXPECT_EQ(watch.Polls(), expected) << rows << " rows";
        });
    }
}

TEST(CompositingPolls, NeverComeWithoutAnOverlapButFromErasing) {
    WithPairs([](const auto& form, auto& pair) {
        const PairWatch watch;
        Request request = RequestOfRows(100);
        request.at.x = kSize.x;
        request.subPixelAt.x.raw = kSize.x * 65536;
        form.run(pair.source, pair.destination, request);
        EXPECT_EQ(watch.Polls(), form.ErasesOutside() ? "ddd" : "");
    });
}

TEST(CompositingCancelled, HasDoneExactlyTheRowsBeforeThePoll) {
    WithPairs([](const auto& form, auto& completed) {
        const Request request = RequestOfRows(100);
        const auto before = ContentOf(completed.destination);
        form.run(completed.source, completed.destination, request);
        const auto after = ContentOf(completed.destination);
        for (const int poll : {1, 2, 3, 4, 5, 6}) {
            std::remove_cvref_t<decltype(completed)> cancelled;
            const PairWatch watch(static_cast<std::size_t>(poll));
            EXPECT_THROW(form.run(cancelled.source, cancelled.destination, request), Cancelled);
            cancelled.ExpectUnlocked();
            auto expected = before;
            for (int y = 0; y < (poll + 1) / 2 * 32; ++y) {
                for (int x = 0; x < kSize.x; ++x) {
                    expected.At(x, y) = after.At(x, y);
                }
            }
            EXPECT_TRUE(SamePixels(expected, cancelled.destination)) << "at poll " << poll;
        }
    });
}

TEST(CompositingCancelled, SkipsTheErasing) {
    WithPairs([](const auto& form, auto& pair) {
        const auto before = ContentOf(pair.destination);
        const PairWatch watch(2); // that of the source, after the last of 32 rows
        EXPECT_THROW(form.run(pair.source, pair.destination, RequestOfRows(32)), Cancelled);
        EXPECT_EQ(watch.Polls(), "ds");
        for (int y = 32; y < kSize.y; ++y) {
            EXPECT_EQ(ContentOf(pair.destination).At(0, y), before.At(0, y));
        }
    });
}

TEST(CompositingCancelled, WhileErasingHasDoneTheOverlap) {
    for (const ImageForm& form : kImageForms) {
        if (!form.ErasesOutside()) {
            continue;
        }
        SCOPED_TRACE(form.name);
        RecordedPair<TnImage, TnImage> pair;
        const PairWatch watch(3);
        EXPECT_THROW(form.run(pair.source, pair.destination, RequestOfRows(32)), Cancelled);
        EXPECT_EQ(watch.Polls(), "dsd");
        pair.ExpectUnlocked();
        EXPECT_NE(PixelAt(pair.destination, 5, 31), TnImagePixel(0x80808080));
        EXPECT_EQ(PixelAt(pair.destination, 0, 63), TnImagePixel(0));
        EXPECT_EQ(PixelAt(pair.destination, 0, 64), TnImagePixel(0x80808080));
    }
}

TEST(CompositingLocks, LocksOfTheCallerAreLeftAlone) {
    WithPairs([](const auto& form, auto& pair) {
        pair.source.AddClient();
        pair.destination.AddClient();
        const void* const sourceBase = pair.source.PixelBase();
        const void* const base = pair.destination.PixelBase();
        form.run(pair.source, pair.destination, RequestOfRows(50));
        EXPECT_EQ(pair.source.Clients(), 1U);
        EXPECT_EQ(pair.destination.Clients(), 1U);
        EXPECT_EQ(pair.source.PixelBase(), sourceBase);
        EXPECT_EQ(pair.destination.PixelBase(), base);
        pair.source.RemoveClient();
        pair.destination.RemoveClient();
    });
}

TEST(CompositingLocks, BothSurfacesAreLockedAtEveryPollOfTheOverlap) {
    ForEachForm([]<class SourceType, class DestinationType>(const Form<SourceType, DestinationType>& form) {
        SourceType source(kSize, true, &PollWatch::Proc);
        DestinationType destination(kSize, true, &PollWatch::Proc);
        const PollWatch watch([&](int) {
            EXPECT_NE(source.PixelBase(), nullptr);
            EXPECT_NE(destination.PixelBase(), nullptr);
        });
        form.run(source, destination, RequestOfRows(100));
        EXPECT_EQ(watch.Polls(), 6);
    });
}

TEST(CompositingLocks, AStorageThatCannotBeLockedLeavesTheOtherUnlocked) {
    for (const bool isSource : {true, false}) {
        WithPairs([&](const auto& form, auto& pair) {
            StorageProbe& probe = isSource ? pair.sourceProbe : pair.destinationProbe;
            const auto before = ContentOf(pair.destination);
            probe.throwAtLock = true;
            EXPECT_THROW(form.run(pair.source, pair.destination, RequestOfRows(100)), StorageFault);
            probe.throwAtLock = false;
            probe.throwAtBaseAddr = true;
            EXPECT_THROW(form.run(pair.source, pair.destination, RequestOfRows(100)), StorageFault);
            probe.throwAtBaseAddr = false;
            pair.ExpectUnlocked();
            EXPECT_TRUE(SamePixels(before, pair.destination));
        });
    }
}

} // namespace
} // namespace tn::test
