// Sprites: camera-facing images over the finished walls and flats.
#pragma once
#include "raycaster/core/scene.hpp"

namespace zv {

// One frame of a sheet, to be drawn at a place of the world.
struct SpriteFrame {
    Image sheet;
    int x, y, width, height;  // of the frame in the sheet, in pixels
    double scale, zOffset;    // as in SpriteComponent
    bool shadeless, additive;
    int fog, groundFog;  // amounts at the sprite's distance
};

// Turns world vectors so that the direction of the view becomes +x and what is right of it +y.
Rotation viewRotation(Point dir);

// `place` is the sprite's position from the camera, turned by viewRotation: x is the depth, y the offset to
// the right. `halfHeight` is that of the unscaled sprite on the screen, in whole rows. A sprite shows in the
// columns whose wall is farther away.
void drawSprite(const SpriteFrame& frame, const Fog& fog, const View& view, const std::vector<RayHit>& rayHits,
    Point place, double halfHeight, const MutableImage& target);

}  // namespace zv
