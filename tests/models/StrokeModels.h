// Strokes as what they are made of: boxes along the lines, wedges and discs at the corners, sectors where
// curves turn, caps at the ends.
#pragma once

#include "tests/models/CoverageModels.h"

#include <cstdint>
#include <vector>

namespace tn::test::model {

enum class Cap { kButt, kRound, kSquare };
enum class Join { kMiter, kRound, kBevel };

struct StrokeStyle {
    double width = 1;
    Cap cap = Cap::kButt;
    Join join = Join::kMiter;
    double miterLimit = 10; ///< A miter's length over the width, beyond which it is cut off.
};

/// From user space to device space: x' = a x + c y + tx, y' = b x + d y + ty
struct UserMatrix {
    double a = 1, b = 0, c = 0, d = 1, tx = 0, ty = 0;

    Vertex Transformed(const Vertex& v) const { return {a * v.x + c * v.y + tx, b * v.x + d * v.y + ty}; }
};

/// A part of a path in user space.
struct StrokePath {
    std::vector<Vertex> points;
    std::vector<bool> isInCurve; ///< True for points in the middle of a curve, which turns there.
    bool isClosed = false;

    void Add(const Vertex& point) {
        points.push_back(point);
        isInCurve.push_back(false);
    }
    /// Continues with a curve, in chords within the error.
    void AddCurve(const Vertex& control1, const Vertex& control2, const Vertex& to, double error);
};

/// What a stroke covers in device space.
class Stroked {
public:
    Stroked(const std::vector<StrokePath>& paths, const StrokeStyle& style, const UserMatrix& matrix);

    /// True when the point is in one of the pieces.
    bool Contains(const Vertex& device) const;

    /// The part of the pixel that is in any of the pieces, along lines through it: exact along each of them, and of
    /// all that the lines between them miss, off by at most one line's share.
    double Coverage(std::int32_t x, std::int32_t y, int lines = 256) const;

private:
    /// A convex piece: a disc around a point of user space, or corners in order.
    struct Piece {
        bool isDisc;
        Vertex center;
        std::vector<Vertex> corners; ///< In user space.
        std::vector<Vertex> deviceCorners;
        double left, top, right, bottom; ///< In device space.
    };
    struct Interval {
        double low, high;
    };
    enum class Place { kOutside, kAcross, kWhole };

    void AddPath(const StrokePath& path);
    void AddDot(const Vertex& at);
    void AddCap(const Vertex& end, const Vertex& inwards);
    void AddJoin(const Vertex& before, const Vertex& at, const Vertex& after, bool isInCurve);
    void AddSector(const Vertex& center, const Vertex& first, const Vertex& last);
    void AddBox(const Vertex& from, const Vertex& to);
    void AddDisc(const Vertex& center);
    void AddCorners(const std::vector<Vertex>& corners);

    Vertex InUserSpace(const Vertex& device) const;
    bool IsInPiece(const Piece& piece, const Vertex& user) const;
    Place PlaceOfPixel(const Piece& piece, std::int32_t x, std::int32_t y) const;
    Interval AcrossAt(const Piece& piece, double y) const;
    Interval AcrossDisc(const Vertex& center, double y) const;

    StrokeStyle style_;
    UserMatrix matrix_;
    double radius_;
    double determinant_;
    std::vector<Piece> pieces_;
};

} // namespace tn::test::model
