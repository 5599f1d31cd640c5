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

// Where a sprite covers the screen along one axis, and how its texels step from pixel to pixel, by addition.
struct Extent {
    int from = 0, to = 0;
    double texel = 0, step = 0;
};
struct SpriteArea {
    Extent across, down;
};

// `place` is the sprite's position from the camera, turned by viewRotation: x is the depth, y the offset to
// the right. `halfHeight` is that of the unscaled sprite on the screen, in whole rows.
SpriteArea spriteArea(const SpriteFrame& frame, const View& view, Point place, double halfHeight);

// The column and the row of the sheet at a place in a frame, which rounding may have led beyond its end.
inline int sheetColumn(const SpriteFrame& frame, double u) {
    return std::clamp(truncate(u) + frame.x, 0, frame.sheet.width - 1);
}
inline int sheetRow(const SpriteFrame& frame, double v) {
    return std::clamp(truncate(v) + frame.y, 0, frame.sheet.height - 1);
}

// A sprite shows in the columns whose wall is farther away.
inline bool showsSprite(const RayHit& hit, double depth) { return hit.outOfBounds || hit.dist > depth; }

void drawSprite(const SpriteFrame& frame, const Fog& fog, const SpriteArea& area, const std::vector<RayHit>& rayHits,
    double depth, const MutableImage& target);

}  // namespace zv
