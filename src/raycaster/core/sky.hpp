// The sky: a panorama of 360 degrees that turns with the camera and slides with its pitch.
#pragma once
#include "raycaster/core/scene.hpp"

namespace zv {

// Covers the whole picture. `degrees` is the direction of the view, from -180 to 180.
void drawSky(const Image& sky, const View& view, double degrees, const MutableImage& target);

}  // namespace zv
