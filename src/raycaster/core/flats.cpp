#include "raycaster/core/flats.hpp"

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

namespace {

// One row of one plane, in the columns that show the plane there.
struct FlatRow {
    const Scene& scene;
    const View& view;
    const Columns& columns;
    uint32_t* pixels;
    CellByte plane;
    double dist;  // of all its points, along the columns' rays

    // `covers` tells whether a column shows the plane here; `shade` turns a texel into a pixel.
    template <class Covers, class Shade> void draw(int from, int to, Covers&& covers, Shade&& shade) const {
        bool isSolid = scene.fog.at(dist) >= 255;
        for (int x = from; x < to; x++) {
            if (!covers(columns.slice(x))) continue;
            Point ray = columns.hit(x).rayDir;
            FlatPoint point;
            if (!flatPointAt(scene.grid, plane, dist * ray.x + view.pos.x, dist * ray.y + view.pos.y, point)) continue;
            if (point.textureIndex == noTexture) continue;
            if (isSolid) {
                pixels[x] = scene.fog.solid();
            } else if (const Image* texture = scene.texture(point.textureIndex)) {
                pixels[x] = shade(texture->at(
                    static_cast<int>(point.u * texture->width), static_cast<int>(point.v * texture->height)));
            }
        }
    }
};

}  // namespace

void drawFloor(
    const Scene& scene, const View& view, const Columns& columns, const MutableImage& target, int from, int to) {
    const Fog& fog = scene.fog;
    // At the horizon itself the floor is infinitely far.
    for (int y = std::max(view.horizon + 1, 0); y < view.height; y++) {
        double dist = view.scale() / (y - view.horizon);
        int amount = fog.at(dist), groundAmount = fog.groundAt(dist);
        FlatRow{scene, view, columns, target.row(y), cellFloor, dist}.draw(
            from, to, [y](const Slice& slice) { return y >= slice.end; },
            [&](uint32_t texel) { return fog.over(fog.groundOver(texel, groundAmount), amount); });
    }
}

void drawCeiling(
    const Scene& scene, const View& view, const Columns& columns, const MutableImage& target, int from, int to) {
    const Fog& fog = scene.fog;
    for (int y = 0; y < std::min(view.height, view.horizon); y++) {
        double dist = view.scale() / (view.horizon - y);
        int amount = fog.at(dist);
        FlatRow{scene, view, columns, target.row(y), cellCeiling, dist}.draw(
            from, to, [y](const Slice& slice) { return y < slice.start; },
            [&](uint32_t texel) { return fog.over(texel, amount); });
    }
}

}  // namespace zv
