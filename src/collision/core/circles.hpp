// Circles against circles and lines: plain geometry of bodies.
#pragma once
#include "core/point.hpp"

#include <optional>

namespace zv {

// The first point at which the ray from `start` through `end` meets the circle; from inside the circle that is
// the exit. There is no upper bound: a point beyond `end` counts. Most of it is in single precision by definition.
std::optional<Point> closestLineCircleIntersection(Point center, float radius, Point start, Point end);

// A mover on its way by `movement` to a target that other bodies and walls push about.
struct Move {
    Point movement, target;
    double radius;

    // How far the target is from touching a body; below 0 they overlap.
    double gapTo(Point center, double bodyRadius) const { return length(center - target) - (bodyRadius + radius); }
    bool overlaps(Point center, double bodyRadius) const { return gapTo(center, bodyRadius) < 0; }

    // Moves the target straight away from a body that it overlaps, measured from where the mover came: a
    // correction replaces an earlier one rather than adding to it.
    void pushOutOf(Point center, double bodyRadius, Point from);
};

}  // namespace zv
