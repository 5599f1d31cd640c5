#include "resources/entity/ecs.hpp"

#include "binding/items.hpp"

namespace zv {

void Ecs::update(double timeStep) {
    Ref<> walked = listCopy(systems);
    forEach(walked.raw(), [&](PyObject* system) { callByName(system, "update"_name, timeStep); });
}

void Ecs::addEntity(PyObject* entity) {
    if (entities.contains(entity)) return;
    Ref<> id = getAttribute(entity, "id"_name);
    if (equal(id.raw(), toPython(-1).raw()))
        setAttribute(entity, "_id"_name,
            callFunction(getAttribute(Module::global("__builtins__"_name).raw(), "id"_name).raw(), entity).raw());
    forEach(systems.raw(), [&](PyObject* system) { callByName(system, "_updateEntityMembership"_name, entity); });
    entities.append(entity);
    setAttribute(entity, "_ecs"_name, self());
}

void Ecs::removeEntity(PyObject* entity) {
    if (!entities.contains(entity)) return;
    forEach(systems.raw(), [&](PyObject* system) { callByName(system, "_removeEntity"_name, entity); });
    entities.remove(entity);
    setAttribute(entity, "_ecs"_name, nullptr);
}

void Ecs::removeAllEntities() {
    Ref<> walked = listCopy(entities);
    forEach(walked.raw(), [&](PyObject* entity) { call<&Ecs::removeEntity>(*this, entity); });
}

// The predicate of a filter: bound to the tuple of required types.
static PyObject* hasRequiredComponents(PyObject* types, PyObject* entity) noexcept {
    return guarded<PyObject*>(nullptr, [&] { return toPython(hasComponents(entity, types)).release(); });
}

Ref<> Ecs::getEntities(Args requiredComponentTypes) {
    static PyMethodDef predicate{"predicate", hasRequiredComponents, METH_O, nullptr};
    Ref<> list = Ref<>::steal(Convert<EntityList>::to(entities));
    if (requiredComponentTypes.size == 0) return list;
    Ref<Tuple> types = tupleOf(requiredComponentTypes);
    Ref<> bound = Ref<>::steal(PyCFunction_New(&predicate, types.raw()));
    return callFunction(builtin("filter"_name).raw(), bound, list);
}

Ref<> Ecs::getEntityById(PyObject* id) { return entities.find(id); }

void Ecs::addSystem(PyObject* system) {
    if (!contains(systems.raw(), system)) callByName(systems.raw(), "append"_name, system);
    callByName(system, "_setEcs"_name, *this);
    callByName(system, "_setEngine"_name, engine);
    forEach(entities.raw(), [&](PyObject* entity) { callByName(system, "_updateEntityMembership"_name, entity); });
}

void Ecs::removeSystem(PyObject* system) {
    if (!contains(systems.raw(), system)) return;
    callByName(systems.raw(), "remove"_name, system);
    callByName(getAttribute(system, "_entities"_name).raw(), "clear"_name);
    callByName(system, "_setEcs"_name, Ref<>());
    callByName(system, "_setEngine"_name, Ref<>());
}

void Ecs::updateEntityMembership(PyObject* entity) {
    forEach(systems.raw(), [&](PyObject* system) { callByName(system, "_updateEntityMembership"_name, entity); });
}

void declareEcs(Module& module) {
    Class<Ecs>("zelvarine.Ecs", "The registry of all entities and systems of an engine. `engine` is an Engine or None.")
        .init<&Ecs::engine>({{"engine", Required{}, "Engine or None"}})
        .method<&Ecs::update>("update", {{"timeStep"}},
            "Updates every system, in the order in which they were added. `timeStep` is in seconds. An\n"
            "exception from a system leaves at once; the systems after it are skipped.")
        .method<&Ecs::addEntity>("addEntity", {{"entity"}},
            "Adds an entity and lets it join the systems that are interested in it. An entity with the id -1\n"
            "gets the identity number of the object as its id.")
        .method<&Ecs::removeEntity>(
            "removeEntity", {{"entity"}}, "Removes an entity; nothing happens if it is not here.")
        .method<&Ecs::removeAllEntities>("removeAllEntities", {}, "Removes all entities.")
        .method<&Ecs::getEntities>("getEntities", {},
            "Without arguments the live list of all entities. With component types, an iterator over the\n"
            "entities that have all of them; it can be walked once.")
        .method<&Ecs::getEntityById>("getEntityById", {{"id"}},
            "The first entity whose id equals `id`, which may be any object, or None.\n@return(object or None)")
        .method<&Ecs::getSystems>("getSystems", {}, "The live list of all systems.\n@return(list)")
        .method<&Ecs::addSystem>("addSystem", {{"system"}},
            "Adds a system, unless it is here already, tells it its Ecs and Engine, and lets the entities join it.")
        .method<&Ecs::removeSystem>("removeSystem", {{"system"}}, "Removes a system and empties its list of entities.")
        .method<&Ecs::updateEntityMembership>(
            "_updateEntityMembership", {{"entity"}}, "Lets every system look at the entity's components anew.")
        .addTo(module.raw());
}

}  // namespace zv
