// What is saved and restored, and what the getters tell.

#include "tests/engines/vec/PortQuestions.h"

#include <algorithm>
#include <cmath>

namespace tn::test {
namespace {

using GraphicsStates = Drawing;
using abi::Port;

std::int32_t OptionOf(const Canvas& canvas) {
    return canvas.Call<VecPortGetOptionsType>(Port::kGetOptions, std::int32_t{kVecAntiAliasOptions});
}

struct State {
    Numbers6 matrix;
    std::optional<Numbers4> clip;
    std::optional<Numbers4> path;
    std::optional<Numbers2> point;
    float width;
    std::int32_t cap;
    std::int32_t join;
    float flatness;
    std::int32_t option;
    std::uint32_t paint;

    friend bool operator==(const State&, const State&) = default;
};

// The word that a fill leaves on an empty pixel.
std::uint32_t PaintOf(Canvas& canvas) {
    canvas.Set(0, 0, 0);
    canvas.GSave();
    Do(canvas, Port::kInitClip);
    Do(canvas, Port::kInitMatrix);
    canvas.NewPath();
    canvas.Rect(0, 0, 1, 1);
    canvas.Fill();
    canvas.GRestore();
    return canvas.Get(0, 0);
}

State StateOf(Canvas& canvas) {
    return {MatrixOf(canvas),
            ClipBounds(canvas),
            PathBounds(canvas),
            CurrentPoint(canvas),
            NumberOf(canvas, Port::kGetLineWidth),
            Ask(canvas, Port::kGetLineCap),
            Ask(canvas, Port::kGetLineJoin),
            NumberOf(canvas, Port::kGetFlatness),
            OptionOf(canvas),
            PaintOf(canvas)};
}

// Changes every part of the state, each time to something else.
void Change(Canvas& canvas, int step) {
    const auto number = static_cast<float>(step);
    canvas.NewPath();
    Do(canvas, Port::kInitMatrix);
    canvas.Rect(number, 0, 20, 20 - number);
    canvas.Clip();
    canvas.NewPath();
    canvas.Translate(number, 1);
    canvas.MoveTo(number, 2);
    canvas.LineTo(5, 3 + number);
    canvas.LineWidth(1 + number);
    canvas.LineCap(step % 3);
    canvas.LineJoin((step + 1) % 3);
    canvas.Call<VecPortNumberType>(Port::kSetFlatness, 1 / (64 * number));
    canvas.Options(step % 4);
    canvas.AlphaRgb(1, number / 255, 0, 0);
}

TEST_F(GraphicsStates, AreRestoredWhole) {
    Canvas canvas(20, 20, 32);
    std::vector<State> states;
    for (int step = 1; step < 7; ++step) {
        Change(canvas, step);
        states.push_back(StateOf(canvas));
        EXPECT_EQ(Depth(canvas), step - 1);
        canvas.GSave();
        EXPECT_EQ(Depth(canvas), step);
        EXPECT_TRUE(StateOf(canvas) == states.back()) << "saving changes nothing";
    }
    Change(canvas, 9);
    for (int step = 6; step > 0; --step) {
        EXPECT_FALSE(StateOf(canvas) == states.back());
        canvas.GRestore();
        EXPECT_TRUE(StateOf(canvas) == states.back()) << step;
        states.pop_back();
        EXPECT_EQ(Depth(canvas), step - 1);
        Change(canvas, 10 + step);
    }
    EXPECT_EQ(canvas.Error(), nullptr);
}

TEST_F(GraphicsStates, AreNotRestoredWhenNoneIsSaved) {
    Canvas canvas(20, 20, 32);
    Change(canvas, 3);
    const State state = StateOf(canvas);
    canvas.GRestore();
    EXPECT_TRUE(StateOf(canvas) == state);
    Do(canvas, Port::kGRestoreAll);
    EXPECT_TRUE(StateOf(canvas) == state);
    EXPECT_EQ(Depth(canvas), 0);
    EXPECT_EQ(canvas.Error(), nullptr);
    canvas.GSave();
    canvas.GRestore();
    canvas.GRestore();
    EXPECT_TRUE(StateOf(canvas) == state);
}

TEST_F(GraphicsStates, AreAllRestoredAtOnce) {
    Canvas canvas(20, 20, 32);
    Change(canvas, 2);
    const State first = StateOf(canvas);
    for (int step = 3; step < 8; ++step) {
        canvas.GSave();
        Change(canvas, step);
    }
    EXPECT_EQ(Depth(canvas), 5);
    Do(canvas, Port::kGRestoreAll);
    EXPECT_EQ(Depth(canvas), 0);
    EXPECT_TRUE(StateOf(canvas) == first);
}

TEST_F(GraphicsStates, KeepThePathForASecondPaint) {
    Canvas canvas(6, 3);
    canvas.Rect(1, 0, 4, 3);
    canvas.GSave();
    EXPECT_EQ(canvas.Fill(), nullptr);
    EXPECT_NE(Ask(canvas, Port::kIsPathEmpty), 0);
    canvas.GRestore();
    EXPECT_EQ(Ask(canvas, Port::kIsPathEmpty), 0);
    canvas.Gray(0);
    EXPECT_EQ(canvas.Fill(), nullptr);
    EXPECT_TRUE(IsBlank(canvas)) << "the second paint takes the first one away";
}

TEST_F(GraphicsStates, AreInitialAgain) {
    Canvas canvas(20, 20, 32);
    canvas.GSave();
    Change(canvas, 2);
    Do(canvas, Port::kInitGraphics);
    const State state = StateOf(canvas);
    EXPECT_EQ(state.matrix, (Numbers6{1, 0, 0, 1, 0, 0}));
    EXPECT_EQ(state.clip, (Numbers4{0, 0, 20, 20}));
    EXPECT_EQ(state.path, std::nullopt);
    EXPECT_EQ(state.point, std::nullopt);
    EXPECT_EQ(state.width, 1);
    EXPECT_EQ(state.cap, 0);
    EXPECT_EQ(state.join, 0);
    EXPECT_EQ(state.paint, 0xFF000000);
    EXPECT_EQ(state.flatness, 1.0F / 64);
    EXPECT_EQ(state.option, 2) << "which is the host's";
    EXPECT_EQ(Depth(canvas), 1) << "what is saved stays so";
}

TEST_F(GraphicsStates, HaveAFlatnessThatCurvesKeepTo) {
    constexpr float kRadius = 400;
    const auto error = [&](float flatness) {
        Canvas canvas(4, 4);
        canvas.Call<VecPortNumberType>(Port::kSetFlatness, flatness);
        EXPECT_EQ(NumberOf(canvas, Port::kGetFlatness), std::clamp(flatness, 1.0F / 1024, 1.0F / 64));
        canvas.MoveTo(kRadius, 0);
        canvas.CurveTo(kRadius, 220.91F, 220.91F, kRadius, 0, kRadius);
        return std::abs(NumberOf(canvas, Port::kGetPathLength) - 628.405); // the curve's length by fine steps
    };
    EXPECT_LT(error(1.0F / 1024), 0.005);
    EXPECT_GT(error(1.0F / 64), 2 * error(1.0F / 1024));
    EXPECT_EQ(error(1), error(1.0F / 64)) << "no coarser";
    EXPECT_EQ(error(1e-6F), error(1.0F / 1024)) << "no finer";
}

TEST_F(GraphicsStates, TellTheLineStyle) {
    Canvas canvas(4, 4);
    canvas.LineWidth(2.5F);
    EXPECT_EQ(NumberOf(canvas, Port::kGetLineWidth), 2.5F);
    canvas.LineWidth(0);
    EXPECT_EQ(NumberOf(canvas, Port::kGetLineWidth), 0);
    for (const std::int32_t style : {2, 1, 0}) {
        canvas.LineCap(style);
        EXPECT_EQ(Ask(canvas, Port::kGetLineCap), style);
        canvas.LineJoin(style);
        EXPECT_EQ(Ask(canvas, Port::kGetLineJoin), style);
    }
    EXPECT_EQ(NumberOf(canvas, Port::kGetMiterLimit), 10);
}

TEST_F(GraphicsStates, KeepTheirStyleWhereAnotherIsUnknown) {
    Canvas canvas(4, 4);
    for (const std::int32_t style : {1, 2, 0}) {
        canvas.LineCap(style);
        canvas.LineJoin(style);
        for (const std::int32_t unknown : {-1, 3, 100, 0x7FFFFFFF, -0x7FFFFFFF - 1}) {
            canvas.LineCap(unknown);
            canvas.LineJoin(unknown);
            EXPECT_EQ(Ask(canvas, Port::kGetLineCap), style);
            EXPECT_EQ(Ask(canvas, Port::kGetLineJoin), style);
        }
    }
}

TEST_F(GraphicsStates, CopyTheColor) {
    Canvas canvas(4, 4, 32);
    const float components[4] = {1, 0, 1, 0};
    const HuexColor color = NewColor(kHuexAlphaRgb, components, 4);
    canvas.Call<VecPortSetColorServerV4Type>(Port::kSetColorServer, color, std::int32_t{7}, std::int32_t{-1});
    Release(color);
    EXPECT_EQ(PaintOf(canvas), 0xFF00FF00);
    canvas.Gray(0.5F);
    EXPECT_EQ(PaintOf(canvas), 0xFF808080);
}

HuexColor ColorOf(const Canvas& canvas) { return canvas.Call<VecPortGetColorServerType>(Port::kGetColorServer); }

TEST_F(GraphicsStates, TellTheColorThatWasSetLast) {
    std::vector<std::uint8_t> pixels(4);
    const VecBitmap bitmap = {pixels.data(), 4, 0, 0, 1, 1, 32, kHuexAlphaRgb};
    const VecPort port = NewPort(&bitmap);
    EXPECT_EQ(CallOn<VecPortGetColorServerType>(port, Port::kGetColorServer), nullptr) << "none was set";
    CallOn<VecPortCommandType>(port, Port::kRelease);
    Canvas canvas(1, 1, 32);
    const float components[4] = {1, 0, 1, 0};
    const HuexColor color = NewColor(kHuexAlphaRgb, components, 4);
    canvas.Call<VecPortSetColorServerV4Type>(Port::kSetColorServer, color, std::int32_t{0}, std::int32_t{0});
    Release(color);
    EXPECT_EQ(ColorOf(canvas), color) << "it lives on in the port";
    canvas.GSave();
    canvas.Gray(0.5F);
    EXPECT_NE(ColorOf(canvas), color);
    canvas.GRestore();
    EXPECT_EQ(ColorOf(canvas), color);
    std::array<float, 4> told{};
    EXPECT_EQ(Procedure<HuexColorGetComponentsType>(abi::kColorInterface, abi::kColorProcedures,
                                                    abi::Color::kGetComponents)(ColorOf(canvas), told.data()),
              4);
    EXPECT_EQ(told, (std::array<float, 4>{1, 0, 1, 0}));
}

TEST_F(GraphicsStates, AreManyAtOnce) {
    constexpr int kDepth = 10000;
    Canvas canvas(20, 20, 32);
    for (int i = 0; i < kDepth; ++i) {
        canvas.LineWidth(static_cast<float>(i));
        canvas.GSave();
    }
    EXPECT_EQ(Depth(canvas), kDepth);
    for (int i = kDepth - 1; i >= kDepth / 2; --i) {
        canvas.GRestore();
        ASSERT_EQ(NumberOf(canvas, Port::kGetLineWidth), static_cast<float>(i));
    }
    EXPECT_EQ(Depth(canvas), kDepth / 2) << "the rest goes with the port";
}

} // namespace
} // namespace tn::test
