// Which bytes a port reads and writes, wherever its rows lie.

#include "tests/engines/vec/PortQuestions.h"
#include "tests/support/AddressSpace.h"

namespace tn::test {
namespace {

constexpr std::array<std::int32_t, 3> kDepths = {32, 8, 1};

// Shapes that reach over every edge, with a clip.
void DrawSomething(Canvas& canvas) {
    canvas.Smooth();
    canvas.MoveTo(-4, 3);
    canvas.CurveTo(30, -9, 9, 30, 50, 12);
    canvas.LineTo(3, 17);
    canvas.Fill();
    canvas.Rect(1.25F, 0.5F, 28.5F, 9.75F);
    canvas.Clip();
    canvas.NewPath();
    canvas.LineWidth(4);
    canvas.MoveTo(-10, -10);
    canvas.LineTo(60, 20);
    canvas.Stroke();
}

// The like, with corners that stay exact wherever they are moved.
void DrawPolygons(Canvas& canvas) {
    canvas.Smooth();
    canvas.Rect(1.25F, 0.5F, 28.5F, 9.75F);
    canvas.Clip();
    canvas.NewPath();
    canvas.Polygon(std::vector<VecPoint>{{-4, 3.5F}, {30, -9}, {20.25F, 14}, {2, 0.75F}, {3.5F, 17}});
    canvas.Fill();
}

using PortPixels = Drawing;

TEST_F(PortPixels, AreTheSameWithSpareBytesOfAnyNumber) {
    for (const std::int32_t depth : kDepths) {
        Canvas reference(CanvasLayout{.width = 29, .height = 13, .bitsPerPixel = depth, .spareBytes = 0});
        DrawSomething(reference);
        EXPECT_FALSE(IsBlank(reference));
        for (std::uint32_t spare = 1; spare < 9; ++spare) {
            SCOPED_TRACE(std::to_string(depth) + " with spare bytes " + std::to_string(spare));
            Canvas canvas(CanvasLayout{.width = 29, .height = 13, .bitsPerPixel = depth, .spareBytes = spare});
            DrawSomething(canvas);
            EXPECT_EQ(canvas.Pixels(), reference.Pixels());
            EXPECT_TRUE(canvas.GuardsAreIntact());
        }
    }
}

TEST_F(PortPixels, AreCountedFromTheBoundsOfTheBitmap) {
    for (const std::int32_t depth : kDepths) {
        Canvas reference(29, 13, depth);
        Canvas moved(CanvasLayout{.width = 29, .height = 13, .bitsPerPixel = depth, .left = -1000, .top = 77});
        DrawPolygons(reference);
        moved.Translate(-1000, 77);
        DrawPolygons(moved);
        EXPECT_FALSE(IsBlank(moved));
        EXPECT_EQ(moved.Pixels(), reference.Pixels()) << depth;
    }
}

TEST_F(PortPixels, EndWhereTheRowEnds) {
    for (const std::int32_t depth : kDepths) {
        for (std::int32_t width = 1; width < 36; ++width) {
            SCOPED_TRACE(std::to_string(depth) + " at width " + std::to_string(width));
            Canvas canvas(CanvasLayout{.width = width, .height = 2, .bitsPerPixel = depth, .spareBytes = 1});
            canvas.Rect(-100, -100, 100, 100);
            EXPECT_EQ(canvas.Fill(), nullptr);
            const std::uint32_t full = depth == 32 ? 0xFFFFFFFF : depth == 8 ? 255 : 1;
            EXPECT_EQ(canvas.Pixels(), std::vector<std::uint32_t>(static_cast<std::size_t>(2 * width), full));
            EXPECT_TRUE(canvas.GuardsAreIntact());
        }
    }
}

TEST_F(PortPixels, KeepTheBitsBesideThePaintedOnes) {
    for (std::int32_t left = 0; left < 19; ++left) {
        for (std::int32_t right = left; right <= 19; ++right) {
            Canvas canvas(19, 3, 1);
            canvas.Clear(1);
            canvas.Gray(0);
            canvas.Rect(static_cast<float>(left), 1, static_cast<float>(right), 2);
            canvas.Fill();
            std::string row(19, '#');
            std::fill(row.begin() + left, row.begin() + right, '.');
            EXPECT_EQ(Picture(canvas), (Rows{std::string(19, '#'), row, std::string(19, '#')}));
        }
    }
}

// Rows far apart, with memory only where the test puts it.
class FarRows : public Drawing {
protected:
    static constexpr std::uint32_t kRowBytes = 0xC0000001;
    static constexpr std::int32_t kRows = 3;
    static constexpr std::int32_t kWidth = 16;

    ~FarRows() override { CallOn<VecPortCommandType>(port_, abi::Port::kRelease); }

    // A port that paints white.
    void MakePort(std::int32_t depth) {
        CallOn<VecPortCommandType>(port_, abi::Port::kRelease);
        const HuexColorSpace kind = depth == 32 ? kHuexAlphaRgb : kHuexGray;
        const VecBitmap bitmap = {space_.At(0), kRowBytes, 0, 0, kWidth, kRows, depth, kind};
        port_ = NewPort(&bitmap);
        ASSERT_NE(port_, nullptr);
        PaintWhite(port_);
    }

    void CommitRow(std::int32_t y) { space_.Commit(OffsetOf(y), 64); }

    std::uint8_t ByteAt(std::int32_t y) const { return *space_.At(OffsetOf(y)); }

    void Command(abi::Port place) const { CallOn<VecPortCommandType>(port_, place); }

    void AddRows(float top, float bottom) const {
        const VecRect rect = {0, top, kWidth, bottom};
        CallOn<VecPortRectPathType>(port_, abi::Port::kAddRect, &rect);
    }

    void ExpectToPaint(abi::Port paint) const { EXPECT_EQ(CallOn<VecPortPaintType>(port_, paint), nullptr); }

    VecPort port_ = nullptr;

private:
    static std::uint64_t OffsetOf(std::int32_t y) { return std::uint64_t{kRowBytes} * static_cast<std::uint32_t>(y); }

    AddressSpace space_{std::uint64_t{kRowBytes} * (kRows - 1) + 65536};
};

TEST_F(FarRows, AreReachedThroughTheStride) {
    for (std::int32_t y = 0; y < kRows; ++y) {
        CommitRow(y);
    }
    MakePort(32);
    AddRows(0, 3);
    ExpectToPaint(abi::Port::kFill);
    for (std::int32_t y = 0; y < kRows; ++y) {
        EXPECT_EQ(ByteAt(y), 255) << y;
    }
}

TEST_F(FarRows, AreTouchedOnlyWhereTheShapeIs) {
    CommitRow(1);
    for (const std::int32_t depth : kDepths) {
        MakePort(depth);
        AddRows(1, 2);
        ExpectToPaint(abi::Port::kFill);
        EXPECT_EQ(ByteAt(1), 255) << depth;
    }
}

TEST_F(FarRows, AreTouchedOnlyWhereTheClipIs) {
    CommitRow(2);
    MakePort(8);
    AddRows(2, 3);
    ExpectToPaint(abi::Port::kClip);
    Command(abi::Port::kNewPath);
    AddRows(-5, 50);
    ExpectToPaint(abi::Port::kFill);
    EXPECT_EQ(ByteAt(2), 255);
}

TEST_F(FarRows, AreNotTouchedByAnythingElse) {
    MakePort(32);
    Command(abi::Port::kGSave);
    AddRows(3, 9);
    AddRows(-9, 0);
    ExpectToPaint(abi::Port::kFill);
    CallOn<VecPortPointType>(port_, abi::Port::kMoveTo, 1.0F, 1.0F);
    ExpectToPaint(abi::Port::kFill);
    AddRows(0, 3);
    ExpectToPaint(abi::Port::kClip);
    Command(abi::Port::kGRestore);
    Command(abi::Port::kFlush);
}

} // namespace
} // namespace tn::test
