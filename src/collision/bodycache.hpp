// The bodies that movers may run into, with their components at hand.
#pragma once
#include "collision/collisionbodysystem.hpp"
#include "resources/entity/basiccomponents.hpp"

namespace zv {

// Every mover looks at every body, and to look up its components takes longer than to tell that it is far away.
// So they are fetched once, and serve all movers of an update. That holds as long as native code runs alone: a
// script may change anything, components, bodies and the list of them. Each update, and each single mover that a
// script moves, has a cache of its own, so that none is used across calls from scripts; and wherever an update
// itself may run a script it says so by `forget`, the one place that makes it invalid.
class BodyCache {
public:
    struct Body {
        Ref<> entity;
        Ref<PositionComponent> position;
        Ref<CollisionComponent> collision;
    };

    // The system is looked at anew each time: scripts can exchange it.
    explicit BodyCache(const Ref<CollisionBodySystem>& bodySystem) : system(bodySystem) {}

    // All bodies, in the order of the system's list. A walk asks anew after everything that may run a script.
    const std::vector<Body>& bodies() {
        if (!isValid) fetch();
        return known;
    }
    void forget() { isValid = false; }
    // Entities of a script's own class answer by code of theirs, perhaps differently to every mover.
    bool areNative() const { return allNative; }

private:
    void fetch();

    const Ref<CollisionBodySystem>& system;
    std::vector<Body> known;
    bool isValid = false, allNative = true;
};

inline bool isNative(PyObject* entity) { return Py_TYPE(entity) == &typeOf<Entity>; }

}  // namespace zv
