// Drawing in which nothing fails, also where there is nothing to draw on.

#include "tests/public/Pixels.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <vector>

namespace tn::test {
namespace {

using Operation = void (*)(TnDrawPort& port);

/// Every operation, in an order in which all succeed.
constexpr std::array<Operation, 28> kOperations = {
    [](TnDrawPort& port) { port.SaveState(); },
    [](TnDrawPort& port) {
        port.Translate({{98304}, {-32768}});
    },
    [](TnDrawPort& port) {
        port.Scale({{98304}, {32768}});
    },
    [](TnDrawPort& port) {
        port.DrawRect(TnRect{1, 1, 5, 4});
    },
    [](TnDrawPort& port) { port.Clip(); },
    [](TnDrawPort& port) { port.EvenOddClip(); },
    [](TnDrawPort& port) { port.RestoreState(); },
    [](TnDrawPort& port) { port.NewPath(); },
    [](TnDrawPort& port) {
        port.MoveTo(TnPoint{1, 1});
    },
    [](TnDrawPort& port) {
        port.LineTo(TnPoint{6, 2});
    },
    [](TnDrawPort& port) {
        port.LineTo(TnFixedPoint{{98304}, {98304}});
    },
    [](TnDrawPort& port) {
        port.LineTo(TnFloatPoint{2.5, 4.25});
    },
    [](TnDrawPort& port) { port.ClosePath(); },
    [](TnDrawPort& port) { port.RGBColor(1, 0.5F, 0, 0.75F); },
    [](TnDrawPort& port) { port.Fill(); },
    [](TnDrawPort& port) {
        port.MoveTo(TnFixedPoint{{65536}, {65536}});
    },
    [](TnDrawPort& port) {
        port.CurveTo(TnFixedPoint{{98304}, {0}}, {{0}, {98304}}, {{196608}, {196608}});
    },
    [](TnDrawPort& port) {
        port.MoveTo(TnFloatPoint{0.5, 0.5});
    },
    [](TnDrawPort& port) {
        port.CurveTo(TnFloatPoint{4, 0}, {0, 4}, {5, 5});
    },
    [](TnDrawPort& port) { port.LineWidth({98304}); },
    [](TnDrawPort& port) { port.LineCap(TnDrawPort::kRoundCap); },
    [](TnDrawPort& port) { port.LineJoin(TnDrawPort::kBevelJoin); },
    [](TnDrawPort& port) { port.Stroke(); },
    [](TnDrawPort& port) { port.Gray(0.5F); },
    [](TnDrawPort& port) {
        port.SetMatrix({{{1, 0.5, 0}, {0, 1, 0.25}, {0, 0, 1}}});
    },
    [](TnDrawPort& port) {
        port.DrawRect(TnFixedRect{{32768}, {32768}, {262144}, {196608}});
    },
    [](TnDrawPort& port) { port.EvenOddFill(); },
    [](TnDrawPort& port) { port.Fill(); }, // of no path
};

class DrawingWithoutErrors : public ::testing::Test {
protected:
    /// Draws, in one drawing after the other, and is told of no error.
    template <class SurfaceType> static void Draw(const SurfaceType& surface) {
        TnRasterPort port(surface);
        for (int drawing = 0; drawing < 2; ++drawing) {
            ASSERT_TRUE(port.BeginDrawing(TnDrawPort::kSmooth, 0));
            EXPECT_EQ(port.Error(), 0);
            for (std::size_t i = 0; i < kOperations.size(); ++i) {
                EXPECT_NO_THROW(kOperations[i](port)) << "operation " << i;
                EXPECT_EQ(port.Error(), 0) << "operation " << i;
            }
            port.EndDrawing();
        }
    }

    /// Draws, and every byte of the storage stays what it was.
    template <class SurfaceType> static void DrawNothing(const SurfaceType& surface) {
        const std::vector<std::uint8_t> before = BytesOf(surface, 0xA5);
        const std::uint32_t clients = surface.Clients();
        Draw(surface);
        EXPECT_EQ(surface.Clients(), clients);
        EXPECT_EQ(BytesOf(surface), before);
    }

private:
    template <class SurfaceType> static std::vector<std::uint8_t> BytesOf(const SurfaceType& surface) {
        if (surface.Storage() == nullptr) {
            return {};
        }
        const auto* const first = static_cast<const std::uint8_t*>(surface.Storage()->BaseAddr());
        return {first, first + surface.Storage()->ByteSize()};
    }
    template <class SurfaceType>
    static std::vector<std::uint8_t> BytesOf(const SurfaceType& surface, std::uint8_t value) {
        if (surface.Storage() != nullptr) {
            std::fill_n(static_cast<std::uint8_t*>(surface.Storage()->BaseAddr()), surface.Storage()->ByteSize(),
                        value);
        }
        return BytesOf(surface);
    }

    TnGraphicsMem graphics_{1 << 20, BasekitFromAscii("en_US")};
};

TEST_F(DrawingWithoutErrors, TellsOfNoneAfterEachOperation) {
    Draw(TnImage({8, 6}, true));
    Draw(TnMatte({8, 6}, true));
    Draw(TnMask({8, 6}, true));
}

TEST_F(DrawingWithoutErrors, DoesNothingOnSurfacesWithoutPixels) {
    for (const TnPoint& size : {TnPoint{0, 0}, TnPoint{0, 5}, TnPoint{5, 0}}) {
        SCOPED_TRACE(testing::Message() << size.x << " x " << size.y);
        DrawNothing(TnImage(size));
        DrawNothing(TnMatte(size));
        DrawNothing(TnMask(size));
    }
}

TEST_F(DrawingWithoutErrors, DoesNothingOnAMaskThatWasAssignedWhileItWasLocked) {
    TnMask mask({8, 6});
    mask.AddClient();
    mask = TnMask({20, 4});
    DrawNothing(mask);
    mask.RemoveClient();
    EXPECT_EQ(mask.Clients(), 0U);
}

} // namespace
} // namespace tn::test
