#include "raycaster/core/vector/kernels.hpp"

#include "raycaster/core/sky.hpp"

namespace zv {

Strips::Strips(const View& view, const Columns& columns) {
    size_t width = static_cast<size_t>(view.width), length = width + padding;
    rayX.resize(length);
    rayY.resize(length);
    top.assign(length, 0);
    bottom.assign(length, view.height);
    for (size_t x = 0; x < width; x++) {
        Point ray = columns.hits[x].rayDir;
        rayX[x] = ray.x;
        rayY[x] = ray.y;
        const Slice& slice = columns.slices[x];
        top[x] = std::clamp(std::min(slice.start, view.horizon), 0, view.height);
        bottom[x] = std::clamp(std::max(slice.end, view.horizon + 1), top[x], view.height);
    }
}

}  // namespace zv
