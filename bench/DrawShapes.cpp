#include "DrawShapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace tn::bench {
namespace {

using Step = Outline::Step;

constexpr int kPlaces = 16;

/// Polygons of many vertices are a mean in themselves, and take long.
constexpr int kVerticesInAll = 400;

/// Control points of a quarter circle, as a share of the radius.
constexpr double kQuarterCircle = 0.5522847498307936;

constexpr double kFullTurn = 2.0 * std::numbers::pi;

class Chance {
public:
    double UpTo(double limit) { return limit * static_cast<double>(random_()) / 4294967296.0; }
    Spot In(const TnPoint& size) {
        const double x = UpTo(size.x);
        return {x, UpTo(size.y)};
    }

    /// A whole pixel at which a square of the side is in the size.
    Spot CornerIn(const TnPoint& size, int side) {
        const double x = std::floor(UpTo(size.x - side + 1));
        return {x, std::floor(UpTo(size.y - side + 1))};
    }

private:
    std::mt19937 random_;
};

struct Pen {
    Outline outline = {};

    void Move(const Spot& to) { Add(Step::kMove, {to}); }
    void Line(const Spot& to) { Add(Step::kLine, {to}); }
    void Curve(const Spot& a, const Spot& b, const Spot& to) { Add(Step::kCurve, {a, b, to}); }
    void Close() { Add(Step::kClose, {}); }

private:
    void Add(Step step, std::initializer_list<Spot> spots) {
        outline.steps.push_back(step);
        outline.spots.insert(outline.spots.end(), spots);
    }
};

template <class Draw> Drawing Repeated(int places, double lineWidth, const Draw& draw) {
    Chance chance;
    Drawing drawing = {{}, lineWidth};
    for (int place = 0; place < places; ++place) {
        Pen pen;
        draw(pen, chance);
        drawing.outlines.push_back(pen.outline);
    }
    return drawing;
}

template <class Draw> Drawing Filled(const Draw& draw) { return Repeated(kPlaces, 0.0, draw); }

void MoveAndCurve(Pen& pen, Chance& chance, int curves, const TnPoint& size) {
    pen.Move(chance.In(size));
    for (int curve = 0; curve < curves; ++curve) {
        const Spot control1 = chance.In(size);
        const Spot control2 = chance.In(size);
        pen.Curve(control1, control2, chance.In(size));
    }
}

Spot Around(const Spot& middle, double radius, double angle) {
    return {middle.x + radius * std::cos(angle), middle.y + radius * std::sin(angle)};
}

/// The control point that goes before or after `at` on a smooth way from one spot to another.
Spot Towards(const Spot& at, const Spot& from, const Spot& to, double share) {
    return {at.x + share * (to.x - from.x), at.y + share * (to.y - from.y)};
}

/// A smooth closed way through all spots.
void Loop(Pen& pen, const std::vector<Spot>& spots) {
    constexpr double kTension = 1.0 / 6.0;
    const std::size_t count = spots.size();
    const auto at = [&](std::size_t index) { return spots[index % count]; };
    pen.Move(spots[0]);
    for (std::size_t i = 0; i < count; ++i) {
        pen.Curve(Towards(at(i), at(i + count - 1), at(i + 1), kTension),
                  Towards(at(i + 1), at(i + 2), at(i), kTension), at(i + 1));
    }
    pen.Close();
}

/// Spots about the middle, clockwise for a positive turn.
std::vector<Spot> Ring(Chance& chance, const Spot& middle, double radius, double turn) {
    constexpr int kSpots = 12;
    constexpr double kRoughness = 0.3;
    const double first = chance.UpTo(kFullTurn);
    std::vector<Spot> spots;
    for (int i = 0; i < kSpots; ++i) {
        spots.push_back(Around(middle, radius * (1.0 - chance.UpTo(kRoughness)), first + turn * i / kSpots));
    }
    return spots;
}

void Square(Pen& pen, const Spot& middle, double side, double angle) {
    const double radius = side * std::numbers::sqrt2 / 2.0;
    const auto corner = [&](double eighths) { return Around(middle, radius, angle + kFullTurn * eighths / 8.0); };
    pen.Move(corner(5));
    pen.Line(corner(7));
    pen.Line(corner(1));
    pen.Line(corner(3));
    pen.Close();
}

void UprightSquare(Pen& pen, const Spot& corner, double side) {
    pen.Move(corner);
    pen.Line({corner.x + side, corner.y});
    pen.Line({corner.x + side, corner.y + side});
    pen.Line({corner.x, corner.y + side});
    pen.Close();
}

void Circle(Pen& pen, const Spot& middle, double radius) {
    const double control = radius * kQuarterCircle;
    const auto& [x, y] = middle;
    pen.Move({x + radius, y});
    pen.Curve({x + radius, y + control}, {x + control, y + radius}, {x, y + radius});
    pen.Curve({x - control, y + radius}, {x - radius, y + control}, {x - radius, y});
    pen.Curve({x - radius, y - control}, {x - control, y - radius}, {x, y - radius});
    pen.Curve({x + control, y - radius}, {x + radius, y - control}, {x + radius, y});
    pen.Close();
}

} // namespace

std::string NameOf(Lie lie) {
    const char* const names[] = {"aligned", "unaligned", "rotated"};
    return names[static_cast<int>(lie)];
}

Drawing RandomPolygons(int vertices, const TnPoint& size) {
    return Repeated(std::clamp(kVerticesInAll / vertices, 1, kPlaces), 0.0, [&](Pen& pen, Chance& chance) {
        pen.Move(chance.In(size));
        for (int vertex = 1; vertex < vertices; ++vertex) {
            pen.Line(chance.In(size));
        }
        pen.Close();
    });
}

Drawing RandomCurves(int curves, const TnPoint& size) {
    return Filled([&](Pen& pen, Chance& chance) {
        MoveAndCurve(pen, chance, curves, size);
        pen.Close();
    });
}

Drawing RandomLines(int curves, double lineWidth, const TnPoint& size) {
    return Repeated(kPlaces, lineWidth, [&](Pen& pen, Chance& chance) { MoveAndCurve(pen, chance, curves, size); });
}

Drawing Blobs(const TnPoint& size) {
    constexpr double kHole = 0.4;
    return Filled([&](Pen& pen, Chance& chance) {
        const double radius = std::min(size.x, size.y) / 2.2;
        const Spot middle = {size.x / 2.0 + chance.UpTo(1.0), size.y / 2.0 + chance.UpTo(1.0)};
        Loop(pen, Ring(chance, middle, radius, kFullTurn));
        Loop(pen, Ring(chance, middle, radius * kHole, -kFullTurn));
    });
}

Drawing Rectangles(int side, Lie lie, const TnPoint& size) {
    return Filled([&](Pen& pen, Chance& chance) {
        const Spot corner = chance.CornerIn(size, side);
        if (lie == Lie::kAligned) {
            UprightSquare(pen, corner, side);
        } else if (lie == Lie::kUnaligned) {
            const Spot within = chance.In({1, 1});
            UprightSquare(pen, {corner.x + within.x, corner.y + within.y}, side);
        } else {
            Square(pen, {corner.x + side / 2.0, corner.y + side / 2.0}, side, chance.UpTo(kFullTurn));
        }
    });
}

Drawing Circles(int diameter, const TnPoint& size) {
    return Filled([&](Pen& pen, Chance& chance) {
        const Spot corner = chance.CornerIn(size, diameter);
        // Between pixels where there is room for it.
        const double x = std::min(corner.x + chance.UpTo(1.0), double(size.x - diameter));
        const double y = std::min(corner.y + chance.UpTo(1.0), double(size.y - diameter));
        Circle(pen, {x + diameter / 2.0, y + diameter / 2.0}, diameter / 2.0);
    });
}

} // namespace tn::bench
