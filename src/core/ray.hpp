// The grid traversal: follows a ray from cell boundary to cell boundary up to the first solid part of a cell.
#pragma once
#include "core/grid.hpp"
#include "core/point.hpp"

#include <limits>

namespace zv {

struct RayHit {
    uint8_t block = blockEmpty;  // type that was hit; blockEmpty when the ray left the grid
    Point pos;                   // the hit point
    Point rayDir;                // direction of the ray; written by the caller
    int side = 0;                // 1: came through a horizontal grid line, 0: through a vertical one
    int outOfBounds = 1;         // 1: nothing was found inside the grid, and the other fields mean nothing
    int textureIndex = 0;        // byte `face` of the cell
    double dist = 0;             // from the ray's origin to pos
    int face = cellBlock;        // cellNorth, cellEast, cellSouth or cellWest of what was hit
    int cellX = 0, cellY = 0;
    Point normal;  // outward normal of the surface
};

// One over the square root of two as movement and normals know it.
inline constexpr double diagonalUnit = 0.707107;

// Of `hit`, only outOfBounds is reset; the rest is written when something was hit. A zero component of
// `dir` is replaced by 1e-14, which the caller sees. A start outside the grid is out of bounds.
// What is farther than `reach` may be missed.
void traceGridRay(
    const Grid& grid, Point pos, Point& dir, RayHit& hit, double reach = std::numeric_limits<double>::infinity());

}  // namespace zv
