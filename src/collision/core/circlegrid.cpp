#include "collision/core/circlegrid.hpp"

#include "core/numbers.hpp"

#include <algorithm>

namespace zv {

// A cell is as large as one of a level. All that counts is that a larger coordinate has no smaller cell.
static int64_t cellOf(double coordinate) { return truncateFar(coordinate); }
static uint64_t keyOf(int64_t x, int64_t y) { return static_cast<uint64_t>(x) << 32 ^ static_cast<uint64_t>(y); }
static uint64_t keyOf(Point p) { return keyOf(cellOf(p.x), cellOf(p.y)); }

static bool isLarge(double radius) { return radius > 1; }

void CircleGrid::reset(size_t count) {
    circles.clear();
    circles.reserve(count);
    cells.reset(count);
    largestInCells = 0;
    large.clear();
}

void CircleGrid::add(const Circle& circle) {
    size_t number = circles.size();
    circles.push_back(circle);
    if (isLarge(circle.radius)) return large.push_back(number);
    cells.insert(keyOf(circle.center), number);
    if (circle.radius > largestInCells) largestInCells = circle.radius;
}

void CircleGrid::place(size_t number, Point center) {
    Circle& circle = circles[number];
    uint64_t left = keyOf(circle.center), entered = keyOf(center);
    circle.center = center;
    if (left == entered || isLarge(circle.radius)) return;
    cells.remove(left, number);
    cells.insert(entered, number);
}

size_t CircleGrid::nextOverlapped(size_t number, const Move& mover, const void* owner) {
    if (number == 0) looks = 0;
    size_t found = circles.size();
    auto consider = [&](size_t n) {
        looks++;
        const Circle& c = circles[n];
        if (n >= number && n < found && c.owner != owner && mover.overlaps(c.center, c.radius)) found = n;
    };
    auto considerAll = [&] {
        for (size_t n = number; n < found; n++) consider(n);
        return found;
    };
    // Who runs into most of the others does not search through them again and again.
    if (looks > circles.size()) return considerAll();
    for (size_t n : large) consider(n);

    double reach = std::max(0.0, mover.radius + largestInCells) * (1 + 1e-9) + 1e-9;  // rounding must not lose one
    int64_t left = cellOf(mover.target.x - reach), right = cellOf(mover.target.x + reach);
    int64_t top = cellOf(mover.target.y - reach), bottom = cellOf(mover.target.y + reach);
    auto limit = static_cast<int64_t>(circles.size());
    if (right - left >= limit || bottom - top >= limit || (right - left) * (bottom - top) >= limit)
        return considerAll();
    for (int64_t y = top; y <= bottom; y++)
        for (int64_t x = left; x <= right; x++) cells.visit(keyOf(x, y), consider);
    return found;
}

}  // namespace zv
