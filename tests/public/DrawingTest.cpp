// Drawing as a host does it.

#include "tests/public/Pixels.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <new>
#include <string>
#include <vector>

namespace tn::test {
namespace {

constexpr TnImagePixel kWhite = 0xFFFFFFFF;
constexpr TnImagePixel kBlack = 0xFF000000;

TnFixed Fixed(double value) { return {static_cast<std::int32_t>(value * 65536)}; }
TnFixedPoint FixedPoint(double x, double y) { return {Fixed(x), Fixed(y)}; }

class PublicDrawing : public ::testing::Test {
protected:
    PublicDrawing() { SetAll(image_, kWhite); }

    std::string Row(int y) {
        std::string row;
        for (int x = 0; x < image_.Size().x; ++x) {
            const TnImagePixel pixel = PixelAt(image_, x, y);
            row += pixel == kBlack ? '#' : pixel == kWhite ? '.' : '+';
        }
        return row;
    }

    TnGraphicsMem graphics_{1 << 20, BasekitFromAscii("en_US")};
    TnImage image_{{8, 6}};
};

// Draws between a begin and an end.
template <class SurfaceType, class Work>
void Draw(SurfaceType& surface, const Work& work, TnDrawPort::AntiAliasPolicy policy = TnDrawPort::kSmooth) {
    TnRasterPort port(surface);
    ASSERT_TRUE(port.BeginDrawing(policy, 0));
    work(port);
    port.EndDrawing();
}

TEST_F(PublicDrawing, FillsARectangle) {
    Draw(image_, [](TnDrawPort& port) {
        port.DrawRect(TnRect{1, 2, 5, 3});
        port.Fill();
    });
    EXPECT_EQ(Row(1), "........");
    EXPECT_EQ(Row(2), ".#####..");
    EXPECT_EQ(Row(4), ".#####..");
    EXPECT_EQ(Row(5), "........");
    EXPECT_EQ(image_.Clients(), 0U);
}

TEST_F(PublicDrawing, FillsPartsOfPixels) {
    Draw(image_, [](TnDrawPort& port) {
        port.DrawRect(TnFixedRect{Fixed(1.5), Fixed(0), Fixed(2), Fixed(1)});
        port.RGBColor(1, 0, 0, 1);
        port.Fill();
    });
    EXPECT_EQ(PixelAt(image_, 0, 0), kWhite);
    EXPECT_NEAR(PixelAt(image_, 1, 0) & 0xFF, 127.5, 1);
    EXPECT_EQ(PixelAt(image_, 1, 0) >> 16, 0xFFFFU);
    EXPECT_EQ(PixelAt(image_, 2, 0), TnImagePixel(0xFFFF0000));
    EXPECT_EQ(PixelAt(image_, 4, 0), kWhite);
}

TEST_F(PublicDrawing, FillsACircleOfCurves) {
    TnMatte matte({100, 100}, true);
    Draw(matte, [](TnDrawPort& port) {
        constexpr double r = 40;
        constexpr double k = r * 0.5522847498;
        const auto at = [](double x, double y) { return TnFloatPoint{50 + x, 50 + y}; };
        port.MoveTo(at(r, 0));
        port.CurveTo(at(r, k), at(k, r), at(0, r));
        port.CurveTo(at(-k, r), at(-r, k), at(-r, 0));
        port.CurveTo(at(-r, -k), at(-k, -r), at(0, -r));
        port.CurveTo(at(k, -r), at(r, -k), at(r, 0));
        port.ClosePath();
        port.Fill();
    });
    double area = 0;
    for (const TnMattePixel pixel : matte) {
        area += pixel.value / 255.0;
    }
    EXPECT_NEAR(area, 3.14159265 * 40 * 40, 5);
    EXPECT_EQ(PixelAt(matte, 50, 50), TnMattePixel(255));
    EXPECT_EQ(PixelAt(matte, 9, 50), TnMattePixel(0));
}

TEST_F(PublicDrawing, FillsByEitherRule) {
    const auto nested = [](TnDrawPort& port) {
        port.DrawRect(TnRect{0, 0, 5, 5});
        port.DrawRect(TnRect{2, 2, 1, 1});
    };
    Draw(image_, [&](TnDrawPort& port) {
        nested(port);
        port.EvenOddFill();
    });
    EXPECT_EQ(Row(2), "##.##...");
    Draw(image_, [&](TnDrawPort& port) {
        nested(port);
        port.Fill();
    });
    EXPECT_EQ(Row(2), "#####...");
}

TEST_F(PublicDrawing, StrokesLines) {
    Draw(image_, [](TnDrawPort& port) {
        port.LineWidth(Fixed(2));
        port.LineCap(TnDrawPort::kSquareCap);
        port.LineJoin(TnDrawPort::kMiterJoin);
        port.MoveTo(TnPoint{2, 2});
        port.LineTo(TnPoint{6, 2});
        port.LineTo(TnPoint{6, 5});
        port.Stroke();
    });
    EXPECT_EQ(Row(0), "........");
    EXPECT_EQ(Row(1), ".######.");
    EXPECT_EQ(Row(2), ".######.");
    EXPECT_EQ(Row(3), ".....##.");
    EXPECT_EQ(Row(5), ".....##.");
}

TEST_F(PublicDrawing, StrokesARectangleWithoutSeams) {
    Draw(image_, [](TnDrawPort& port) {
        port.LineWidth(Fixed(2));
        port.LineCap(TnDrawPort::kSquareCap);
        port.DrawRect(TnRect{2, 2, 4, 2});
        port.RGBColor(0, 0, 0, 0.5F);
        port.Stroke();
    });
    const TnImagePixel corner = PixelAt(image_, 1, 1);
    EXPECT_NE(corner, kWhite);
    for (int x = 1; x < 7; ++x) {
        EXPECT_EQ(PixelAt(image_, x, 1), corner);
        EXPECT_EQ(PixelAt(image_, x, 4), corner);
    }
    EXPECT_EQ(Row(0), "........");
    EXPECT_EQ(Row(5), "........");
}

TEST_F(PublicDrawing, ClipsUntilTheStateIsRestored) {
    Draw(image_, [](TnDrawPort& port) {
        port.SaveState();
        port.DrawRect(TnRect{2, 0, 2, 6});
        port.Clip();
        port.NewPath();
        port.DrawRect(TnRect{0, 1, 8, 1});
        port.Fill();
        port.RestoreState();
        port.DrawRect(TnRect{0, 3, 8, 1});
        port.Fill();
    });
    EXPECT_EQ(Row(1), "..##....");
    EXPECT_EQ(Row(3), "########");
}

TEST_F(PublicDrawing, KeepsThePathOfASavedState) {
    Draw(image_, [](TnDrawPort& port) {
        port.DrawRect(TnRect{2, 2, 4, 2});
        port.SaveState();
        port.Fill();
        port.RestoreState();
        port.LineWidth(Fixed(2));
        port.Stroke();
    });
    EXPECT_EQ(Row(1), ".######.");
    EXPECT_EQ(Row(3), ".######.");
}

TEST_F(PublicDrawing, PaintsGrayOnAMatte) {
    TnMatte matte({3, 1});
    SetAll(matte, 0);
    Draw(matte, [](TnDrawPort& port) {
        port.DrawRect(TnRect{0, 0, 1, 1});
        port.Fill();
        port.Gray(0.25F);
        port.DrawRect(TnRect{1, 0, 1, 1});
        port.Fill();
    });
    EXPECT_EQ(PixelAt(matte, 0, 0), TnMattePixel(255));
    EXPECT_EQ(PixelAt(matte, 1, 0), TnMattePixel(64));
    EXPECT_EQ(PixelAt(matte, 2, 0), TnMattePixel(0));
}

TEST_F(PublicDrawing, PaintsBitsOfAMask) {
    TnMask mask({20, 2});
    {
        mask.AddClient();
        auto* const bytes = static_cast<std::uint8_t*>(mask.PixelAddress());
        std::fill(bytes, bytes + 2 * mask.RowBytes(), std::uint8_t{0});
        mask.RemoveClient();
    }
    Draw(mask, [](TnDrawPort& port) {
        port.DrawRect(TnRect{6, 1, 4, 1});
        port.Fill();
    });
    mask.AddClient();
    const auto* const row = static_cast<const std::uint8_t*>(mask.PixelAddress()) + mask.RowBytes();
    EXPECT_EQ(row[0], 0x03);
    EXPECT_EQ(row[1], 0xC0);
    EXPECT_EQ(row[2], 0x00);
    mask.RemoveClient();
}

TEST_F(PublicDrawing, FollowsThePolicy) {
    const auto half = [](TnDrawPort& port) {
        port.DrawRect(TnFixedRect{Fixed(1.25), Fixed(0), Fixed(3), Fixed(1)});
        port.Fill();
    };
    Draw(image_, half, TnDrawPort::kHard);
    EXPECT_EQ(Row(0), ".###....");
    SetAll(image_, kWhite);
    Draw(image_, half, TnDrawPort::kSmoothPaint);
    EXPECT_EQ(Row(0), ".+##+...");
}

TEST_F(PublicDrawing, TransformsWhatComes) {
    Draw(image_, [](TnDrawPort& port) {
        port.Translate(FixedPoint(1, 1));
        port.Scale(FixedPoint(2, 1));
        port.DrawRect(TnRect{0, 0, 3, 1});
        port.Fill();
    });
    EXPECT_EQ(Row(1), ".######.");
    EXPECT_EQ(Row(0), "........");
    EXPECT_EQ(Row(2), "........");
}

TEST_F(PublicDrawing, LooksAtTwoRowsOfAMatrixOnly) {
    Matrix<double, 3, 3> matrix;
    matrix.m[0][0] = 2;
    matrix.m[0][1] = 0;
    matrix.m[0][2] = 1;
    matrix.m[1][0] = 0;
    matrix.m[1][1] = 1;
    matrix.m[1][2] = 3;
    matrix.m[2][0] = 0.5; // the row of perspective
    matrix.m[2][1] = -7;
    matrix.m[2][2] = 4;
    Draw(image_, [&](TnDrawPort& port) {
        port.SetMatrix(matrix);
        port.DrawRect(TnRect{0, 0, 2, 1});
        port.Fill();
    });
    EXPECT_EQ(Row(2), "........");
    EXPECT_EQ(Row(3), ".####...");
    EXPECT_EQ(Row(4), "........");
}

TEST_F(PublicDrawing, DrawsIntoTheContent) {
    image_.Content({2, 1, 4, 3});
    Draw(image_, [](TnDrawPort& port) {
        port.DrawRect(TnRect{-10, 1, 12, 1});
        port.Fill();
    });
    image_.Content({0, 0, 8, 6});
    EXPECT_EQ(Row(2), "..##....");
    EXPECT_EQ(Row(1) + Row(3), "................");
}

TEST_F(PublicDrawing, TellsErrorsOfCallsThatGiveNone) {
    TnRasterPort port(image_);
    EXPECT_EQ(port.Error(), 0);
    ASSERT_TRUE(port.BeginDrawing(TnDrawPort::kSmooth, 0));
    EXPECT_EQ(port.Error(), 0);
    port.LineTo(TnPoint{1, 1});
    EXPECT_EQ(port.Error(), 1);
    port.DrawRect(TnRect{0, 0, 8, 1});
    port.Fill();
    EXPECT_EQ(Row(0), "########");
    EXPECT_EQ(port.Error(), 1);
    port.EndDrawing();
    EXPECT_EQ(port.Error(), 0);
}

TEST_F(PublicDrawing, ThrowsTheErrorsOfPaints) {
    TnRasterPort port(image_);
    ASSERT_TRUE(port.BeginDrawing(TnDrawPort::kSmooth, 0));
    port.MoveTo(TnFloatPoint{std::numeric_limits<double>::quiet_NaN(), 1});
    try {
        port.Fill();
        FAIL();
    } catch (const CKelError& error) {
        EXPECT_STRNE(error.what(), "");
        EXPECT_STRNE(error.Component(), "");
    }
    EXPECT_THROW(port.Clip(), CKelError);
    EXPECT_THROW(port.Stroke(), CKelError);
    EXPECT_EQ(Row(0), "........");
}

TEST_F(PublicDrawing, IsMissingOutsideABeginAndAnEnd) {
    TnRasterPort port(image_);
    EXPECT_THROW(port.Fill(), CKelError);
    ASSERT_TRUE(port.BeginDrawing(TnDrawPort::kSmooth, 0));
    port.Fill();
    port.EndDrawing();
    EXPECT_THROW(port.Fill(), CKelError);
}

TEST_F(PublicDrawing, NeedsAStorage) {
    TnImage image(nullptr, {4, 4});
    EXPECT_THROW(TnRasterPort port(image), std::bad_alloc);
}

TEST(PublicDrawingAlone, MayEndAfterTheEngines) {
    TnImage image({4, 4});
    SetAll(image, kWhite);
    {
        TnRasterPort port(image);
        {
            const TnGraphicsMem graphics(1 << 20, BasekitFromAscii("en_US"));
            ASSERT_TRUE(port.BeginDrawing(TnDrawPort::kSmooth, 0));
            port.SaveState();
            port.DrawRect(TnRect{0, 0, 4, 4});
        }
        EXPECT_THROW(port.Fill(), CKelError);
        EXPECT_EQ(port.Error(), 0);
        EXPECT_EQ(image.Clients(), 1U);
        port.EndDrawing();
    }
    EXPECT_EQ(image.Clients(), 0U);
    EXPECT_EQ(Count(image, kWhite), 16);
}

TEST(PublicDrawingAlone, IsMissingWithoutEngines) {
    TnImage image({4, 4});
    SetAll(image, kWhite);
    {
        TnRasterPort port(image);
        EXPECT_THROW(port.BeginDrawing(TnDrawPort::kSmooth, 0), CKelError);
    }
    {
        const TnGraphicsMem graphics(1 << 20, BasekitFromAscii("en_US"));
        Draw(image, [](TnDrawPort& port) {
            port.DrawRect(TnRect{0, 0, 4, 4});
            port.Fill();
        });
    }
    EXPECT_EQ(Count(image, kBlack), 16);
    TnRasterPort port(image);
    EXPECT_THROW(port.BeginDrawing(TnDrawPort::kSmooth, 0), CKelError);
}

} // namespace
} // namespace tn::test
