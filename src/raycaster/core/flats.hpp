// Floors and ceilings: flat planes half a wall below and above the eye.
#pragma once
#include "raycaster/core/scene.hpp"

namespace zv {

// Draw the rows from `from` to `to` - 1. Distance, and so fog, is the same all along a row.
void drawFloor(const Scene& scene, const View& view, const Columns& columns, const Image& target, int from, int to);
void drawCeiling(const Scene& scene, const View& view, const Columns& columns, const Image& target, int from, int to);

}  // namespace zv
