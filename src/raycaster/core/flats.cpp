#include "raycaster/core/flats.hpp"

#include "core/blend.hpp"

namespace zv {

// The point of the level under a pixel: its cell's texture index and its place in the cell.
struct FlatPoint {
    int textureIndex;
    double u, v;
};

// False beyond the grid's edge.
static bool flatPointAt(const Grid& grid, CellByte plane, double x, double y, FlatPoint& point) {
    if (!(x >= 0 && y >= 0 && x < grid.width && y < grid.height)) return false;
    int cellX = static_cast<int>(x), cellY = static_cast<int>(y);
    point = {grid.cell(cellX, cellY)[plane], x - cellX, y - cellY};
    return true;
}

// One row of one plane; `shade` turns a texel into a pixel. `covers` tells which columns show the plane here.
template <class Covers, class Shade> static void drawRow(const Scene& scene, const View& view, const Columns& columns,
    const Image& target, CellByte plane, int y, double rowDist, bool solidFog, Covers&& covers, Shade&& shade) {
    for (int x = 0; x < view.width; x++) {
        if (!covers(columns.slices[static_cast<size_t>(x)])) continue;
        Point ray = columns.hits[static_cast<size_t>(x)].rayDir;
        FlatPoint point;
        if (!flatPointAt(scene.grid, plane, rowDist * ray.x + view.pos.x, rowDist * ray.y + view.pos.y, point))
            continue;
        if (point.textureIndex == noTexture) continue;
        if (solidFog) {
            target.at(x, y) = scene.fog.color;
        } else if (const Image* texture = scene.texture(point.textureIndex)) {
            target.at(x, y) = shade(
                texture->at(static_cast<int>(point.u * texture->width), static_cast<int>(point.v * texture->height)));
        }
    }
}

void drawFloor(const Scene& scene, const View& view, const Columns& columns, const Image& target, int from, int to) {
    const Fog& fog = scene.fog;
    for (int y = std::max(from, view.horizon + 1); y < to; y++) {  // at the horizon itself the floor is infinitely far
        double rowDist = view.scale() / (y - view.horizon);
        int fogAmount = fog.at(rowDist), groundFog = fog.groundAt(rowDist);
        drawRow(
            scene, view, columns, target, cellFloor, y, rowDist, fogAmount >= 255,
            [y](const Slice& slice) { return y >= slice.end; },
            [&](uint32_t texel) { return mix(mix(texel, fog.groundColor, groundFog), fog.color, fogAmount); });
    }
}

void drawCeiling(const Scene& scene, const View& view, const Columns& columns, const Image& target, int from, int to) {
    const Fog& fog = scene.fog;
    for (int y = from; y < std::min(to, view.horizon); y++) {
        double rowDist = view.scale() / (view.horizon - y);
        int fogAmount = fog.at(rowDist);
        drawRow(
            scene, view, columns, target, cellCeiling, y, rowDist, fogAmount >= 255,
            [y](const Slice& slice) { return y < slice.start; },
            [&](uint32_t texel) { return mix(texel, fog.color, fogAmount); });
    }
}

}  // namespace zv
