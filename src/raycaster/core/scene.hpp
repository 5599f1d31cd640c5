// What the passes of a frame work on: plain numbers and arrays, no Python object.
#pragma once
#include "core/image.hpp"
#include "core/ray.hpp"
#include "raycaster/core/fog.hpp"

#include <vector>

namespace zv {

struct Scene {
    Grid grid;
    std::vector<Image> textures;
    Fog fog;

    // Null for an index that the level does not hold: such a face draws nothing.
    const Image* texture(int index) const {
        if (static_cast<size_t>(index) >= textures.size()) return nullptr;
        const Image& image = textures[static_cast<size_t>(index)];
        return image.empty() ? nullptr : &image;
    }
};

// The camera's numbers for one frame, and the size of the picture.
struct View {
    Point pos, dir;
    int fov = 0;  // degrees
    double ratio = 1;
    int horizon = 0;  // row; beyond the picture if the camera is pitched that far
    int width = 0, height = 0;

    double scale() const { return height / ratio; }
};

// The rows of a column that its wall covers: from `start` to `end` - 1, out of 2 * half.
struct Slice {
    int start, end, half;
};

// One ray per column of the picture, and where its wall stands on the screen.
struct Columns {
    std::vector<RayHit> hits;
    std::vector<Slice> slices;

    explicit Columns(int width) : hits(static_cast<size_t>(width)), slices(hits.size()) {}

    RayHit& hit(int x) { return hits[static_cast<size_t>(x)]; }
    Slice& slice(int x) { return slices[static_cast<size_t>(x)]; }
    const RayHit& hit(int x) const { return hits[static_cast<size_t>(x)]; }
    const Slice& slice(int x) const { return slices[static_cast<size_t>(x)]; }
};

}  // namespace zv
