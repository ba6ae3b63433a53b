// Private: points and distances of the plane.
#pragma once

#include <algorithm>

namespace tn::vec {

struct Point {
    double x, y;

    friend bool operator==(const Point&, const Point&) = default;
};

inline Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
inline Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
inline Point operator-(Point a) { return {-a.x, -a.y}; }
inline Point operator*(double factor, Point a) { return {factor * a.x, factor * a.y}; }

inline double Dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }

/// Above 0 where b lies on the side of a that the y axis lies on of the x axis.
inline double Cross(Point a, Point b) { return a.x * b.y - a.y * b.x; }

/// Nothing is further away than this, in pixels.
inline constexpr double kFarthest = 1 << 30;

inline double Cut(double coordinate) { return std::clamp(coordinate, -kFarthest, kFarthest); }
inline Point Cut(Point point) { return {Cut(point.x), Cut(point.y)}; }

} // namespace tn::vec
