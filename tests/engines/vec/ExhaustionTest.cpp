// Memory that runs out at every allocation in turn.

#include "tests/engines/vec/PortQuestions.h"

#include <functional>

namespace tn::test {
namespace {

using ExhaustedMemory = Drawing;
using abi::Port;

// All that a call may change besides pixels.
struct Surroundings {
    std::optional<Numbers4> path;
    std::optional<Numbers2> point;
    float length;
    std::optional<Numbers4> clip;
    std::int32_t depth;
    Numbers6 matrix;

    friend bool operator==(const Surroundings&, const Surroundings&) = default;
};

Surroundings SurroundingsOf(const Canvas& canvas) {
    return {PathBounds(canvas), CurrentPoint(canvas), NumberOf(canvas, Port::kGetPathLength),
            ClipBounds(canvas), Depth(canvas),        MatrixOf(canvas)};
}

using Step = std::function<void(Canvas&)>;
using PaintStep = std::function<KelError(Canvas&)>;

// A curved path in a curved clip, with a state saved.
void Prepare(Canvas& canvas) {
    canvas.Smooth();
    canvas.MoveTo(1, 1);
    canvas.CurveTo(60, 0, 50, 50, 3, 55);
    canvas.Clip();
    canvas.GSave();
    canvas.NewPath();
    canvas.LineWidth(3);
    canvas.LineJoin(1);
    canvas.MoveTo(5, 30);
    canvas.CurveTo(70, 10, -30, 15, 40, 40);
    canvas.LineTo(11, 3);
    canvas.ClosePath();
    canvas.MoveTo(2, 2);
    canvas.LineTo(20, 50);
}

constexpr int kTooMany = 10'000;

// Lets each allocation of a step fail on a fresh canvas, until the step goes through.
void FailEachAllocation(std::int32_t depth, const std::function<void(Canvas&, int nth, bool& hasFailed)>& body) {
    bool hasFailed = true;
    int nth = 0;
    while (hasFailed && nth < kTooMany) {
        Canvas canvas(48, 48, depth);
        Prepare(canvas);
        body(canvas, ++nth, hasFailed);
    }
    EXPECT_LT(nth, kTooMany);
}

// Expects each row to be as it was, empty, or done.
void ExpectWholeRows(const Canvas& canvas, const Canvas& done) {
    const std::int32_t width = canvas.Layout().width;
    for (std::int32_t y = 0; y < canvas.Layout().height; ++y) {
        bool isDone = true, isEmpty = true;
        for (std::int32_t x = 0; x < width; ++x) {
            isDone = isDone && canvas.Get(x, y) == done.Get(x, y);
            isEmpty = isEmpty && canvas.Get(x, y) == 0;
        }
        EXPECT_TRUE(isDone || isEmpty) << y;
    }
}

// Expects a paint to fail for want of memory as if it had not been tried, except for rows that are done, and to go
// through at the next try.
void ExpectPaintToBeTriedAgain(const PaintStep& paint) {
    for (const std::int32_t depth : {32, 8, 1}) {
        Canvas expected(48, 48, depth);
        Prepare(expected);
        EXPECT_EQ(paint(expected), nullptr);
        const Surroundings after = SurroundingsOf(expected);
        FailEachAllocation(depth, [&](Canvas& canvas, int nth, bool& hasFailed) {
            const Surroundings before = SurroundingsOf(canvas);
            KelError error = nullptr;
            {
                const FailAllocation failure(nth);
                error = paint(canvas);
                hasFailed = failure.HasFailed();
            }
            if (hasFailed) {
                ExpectExhausted(error);
                ExpectExhausted(canvas.Error());
                EXPECT_TRUE(SurroundingsOf(canvas) == before) << nth;
                ExpectWholeRows(canvas, expected);
                canvas.Clear(0);
                error = paint(canvas);
            }
            EXPECT_EQ(error, nullptr);
            EXPECT_TRUE(SurroundingsOf(canvas) == after) << nth;
            EXPECT_EQ(canvas.Pixels(), expected.Pixels()) << nth;
        });
    }
}

// The same for what returns no error.
void ExpectToBeTriedAgain(const Step& step) {
    Canvas expected(48, 48);
    Prepare(expected);
    step(expected);
    EXPECT_EQ(expected.Error(), nullptr);
    const Surroundings after = SurroundingsOf(expected);
    FailEachAllocation(8, [&](Canvas& canvas, int nth, bool& hasFailed) {
        const Surroundings before = SurroundingsOf(canvas);
        {
            const FailAllocation failure(nth);
            step(canvas);
            hasFailed = failure.HasFailed();
        }
        if (hasFailed) {
            ExpectExhausted(canvas.Error());
            EXPECT_TRUE(SurroundingsOf(canvas) == before) << nth;
            step(canvas);
        } else {
            EXPECT_EQ(canvas.Error(), nullptr);
        }
        EXPECT_TRUE(SurroundingsOf(canvas) == after) << nth;
    });
}

TEST_F(ExhaustedMemory, LetsFillsBeTriedAgain) {
    ExpectPaintToBeTriedAgain([](Canvas& canvas) { return canvas.Fill(); });
    ExpectPaintToBeTriedAgain([](Canvas& canvas) { return canvas.EOFill(); });
}

TEST_F(ExhaustedMemory, LetsHardFillsBeTriedAgain) {
    ExpectPaintToBeTriedAgain([](Canvas& canvas) {
        canvas.Hard();
        return canvas.Fill();
    });
}

TEST_F(ExhaustedMemory, LetsStrokesBeTriedAgain) {
    ExpectPaintToBeTriedAgain([](Canvas& canvas) { return canvas.Stroke(); });
}

TEST_F(ExhaustedMemory, LetsClipsBeTriedAgain) {
    ExpectPaintToBeTriedAgain([](Canvas& canvas) { return canvas.Clip(); });
    ExpectPaintToBeTriedAgain([](Canvas& canvas) { return canvas.EOClip(); });
}

TEST_F(ExhaustedMemory, LetsRectanglesBeTriedAgain) {
    for (const Port place : {Port::kFillRect, Port::kStrokeRect, Port::kClipRect}) {
        ExpectPaintToBeTriedAgain([=](Canvas& canvas) { return canvas.PaintRect(place, {3.5F, 4, 40, 41}); });
    }
}

TEST_F(ExhaustedMemory, LetsTheNextClipAndPaintBeTriedAgain) {
    ExpectPaintToBeTriedAgain([](Canvas& canvas) {
        const Surroundings before = SurroundingsOf(canvas);
        canvas.GSave();
        const bool isSaved = Depth(canvas) > before.depth;
        KelError error = isSaved ? canvas.Clip() : canvas.Error();
        if (error == nullptr) {
            error = canvas.Stroke();
        }
        if (isSaved) {
            canvas.GRestore();
        }
        return error;
    });
}

TEST_F(ExhaustedMemory, LetsSavesBeTriedAgain) {
    ExpectToBeTriedAgain([](Canvas& canvas) { canvas.GSave(); });
}

TEST_F(ExhaustedMemory, IsNoConcernOfWhatGivesUp) {
    for (const Port place : {Port::kGRestore, Port::kGRestoreAll, Port::kNewPath, Port::kInitMatrix}) {
        Canvas canvas(48, 48);
        Prepare(canvas);
        const FailAllocation failure(1);
        Do(canvas, place);
        EXPECT_FALSE(failure.HasFailed()) << static_cast<int>(place);
        EXPECT_EQ(canvas.Error(), nullptr);
    }
}

TEST_F(ExhaustedMemory, LetsPathsBeBuiltOn) {
    ExpectToBeTriedAgain([](Canvas& canvas) { canvas.LineTo(7, 7); });
    ExpectToBeTriedAgain([](Canvas& canvas) { canvas.CurveTo(1, 2, 3, 4, 5, 6); });
    ExpectToBeTriedAgain([](Canvas& canvas) { canvas.ClosePath(); });
    ExpectToBeTriedAgain(
        [](Canvas& canvas) { canvas.Call<VecPortCurveType>(Port::kCurveBy, 1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F); });
}

TEST_F(ExhaustedMemory, AddsShapesWholeOrNotAtAll) {
    const VecRect rect = {1, 2, 33, 44};
    for (const Port place : {Port::kAddRect, Port::kAddEllipse}) {
        SCOPED_TRACE(static_cast<int>(place));
        ExpectToBeTriedAgain([&](Canvas& canvas) { canvas.Call<VecPortRectPathType>(place, &rect); });
    }
}

// Whatever room there is left before.
TEST_F(ExhaustedMemory, AddsShapesWholeOrNotAtAllToPathsOfAnyLength) {
    const VecRect rect = {1, 2, 33, 44};
    for (const Port place : {Port::kAddRect, Port::kAddEllipse}) {
        for (int points = 1; points < 140; ++points) {
            for (int nth = 1; nth < 4; ++nth) {
                Canvas canvas(8, 8);
                canvas.MoveTo(0, 0);
                for (int i = 1; i < points; ++i) {
                    canvas.LineTo(static_cast<float>(i % 2), 0);
                }
                const float before = NumberOf(canvas, Port::kGetPathLength);
                const FailAllocation failure(nth);
                canvas.Call<VecPortRectPathType>(place, &rect);
                ASSERT_EQ(NumberOf(canvas, Port::kGetPathLength) == before, failure.HasFailed())
                    << points << " points, allocation " << nth;
            }
        }
    }
}

TEST_F(ExhaustedMemory, IsToldOnlyAsLongAsItLasts) {
    Canvas canvas(8, 8);
    {
        const FailAllocation failure(1);
        canvas.LineTo(1, 1);
        EXPECT_TRUE(failure.HasFailed()) << "an error is made";
        ExpectExhausted(canvas.Error());
    }
    canvas.LineTo(1, 1);
    ExpectOwnError(canvas.Error());
}

TEST_F(ExhaustedMemory, ChangesPathsWholeOrNotAtAll) {
    for (const Port place : {Port::kReversePath, Port::kFlattenPath}) {
        SCOPED_TRACE(static_cast<int>(place));
        ExpectToBeTriedAgain([=](Canvas& canvas) { Do(canvas, place); });
    }
}

// Many points, one by one, of which each may be the one without room.
TEST_F(ExhaustedMemory, LeavesPathsAsLongAsTheyWere) {
    for (int nth = 1; nth < 12; ++nth) {
        Canvas canvas(8, 8);
        canvas.MoveTo(0, 0);
        const FailAllocation failure(nth);
        float length = 0;
        for (int i = 1; i < 200 && !failure.HasFailed(); ++i) {
            canvas.LineTo(static_cast<float>(i % 2), 0);
            length += failure.HasFailed() ? 0.0F : 1.0F;
        }
        EXPECT_EQ(NumberOf(canvas, Port::kGetPathLength), length);
        if (failure.HasFailed()) {
            ExpectExhausted(canvas.Error());
        }
    }
}

TEST_F(ExhaustedMemory, MakesNoPort) {
    std::vector<std::uint8_t> pixels(64);
    const VecBitmap bitmap = {pixels.data(), 8, 0, 0, 8, 8, 8, kHuexGray};
    bool hasFailed = true;
    for (int nth = 1; hasFailed; ++nth) {
        const std::int64_t before = LiveAllocations();
        VecPort port = nullptr;
        KelError error = nullptr;
        {
            const FailAllocation failure(nth);
            port = NewPort(&bitmap, &error);
            hasFailed = failure.HasFailed();
        }
        EXPECT_EQ(port == nullptr, hasFailed);
        EXPECT_TRUE(hasFailed || nth > 1) << "nothing is allocated";
        if (hasFailed) {
            ExpectExhausted(error);
            EXPECT_LE(LiveAllocations(), before + 1) << "but for what serves all ports";
        } else {
            EXPECT_EQ(error, nullptr);
            CallOn<VecPortCommandType>(port, Port::kRelease);
        }
    }
}

TEST_F(ExhaustedMemory, IsToldWithoutMemory) {
    Canvas canvas(8, 8);
    canvas.Smooth();
    canvas.Polygon(std::vector<VecPoint>{{1, 1}, {7, 2}, {3, 6}});
    const KelError exhausted = ErrorProcedures().core(abi::kOutOfMemory);
    const FailAllocation failure(1);
    const KelError error = canvas.Fill();
    EXPECT_TRUE(failure.HasFailed());
    EXPECT_EQ(error, exhausted) << "it is the runtime's one error of that";
}

// What an allocation throws that is no want of memory.
TEST_F(ExhaustedMemory, IsNotTheOnlyFault) {
    Canvas canvas(8, 8);
    canvas.Smooth();
    canvas.Polygon(std::vector<VecPoint>{{1, 1}, {7, 2}, {3, 6}});
    KelError error = nullptr;
    {
        const FailAllocation failure(1, AllocationFault::kOther);
        error = canvas.Fill();
        EXPECT_TRUE(failure.HasFailed());
    }
    ExpectOwnError(error);
    EXPECT_EQ(PathBounds(canvas), (Numbers4{1, 1, 7, 6}));
    EXPECT_EQ(canvas.Fill(), nullptr);
}

} // namespace
} // namespace tn::test
