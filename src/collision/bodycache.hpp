// The bodies that movers may run into, found by where they are.
#pragma once
#include "collision/collisionbodysystem.hpp"
#include "collision/core/circlegrid.hpp"
#include "resources/entity/basiccomponents.hpp"

namespace zv {

// The rule is that every mover looks at every body, in the order of the system's list. As long as native code runs
// alone, that comes to the same as looking at those nearby, which a grid finds. But a script may change anything:
// components, bodies and the list of them. So each update, and each single mover that a script moves, has a cache of
// its own, and wherever an update itself may have run a script it says so by `forget`.
class BodyCache {
public:
    // The system is looked at anew each time: scripts can exchange it.
    explicit BodyCache(const Ref<CollisionBodySystem>& bodySystem) : system(bodySystem) {}

    // The number of the next body that is worth a look, from this one on; `size()` or more if there is none. It is this
    // very one, wherever that is, if a look at some body may run a script or raise.
    size_t next(size_t number, const Move& move, const CollisionComponent& mover);
    size_t size() const { return static_cast<size_t>(PyList_GET_SIZE(list.raw())); }
    Ref<> entity(size_t number) const {
        return Ref<>::borrow(PyList_GET_ITEM(list.raw(), static_cast<Py_ssize_t>(number)));
    }

    void forget() { isFetched = false; }
    // To be told of each vector that native code has changed: it may be the position of some bodies.
    void moved(const Vector2& vector) {
        if (isFetched && isIndexed) place(vector);
    }
    // To be told of each mover: where bodies have to be asked, scripts have run since the last one.
    void beginMover() {
        if (!isIndexed) forget();
    }

private:
    void fetch();
    bool index();
    void place(const Vector2& vector);
    bool mayAskScripts(const CollisionComponent& mover) const;

    const Ref<CollisionBodySystem>& system;
    Ref<> list;
    bool isFetched = false;
    bool isIndexed = false;  // all bodies are in what follows, by their numbers in the list; else each is to be asked
    CircleGrid grid;
    std::vector<const Vector2*> positions;
    HashChains byPosition;
    bool areFlagsWords = true;  // those that the bodies have
};

// Words are compared without running a script.
bool areWords(const Ref<List>& flags);

}  // namespace zv
