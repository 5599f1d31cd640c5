#include "raycaster/core/sprites.hpp"

namespace zv {

Rotation viewRotation(Point dir) {
    double degrees = std::atan2(dir.y, dir.x) * radiansToDegrees;
    return Rotation((360.0 - degrees) * degreesToRadians);
}

// All whole numbers are kept as doubles until they are cut to the screen: a sprite may be near enough to
// reach beyond what an int holds.
static Extent extentOf(double low, double high, int screen, double texelStep) {
    Extent extent{0, truncate(std::min(std::trunc(high), static_cast<double>(screen))), 0, texelStep};
    double start = std::trunc(low);
    if (start < 0) extent.texel = -start * texelStep;
    else extent.from = truncate(start);
    return extent;
}

static void drawColumn(
    const SpriteFrame& frame, const Fog& fog, int x, int sheetX, const Extent& rows, const MutableImage& target) {
    double texY = rows.texel;
    for (int y = rows.from; y < rows.to; y++, texY += rows.step) {
        uint32_t texel = frame.sheet.at(sheetX, sheetRow(frame, texY));
        if (!frame.shadeless) {
            int groundFog = groundFogAt(frame.groundFog, y, rows.from, rows.to - rows.from);
            texel = fog.over(fog.groundOver(texel, groundFog), frame.fog);
        }
        int alpha = static_cast<int>(texel >> 24);
        uint32_t& pixel = target.at(x, y);
        pixel = frame.additive ? addLight(pixel, texel, alpha) : mix(pixel, texel, alpha);
    }
}

SpriteArea spriteArea(const SpriteFrame& frame, const View& view, Point place, double halfHeight) {
    // The offset from the middle is drawn in by a quarter; the field of view has no part in it.
    int halfWidth = view.width / 2;
    double projected = std::trunc(place.y / place.x * view.width + halfWidth);
    double screenX = std::trunc(projected - (projected - halfWidth) * 0.25);
    if (!(std::fabs(projected) <= static_cast<double>(INT_MAX))) return {};

    double size = halfHeight * frame.scale, lift = halfHeight * frame.zOffset;
    if (!(size > 0) || !std::isfinite(lift)) return {};
    return {extentOf(screenX - size, screenX + size, view.width, frame.width / (halfHeight * 2) / frame.scale),
        extentOf(lift + (view.horizon - size), view.horizon + size + lift, view.height,
            frame.height / (halfHeight * 2) / frame.scale)};
}

void drawSprite(const SpriteFrame& frame, const Fog& fog, const SpriteArea& area, const std::vector<RayHit>& rayHits,
    double depth, const MutableImage& target) {
    double texX = area.across.texel;
    for (int x = area.across.from; x < area.across.to; x++, texX += area.across.step)
        if (showsSprite(rayHits[static_cast<size_t>(x)], depth))
            drawColumn(frame, fog, x, sheetColumn(frame, texX), area.down, target);
}

}  // namespace zv
