#include "raycaster/core/sky.hpp"

namespace zv {

// The column of the panorama in a direction. A direction beyond the full circle comes round again.
static int skyColumn(const Image& sky, double angle) {
    if (angle < -3600) angle = std::fmod(angle, 360.0);  // a wild field of view must not take for ever
    while (angle < 0) angle += 360.0;
    return std::max(truncate(angle * (sky.width / 360.0)) % sky.width, 0);
}

Panorama::Panorama(const Image& sky, const View& view, double degrees)
    : columns(static_cast<size_t>(view.width)), rows(static_cast<size_t>(view.height)), image(sky) {
    int leftOfMiddle = view.fov / 2;  // in whole degrees
    for (int x = 0; x < view.width; x++) {
        double angle = static_cast<double>(x) / view.width * view.fov + degrees - leftOfMiddle;
        columns[static_cast<size_t>(x)] = skyColumn(sky, angle);
    }
    for (int y = 0; y < view.height; y++) {
        double share = (static_cast<double>(view.height) - view.horizon + y) / (2.0 * view.height);
        rows[static_cast<size_t>(y)] = sky.row(std::clamp(truncate(share * sky.height), 0, sky.height - 1));
    }
}

void Backdrop::paint(const MutableImage& target) {
    if (kind == plain) std::fill_n(target.pixels, static_cast<ptrdiff_t>(target.width) * target.height, color);
    if (kind == sky) {
        uint32_t* pixel = target.pixels;
        for (const uint32_t* row : panorama.rows)
            for (int column : panorama.columns) *pixel++ = row[column];
    }
    kind = painted;
}

}  // namespace zv
