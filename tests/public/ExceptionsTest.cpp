#include "tests/public/Pixels.h"
#include "tests/support/CancelAtPoll.h"
#include "tests/support/RecordingStorage.h"

#include <gtest/gtest.h>
#include <new>
#include <string>
#include <typeinfo>

namespace tn::test {
namespace {

constexpr TnColor kColor = {1, 2, 3, 4};
constexpr TnImagePixel kColorPixel = 0x01020304;

// What a host throws to cancel, with something to say.
struct HostCancelled {
    std::string reason;
};

[[noreturn]] void CancelWithReason() { throw HostCancelled{"enough"}; }

[[noreturn]] void CancelAsExhausted() { throw bad_alloc_bitmap(); }

TEST(PublicExceptions, HostsOwnPassesThroughTheLibrary) {
    TnImage image({10, 70}, true, &CancelWithReason);
    try {
        ColorFill(image, image.Bounds(), kColor);
        FAIL();
    } catch (const HostCancelled& cancelled) {
        EXPECT_EQ(cancelled.reason, "enough");
    }
}

TEST(PublicExceptions, CancellingLeavesTheRowsDoneAndNoLock) {
    TnImage image({10, 70}, true, &CancelWithReason);
    EXPECT_THROW(ColorFill(image, image.Bounds(), kColor), HostCancelled);
    EXPECT_EQ(image.Clients(), 0U);
    image.ReInit(image.Size(), true, &PollWatch::Proc);
    {
        const CancelAtPoll cancel(2);
        EXPECT_THROW(ColorFill(image, image.Bounds(), kColor), Cancelled);
    }
    EXPECT_EQ(Count(image, kColorPixel), 640);
}

TEST(PublicExceptions, CancellingReachesTheHostFromEveryOperation) {
    TnImage image({10, 70}, true, &CancelWithReason);
    TnMatte matte({10, 70}, true, &CancelWithReason);
    const TnRect all = image.Bounds();
    EXPECT_THROW(AlphaFill(image, all, 1), HostCancelled);
    EXPECT_THROW(AlphaFill(matte, all, 1), HostCancelled);
    EXPECT_THROW(XFill(image, all, kColor, kColor), HostCancelled);
    EXPECT_THROW(CrossHatchFill(image, all, kColor, kColor, 2), HostCancelled);
    EXPECT_THROW(BlendInColor(image, kColor, true), HostCancelled);
    EXPECT_THROW(BlendInColorAndFillAlpha(image, kColor, 1), HostCancelled);
    EXPECT_THROW(SetOpacity(image, 50), HostCancelled);
    EXPECT_THROW(EraseOutside(image, {}), HostCancelled);
    EXPECT_THROW(PrepareMargin(matte, {}), HostCancelled);
    EXPECT_EQ(image.Clients() + matte.Clients(), 0U);
}

TEST(PublicExceptions, LibrarysOwnMayBeThrownByTheHost) {
    TnImage image({10, 70}, true, &CancelAsExhausted);
    EXPECT_THROW(SetOpacity(image, 50), bad_alloc_bitmap);
}

template <class Action> std::string TextOfBadAllocation(const Action& action) {
    try {
        action();
    } catch (const std::bad_alloc& exception) {
        return exception.what();
    }
    return "nothing thrown";
}

TEST(PublicExceptions, ExhaustedMemoryIsCaughtByItsType) {
    EXPECT_THROW(TnImage({-1, 5}), bad_alloc_bitmap);
    EXPECT_THROW(TnMatte({0x7FFFFFFF, 0x7FFFFFFF}), bad_alloc_bitmap);
    EXPECT_THROW(TnMask({-1, 5}), bad_alloc_bitmap);
    EXPECT_THROW(WinBitMapHelper({-1, 5}, 32, true), bad_alloc_bitmap);
    TnImage image;
    EXPECT_THROW(image.ReInit({-1, 5}), bad_alloc_bitmap);
}

TEST(PublicExceptions, ExhaustedMemoryIsCaughtAsTheStandardException) {
    EXPECT_EQ(TextOfBadAllocation([] { TnImage image({-1, 5}); }), "bad allocation");
}

TEST(PublicExceptions, MissingStorageIsTheStandardException) {
    TnImage image(nullptr, {10, 10});
    EXPECT_EQ(TextOfBadAllocation([&] { image.AddClient(); }), "bad allocation");
    EXPECT_EQ(TextOfBadAllocation([&] { image.Content({}); }), "bad allocation");
    EXPECT_EQ(TextOfBadAllocation([&] { image.begin(); }), "bad allocation");
    EXPECT_EQ(TextOfBadAllocation([&] { ColorFill(image, image.Bounds(), kColor); }), "bad allocation");
    try {
        image.AddClient();
    } catch (const bad_alloc_bitmap&) {
        FAIL() << "not exhausted memory";
    } catch (const std::bad_alloc&) {
    }
}

TEST(PublicExceptions, CopyOfForeignStorageIsABadCast) {
    StorageProbe probe;
    const TnMatte source(new RecordingStorage(probe, 5, 4), {5, 4});
    EXPECT_THROW(TnMatte copy(source), std::bad_cast);
    TnMatte target;
    EXPECT_THROW(target = source, std::bad_cast);
}

TEST(PublicExceptions, ThoseOfTheHostsStoragePass) {
    StorageProbe probe;
    TnImage image(new RecordingStorage(probe, 20, 4), {5, 4});
    probe.throwAtLock = true;
    EXPECT_THROW(image.AddClient(), StorageFault);
    EXPECT_THROW(ColorFill(image, image.Bounds(), kColor), StorageFault);
    probe.throwAtLock = false;
    ColorFill(image, image.Bounds(), kColor);
    EXPECT_EQ(Count(image, kColorPixel), 20);
}

} // namespace
} // namespace tn::test
