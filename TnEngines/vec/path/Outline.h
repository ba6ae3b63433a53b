// Private: what an area is bounded by, in the order in which rows meet it.
#pragma once

#include "TnEngines/vec/path/Point.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tn::vec {

/// Points of an outline that lie strictly below one another, first to last.
struct Chain {
    std::uint32_t first, last;
    std::int32_t direction; ///< 1 where the outline goes down along it, -1 where it goes up.
};

/// Closed polygons, cut into chains. Level lines are in none: the ends of the chains say where they are.
///
/// Points are taken to the nearest 1/4096 of a pixel, so that sums of heights are exact.
class Outline {
public:
    void Clear();

    // As Flatten tells of a path. Sub-paths that stay open are closed.
    void Move(Point to);
    void Line(Point to);
    void BeginCurve(Point) {}
    void EndCurve(Point) {}
    void Close();

    /// Closes what is open. Nothing may be added afterwards.
    void Finish() { Close(); }

    const std::vector<Point>& Points() const { return points_; }
    const std::vector<Chain>& Chains() const { return chains_; }

    // The box around all chains; there is one where there are chains.
    Point LeastCorner() const { return least_; }
    Point GreatestCorner() const { return greatest_; }

private:
    void StepTo(Point to);
    void Extend(Point to);
    void BeginChain(std::int32_t direction);
    void EndChain();
    void JoinWithFirstChain();

    std::vector<Point> points_;
    std::vector<Chain> chains_;
    Point start_ = {}, current_ = {};
    Point least_ = {}, greatest_ = {};
    std::size_t firstChain_ = 0;   // of the sub-path
    std::uint32_t chainStart_ = 0; // the first point of the chain that is being built
    std::int32_t direction_ = 0;   // of the chain that is being built; 0 for none
};

/// True for an upright rectangle, around which the outline goes once.
bool IsRect(const Outline& outline);

/// How often an outline winds around a point. Points on left and upper edges count as inside.
std::int64_t WindingAt(const Outline& outline, Point point);

} // namespace tn::vec
