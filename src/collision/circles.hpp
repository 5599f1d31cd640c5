// Circles against circles and lines: plain geometry of bodies.
#pragma once
#include "point.hpp"

#include <optional>

namespace zv {

// The first point at which the ray from `start` through `end` meets the circle; from inside the circle that is
// the exit. There is no upper bound: a point beyond `end` counts. Most of it is in single precision by definition.
std::optional<Point> closestLineCircleIntersection(Point center, float radius, Point start, Point end);

// A mover on its way from `from` by `movement`, whose target other bodies and walls push about.
struct Move {
    Point from, movement, target;
    double radius;

    // Whether the target overlaps a body. One that is solid pushes the target straight away from its centre,
    // measured from where the mover came; a correction replaces an earlier one rather than adding to it.
    bool collidesWith(Point center, double bodyRadius, bool solid);
};

}  // namespace zv
