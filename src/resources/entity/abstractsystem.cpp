#include "resources/entity/abstractsystem.hpp"

namespace zv {

void AbstractSystem::init(Args componentTypes) {
    interestedComponentTypes = tupleOf(componentTypes);
    entities = Ref<List>::steal(PyList_New(0));
    ecs = {};
    engine = {};
}

void AbstractSystem::initTypes(std::initializer_list<PyTypeObject*> types) {
    std::vector<PyObject*> items;
    for (PyTypeObject* type : types) items.push_back(reinterpret_cast<PyObject*>(type));
    AbstractSystem::init(Args{items.data(), static_cast<Py_ssize_t>(items.size())});
}

void AbstractSystem::update(double timeStep) {
    Ref<> walked = listCopy(entities);
    forEach(walked.raw(), [&](PyObject* entity) { call<&AbstractSystem::updateEntity>(*this, entity, timeStep); });
}

void AbstractSystem::updateEntity(PyObject*, double) {}

bool AbstractSystem::interestedIn(PyObject* entity) {
    return hasComponents(entity, Ref<Tuple>(interestedComponentTypes).orNone());
}

void AbstractSystem::updateEntityMembership(PyObject* entity) {
    entities.setMember(entity, call<&AbstractSystem::interestedIn>(*this, entity));
}

void AbstractSystem::removeEntity(PyObject* entity) { entities.setMember(entity, false); }

void AbstractSystem::setEcs(Ref<Ecs> newEcs) { ecs = std::move(newEcs); }
void AbstractSystem::setEngine(Ref<Engine> newEngine) { engine = std::move(newEngine); }

void declareAbstractSystem(Module& module) {
    Class<AbstractSystem>("zelvarine.AbstractSystem",
        "The base class of all systems.\n\n"
        "A system is interested in entities that have all the component types given here; without any,\n"
        "in every entity. The Ecs keeps its list of entities in step.")
        .init<&AbstractSystem::init>()
        .method<&AbstractSystem::update>("update", {{"timeStep"}},
            "Called once per frame; calls `_updateEntity` for each member. `timeStep` is in seconds.")
        .method<&AbstractSystem::updateEntity>("_updateEntity", {{"entity"}, {"timeStep"}},
            "Processes one entity; override it. Does nothing here. `timeStep` is in seconds.")
        .method<&AbstractSystem::interestedIn>(
            "_interestedIn", {{"entity"}}, "Whether the entity has all the component types of this system.")
        .method<&AbstractSystem::updateEntityMembership>("_updateEntityMembership", {{"entity"}},
            "Lets the entity join or leave this system, according to `_interestedIn`.")
        .method<&AbstractSystem::removeEntity>(
            "_removeEntity", {{"entity"}}, "Drops the entity from this system, if it is a member.")
        .method<&AbstractSystem::setEcs>("_setEcs", {{"ecs", Required{}, "Ecs or None"}},
            "Called when the system joins or, with None, leaves an Ecs.")
        .method<&AbstractSystem::getEcs>("getEcs", {}, "The Ecs that this system is in, or None.\n@return(Ecs or None)")
        .method<&AbstractSystem::setEngine>("_setEngine", {{"engine", Required{}, "Engine or None"}},
            "Called when the system joins or, with None, leaves an engine; override it to do work then.")
        .method<&AbstractSystem::getEngine>(
            "getEngine", {}, "The engine that this system is in, or None.\n@return(Engine or None)")
        .property<&AbstractSystem::interestedComponentTypes>(
            "_interestedComponentTypes", "tuple of the types that a member must all have")
        .property<&AbstractSystem::entities>("_entities", "list of the members, in order of joining")
        .readonly<&AbstractSystem::entities>("entities", "the list of the members itself, in order of joining")
        .property<&AbstractSystem::ecs>("_ecs", "the Ecs that this system is in, or None")
        .property<&AbstractSystem::engine>("_engine", "the engine that this system is in, or None")
        .addTo(module.raw());
}

}  // namespace zv
