// The point of view of a renderer.
#pragma once
#include "geometryMath.hpp"

namespace zv {

struct Camera : Object {
    Ref<Vector2> pos, dir;
    int fov = 60;        // degrees
    int pitch = 0;       // rows that the horizon is shifted down
    double ratio = 1.6;  // divides the height of the screen in all scaling

    void eachRef(RefVisitor& visit) override {
        visit(pos);
        visit(dir);
    }
};

void declareCamera(Module&);

}  // namespace zv
