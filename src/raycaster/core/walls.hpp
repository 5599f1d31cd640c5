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

// The column of a wall's texture, where its rows begin, and how far they step from row to row of the screen.
int wallTexelColumn(const Image& texture, const RayHit& hit);
double wallTexelStep(const Image& texture, const Slice& slice);
double wallTexelStart(const View& view, const Slice& slice, double step);

// The flashlight's mask: its column, the steps of its rows, and the weight of its light.
int flashlightColumn(const Image& mask, const View& view, int x);
double flashlightStep(const RayHit& hit);
int flashlightStrength(const RayHit& hit);

}  // namespace zv
