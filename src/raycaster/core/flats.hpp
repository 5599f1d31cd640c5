// Floors and ceilings: flat planes half a wall below and above the eye.
#pragma once
#include "raycaster/core/scene.hpp"

namespace zv {

// Draw columns `from` to `to` - 1, row by row: distance, and so fog, is the same all along a row.
void drawFloor(
    const Scene& scene, const View& view, const Columns& columns, const MutableImage& target, int from, int to);
void drawCeiling(
    const Scene& scene, const View& view, const Columns& columns, const MutableImage& target, int from, int to);

}  // namespace zv
