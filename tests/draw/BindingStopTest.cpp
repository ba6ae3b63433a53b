#include "TnGraphics/draw/Binding.h"

#include "tests/fakes/EngineTest.h"

#include "TnGraphics/draw/ClientRecords.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

class BindingStop : public EngineTest {};

TEST_F(BindingStop, WithoutAStartDoesNothing) {
    TheBinding().Stop();
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(BindingStop, AfterAFailedStartDoesNothing) {
    engines.Hide("KelAllocateProc");
    EXPECT_FALSE(Start());
    engines.ForgetLog();
    TheBinding().Stop();
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(BindingStop, ReleasesEveryReference) {
    EXPECT_TRUE(Start());
    TheBinding().Stop();
    EXPECT_FALSE(TheBinding().IsStarted());
    EXPECT_FALSE(TheBinding().IsLive());
    EXPECT_EQ(TheBinding().CoreError(0), nullptr);
    EXPECT_EQ(TheBinding().CoreError(1), nullptr);
    EXPECT_EQ(engines.handles.Unbalanced(), Lines());
}

TEST_F(BindingStop, ReleasesThroughValidProcedures) {
    EXPECT_TRUE(Start());
    ++RecordingEngines::UnregisterCount();
    engines.ForgetLog();
    TheBinding().Stop();
    const Lines log = engines.Log();
    EXPECT_LT(PlaceOf("get KelErrorInterface Release KelErrorReleaseProc", log),
              PlaceOf("KelErrorReleaseProc core#0", log));
    EXPECT_EQ(engines.handles.Unbalanced(), Lines());
}

TEST_F(BindingStop, ASecondTimeDoesNothing) {
    EXPECT_TRUE(Start());
    TheBinding().Stop();
    engines.ForgetLog();
    TheBinding().Stop();
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(BindingStop, LetsItStartAgain) {
    EXPECT_TRUE(Start());
    const Lines first = engines.Log();
    TheBinding().Stop();
    engines.ForgetLog();
    EXPECT_TRUE(Start());
    EXPECT_EQ(engines.Log(), first);
    EXPECT_TRUE(TheBinding().IsLive());
}

/// Something shared with the engines, which counts how often it is given up.
class Shared : public SharedObject {
public:
    explicit Shared(SharedKind kind) : SharedObject(kind) {}
    void GiveUp() noexcept override { ++timesGivenUp; }

    int timesGivenUp = 0;
};

TEST_F(BindingStop, GivesUpWhatIsStillShared) {
    EXPECT_TRUE(Start());
    for (int kind = 0; kind < kSharedKinds; ++kind) {
        Shared first(static_cast<SharedKind>(kind));
        Shared second(static_cast<SharedKind>(kind));
        { Shared gone(static_cast<SharedKind>(kind)); }
        TheBinding().Stop();
        EXPECT_EQ(first.timesGivenUp, 1) << kind;
        EXPECT_EQ(second.timesGivenUp, 1) << kind;
        EXPECT_TRUE(Start());
        TheBinding().Stop();
        EXPECT_EQ(first.timesGivenUp, 1) << kind;
        EXPECT_TRUE(Start());
    }
}

TEST_F(BindingStop, GivesUpKindsInTheOrderOfTheirRecords) {
    static std::vector<int> order;
    order.clear();
    class Noting : public SharedObject {
    public:
        explicit Noting(SharedKind kind) : SharedObject(kind), kind_(kind) {}
        void GiveUp() noexcept override { order.push_back(static_cast<int>(kind_)); }

    private:
        SharedKind kind_;
    };
    EXPECT_TRUE(Start());
    const Noting stream(SharedKind::kStream);
    const Noting tile(SharedKind::kImageTile);
    const Noting port(SharedKind::kPort);
    TheBinding().Stop();
    EXPECT_EQ(order, (std::vector<int>{static_cast<int>(SharedKind::kPort), static_cast<int>(SharedKind::kImageTile),
                                       static_cast<int>(SharedKind::kStream)}));
}

} // namespace
} // namespace tn::test
