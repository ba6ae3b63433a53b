// What others paint of the same shapes. Where they differ from the engine, the exact model decides who is right.
#include "tests/engines/vec/CoverageErrors.h"
#include "tests/engines/vec/OtherPainters.h"
#include "tests/support/Cases.h"

#include <cmath>

namespace tn::test {
namespace {

using model::CoverageMap;
using model::Cubic;
using model::FillRule;
using model::Vertex;

struct OwnPath {
    Canvas& canvas;

    static float Number(double value) { return static_cast<float>(value); }
    void Move(const Vertex& v) { canvas.MoveTo(Number(v.x), Number(v.y)); }
    void Line(const Vertex& v) { canvas.LineTo(Number(v.x), Number(v.y)); }
    void Curve(const Cubic& c) {
        canvas.CurveTo(Number(c.control1.x), Number(c.control1.y), Number(c.control2.x), Number(c.control2.y),
                       Number(c.to.x), Number(c.to.y));
    }
    void Close() { canvas.ClosePath(); }
};

Vertex OnGrid(const Vertex& v) { return {std::round(v.x * 64) / 64, std::round(v.y * 64) / 64}; }

enum class Kind { kTriangle, kPolygons, kCurves };

Shape RandomShape(Random& random, Kind kind) {
    Shape shape;
    const double size = std::exp2(NumberBetween(random, 0, 5));
    const Vertex corner = PointBetween(random, 2, kSide - 2 - size);
    const auto point = [&] {
        const Vertex offset = PointBetween(random, 0, size);
        return OnGrid({corner.x + offset.x, corner.y + offset.y});
    };
    for (int parts = kind == Kind::kTriangle ? 1 : random.Between(1, 2); parts > 0; --parts) {
        const Vertex start = point();
        Vertex from = start;
        Curves curves;
        for (int i = kind == Kind::kTriangle ? 2 : random.Between(2, 6); i > 0; --i) {
            const Vertex to = point();
            const bool isCurve = kind == Kind::kCurves && random.OneIn(2);
            const Cubic curve = {from, isCurve ? point() : from, isCurve ? point() : to, to};
            curves.push_back(curve);
            from = to;
        }
        curves.push_back({from, from, start, start});
        shape.parts.push_back(curves);
    }
    return shape;
}

class Opinions : public Drawing {
protected:
    Opinions() {
        canvas_.Smooth();
        EXPECT_EQ(FT_Init_FreeType(&library_), 0);
    }
    ~Opinions() override { FT_Done_FreeType(library_); }

    void TearDown() override {
        Record("pixels", static_cast<double>(pixels_));
        Record("agreed", static_cast<double>(agreed_));
        Record("othersWereWrong", static_cast<double>(othersWereWrong_));
        Record("othersWereCloser", static_cast<double>(othersWereCloser_));
    }

    double AgreedShare() const { return static_cast<double>(agreed_) / static_cast<double>(pixels_); }

    Levels Own(const Shape& shape, FillRule rule) {
        canvas_.Clear(0);
        OwnPath path{canvas_};
        Trace(shape, path);
        EXPECT_EQ(rule == FillRule::kNonZero ? canvas_.Fill() : canvas_.EOFill(), nullptr);
        return Painted();
    }

    Levels Painted() const {
        Levels levels;
        for (const std::uint32_t pixel : canvas_.Pixels()) {
            levels.push_back(static_cast<int>(pixel));
        }
        return levels;
    }

    /// Expects the engine to be as near to the truth as is allowed where the two do not agree.
    template <class Exact>
    void Judge(const Levels& own, const Levels& other, double tolerance, double allowed, const Exact& exact) {
        for (std::int32_t i = 0; i < kSide * kSide; ++i) {
            const auto index = static_cast<std::size_t>(i);
            pixels_ += own[index] != 0 && own[index] != 255 ? 1 : 0;
            if (std::abs(own[index] - other[index]) <= tolerance) {
                agreed_ += own[index] != 0 && own[index] != 255 ? 1 : 0;
                continue;
            }
            const double truth = 255 * exact(i % kSide, i / kSide);
            ASSERT_LE(std::abs(own[index] - truth), allowed)
                << i % kSide << ' ' << i / kSide << ": the other says " << other[index];
            ++(std::abs(other[index] - truth) > std::abs(own[index] - truth) ? othersWereWrong_ : othersWereCloser_);
        }
    }

    template <class Other> void JudgeFills(int count, Kind kind, double tolerance, const Other& fillOther) {
        const double allowed = kind == Kind::kCurves ? 6 : 1.5; // of one border: a chord's 64th along a diagonal
        ForEachCase(HasTimeForEveryValue() ? count : count / 20, [&](Random& random) {
            const Shape shape = RandomShape(random, kind);
            const model::Polygons polygons = shape.Flattened();
            const CoverageMap map = ExactCoverage(canvas_, polygons);
            for (const FillRule rule : {FillRule::kNonZero, FillRule::kEvenOdd}) {
                Judge(Own(shape, rule), fillOther(shape, rule), tolerance, allowed,
                      [&](int x, int y) { return map.At(x, y).By(rule); });
            }
        });
    }

    Canvas canvas_{kSide, kSide};
    FT_Library library_ = nullptr;
    std::int64_t pixels_ = 0;
    std::int64_t agreed_ = 0;
    std::int64_t othersWereWrong_ = 0;
    std::int64_t othersWereCloser_ = 0; // both may have been as exact as they promise
};

// FreeType sums the areas of overlapping parts and cuts curves into chords that are long: both are wrong often, and
// only single triangles say how well it agrees.
TEST_F(Opinions, OfFreeTypeOnTriangles) {
    JudgeFills(4'000, Kind::kTriangle, 3, FreeTypeFill{library_});
    EXPECT_EQ(agreed_, pixels_);
}

TEST_F(Opinions, OfFreeTypeOnPolygons) {
    JudgeFills(4'000, Kind::kPolygons, 3, FreeTypeFill{library_});
    EXPECT_GT(AgreedShare(), 0.85);
    EXPECT_EQ(othersWereCloser_, 0);
}

TEST_F(Opinions, OfFreeTypeOnCurves) {
    JudgeFills(1'000, Kind::kCurves, 3, FreeTypeFill{library_});
    EXPECT_LT(othersWereCloser_, othersWereWrong_ / 100);
    EXPECT_GT(AgreedShare(), 0.5);
}

TEST_F(Opinions, OfCairoOnPolygons) {
    JudgeFills(4'000, Kind::kPolygons, 10, FillByCairo);
    EXPECT_EQ(othersWereCloser_, 0);
    EXPECT_GT(AgreedShare(), 0.95);
}

TEST_F(Opinions, OfCairoOnCurves) {
    JudgeFills(1'000, Kind::kCurves, 10, FillByCairo);
    EXPECT_EQ(othersWereCloser_, 0);
    EXPECT_GT(AgreedShare(), 0.95);
}

TEST_F(Opinions, OfCairoOnStrokes) {
    ForEachCase(HasTimeForEveryValue() ? 400 : 20, [&](Random& random) {
        const model::StrokeStyle style = {static_cast<float>(NumberBetween(random, 1, 8)),
                                          static_cast<model::Cap>(random.Between(0, 2)),
                                          static_cast<model::Join>(random.Between(0, 2))};
        CairoCanvas other;
        model::StrokePath path;
        path.isClosed = random.OneIn(2);
        for (int i = random.Between(2, 4); i > 0; --i) {
            path.Add(OnGrid(PointBetween(random, 2, kSide - 2)));
            path.points.size() == 1 ? other.Move(path.points.back()) : other.Line(path.points.back());
        }
        canvas_.Lines(path.points);
        if (path.isClosed) {
            canvas_.ClosePath();
            other.Close();
        }
        canvas_.LineWidth(static_cast<float>(style.width));
        canvas_.LineCap(static_cast<std::int32_t>(style.cap));
        canvas_.LineJoin(static_cast<std::int32_t>(style.join));
        canvas_.Clear(0);
        ASSERT_EQ(canvas_.Stroke(), nullptr);
        const model::Stroked stroked({path}, style, {});
        Judge(Painted(), other.Stroke(style), 10, 6, [&](int x, int y) { return stroked.Coverage(x, y); });
    });
    EXPECT_EQ(othersWereCloser_, 0);
    EXPECT_GT(AgreedShare(), 0.95);
}

} // namespace
} // namespace tn::test
