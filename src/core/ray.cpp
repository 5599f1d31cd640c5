#include "core/ray.hpp"

#include "core/numbers.hpp"

#include <optional>

namespace zv {
namespace {

bool isTriangle(int block) { return block >= blockNorthWest && block <= blockSouthEast; }

// The hypotenuse runs from south-west to north-east in blocks 2 and 5, from north-west to south-east in 3 and 4.
bool risesToNorthEast(int block) { return block == blockNorthWest || block == blockSouthEast; }

bool isOrigin(Point p) { return p.x == 0 && p.y == 0; }

bool inCell(Point p, int cellX, int cellY) {
    return p.x >= cellX && p.x < cellX + 1 && p.y >= cellY && p.y < cellY + 1;
}

// The point where the ray meets the hypotenuse inside the cell. A parallel ray meets it nowhere.
std::optional<Point> meetHypotenuse(int block, int cellX, int cellY, Point pos, Point dir) {
    bool rises = risesToNorthEast(block);
    Point start{static_cast<double>(cellX), static_cast<double>(rises ? cellY + 1 : cellY)};
    Point line{1.0, rises ? -1.0 : 1.0};
    double den = dir.x * line.y - dir.y * line.x;
    if (den == 0) return {};
    double t = (line.y * (start.x - pos.x) - line.x * (start.y - pos.y)) / den;
    Point meeting = pos + dir * t;
    if (isOrigin(meeting) || !inCell(meeting, cellX, cellY)) return {};
    return meeting;
}

Point normalOf(int face, int block) {
    constexpr double s = diagonalUnit;
    switch (face) {
    case cellNorth:
        return block == blockSouthWest ? Point{s, -s} : block == blockSouthEast ? Point{-s, -s} : Point{0, -1};
    case cellEast: return block == blockNorthWest ? Point{s, s} : block == blockSouthWest ? Point{s, -s} : Point{1, 0};
    case cellSouth: return block == blockNorthWest ? Point{s, s} : block == blockNorthEast ? Point{-s, s} : Point{0, 1};
    default: return block == blockNorthEast ? Point{-s, s} : block == blockSouthEast ? Point{-s, -s} : Point{-1, 0};
    }
}

// A ray that came through a horizontal grid line (side 1) shows a north or south face, else an east or west one.
int faceOf(int side, Point dir) {
    if (side == 1) return dir.y < 0 ? cellSouth : cellNorth;
    return dir.x < 0 ? cellEast : cellWest;
}

void record(RayHit& hit, const Grid& grid, int cellX, int cellY, int side, Point point, Point pos, Point dir) {
    const uint8_t* cell = grid.cell(cellX, cellY);
    hit.block = cell[cellBlock];
    hit.pos = point;
    hit.cellX = cellX;
    hit.cellY = cellY;
    hit.side = side;
    hit.face = faceOf(side, dir);
    hit.textureIndex = cell[hit.face];
    hit.dist = length(point - pos);
    hit.outOfBounds = 0;
    hit.normal = normalOf(hit.face, hit.block);
}

bool isAhead(Point d, Point dir) {
    constexpr double tiny = 1e-7;
    if (!(std::fabs(dir.x) < tiny) && !(d.x / dir.x > 0)) return false;
    if (!(std::fabs(dir.y) < tiny) && !(d.y / dir.y > 0)) return false;
    return true;
}

// The camera may stand in the open half of a triangle: its hypotenuse comes before any grid line.
bool hitInOwnCell(const Grid& grid, int cellX, int cellY, Point pos, Point dir, RayHit& hit) {
    int block = grid.cell(cellX, cellY)[cellBlock];
    if (!isTriangle(block)) return false;
    std::optional<Point> meeting = meetHypotenuse(block, cellX, cellY, pos, dir);
    if (!meeting || !isAhead(*meeting - pos, dir)) return false;
    bool towardsHorizontal = block == blockNorthWest || block == blockSouthWest ? dir.x > 0 : dir.x < 0;
    record(hit, grid, cellX, cellY, towardsHorizontal ? 1 : 0, *meeting, pos, dir);
    return true;
}

// Whether a ray that enters the cell comes through the open half of a triangle.
bool entersOpenHalf(int block, bool vertical, Point dir) {
    switch (block) {
    case blockNorthWest: return vertical ? dir.x < 0 : dir.y < 0;
    case blockNorthEast: return vertical ? dir.x > 0 : dir.y < 0;
    case blockSouthWest: return vertical ? dir.x < 0 : dir.y > 0;
    case blockSouthEast: return vertical ? dir.x > 0 : dir.y > 0;
    default: return false;
    }
}

}  // namespace

void traceGridRay(const Grid& grid, Point pos, Point& dir, RayHit& hit, double reach) {
    Point given = dir;
    if (dir.x == 0) dir.x = 1e-14;
    if (dir.y == 0) dir.y = 1e-14;
    bool startsInside = pos.x >= 0 && pos.y >= 0 && pos.x < grid.width && pos.y < grid.height;
    hit.outOfBounds = !startsInside;
    if (!startsInside) {
        hit.block = blockEmpty;
        return;
    }
    int cellX = truncate(pos.x), cellY = truncate(pos.y);
    int stepX = given.x > 0 ? 1 : -1, stepY = given.y > 0 ? 1 : -1;
    int nextX = given.x > 0 ? cellX + 1 : cellX, nextY = given.y > 0 ? cellY + 1 : cellY;
    if (hitInOwnCell(grid, cellX, cellY, pos, dir, hit)) return;

    auto verticalCrossing = [&] { return Point{static_cast<double>(nextX), (nextX - pos.x) / dir.x * dir.y + pos.y}; };
    auto horizontalCrossing = [&] {
        return Point{(nextY - pos.y) / dir.y * dir.x + pos.x, static_cast<double>(nextY)};
    };
    Point crossX = verticalCrossing(), crossY = horizontalCrossing();
    double farthest = reach + 2.5;  // a hypotenuse may be nearer than the crossing that leads to it, by less than that
    double distX = length(crossX - pos), distY = length(crossY - pos);
    while (!hit.outOfBounds) {
        bool vertical = distY > distX;
        Point point = vertical ? crossX : crossY;
        int cx = truncate(point.x) - (vertical && dir.x < 0), cy = truncate(point.y) - (!vertical && dir.y < 0);
        hit.outOfBounds = (vertical ? distX : distY) > farthest || !grid.contains(cx, cy);
        int block = blockEmpty;
        if (!hit.outOfBounds) block = grid.cell(cx, cy)[cellBlock];
        if (block != blockEmpty) {
            if (!entersOpenHalf(block, vertical, dir)) return record(hit, grid, cx, cy, !vertical, point, pos, dir);
            if (auto meeting = meetHypotenuse(block, cx, cy, pos, dir))
                return record(hit, grid, cx, cy, !vertical, *meeting, pos, dir);
        }
        if (vertical) {
            nextX += stepX;
            crossX = verticalCrossing();
            distX = length(crossX - pos);
        } else {
            nextY += stepY;
            crossY = horizontalCrossing();
            distY = length(crossY - pos);
        }
    }
    hit.block = blockEmpty;
}

}  // namespace zv
