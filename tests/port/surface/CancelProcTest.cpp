#include "tests/port/SurfaceKinds.h"

namespace tn::test {
namespace {

int firstCalls = 0;
int secondCalls = 0;

void First() { ++firstCalls; }

void Second() { ++secondCalls; }

template <class SurfaceType> class SurfaceCancelProc : public testing::Test {
protected:
    ~SurfaceCancelProc() override {
        TnImage::SetDefaultCancelProc(nullptr);
        TnMatte::SetDefaultCancelProc(nullptr);
    }

    static SurfaceType OverStorage(TnCancelProc cancelProc) { return SurfaceType(nullptr, {0, 0}, cancelProc); }
};
TYPED_TEST_SUITE(SurfaceCancelProc, SurfaceKinds);

TYPED_TEST(SurfaceCancelProc, GivenOneWins) {
    TypeParam::SetDefaultCancelProc(&First);
    EXPECT_EQ(TypeParam({3, 2}, false, &Second).CancelProc(), &Second);
    EXPECT_EQ(this->OverStorage(&Second).CancelProc(), &Second);
}

TYPED_TEST(SurfaceCancelProc, DefaultOfTheClassComesNext) {
    TypeParam::SetDefaultCancelProc(&First);
    EXPECT_EQ(TypeParam().CancelProc(), &First);
    EXPECT_EQ(TypeParam({3, 2}, true).CancelProc(), &First);
    EXPECT_EQ(this->OverStorage(nullptr).CancelProc(), &First);
}

TYPED_TEST(SurfaceCancelProc, WithoutEitherDoesNothing) {
    const TypeParam surface;
    ASSERT_NE(surface.CancelProc(), nullptr);
    firstCalls = secondCalls = 0;
    surface.CancelProc()();
    this->OverStorage(nullptr).CancelProc()();
    EXPECT_EQ(firstCalls + secondCalls, 0);
}

TYPED_TEST(SurfaceCancelProc, DefaultMayBeResetToNone) {
    TypeParam::SetDefaultCancelProc(&First);
    TypeParam::SetDefaultCancelProc(nullptr);
    const TypeParam surface;
    EXPECT_NE(surface.CancelProc(), &First);
    surface.CancelProc()();
}

TYPED_TEST(SurfaceCancelProc, DefaultReachesOnlySurfacesMadeLater) {
    TypeParam::SetDefaultCancelProc(&First);
    const TypeParam surface({3, 2});
    TypeParam::SetDefaultCancelProc(&Second);
    EXPECT_EQ(surface.CancelProc(), &First);
    EXPECT_EQ(TypeParam({3, 2}).CancelProc(), &Second);
}

TEST(SurfaceDefaultCancelProc, IsSeparateForImagesAndMattes) {
    TnImage::SetDefaultCancelProc(&First);
    TnMatte::SetDefaultCancelProc(&Second);
    EXPECT_EQ(TnImage().CancelProc(), &First);
    EXPECT_EQ(TnMatte().CancelProc(), &Second);
    TnImage::SetDefaultCancelProc(nullptr);
    EXPECT_EQ(TnMatte().CancelProc(), &Second);
    TnMatte::SetDefaultCancelProc(nullptr);
}

TYPED_TEST(SurfaceCancelProc, CopyTakesTheSourcesNotTheDefault) {
    const TypeParam source({3, 2}, false, &Second);
    TypeParam::SetDefaultCancelProc(&First);
    EXPECT_EQ(TypeParam(source).CancelProc(), &Second);
}

TYPED_TEST(SurfaceCancelProc, AssignmentTakesTheSources) {
    const TypeParam source({3, 2}, false, &Second);
    TypeParam target({3, 2}, false, &First);
    target = source;
    EXPECT_EQ(target.CancelProc(), &Second);
}

TYPED_TEST(SurfaceCancelProc, ReInitWithoutOneKeepsIt) {
    TypeParam surface({3, 2}, false, &First);
    TypeParam::SetDefaultCancelProc(&Second);
    surface.ReInit({4, 4});
    EXPECT_EQ(surface.CancelProc(), &First);
}

TYPED_TEST(SurfaceCancelProc, ReInitWithOneReplacesIt) {
    TypeParam surface({3, 2}, false, &First);
    surface.ReInit({4, 4}, false, &Second);
    EXPECT_EQ(surface.CancelProc(), &Second);
    surface.ReInit({0, 0}, false, &First);
    EXPECT_EQ(surface.CancelProc(), &First);
}

} // namespace
} // namespace tn::test
