// What the passes of a frame work on: plain numbers and arrays, no Python object.
#pragma once
#include "core/image.hpp"
#include "core/numbers.hpp"
#include "core/point.hpp"
#include "core/ray.hpp"

#include <algorithm>
#include <vector>

namespace zv {

struct Fog {
    int density = 0, groundDensity = 0;  // amount per cell of distance, out of 255
    uint32_t color = 0, groundColor = 0;

    // The amount from 0 to 255 at a distance; 255 is solid.
    static int amount(int density, double dist) { return std::clamp(truncate(density * dist), 0, 255); }
    int at(double dist) const { return amount(density, dist); }
    int groundAt(double dist) const { return groundDensity > 0 ? amount(groundDensity, dist) : 0; }
};

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

// One ray per column, and where its wall stands on the screen.
struct Columns {
    std::vector<RayHit> hits;
    std::vector<Slice> slices;
};

}  // namespace zv
