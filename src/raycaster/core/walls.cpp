#include "raycaster/core/walls.hpp"

namespace zv {

// A wall at distance d has a half-height of height / ratio / d rows: true distance, without a correction
// towards a projection plane, so that walls bow at the edges of a wide view.
static Slice sliceOf(const View& view, const RayHit& hit) {
    if (hit.outOfBounds) return {view.horizon, view.horizon + 1, 0};
    int half = std::min(truncate(view.height / view.ratio / hit.dist + 0.5), 1 << 29);
    half = std::max(half, -(1 << 29));
    return {std::max(view.horizon - half, 0), std::min(view.horizon + half, view.height - 1), half};
}

Columns traceColumns(const Grid& grid, const View& view) {
    Columns columns(view.width);
    constexpr double touching = 1e-8;  // a wall this close counts as none
    Rotation step(static_cast<double>(view.fov) / view.width * degreesToRadians);
    Rotation first(view.fov * -0.5 * degreesToRadians);
    Point ray = first(view.dir);
    RayHit hit;  // one for all columns: what a trace does not write keeps the previous column's value
    for (int x = 0; x < view.width; x++) {
        traceGridRay(grid, view.pos, ray, hit);
        hit.rayDir = ray;
        if (hit.dist < touching) hit.outOfBounds = 1;
        columns.hit(x) = hit;
        columns.slice(x) = sliceOf(view, hit);
        ray = step(ray);
    }
    return columns;
}

// Where the hit lies along its face, from the viewer's left to the viewer's right, 0 to 1.
static double alongWall(const RayHit& hit) {
    double u = hit.side ? hit.pos.x - std::trunc(hit.pos.x) : hit.pos.y - std::trunc(hit.pos.y);
    bool reversed = hit.side ? hit.rayDir.y > 0 : hit.rayDir.x < 0;
    return reversed ? 1 - u : u;
}

// A view without a direction can hit beyond the grid's edge, and so beside the texture.
int wallTexelColumn(const Image& texture, const RayHit& hit) {
    return std::clamp(truncate(alongWall(hit) * texture.width), 0, texture.width - 1);
}

double wallTexelStep(const Image& texture, const Slice& slice) { return texture.height / (2.0 * slice.half + 1); }

double wallTexelStart(const View& view, const Slice& slice, double step) {
    return (slice.start - (view.horizon - slice.half)) * step;
}

int flashlightColumn(const Image& mask, const View& view, int x) {
    return truncate(static_cast<double>(x) / view.width * mask.width);
}

double flashlightStep(const RayHit& hit) { return 3.0 / hit.dist; }

int flashlightStrength(const RayHit& hit) { return std::min(truncate(512.0 / (hit.dist * hit.dist)), 255); }

static void drawTexturedSlice(const Image& texture, const Fog& fog, const View& view, const RayHit& hit,
    const Slice& slice, const MutableImage& target, int x) {
    int fogAmount = fog.at(hit.dist), groundFog = fog.groundAt(hit.dist);
    int texX = wallTexelColumn(texture, hit);
    double texStep = wallTexelStep(texture, slice), texPos = wallTexelStart(view, slice, texStep);
    for (int y = slice.start; y < slice.end; y++) {
        uint32_t texel = texture.at(texX, std::min(static_cast<int>(texPos), texture.height - 1));
        if (fog.groundDensity > 0)
            texel = fog.groundOver(texel, groundFogAt(groundFog, y, slice.start, 2 * slice.half));
        target.at(x, y) = fog.over(texel, fogAmount);
        texPos += texStep;
    }
}

void drawWalls(
    const Scene& scene, const View& view, const Columns& columns, const MutableImage& target, int from, int to) {
    for (int x = from; x < to; x++) {
        const RayHit& hit = columns.hit(x);
        const Slice& slice = columns.slice(x);
        if (hit.outOfBounds) continue;
        if (scene.fog.at(hit.dist) >= 255) {
            for (int y = slice.start; y < slice.end; y++) target.at(x, y) = scene.fog.solid();
        } else if (const Image* texture = scene.texture(hit.textureIndex)) {
            drawTexturedSlice(*texture, scene.fog, view, hit, slice, target, x);
        }
    }
}

void drawFlashlight(
    const Image& mask, const View& view, const Columns& columns, const MutableImage& target, int from, int to) {
    for (int x = from; x < to; x++) {
        const RayHit& hit = columns.hit(x);
        const Slice& slice = columns.slice(x);
        if (hit.outOfBounds) continue;
        double step = flashlightStep(hit), pos = 0;
        int strength = flashlightStrength(hit), maskX = flashlightColumn(mask, view, x);
        for (int y = slice.start; y < slice.end && pos < mask.height; y++) {
            uint32_t& pixel = target.at(x, y);
            pixel = addLight(pixel, mask.at(maskX, static_cast<int>(pos)), strength);
            pos += step;
        }
    }
}

}  // namespace zv
