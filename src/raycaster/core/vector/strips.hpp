// The columns of a picture as the kernels read them, and the kernels of each vector target.
#pragma once
#include "raycaster/core/vector/kernels.hpp"

namespace zv {

// One array a number. The arrays are longer than the picture is wide, so that a vector may begin in its last column.
struct WorldStrips : WorldPicture {
    static constexpr int padding = 64;  // columns; no vector has more lanes

    std::vector<double> rayX, rayY;
    // The rows above `top` are ceiling, those from `bottom` on are floor. Between them stands the wall, if anything.
    std::vector<int> top, bottom;

    explicit WorldStrips(const WorldPicture& world);
};

// The rows of the ceiling and the floor that are `from` to `to` - 1 rows away from the horizon.
void drawFlatsByVectors(const WorldStrips& world, int from, int to);

// What stands between ceiling and floor in the columns `from` to `to` - 1.
void drawWallsByVectors(const WorldStrips& world, int from, int to);

void drawSpriteByVectors(const SpriteFrame& frame, const Fog& fog, const SpriteArea& area,
    const std::vector<RayHit>& rayHits, double depth, const MutableImage& target);

}  // namespace zv
