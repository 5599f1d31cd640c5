// The base of all systems: keeps the entities that have all of its component types.
#pragma once
#include "resources/entity/entitylist.hpp"

namespace zv {

struct Engine;

struct AbstractSystem : Object {
    Ref<Tuple> interestedComponentTypes = Ref<Tuple>::steal(PyTuple_New(0));
    EntityList entities;
    Ref<Ecs> ecs;
    Ref<Engine> engine;

    void eachRef(RefVisitor& visit) override {
        visit(interestedComponentTypes);
        entities.eachRef(visit);
        visit(ecs);
        visit(engine);
    }

    void init(Args componentTypes);
    void update(double timeStep);
    void updateEntity(PyObject* entity, double timeStep);
    bool interestedIn(PyObject* entity);
    void updateEntityMembership(PyObject* entity);
    void removeEntity(PyObject* entity);
    void setEcs(Ref<Ecs> newEcs);
    Ref<Ecs> getEcs() const { return ecs; }
    void setEngine(Ref<Engine> newEngine);
    Ref<Engine> getEngine() const { return engine; }

protected:
    // For native systems, whose component types are fixed.
    void initTypes(std::initializer_list<PyTypeObject*> types);
};

// A new list of the same items, so that a walk is not disturbed by what it calls.
inline Ref<> listCopy(const Ref<List>& list) { return Ref<>::steal(PySequence_List(list.orNone())); }

void declareAbstractSystem(Module&);

}  // namespace zv
