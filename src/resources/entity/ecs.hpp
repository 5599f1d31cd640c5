// The registry of entities and systems; keeps the systems' lists of entities in step.
#pragma once
#include "resources/entity/abstractsystem.hpp"

namespace zv {

struct Ecs : Object {
    Ref<List> systems = Ref<List>::steal(PyList_New(0));
    EntityList entities;
    Ref<Engine> engine;

    void eachRef(RefVisitor& visit) override {
        visit(systems);
        entities.eachRef(visit);
        visit(engine);
    }

    void update(double timeStep);
    void addEntity(PyObject* entity);
    void removeEntity(PyObject* entity);
    void removeAllEntities();
    Ref<> getEntities(Args requiredComponentTypes);
    Ref<> getEntityById(PyObject* id);
    Ref<> getSystems() const { return Ref<>::borrow(systems.raw()); }
    void addSystem(PyObject* system);
    void removeSystem(PyObject* system);
    void updateEntityMembership(PyObject* entity);
};

void declareEcs(Module&);

}  // namespace zv
