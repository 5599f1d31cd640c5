#include "collision/collisionbodysystem.hpp"

#include "binding/items.hpp"
#include "resources/entity/basiccomponents.hpp"

namespace zv {

void CollisionBodySystem::init() { initTypes({&typeOf<PositionComponent>, &typeOf<CollisionComponent>}); }

void CollisionBodySystem::update(double) {}

std::optional<Point> CollisionBodySystem::getClosestLineCircleIntersections(
    Point center, float radius, Point lineStart, Point lineEnd) const {
    return closestLineCircleIntersection(center, radius, lineStart, lineEnd);
}

Ref<> CollisionBodySystem::traceEntities(const Vector2& pos, Vector2& dir, double maxDist) {
    struct Found {
        double dist;
        Ref<> entity;
    };
    std::vector<Found> found;
    call<&Vector2::normalize>(dir);
    double limit = static_cast<double>(static_cast<float>(maxDist));
    Point start = pos.point(), end = start + dir.point() * limit;
    Ref<List> bodies = entities;
    forEach(bodies.raw(), [&](PyObject* entity) {
        Ref<PositionComponent> position = componentOf<PositionComponent>(entity);
        Ref<CollisionComponent> collision = componentOf<CollisionComponent>(entity);
        auto hit = getClosestLineCircleIntersections(
            position->pos->point(), static_cast<float>(collision->radius), start, end);
        if (!hit) return;
        double dist = length(*hit - start);
        if (dist > 0 && dist < limit) found.push_back({dist, Ref<>::borrow(entity)});
    });
    std::stable_sort(found.begin(), found.end(), [](const Found& a, const Found& b) { return a.dist < b.dist; });
    Ref<> result = Ref<>::steal(PyList_New(0));
    for (const Found& f : found) append(result.raw(), std::tuple(f.entity, f.dist));
    return result;
}

void declareCollisionBodySystem(Module& module) {
    Class<CollisionBodySystem, AbstractSystem>("zelvarine.CollisionBodySystem",
        "Holds the bodies: all entities with a PositionComponent and a CollisionComponent.")
        .init<&CollisionBodySystem::init>()
        .method<&CollisionBodySystem::update>("update", {{"timeStep"}}, "Does nothing: bodies need no work per frame.")
        .method<&CollisionBodySystem::traceEntities>("traceEntities", {{"pos"}, {"dir"}, {"maxDist"}},
            "The bodies that a ray meets nearer than `maxDist` cells, as a list of (entity, dist), nearest first.\n"
            "From inside a body the distance is that of the exit. `dir` is made a unit vector, in place.\n\n"
            "Walls are not considered: to be sure that an entity is visible, use RaycastingRenderer.castRay too,\n"
            "or give the distance that it tells as `maxDist`.\n@return([(Entity, float)])")
        .addTo(module.raw());
}

}  // namespace zv
