// The sky: a panorama of 360 degrees that turns with the camera and slides with its pitch.
#pragma once
#include "raycaster/core/scene.hpp"

namespace zv {

// What the picture shows of a panorama: pixel (x, y) is rows[y][columns[x]].
struct Panorama {
    std::vector<int> columns;
    std::vector<const uint32_t*> rows;

    Panorama() = default;
    // `degrees` is the direction of the view, from -180 to 180.
    Panorama(const Image& sky, const View& view, double degrees);

    // Whether it shows the image of these pixels.
    bool reads(const uint32_t* pixels) const { return image.pixels == pixels; }

private:
    Image image;
};

// What shows where neither walls nor floors nor ceilings are drawn.
struct Backdrop {
    enum Kind { painted, plain, sky } kind = painted;  // painted: what the target holds already
    uint32_t color = 0;
    Panorama panorama;

    // The row of the panorama that a row of the picture shows, if anything.
    const uint32_t* skyRow(int y) const { return kind == sky ? panorama.rows[static_cast<size_t>(y)] : nullptr; }
    // Covers the whole target, unless that has been done.
    void paint(const MutableImage& target);
};

}  // namespace zv
