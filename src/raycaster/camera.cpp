#include "raycaster/camera.hpp"

namespace zv {

void declareCamera(Module& module) {
    Class<Camera>("zelvarine.Camera",
        "The point of view of a RaycastingRenderer: a position in cells, a direction, a horizontal field\n"
        "of view in whole degrees, a pitch in screen rows (positive looks up: the horizon moves down) and a\n"
        "ratio: a wall at distance d is 2 * height / ratio / d rows high. Move the camera by changing the\n"
        "coordinates of `pos` and `dir`; the vectors themselves stay.")
        .init<present(&Camera::pos), present(&Camera::dir), &Camera::fov, &Camera::pitch, &Camera::ratio>(
            {{"pos"}, {"dir"}, {"fov"}, {"pitch"}, {"ratio", 1.6}})
        .readonly<&Camera::pos>("pos", "viewpoint in cells, a Vector2")
        .readonly<&Camera::dir>("dir", "direction of the view, a Vector2; each frame makes it a unit vector")
        .property<&Camera::fov>("fov", "horizontal field of view in degrees, int")
        .property<&Camera::pitch>("pitch", "rows that the horizon is shifted down, int")
        .property<&Camera::ratio>("ratio", "divides the height of the screen in all scaling, float")
        .addTo(module.raw());
}

}  // namespace zv
