// Walls: one ray and one textured slice per column, and the flashlight on them.
#pragma once
#include "raycaster/core/scene.hpp"

namespace zv {

// Traces one ray per column. The ray is rotated from column to column, so its rounding adds up from left to
// right: that is part of the picture, and the columns depend on each other here, and only here.
Columns traceColumns(const Grid& grid, const View& view);

// Draws the slices of columns `from` to `to` - 1.
void drawWalls(
    const Scene& scene, const View& view, const Columns& columns, const MutableImage& target, int from, int to);

// Lights the walls of columns `from` to `to` - 1 through a mask that is stretched over the picture's width.
void drawFlashlight(
    const Image& mask, const View& view, const Columns& columns, const MutableImage& target, int from, int to);

}  // namespace zv
