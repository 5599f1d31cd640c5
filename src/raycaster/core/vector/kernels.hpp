// The passes of a frame for processors with vector units: the same words as the plain loops of walls, flats, sky and
// sprites, many pixels at a time. Plain functions of plain data over ranges of rows.
#pragma once
#include "raycaster/core/sprites.hpp"

namespace zv {

// What shows where nothing is drawn.
struct Backdrop {
    enum Kind { keep, color, panorama } kind = keep;  // keep: what the target holds already
    uint32_t word = 0;                                // of the color
    std::vector<int> skyColumns;                      // of the panorama, for each column of the picture
    std::vector<const uint32_t*> skyRows;             // of the panorama, for each row of the picture
};

// What the kernels read of each column, one array a number. The arrays are longer than the picture is wide, so
// that a vector may begin in its last column.
struct Strips {
    static constexpr int padding = 64;  // columns; no vector has more lanes

    std::vector<double> rayX, rayY;
    // The rows above `top` are ceiling, those from `bottom` on are floor. Between them stands the wall, if anything.
    std::vector<int> top, bottom;

    Strips(const View& view, const Columns& columns);
};

struct WorldPicture {
    const Scene& scene;
    const View& view;
    const Columns& columns;
    const Strips& strips;
    const Backdrop& backdrop;
    const Image& target;
};

// The rows of the ceiling and the floor that are `from` to `to` - 1 rows away from the horizon.
void drawFlatsByVectors(const WorldPicture& world, int from, int to);

// What stands between ceiling and floor in the columns `from` to `to` - 1. `flashlight` is null without one.
void drawWallsByVectors(const WorldPicture& world, const Image* flashlight, int from, int to);

// See drawSprite().
void drawSpriteByVectors(const SpriteFrame& frame, const Fog& fog, const SpriteArea& area, const Columns& columns,
    double depth, const Image& target);

}  // namespace zv
