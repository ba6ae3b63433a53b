// What ports may be made over, and what making one does.

#include "tests/engines/vec/PortQuestions.h"

namespace tn::test {
namespace {

constexpr std::array<std::int32_t, 3> kDepths = {32, 8, 1};

constexpr HuexColorSpace KindFor(std::int32_t bitsPerPixel) { return bitsPerPixel == 32 ? kHuexAlphaRgb : kHuexGray; }

class PortCreation : public Drawing {
protected:
    VecBitmap BitmapOf(std::int32_t bitsPerPixel) {
        return {pixels_.data(), 64, 0, 0, 9, 3, bitsPerPixel, KindFor(bitsPerPixel)};
    }

    static void ExpectPort(const VecBitmap& bitmap) {
        KelError error = nullptr;
        const VecPort port = NewPort(&bitmap, &error);
        EXPECT_NE(port, nullptr);
        EXPECT_EQ(error, nullptr);
        CallOn<VecPortCommandType>(port, abi::Port::kRelease);
    }

    static void ExpectRefused(const VecBitmap& bitmap) {
        KelError error = nullptr;
        EXPECT_EQ(NewPort(&bitmap, &error), nullptr);
        ExpectOwnError(error);
    }

    std::vector<std::uint8_t> pixels_ = std::vector<std::uint8_t>(256, 0x5A);
};

TEST_F(PortCreation, TakesThreeKindsOfPixels) {
    for (const std::int32_t depth : kDepths) {
        SCOPED_TRACE(depth);
        ExpectPort(BitmapOf(depth));
    }
}

TEST_F(PortCreation, RefusesOtherDepths) {
    for (const std::int32_t depth : {0, 2, 4, 7, 16, 24, 31, 33, 64, -1, -8, -32, 0x7FFFFFFF}) {
        for (const HuexColorSpace kind : {kHuexGray, kHuexAlphaRgb}) {
            SCOPED_TRACE(depth);
            VecBitmap bitmap = BitmapOf(8);
            bitmap.bitsPerPixel = depth;
            bitmap.colorKind = kind;
            ExpectRefused(bitmap);
        }
    }
}

TEST_F(PortCreation, RefusesKindsThatTheDepthIsNotFor) {
    for (const std::int32_t depth : kDepths) {
        for (const HuexColorSpace kind : {-2, -1, 0, 1, 2, 0x7FFFFFFF}) {
            SCOPED_TRACE(std::to_string(depth) + " of kind " + std::to_string(kind));
            VecBitmap bitmap = BitmapOf(depth);
            bitmap.colorKind = kind;
            kind == KindFor(depth) ? ExpectPort(bitmap) : ExpectRefused(bitmap);
        }
    }
}

TEST_F(PortCreation, NeedsRowsThatHoldTheirPixels) {
    for (const std::int32_t depth : kDepths) {
        const auto least = static_cast<std::uint32_t>((9 * depth + 7) / 8);
        for (const std::uint32_t rowBytes : {0U, 1U, least - 1, least, least + 1, 0x80000000U, 0xFFFFFFFFU}) {
            SCOPED_TRACE(std::to_string(depth) + " with rows of " + std::to_string(rowBytes));
            VecBitmap bitmap = BitmapOf(depth);
            bitmap.rowBytes = rowBytes;
            rowBytes >= least ? ExpectPort(bitmap) : ExpectRefused(bitmap);
        }
    }
}

TEST_F(PortCreation, NeedsPixelsWhereThereAreBounds) {
    for (const std::int32_t depth : kDepths) {
        SCOPED_TRACE(depth);
        VecBitmap bitmap = BitmapOf(depth);
        bitmap.pixels = nullptr;
        ExpectRefused(bitmap);
    }
}

TEST_F(PortCreation, RefusesBoundsInsideOut) {
    for (const std::int32_t depth : kDepths) {
        SCOPED_TRACE(depth);
        VecBitmap bitmap = BitmapOf(depth);
        bitmap.right = -1;
        ExpectRefused(bitmap);
        bitmap = BitmapOf(depth);
        bitmap.bottom = -1;
        ExpectRefused(bitmap);
    }
}

TEST_F(PortCreation, RefusesRowsThatNoStrideCanHold) {
    VecBitmap bitmap = BitmapOf(32);
    bitmap.left = std::numeric_limits<std::int32_t>::min();
    bitmap.right = std::numeric_limits<std::int32_t>::max();
    bitmap.bottom = 1;
    for (const std::uint32_t rowBytes : {0U, 0xFFFFFFFCU, 0xFFFFFFFFU}) {
        bitmap.rowBytes = rowBytes;
        ExpectRefused(bitmap);
    }
}

TEST_F(PortCreation, RefusesBoundsThatAreTooFarAway) {
    constexpr std::int32_t kTooFar = 1 << 30;
    VecBitmap bitmap = BitmapOf(1);
    bitmap.rowBytes = 1 << 28;
    bitmap.left = -kTooFar;
    bitmap.right = kTooFar;
    ExpectRefused(bitmap);
    bitmap.left = kTooFar - 8;
    ExpectRefused(bitmap);
    bitmap.right = kTooFar - 1;
    VecPort const port = NewPort(&bitmap);
    EXPECT_NE(port, nullptr);
    CallOn<VecPortCommandType>(port, abi::Port::kRelease);
}

TEST_F(PortCreation, RefusesNoBitmapAndNoPlaceForThePort) {
    KelError error = nullptr;
    EXPECT_EQ(NewPort(nullptr, &error), nullptr);
    ExpectOwnError(error);
    const auto make = Procedure<VecRasterPortNewBitmapPortV3Type>(
        abi::kNewRasterPortInterface, abi::kNewRasterPortProcedures, abi::NewRasterPort::kNewBitmapPort);
    const VecBitmap bitmap = BitmapOf(8);
    ExpectOwnError(make(&bitmap, nullptr));
    ExpectOwnError(make(nullptr, nullptr));
}

TEST_F(PortCreation, TakesNoPixelsInEmptyBounds) {
    constexpr std::array<std::array<std::int32_t, 4>, 4> kEmpty = {
        {{0, 0, 0, 0}, {3, -4, 3, -4}, {0, 0, 5, 0}, {0, 0, 0, 5}}};
    for (const auto& [left, top, right, bottom] : kEmpty) {
        for (const std::int32_t depth : kDepths) {
            SCOPED_TRACE(depth);
            ExpectPort({nullptr, 64, left, top, right, bottom, depth, KindFor(depth)});
        }
    }
}

TEST_F(PortCreation, MakesAPortThatShowsNothingWhereThereAreNoPixels) {
    const VecBitmap bitmap = {nullptr, 0, 0, 0, 0, 0, 32, kHuexAlphaRgb};
    const VecPort port = NewPort(&bitmap);
    ASSERT_NE(port, nullptr);
    const VecRect all = {-1000, -1000, 1000, 1000};
    for (const abi::Port paint : {abi::Port::kFill, abi::Port::kEOFill, abi::Port::kStroke}) {
        CallOn<VecPortRectPathType>(port, abi::Port::kAddRect, &all);
        EXPECT_EQ(CallOn<VecPortPaintType>(port, paint), nullptr);
    }
    CallOn<VecPortRectPathType>(port, abi::Port::kAddRect, &all);
    EXPECT_EQ(CallOn<VecPortPaintType>(port, abi::Port::kClip), nullptr);
    EXPECT_EQ(CallOn<VecPortGetErrorType>(port, abi::Port::kGetKelError), nullptr);
    EXPECT_NE(CallOn<VecPortQueryType>(port, abi::Port::kIsClipEmpty), 0);
    VecRect bounds{};
    EXPECT_EQ(CallOn<VecPortGetRectType>(port, abi::Port::kGetBounds, &bounds), 0);
    CallOn<VecPortCommandType>(port, abi::Port::kRelease);
}

TEST_F(PortCreation, WritesNothing) {
    const std::vector<std::uint8_t> before = pixels_;
    for (const std::int32_t depth : kDepths) {
        ExpectPort(BitmapOf(depth));
        EXPECT_EQ(pixels_, before);
    }
}

TEST_F(PortCreation, KeepsNoMoreThanOneError) {
    VecBitmap bitmap = BitmapOf(8);
    bitmap.rowBytes = 8;
    ExpectRefused(bitmap);
    const std::int64_t before = LiveAllocations();
    for (int i = 0; i < 100; ++i) {
        ExpectRefused(bitmap);
    }
    EXPECT_LE(LiveAllocations(), before);
}

TEST_F(PortCreation, BeginsWithAnInitialState) {
    const Canvas canvas(CanvasLayout{.width = 9, .height = 3, .bitsPerPixel = 32, .left = -2, .top = 5});
    EXPECT_EQ(Ask(canvas, abi::Port::kGetPortType), kVecRasterPort);
    EXPECT_EQ(RectOf(canvas, abi::Port::kGetBounds), (Numbers4{-2, 5, 7, 8}));
    EXPECT_NE(Ask(canvas, abi::Port::kIsPathEmpty), 0);
    EXPECT_EQ(CurrentPoint(canvas), std::nullopt);
    EXPECT_EQ(PathBounds(canvas), std::nullopt);
    EXPECT_EQ(NumberOf(canvas, abi::Port::kGetPathLength), 0);
    EXPECT_EQ(MatrixOf(canvas), (Numbers6{1, 0, 0, 1, 0, 0}));
    EXPECT_NE(Ask(canvas, abi::Port::kIsMatrixInvertible), 0);
    EXPECT_EQ(ClipBounds(canvas), (Numbers4{-2, 5, 7, 8}));
    EXPECT_EQ(Ask(canvas, abi::Port::kIsClipEmpty), 0);
    EXPECT_EQ(NumberOf(canvas, abi::Port::kGetLineWidth), 1);
    EXPECT_EQ(Ask(canvas, abi::Port::kGetLineCap), 0);
    EXPECT_EQ(Ask(canvas, abi::Port::kGetLineJoin), 0);
    EXPECT_EQ(NumberOf(canvas, abi::Port::kGetMiterLimit), 10);
    EXPECT_EQ(NumberOf(canvas, abi::Port::kGetFlatness), 1.0F / 64);
    EXPECT_EQ(canvas.Call<VecPortGetOptionsType>(abi::Port::kGetOptions, std::int32_t{kVecAntiAliasOptions}), 0);
    EXPECT_EQ(Depth(canvas), 0);
    EXPECT_EQ(canvas.Error(), nullptr);
}

TEST_F(PortCreation, BeginsWithOpaqueBlack) {
    const VecBitmap bitmap = BitmapOf(32);
    const VecPort port = NewPort(&bitmap);
    ASSERT_NE(port, nullptr);
    const VecRect all = {0, 0, 9, 3};
    CallOn<VecPortRectPathType>(port, abi::Port::kAddRect, &all);
    EXPECT_EQ(CallOn<VecPortPaintType>(port, abi::Port::kFill), nullptr);
    CallOn<VecPortCommandType>(port, abi::Port::kRelease);
    EXPECT_EQ(std::vector<std::uint8_t>(pixels_.begin(), pixels_.begin() + 8),
              (std::vector<std::uint8_t>{0, 0, 0, 255, 0, 0, 0, 255}));
    EXPECT_EQ(pixels_[36], 0x5A);
}

TEST_F(PortCreation, MakesPortsThatLiveAsLongAsTheyAreReferredTo) {
    Canvas canvas(4, 4);
    Do(canvas, abi::Port::kAddReference);
    Do(canvas, abi::Port::kAddReference);
    Do(canvas, abi::Port::kRelease);
    Do(canvas, abi::Port::kRelease);
    canvas.Rect(0, 0, 2, 2);
    EXPECT_EQ(canvas.Fill(), nullptr);
    EXPECT_EQ(canvas.Get(0, 0), 255U);
    Do(canvas, abi::Port::kRelease);
    canvas.Rect(0, 0, 4, 4);
    canvas.Fill();
    EXPECT_EQ(Picture(canvas), (Rows{"##..", "##..", "....", "...."}));
}

TEST_F(PortCreation, MakesPortsThatLeaveNothingBehind) {
    Canvas other(4, 4); // whatever the engine needs for its first port is there
    const std::int64_t before = LiveAllocations();
    for (const std::int32_t depth : kDepths) {
        Canvas canvas(40, 40, depth);
        canvas.Smooth();
        canvas.LineWidth(3);
        for (int i = 0; i < 5; ++i) {
            canvas.AlphaRgb(0.5F, 0.25F, 0.75F, static_cast<float>(i) / 5);
            canvas.MoveTo(20, 20);
            canvas.CurveTo(0, 40, 40, 40, static_cast<float>(i), 1);
            canvas.Clip();
            canvas.GSave();
            canvas.GSave();
            canvas.Stroke();
            canvas.GRestore();
        }
    }
    EXPECT_EQ(LiveAllocations(), before);
}

} // namespace
} // namespace tn::test
