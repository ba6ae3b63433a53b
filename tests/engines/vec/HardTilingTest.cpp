// Fills without smooth edges that share their edges: they neither overlap nor leave gaps.
#include "tests/engines/vec/CoverageErrors.h"
#include "tests/support/Cases.h"

#include <vector>

namespace tn::test {
namespace {

using model::FillRule;
using model::Polygon;
using model::Polygons;
using model::Vertex;

/// A square of pixels cut into triangles that share all corners.
class Tiling {
public:
    static constexpr int kCells = 6;
    static constexpr int kCellSide = 4;
    static constexpr int kSide = kCells * kCellSide;

    explicit Tiling(Random& random) {
        const int steps = random.OneIn(2) ? 2 : 1 << random.Between(0, 16);
        for (int y = 0; y <= kCells; ++y) {
            for (int x = 0; x <= kCells; ++x) {
                corners_.push_back({Moved(random, x, steps), Moved(random, y, steps)});
            }
        }
        for (int y = 0; y < kCells; ++y) {
            for (int x = 0; x < kCells; ++x) {
                Cut(random, x, y);
            }
        }
    }

    const Polygons& Triangles() const { return triangles_; }

private:
    // Less than a quarter of a cell from its place, so that no triangle turns over. Those at the sides stay there.
    static double Moved(Random& random, int index, int steps) {
        const int place = index * kCellSide;
        if (index == 0 || index == kCells) {
            return place;
        }
        const int most = steps - 1 > 0 ? steps - 1 : 0;
        return place + static_cast<double>(random.Between(-most, most)) / steps;
    }

    const Vertex& Corner(int x, int y) const { return corners_[static_cast<std::size_t>(y * (kCells + 1) + x)]; }

    void Cut(Random& random, int x, int y) {
        const Vertex a = Corner(x, y), b = Corner(x + 1, y), c = Corner(x + 1, y + 1), d = Corner(x, y + 1);
        const bool isFalling = random.OneIn(2);
        Add(random, isFalling ? Polygon{a, b, c} : Polygon{a, b, d});
        Add(random, isFalling ? Polygon{a, c, d} : Polygon{b, c, d});
    }

    void Add(Random& random, const Polygon& triangle) {
        triangles_.push_back(random.OneIn(2) ? triangle : Polygon{triangle.rbegin(), triangle.rend()});
    }

    Polygon corners_;
    Polygons triangles_;
};

using HardTilings = Drawing;

TEST_F(HardTilings, PaintEveryPixelOnce) {
    Canvas canvas(Tiling::kSide + 4, Tiling::kSide + 4);
    canvas.Hard();
    canvas.Translate(2, 2);
    ForEachCase(HasTimeForEveryValue() ? 400 : 40, [&](Random& random) {
        std::vector<std::uint32_t> sums(canvas.Pixels().size());
        const Tiling tiling(random);
        for (const Polygon& triangle : tiling.Triangles()) {
            canvas.Clear(0);
            PaintPolygons(canvas, {triangle}, FillRule::kNonZero);
            const std::vector<std::uint32_t> painted = canvas.Pixels();
            for (std::size_t i = 0; i < sums.size(); ++i) {
                sums[i] += painted[i];
            }
        }
        for (std::size_t i = 0; i < sums.size(); ++i) {
            const auto side = static_cast<std::size_t>(canvas.Layout().width);
            const bool isInside = i % side >= 2 && i % side < side - 2 && i / side >= 2 && i / side < side - 2;
            ASSERT_EQ(sums[i], isInside ? 255U : 0U) << i % side << ' ' << i / side;
        }
    });
}

using SmoothTilings = Drawing;

TEST_F(SmoothTilings, OfOnePathCoverEveryPixelWholly) {
    Canvas canvas(Tiling::kSide, Tiling::kSide);
    canvas.Smooth();
    ForEachCase(HasTimeForEveryValue() ? 400 : 40, [&](Random& random) {
        const Tiling tiling(random);
        for (const FillRule rule : {FillRule::kNonZero, FillRule::kEvenOdd}) {
            canvas.Clear(0);
            PaintPolygons(canvas, tiling.Triangles(), rule);
            for (const std::uint32_t pixel : canvas.Pixels()) {
                ASSERT_EQ(pixel, 255U);
            }
        }
    });
}

} // namespace
} // namespace tn::test
