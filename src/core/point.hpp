// Points and angles for the plain core, which knows no Python object.
#pragma once
#include <cmath>

namespace zv {

inline constexpr double degreesToRadians = 0.017453292519943295;
inline constexpr double radiansToDegrees = 57.29577951308232;

struct Point {
    double x = 0, y = 0;

    Point operator+(Point o) const { return {x + o.x, y + o.y}; }
    Point operator-(Point o) const { return {x - o.x, y - o.y}; }
    Point operator*(double s) const { return {x * s, y * s}; }
};

// Not std::hypot: its rounding differs, and lengths show in pixels.
inline double length(Point p) { return std::sqrt(p.x * p.x + p.y * p.y); }

// Turns by an angle in radians, from the positive x axis towards the positive y axis.
struct Rotation {
    explicit Rotation(double radians) : cosine(std::cos(radians)), sine(std::sin(radians)) {}
    Point operator()(Point p) const { return {p.x * cosine - p.y * sine, p.x * sine + p.y * cosine}; }

private:
    double cosine, sine;
};

}  // namespace zv
