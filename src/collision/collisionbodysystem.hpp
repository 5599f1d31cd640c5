// The entities that can be collided with, as circles.
#pragma once
#include "collision/core/circles.hpp"
#include "geometryMath.hpp"
#include "resources/entity/abstractsystem.hpp"

namespace zv {

struct CollisionBodySystem : AbstractSystem {
    void init();
    void update(double timeStep);
    Ref<> traceEntities(const Vector2& pos, Vector2& dir, double maxDist);

protected:
    virtual std::optional<Point> getClosestLineCircleIntersections(
        Point center, float radius, Point lineStart, Point lineEnd) const;
};

void declareCollisionBodySystem(Module&);

}  // namespace zv
