// Circles on the plane, found by where they are: a grid of cells without bounds, of which a hash table keeps the used.
#pragma once
#include "collision/core/circles.hpp"
#include "collision/core/hashchains.hpp"

namespace zv {

class CircleGrid {
public:
    // Removes all circles, and makes room for `count`.
    void reset(size_t count);
    // Circles are numbered in the order in which they are added. Those of one owner do not meet.
    struct Circle {
        Point center;
        double radius;
        const void* owner;
    };
    void add(const Circle& circle);
    void place(size_t number, Point center);
    // The first circle from this number on that a mover overlaps at its target; the number of circles if there is none.
    // A mover begins with 0.
    size_t nextOverlapped(size_t number, const Move& mover, const void* owner);

private:
    std::vector<Circle> circles;
    HashChains cells;           // by the cell of the center
    double largestInCells = 0;  // radius
    std::vector<size_t> large;  // circles that would make every search wide; they are in no cell
    size_t looks = 0;           // at circles, by the mover of the last search
};

}  // namespace zv
