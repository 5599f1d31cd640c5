// Moves entities, and keeps them out of bodies and walls.
#pragma once
#include "collision/collisionbodysystem.hpp"
#include "events.hpp"
#include "resources/entity/basiccomponents.hpp"
#include "resources/level.hpp"

namespace zv {

struct CollisionEvent : Event {
    Ref<Entity> entity1, entity2;

    void eachRef(RefVisitor& visit) override {
        visit(entity1);
        visit(entity2);
    }
    void init(Ref<Entity> mover, Ref<Entity> other);
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
        PyObject* entity, PositionComponent& position, CollisionComponent& collision, Point movement);

private:
    // A body with its components at hand. Every mover looks at every body, so they are fetched once for all
    // movers, and anew as soon as a script may have changed something. Entities of a script's own class may
    // answer differently to every mover.
    struct Body {
        Ref<> entity;
        Ref<PositionComponent> position;
        Ref<CollisionComponent> collision;
    };
    std::vector<Body> knownBodies;
    bool updating = false, bodiesKnown = false, bodiesArePlain = true;

    const std::vector<Body>& currentBodies();
    void pushOutOfBodies(PyObject* entity, Move& move, PositionComponent& position, CollisionComponent& collision);
    void pushOffWalls(PyObject* entity, Move& move, PositionComponent& position, CollisionComponent& collision);
    void fireCollision(PyObject* entity, PyObject* other);
};

void declareMovementSystem(Module&);

}  // namespace zv
