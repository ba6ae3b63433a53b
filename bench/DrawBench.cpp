#include "Comparison.h"
#include "DrawShapes.h"
#include "Pictures.h"
#include "PortDrawing.h"
#include "Rivals.h"
#include "peers/DrawPeers.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tn::bench {
namespace {

constexpr TnPoint kSquare = {512, 512};
constexpr int kSides[] = {8, 32, 128, 512};
constexpr int kSmallSide = 8;
constexpr int kCurves = 40;

constexpr double kPeerLimit = 1.0;
constexpr double kBeginLimit = 3.0;
constexpr double kNanosecondsPerMicrosecond = 1000.0;

/// The part of AGG's time that is aimed at, at 512x512; 0 for none.
struct Aim {
    double image;
    double matte;
};

/// For each of the sides.
using Aims = Aim[std::size(kSides)];

constexpr Aims kAligned = {{0.14, 0.15}, {0.12, 0.12}, {0.09, 0.06}, {0.13, 0.03}};
constexpr Aims kUnaligned = {};
constexpr Aims kRotated = {{0.42, 0.45}, {0.24, 0.26}, {0.20, 0.17}, {0.19, 0.06}};
constexpr Aims kCircles = {{0.80, 0.82}, {0.44, 0.49}, {0.27, 0.26}, {0.20, 0.10}};

/// A surface that ours draws on, and the peers' own.
template <class SurfaceType> struct Ground;

template <> struct Ground<TnImage> {
    explicit Ground(const TnPoint& wanted)
        : size(wanted), surface(MakePicture(size, Picture::kPhotograph)), rows(StraightRows(*surface)) {}

    std::string Name() const { return "image " + SizeName(size); }
    static double AimOf(const Aim& aim) { return aim.image; }
    static std::vector<Rival> MorePeers(const SharedDrawing&) { return {}; }

    TnPoint size;
    Shared<TnImage> surface;
    Rows rows;
};

template <> struct Ground<TnMatte> {
    explicit Ground(const TnPoint& wanted)
        : size(wanted), surface(MakeMatte(size, Picture::kNoise)), rows(MatteRows(*surface)) {}

    std::string Name() const { return "matte " + SizeName(size); }
    static double AimOf(const Aim& aim) { return aim.matte; }
    std::vector<Rival> MorePeers(const SharedDrawing& drawing) const {
        const Work work = FreeTypeDraw(rows, drawing);
        return work ? std::vector<Rival>{{"FreeType", work, kPeerLimit}} : std::vector<Rival>{};
    }

    TnPoint size;
    Shared<TnMatte> surface;
    ByteRows rows;
};

/// Everything that is drawn on one ground.
template <class SurfaceType> class Drawings {
public:
    explicit Drawings(const TnPoint& size) : ground_(size) {}

    std::vector<Comparison> Shapes() const {
        const TnPoint& size = ground_.size;
        std::vector<Comparison> comparisons = {
            Drawn("polygon of 10", RandomPolygons(10, size), {0.23, 0.21}),
            Drawn("polygon of 100", RandomPolygons(100, size), {0.19, 0.18}),
            Drawn("polygon of 1000", RandomPolygons(1000, size), {0.07, 0.06}),
            Drawn("40 curves", RandomCurves(kCurves, size), {0.26, 0.26}),
            Drawn("blob", Blobs(size), {0.31, 0.25}),
            Drawn("line of 40 curves, width 2", RandomLines(kCurves, 2, size), {0.22, 0.21}),
            Drawn("line of 40 curves, width 20", RandomLines(kCurves, 20, size), {0.22, 0.21}),
        };
        for (std::size_t i = 0; i < std::size(kSides); ++i) {
            const std::string name = "circle of " + std::to_string(kSides[i]);
            comparisons.push_back(Drawn(name, Circles(kSides[i], size), kCircles[i]));
        }
        return comparisons;
    }

    std::vector<Comparison> AllRectangles() const {
        std::vector<Comparison> comparisons;
        const auto append = [&](Lie lie, const Aims& aims) {
            for (std::size_t i = 0; i < std::size(kSides); ++i) {
                comparisons.push_back(Rectangle(kSides[i], lie, aims[i]));
            }
        };
        append(Lie::kAligned, kAligned);
        append(Lie::kUnaligned, kUnaligned);
        append(Lie::kRotated, kRotated);
        return comparisons;
    }

    Comparison BeginDrawEnd() const {
        const SharedDrawing drawing = Share(Rectangles(kSmallSide, Lie::kAligned, ground_.size));
        return {
            .name = Name("rectangle of 8 from BeginDrawing to EndDrawing"),
            .items = Items(*drawing),
            .ours = PortBeginDrawEnd(ground_.surface, drawing),
            .rivals = {{"cairo, context made and destroyed", CairoBeginDrawEnd(ground_.rows, drawing), kBeginLimit}}};
    }

private:
    Comparison Rectangle(int side, Lie lie, const Aim& aim) const {
        const std::string name = "rectangle of " + std::to_string(side) + ", " + NameOf(lie);
        Comparison comparison = Drawn(name, Rectangles(side, lie, ground_.size), aim);
        if (lie != Lie::kRotated) {
            AppendCalls(comparison.rivals, Share(Rectangles(side, lie, ground_.size)), lie);
        }
        return comparison;
    }

    /// Peers' calls for rectangles, which are no paths and so have no limit.
    void AppendCalls(std::vector<Rival>& rivals, const SharedDrawing& drawing, Lie lie) const {
        rivals.push_back({"cairo, call", CairoRectangles(ground_.rows, drawing), {}});
        rivals.push_back({"Qt, call", QtRectangles(ground_.rows, drawing), {}});
        if (lie == Lie::kAligned) {
            rivals.push_back({"AGG, call", AggRectangles(ground_.rows, drawing), {}});
        }
    }

    Comparison Drawn(const std::string& name, Drawing&& shapes, const Aim& aim) const {
        const SharedDrawing drawing = Share(std::move(shapes));
        return {.name = Name(name),
                .items = Items(*drawing),
                .ours = PortDraw(ground_.surface, drawing),
                .rivals = Peers(drawing, AimHere(aim))};
    }

    std::vector<Rival> Peers(const SharedDrawing& drawing, std::optional<double> aim) const {
        std::vector<Rival> rivals = {{"AGG", AggDraw(ground_.rows, drawing, AggSpans::kCoverages), kPeerLimit, aim},
                                     {"AGG, packed", AggDraw(ground_.rows, drawing, AggSpans::kPacked), kPeerLimit},
                                     {"cairo", CairoDraw(ground_.rows, drawing), kPeerLimit},
                                     {"Qt", QtDraw(ground_.rows, drawing), kPeerLimit}};
        std::ranges::move(ground_.MorePeers(drawing), std::back_inserter(rivals));
        return rivals;
    }

    std::optional<double> AimHere(const Aim& aim) const {
        const double part = ground_.AimOf(aim);
        return ground_.size == kSquare && part > 0.0 ? std::optional(part) : std::nullopt;
    }

    std::string Name(const std::string& shape) const { return "draw " + shape + ", " + ground_.Name(); }

    static SharedDrawing Share(Drawing&& drawing) { return std::make_shared<const Drawing>(std::move(drawing)); }

    /// Such that times are in microseconds for each path.
    static double Items(const Drawing& drawing) {
        return kNanosecondsPerMicrosecond * static_cast<double>(drawing.outlines.size());
    }

    Ground<SurfaceType> ground_;
};

} // namespace

std::vector<Section> DrawComparisons() {
    Section shapes = {"Drawing shapes", {}, Layout::kColumns};
    Section rectangles = {"Drawing rectangles", {}, Layout::kColumns};
    Section beginnings = {"Beginning and ending to draw", {}};
    const auto append = [&](const auto& drawings) {
        std::ranges::move(drawings.Shapes(), std::back_inserter(shapes.comparisons));
        std::ranges::move(drawings.AllRectangles(), std::back_inserter(rectangles.comparisons));
        beginnings.comparisons.push_back(drawings.BeginDrawEnd());
    };
    for (const TnPoint& size : {kSquare, kFullHd}) {
        append(Drawings<TnImage>(size));
        append(Drawings<TnMatte>(size));
    }
    return {shapes, rectangles, beginnings};
}

} // namespace tn::bench
