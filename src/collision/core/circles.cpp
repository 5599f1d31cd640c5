#include "collision/core/circles.hpp"

namespace zv {

// The quadratic A*t*t + B*t + C = 0 in the line's parameter t, which is 0 at `start` and 1 at `end`.
std::optional<Point> closestLineCircleIntersection(Point center, float radius, Point start, Point end) {
    float dx = static_cast<float>(end.x - start.x), dy = static_cast<float>(end.y - start.y);
    Point fromCenter = start - center;
    float a = dx * dx + dy * dy;
    float b = static_cast<float>(2 * (static_cast<double>(dx) * fromCenter.x + static_cast<double>(dy) * fromCenter.y));
    float c = static_cast<float>(
        fromCenter.x * fromCenter.x + fromCenter.y * fromCenter.y - static_cast<double>(radius * radius));
    if (static_cast<double>(a) <= 1e-7) return {};  // the line has no length

    float det = static_cast<float>(static_cast<double>(b * b) - 4.0 * static_cast<double>(a) * static_cast<double>(c));
    if (det < 0) return {};
    auto pointAt = [&](float t) {
        return Point{start.x + static_cast<double>(dx * t), start.y + static_cast<double>(dy * t)};
    };
    if (det == 0) {
        float t = -b / (a + a);
        return t > 0 ? std::optional(pointAt(t)) : std::nullopt;
    }
    double root = std::sqrt(static_cast<double>(det)), divisor = static_cast<double>(2 * a);
    float t1 = static_cast<float>((static_cast<double>(-b) + root) / divisor);
    float t2 = static_cast<float>((static_cast<double>(-b) - root) / divisor);
    if ((t2 > t1 || t2 < 0) && t1 > 0) return pointAt(t1);
    if (t2 > 0) return pointAt(t2);
    return {};
}

void Move::pushOutOf(Point center, double bodyRadius, Point from) {
    Point diff = center - target;
    double distance = length(diff), gap = gapTo(center, bodyRadius);
    if (distance != 0.0) diff = {diff.x / distance, diff.y / distance};
    Point corrected = movement + diff * gap;
    target = from + corrected;
}

}  // namespace zv
