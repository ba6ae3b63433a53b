#include "tests/port/SurfaceKinds.h"
#include "tests/support/AllocationFailure.h"

#include "TnGraphics/port/Exceptions.h"

namespace tn::test {
namespace {

constexpr int kAllocations = 2; // the storage and its block

void CancelProc() {}

template <class SurfaceType> class SurfaceExhaustedMemory : public testing::Test {
protected:
    // Runs the action with each allocation failing in turn; nothing may then be left of the action.
    template <class Action> void AtEachAllocation(const Action& action) {
        for (int nth = 1; nth <= kAllocations; ++nth) {
            const std::int64_t before = LiveAllocations();
            action(nth);
            EXPECT_EQ(LiveAllocations(), before) << "allocation " << nth;
        }
    }

    template <class Action> void ExpectExhausted(int nth, const Action& action) {
        const FailAllocation failure(nth);
        try {
            action();
            ADD_FAILURE() << "allocation " << nth;
        } catch (const bad_alloc_bitmap& exception) {
            EXPECT_STREQ(exception.what(), "bad allocation");
        }
        EXPECT_TRUE(failure.HasFailed());
    }
};
TYPED_TEST_SUITE(SurfaceExhaustedMemory, SurfaceKinds);

TYPED_TEST(SurfaceExhaustedMemory, MakesNoSurface) {
    this->AtEachAllocation([this](int nth) { this->ExpectExhausted(nth, [] { TypeParam surface({3, 2}); }); });
}

TYPED_TEST(SurfaceExhaustedMemory, MakesNoCopy) {
    const TypeParam source({3, 2}, true);
    this->AtEachAllocation([&](int nth) { this->ExpectExhausted(nth, [&] { TypeParam copy(source); }); });
    ExpectCanBeLocked(source);
}

TYPED_TEST(SurfaceExhaustedMemory, AfterReInitLeavesTheNewSizeAndNoStorage) {
    this->AtEachAllocation([this](int nth) {
        TypeParam surface({3, 2});
        this->ExpectExhausted(nth, [&] { surface.ReInit({5, 4}, false, &CancelProc); });
        EXPECT_EQ(surface.StorageSize(), (TnPoint{5, 4}));
        EXPECT_EQ(surface.Content(), (TnRect{0, 0, 5, 4}));
        EXPECT_EQ(surface.CancelProc(), &CancelProc);
        ExpectCannotBeLocked(surface);
    });
}

TYPED_TEST(SurfaceExhaustedMemory, AfterReInitTheSurfaceMayBeMadeAgain) {
    this->AtEachAllocation([this](int nth) {
        TypeParam surface({3, 2});
        this->ExpectExhausted(nth, [&] { surface.ReInit({5, 4}); });
        surface.ReInit({6, 7});
        EXPECT_EQ(surface.RowBytes(), OwnRowBytes<TypeParam>(6));
        ExpectCanBeLocked(surface);
    });
}

TYPED_TEST(SurfaceExhaustedMemory, AfterAssignmentLeavesTheNewSizeAndNoStorage) {
    TypeParam source({5, 4}, false, &CancelProc);
    source.Content({1, 1, 2, 2});
    this->AtEachAllocation([&](int nth) {
        TypeParam target({3, 2});
        this->ExpectExhausted(nth, [&] { target = source; });
        EXPECT_EQ(target.StorageSize(), (TnPoint{5, 4}));
        EXPECT_EQ(target.Content(), (TnRect{1, 1, 2, 2}));
        EXPECT_EQ(target.RowBytes(), 0U);
        EXPECT_EQ(target.CancelProc(), &CancelProc);
        ExpectCannotBeLocked(target);
    });
}

TYPED_TEST(SurfaceExhaustedMemory, AfterAssignmentTheSurfaceMayBeAssignedAgain) {
    const TypeParam source({5, 4}, true);
    this->AtEachAllocation([&](int nth) {
        TypeParam target({3, 2});
        this->ExpectExhausted(nth, [&] { target = source; });
        target = source;
        EXPECT_EQ(BytesOf(*target.Storage()), BytesOf(*source.Storage()));
        ExpectCanBeLocked(target);
    });
}

TYPED_TEST(SurfaceExhaustedMemory, WhileLockedKeepsTheClientsUntilTheyLeave) {
    this->AtEachAllocation([this](int nth) {
        TypeParam surface({3, 2});
        surface.AddClient();
        this->ExpectExhausted(nth, [&] { surface.ReInit({5, 4}); });
        EXPECT_EQ(surface.Clients(), 1U);
        EXPECT_EQ(surface.PixelBase(), nullptr);
        surface.RemoveClient();
        ExpectCannotBeLocked(surface);
    });
}

TYPED_TEST(SurfaceExhaustedMemory, LetsOtherExceptionsPassWithoutStorage) {
    for (int nth = 1; nth <= kAllocations; ++nth) {
        TypeParam surface({3, 2});
        {
            const FailAllocation failure(nth, AllocationFault::kOther);
            EXPECT_THROW(surface.ReInit({5, 4}), OtherAllocationFault);
        }
        ExpectCannotBeLocked(surface);
    }
}

TYPED_TEST(SurfaceExhaustedMemory, IsNoMatterForEmptySurfaces) {
    const FailAllocation failure(1);
    TypeParam surface;
    TypeParam copy(surface);
    copy = surface;
    surface.ReInit({0, 0});
    EXPECT_FALSE(failure.HasFailed());
}

} // namespace
} // namespace tn::test
