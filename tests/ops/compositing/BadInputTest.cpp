#include "tests/ops/compositing/Forms.h"
#include "tests/support/AssertionRecorder.h"
#include "tests/support/Pictures.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/Surfaces.h"

#include <gtest/gtest.h>
#include <limits>
#include <new>
#include <type_traits>

namespace tn::test {
namespace {

constexpr TnPoint kSize = {5, 4};

// Of an offset in whole pixels and half a pixel more.
Request RequestAt(const TnPoint& at) {
    Request request;
    request.at = at;
    request.subPixelAt = {{at.x * 65536 + 32768}, {at.y * 65536 + 32768}};
    request.clip = {0, 0, kSize.x, kSize.y};
    request.to = {0x12345678};
    return request;
}

template <class Run> void ExpectNoStorage(const Run& run) {
    try {
        run();
        ADD_FAILURE() << "nothing was thrown";
    } catch (const std::bad_alloc& exception) {
        EXPECT_STREQ(exception.what(), "bad allocation");
    }
}

template <class SurfaceType> constexpr auto kOld = static_cast<ValueOf<SurfaceType>>(0xC3C2C1C0);

// Runs the body with a form, a source and a destination of its kinds.
template <class Body> void WithSurfaces(const Body& body) {
    ForEachForm([&]<class SourceType, class DestinationType>(const Form<SourceType, DestinationType>& form) {
        SourceType source(kSize);
        DestinationType destination(kSize);
        SetAll(source, static_cast<typename SourceType::Pixel>(0x99));
        SetAll(destination, kOld<DestinationType>);
        body(form, source, destination);
        EXPECT_EQ(source.Clients(), 0U);
        EXPECT_EQ(destination.Clients(), 0U);
    });
}

template <class SurfaceType> void TakeStorageFrom(SurfaceType& surface) {
    EXPECT_THROW(surface.ReInit({kSize.x, std::numeric_limits<int>::max()}), std::bad_alloc);
    ASSERT_EQ(surface.Storage(), nullptr);
}

template <class SurfaceType> auto Uniform(ValueOf<SurfaceType> value) {
    return UniformPicture<ValueOf<SurfaceType>>(kSize.x, kSize.y, value);
}

// What the overload does with no overlap.
template <class FormType, class SurfaceType>
void ExpectNothingReached(const FormType& form, const SurfaceType& surface) {
    const auto expected = form.ErasesOutside() ? ValueOf<SurfaceType>{0} : kOld<SurfaceType>;
    EXPECT_TRUE(SamePixels(Uniform<SurfaceType>(expected), surface));
}

TEST(CompositingBadInput, ASourceWithoutStorageThrowsAndLeavesTheDestinationUntouchedAndUnlocked) {
    WithSurfaces([](const auto& form, auto& source, auto& destination) {
        using DestinationType = std::remove_cvref_t<decltype(destination)>;
        TakeStorageFrom(source);
        ExpectNoStorage([&] { form.run(source, destination, RequestAt({0, 0})); });
        EXPECT_TRUE(SamePixels(Uniform<DestinationType>(kOld<DestinationType>), destination));
    });
}

TEST(CompositingBadInput, ADestinationWithoutStorageThrowsAndLeavesTheSourceUnlocked) {
    WithSurfaces([](const auto& form, auto& source, auto& destination) {
        TakeStorageFrom(destination);
        ExpectNoStorage([&] { form.run(source, destination, RequestAt({0, 0})); });
    });
}

TEST(CompositingBadInput, ASourceWithoutStorageIsNotMissedWithoutAnOverlap) {
    WithSurfaces([](const auto& form, auto& source, auto& destination) {
        TakeStorageFrom(source);
        EXPECT_NO_THROW(form.run(source, destination, RequestAt({-kSize.x, 0})));
        ExpectNothingReached(form, destination);
    });
}

TEST(CompositingBadInput, ADestinationWithoutStorageIsMissedWithoutAnOverlapOnlyWhenItIsToBeErased) {
    WithSurfaces([](const auto& form, auto& source, auto& destination) {
        TakeStorageFrom(destination);
        const auto run = [&] { form.run(source, destination, RequestAt({100, 0})); };
        if (form.ErasesOutside()) {
            ExpectNoStorage(run);
        } else {
            EXPECT_NO_THROW(run());
        }
    });
}

TEST(CompositingBadInput, SurfacesOfNoSizeAreOrdinaryInput) {
    for (const TnPoint size : {TnPoint{0, 0}, {0, 7}, {7, 0}}) {
        WithSurfaces([&](const auto& form, auto& source, auto& destination) {
            source.ReInit(size);
            EXPECT_NO_THROW(form.run(source, destination, RequestAt({0, 0})));
            ExpectNothingReached(form, destination);
            destination.ReInit(size);
            EXPECT_NO_THROW(form.run(source, destination, RequestAt({0, 0})));
            source.ReInit(kSize);
            EXPECT_NO_THROW(form.run(source, destination, RequestAt({0, 0})));
        });
    }
}

TEST(CompositingBadInput, EmptyContentsAreOrdinaryInput) {
    WithSurfaces([](const auto& form, auto& source, auto& destination) {
        source.Content({9, 9, 1, 1});
        ASSERT_EQ(source.Size(), TnPoint{});
        EXPECT_NO_THROW(form.run(source, destination, RequestAt({0, 0})));
        destination.Content({0, 0, 0, 3});
        EXPECT_NO_THROW(form.run(source, destination, RequestAt({0, 0})));
    });
}

TEST(CompositingBadInput, OffsetsAtTheEndsOfTheirRangeReachNothing) {
    constexpr int kLowest = std::numeric_limits<int>::min();
    constexpr int kHighest = std::numeric_limits<int>::max();
    for (const TnPoint whole : {TnPoint{-32768, 0}, {32767, 0}, {0, -32768}, {0, 32767}, {-32768, 32767}}) {
        WithSurfaces([&](const auto& form, auto& source, auto& destination) {
            const auto end = [](int offset) { return offset < 0 ? kLowest : offset > 0 ? kHighest : 0; };
            Request request = RequestAt({0, 0});
            request.at = whole;
            request.subPixelAt = {{end(whole.x)}, {end(whole.y)}};
            EXPECT_NO_THROW(form.run(source, destination, request));
            ExpectNothingReached(form, destination);
        });
    }
}

// Surfaces that their caller keeps locked while he changes them. Walks that would leave their block are empty.
template <class Change> void ExpectNotRead(const Change& change) {
    const AssertionRecorder recorder;
    for (const ImageForm& form : kImageForms) {
        if (!form.ErasesOutside()) {
            SCOPED_TRACE(form.name);
            TnImage source({10, 10});
            TnImage destination(kSize);
            SetAll(destination, kOld<TnImage>);
            change(source);
            EXPECT_NO_THROW(form.run(source, destination, RequestAt({0, 0})));
            EXPECT_EQ(source.Clients(), 1U);
            EXPECT_TRUE(SamePixels(Uniform<TnImage>(kOld<TnImage>), destination));
            source.RemoveClient();
        }
    }
}

TEST(CompositingBadInput, ASourceThatGotANewSizeWhileLockedIsNotRead) {
    ExpectNotRead([](TnImage& source) {
        source.AddClient();
        source.ReInit({6, 6});
    });
}

TEST(CompositingBadInput, ASourceWhoseContentMovedWhileLockedIsNotReadBeyondItsBlock) {
    ExpectNotRead([](TnImage& source) {
        source.Content({8, 8, 2, 2});
        source.AddClient();
        source.Content({0, 0, 10, 10});
    });
}

TEST(CompositingBadInput, ADestinationThatGotANewSizeWhileLockedIsNotWritten) {
    const AssertionRecorder recorder;
    for (const ImageForm& form : kImageForms) {
        SCOPED_TRACE(form.name);
        TnImage source(kSize, true);
        TnImage destination({10, 10});
        destination.AddClient();
        destination.ReInit(kSize);
        EXPECT_NO_THROW(form.run(source, destination, RequestAt({0, 0})));
        EXPECT_EQ(destination.Clients(), 1U);
        destination.RemoveClient();
    }
}

} // namespace
} // namespace tn::test
