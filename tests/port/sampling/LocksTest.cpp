// Each read and write locks for its own time, and not at all outside.

#include "tests/port/SurfaceKinds.h"
#include "tests/port/sampling/SmallPictures.h"

#include <gtest/gtest.h>
#include <new>
#include <vector>

namespace tn::test {
namespace {

template <class SurfaceType> struct Access {
    const char* name;
    void (*inside)(SurfaceType& surface);
    void (*outside)(SurfaceType& surface);
};

constexpr TnFixed kFactor = {256};
constexpr TnFloatRect kRect = {0, 0, 2, 2};
constexpr TnFloatRect kNarrow = {0, 0, 0.5, 2};

template <class SurfaceType>
const std::vector<Access<SurfaceType>> kCommon = {
    {"Get", [](SurfaceType& surface) { surface.Get(1, 2); }, [](SurfaceType& surface) { surface.Get(3, 0); }},
    {"Get between pixels", [](SurfaceType& surface) { surface.Get(At(1.5), At(0)); },
     [](SurfaceType& surface) { surface.Get(At(-1), At(0)); }},
    {"Get of an area", [](SurfaceType& surface) { surface.Get(kRect); },
     [](SurfaceType& surface) { surface.Get(kNarrow); }},
    {"Set", [](SurfaceType& surface) { surface.Set(7, 1, 2); }, [](SurfaceType& surface) { surface.Set(7, 0, 4); }},
};

std::vector<Access<TnImage>> EveryAccess(const TnImage&) {
    auto all = kCommon<TnImage>;
    all.push_back({"Get by kernels", [](TnImage& image) { image.Get(1L, 1L, &kFactor, 1UL, &kFactor, 1UL); },
                   [](TnImage& image) { image.Get(3, 3); }});
    return all;
}

std::vector<Access<TnMatte>> EveryAccess(const TnMatte&) {
    auto all = kCommon<TnMatte>;
    all.push_back({"Get at floats", [](TnMatte& matte) { matte.Get(0.5F, 0.5F); },
                   [](TnMatte& matte) { matte.Get(2.0F, 0.0F); }});
    return all;
}

template <class SurfaceType> class SamplingLocks : public ::testing::Test {
protected:
    static constexpr TnPoint kSize = {3, 4};

    template <class Body> void ForEachAccess(const Body& body) {
        for (const auto& access : EveryAccess(surface_)) {
            SCOPED_TRACE(access.name);
            body(access);
            EXPECT_EQ(surface_.Clients(), 0U);
            EXPECT_FALSE(probe_.IsLocked());
        }
    }

    StorageProbe probe_;
    SurfaceType surface_{NewRecordingStorage<SurfaceType>(probe_, kSize), kSize};
};
TYPED_TEST_SUITE(SamplingLocks, SurfaceKinds);

TYPED_TEST(SamplingLocks, AreForTheTimeOfTheAccess) {
    this->ForEachAccess([this](const auto& access) {
        const int before = this->probe_.locks;
        access.inside(this->surface_);
        EXPECT_EQ(this->probe_.locks, before + 1);
    });
}

TYPED_TEST(SamplingLocks, AreNotTakenOutside) {
    this->ForEachAccess([this](const auto& access) {
        access.outside(this->surface_);
        EXPECT_EQ(this->probe_.locks, 0);
    });
}

TYPED_TEST(SamplingLocks, OfTheCallerAreLeftAlone) {
    this->ForEachAccess([this](const auto& access) {
        const ClientLock<TypeParam> lock(this->surface_);
        const int before = this->probe_.locks;
        access.inside(this->surface_);
        access.outside(this->surface_);
        EXPECT_EQ(this->probe_.locks, before);
        EXPECT_EQ(this->surface_.Clients(), 1U);
        EXPECT_TRUE(this->probe_.IsLocked());
    });
}

TYPED_TEST(SamplingLocks, NeedStorageInside) {
    TypeParam withoutStorage(nullptr, this->kSize);
    this->ForEachAccess([&](const auto& access) {
        try {
            access.inside(withoutStorage);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const std::bad_alloc& exception) {
            EXPECT_STREQ(exception.what(), "bad allocation");
        }
        EXPECT_EQ(withoutStorage.Clients(), 0U);
    });
}

TYPED_TEST(SamplingLocks, NeedNoStorageOutside) {
    TypeParam withoutStorage(nullptr, this->kSize);
    this->ForEachAccess([&](const auto& access) { EXPECT_NO_THROW(access.outside(withoutStorage)); });
    EXPECT_EQ(withoutStorage.Get(-1, 0), KindOf<TypeParam>::kOutsideGivenStorage);
}

TYPED_TEST(SamplingLocks, PassOnWhatTheStorageThrows) {
    this->ForEachAccess([this](const auto& access) {
        this->probe_.throwAtLock = true;
        EXPECT_THROW(access.inside(this->surface_), StorageFault);
        EXPECT_NO_THROW(access.outside(this->surface_));
        this->probe_.throwAtLock = false;
        this->probe_.throwAtBaseAddr = true;
        EXPECT_THROW(access.inside(this->surface_), StorageFault);
        this->probe_.throwAtBaseAddr = false;
    });
}

TEST(ImageKernelLocks, AreTakenForNoPixelsToo) {
    const TnImage withoutStorage(nullptr, {3, 4});
    EXPECT_THROW(withoutStorage.Get(0L, 0L, nullptr, 0UL, nullptr, 0UL), std::bad_alloc);
}

TEST(MatteKernelLocks, AreNeverTaken) {
    StorageProbe probe;
    const TnMatte matte(NewRecordingStorage<TnMatte>(probe, {3, 4}), {3, 4});
    matte.Get(0L, 0L, &kFactor, 1UL, &kFactor, 1UL);
    EXPECT_EQ(probe.locks, 0);
}

} // namespace
} // namespace tn::test
