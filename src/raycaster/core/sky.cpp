#include "raycaster/core/sky.hpp"

namespace zv {

// The column of the panorama in a direction. A direction beyond the full circle comes round again.
static int skyColumn(const Image& sky, double angle) {
    if (angle < -3600) angle = std::fmod(angle, 360.0);  // a wild field of view must not take for ever
    while (angle < 0) angle += 360.0;
    return std::max(truncate(angle * (sky.width / 360.0)) % sky.width, 0);
}

void drawSky(const Image& sky, const View& view, double degrees, const MutableImage& target) {
    if (sky.empty()) return;
    std::vector<int> skyX(static_cast<size_t>(view.width));
    int leftOfMiddle = view.fov / 2;  // in whole degrees
    for (int x = 0; x < view.width; x++) {
        double angle = static_cast<double>(x) / view.width * view.fov + degrees - leftOfMiddle;
        skyX[static_cast<size_t>(x)] = skyColumn(sky, angle);
    }
    for (int y = 0; y < view.height; y++) {
        double share = (static_cast<double>(view.height) - view.horizon + y) / (2.0 * view.height);
        int skyY = std::clamp(truncate(share * sky.height), 0, sky.height - 1);
        const uint32_t* skyRow = sky.row(skyY);
        uint32_t* row = target.row(y);
        for (int x = 0; x < view.width; x++) row[x] = skyRow[skyX[static_cast<size_t>(x)]];
    }
}

}  // namespace zv
