// Moves entities, and keeps them out of bodies and walls.
#pragma once
#include "collision/bodycache.hpp"
#include "events.hpp"
#include "resources/level.hpp"

namespace zv {

struct CollisionEvent : Event {
    Ref<Entity> entity1, entity2;

    void eachRef(RefVisitor& visit) override {
        visit(entity1);
        visit(entity2);
    }
};

struct MovementSystem : AbstractSystem {
    Ref<Level> level;
    Ref<CollisionBodySystem> bodies;

    void eachRef(RefVisitor& visit) override;
    void init(Ref<Level> newLevel);
    void update(double timeStep);
    void updateEntity(PyObject* entity, double timeStep);
    void setEcs(Ref<Ecs> newEcs);
    void setEngine(Ref<Engine> newEngine);

protected:
    virtual void moveWithCollisionDetection(
        PyObject* entity, PositionComponent& position, CollisionComponent& collision, Point movement, BodyCache& cache);

private:
    void moveEntity(PyObject* entity, double timeStep, BodyCache& cache);
    void pushOutOfBodies(
        PyObject* entity, Move& move, PositionComponent& position, CollisionComponent& collision, BodyCache& cache);
    void pushOffWalls(
        PyObject* entity, Move& move, PositionComponent& position, CollisionComponent& collision, BodyCache& cache);
    void fireCollision(PyObject* entity, PyObject* other, BodyCache& cache);
};

void declareMovementSystem(Module&);

}  // namespace zv
