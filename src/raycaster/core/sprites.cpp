#include "raycaster/core/sprites.hpp"

namespace zv {

Rotation viewRotation(Point dir) {
    double degrees = std::atan2(dir.y, dir.x) * radiansToDegrees;
    return Rotation((360.0 - degrees) * degreesToRadians);
}

namespace {

// Where a sprite covers the screen along one axis, and how its texels step from pixel to pixel.
struct Extent {
    int from, to;
    double texel, step;
};

// All whole numbers are kept as doubles until they are cut to the screen: a sprite may be near enough to
// reach beyond what an int holds.
Extent extentOf(double low, double high, int screen, double texelStep) {
    Extent extent{0, truncate(std::min(std::trunc(high), static_cast<double>(screen))), 0, texelStep};
    double start = std::trunc(low);
    if (start < 0) extent.texel = -start * texelStep;
    else extent.from = truncate(start);
    return extent;
}

uint32_t texelAt(const SpriteFrame& frame, double u, double v) {
    int x = std::clamp(truncate(u) + frame.x, 0, frame.sheet.width - 1);
    int y = std::clamp(truncate(v) + frame.y, 0, frame.sheet.height - 1);
    return frame.sheet.at(x, y);
}

void drawColumn(
    const SpriteFrame& frame, const Fog& fog, int x, double texX, const Extent& rows, const MutableImage& target) {
    double texY = rows.texel;
    for (int y = rows.from; y < rows.to; y++, texY += rows.step) {
        uint32_t texel = texelAt(frame, texX, texY);
        if (!frame.shadeless) {
            int groundFog = groundFogAt(frame.groundFog, y, rows.from, rows.to - rows.from);
            texel = fog.over(fog.groundOver(texel, groundFog), frame.fog);
        }
        int alpha = static_cast<int>(texel >> 24);
        uint32_t& pixel = target.at(x, y);
        pixel = frame.additive ? addLight(pixel, texel, alpha) : mix(pixel, texel, alpha);
    }
}

}  // namespace

void drawSprite(const SpriteFrame& frame, const Fog& fog, const View& view, const std::vector<RayHit>& rayHits,
    Point place, double halfHeight, const MutableImage& target) {
    // The offset from the middle is drawn in by a quarter; the field of view has no part in it.
    int halfWidth = view.width / 2;
    double projected = std::trunc(place.y / place.x * view.width + halfWidth);
    double screenX = std::trunc(projected - (projected - halfWidth) * 0.25);
    if (!(std::fabs(projected) <= static_cast<double>(INT_MAX))) return;

    double size = halfHeight * frame.scale, lift = halfHeight * frame.zOffset;
    if (!(size > 0) || !std::isfinite(lift)) return;
    Extent across = extentOf(screenX - size, screenX + size, view.width, frame.width / (halfHeight * 2) / frame.scale);
    Extent down = extentOf(lift + (view.horizon - size), view.horizon + size + lift, view.height,
        frame.height / (halfHeight * 2) / frame.scale);
    double texX = across.texel;
    for (int x = across.from; x < across.to; x++, texX += across.step) {
        const RayHit& hit = rayHits[static_cast<size_t>(x)];
        if (hit.outOfBounds || hit.dist > place.x) drawColumn(frame, fog, x, texX, down, target);
    }
}

}  // namespace zv
