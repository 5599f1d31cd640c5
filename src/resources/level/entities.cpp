// The entities of a level: from their dicts to objects, and back and forth between level and Ecs.
#include "binding/items.hpp"
#include "resources/level.hpp"

namespace zv {

void Level::loadEntities() {
    unraisable("zelvarine.Level._loadEntities"_name, [&] {
        if (!hasItem(metadata.raw(), "entities")) return;
        forEach(item(metadata.raw(), "entities").raw(), [&](PyObject* entity) { loadEntity(entity); });
    });
}

Ref<Entity> Level::loadEntity(PyObject* entity) {
    Ref<> arguments = Ref<>::steal(PyList_New(0)), id = toPython(-1);
    forEach(entity, [&](PyObject* key) {
        if (PyUnicode_Check(key) && PyUnicode_CompareWithASCIIString(key, "id") == 0) return;
        Ref<> input = item(entity, key);
        Ref<> component = call<&Level::createComponent>(*this, Convert<Ref<Str>>::from(key), input.raw());
        if (component.orNone() != Py_None) append(arguments.raw(), component);
    });
    if (hasItem(entity, "id")) id = Ref<>::steal(PyNumber_Long(item(entity, "id").raw()));
    checked(PyList_Insert(arguments.raw(), 0, id.raw()));
    Ref<Entity> loaded =
        Ref<Entity>::steal(PyObject_CallObject(classOf<Entity>(), Ref<>::steal(PyList_AsTuple(arguments.raw())).raw()));
    callByName(entities.raw(), "append"_name, loaded);
    return loaded;
}

// A class of its own for each unknown name, so that an entity can have several of them.
static void registerUnknown(PyObject* components, const Ref<Str>& name) {
    print(Ref<>::steal(PyUnicode_FromFormat("unknown component type '%U'", name.raw())));
    Ref<> className = Ref<>::steal(PyUnicode_FromFormat("_Component_%U", name.raw()));
    Ref<> cls = Ref<>::steal(PyObject_CallFunction(reinterpret_cast<PyObject*>(&PyType_Type), "O(O){}", className.raw(),
        Module::global("DummyComponent"_name).raw()));
    setItem(components, name.raw(), cls);
    setItem(components, cls.raw(), name);
}

Ref<> Level::createComponent(Ref<Str> componentName, PyObject* component) {
    Ref<> components = Module::global("_COMPONENTS"_name);
    checkType<Str>(componentName.orNone());
    if (!contains(components.raw(), componentName.raw())) registerUnknown(components.raw(), componentName);
    Ref<> cls = item(components.raw(), componentName.raw());
    Ref<> instance = Ref<>::steal(PyObject_CallObject(cls.raw(), nullptr));
    if (hasAttribute(instance.raw(), "loadFromDict"_name))
        callByName(instance.raw(), "loadFromDict"_name, *this, component);
    else call<&Level::loadFromDict>(*this, instance.raw(), component);
    return instance;
}

void Level::loadFromDict(PyObject* component, PyObject* input) {
    forEach(callByName(input, "items"_name).raw(), [&](PyObject* item) {
        std::vector<Ref<>> pair = unpack(item, 2);
        setItem(getAttribute(component, "__dict__"_name).raw(), pair[0].raw(), pair[1]);
    });
}

void Level::addEntity(Ref<Entity> entity) { callByName(entities.raw(), "append"_name, entity); }

void Level::removeEntity(Ref<Entity> entity) { callByName(entities.raw(), "remove"_name, entity); }

void Level::removeAllEntities() { callByName(entities.raw(), "clear"_name); }

Ref<Entity> Level::addEntityFromJson(Ref<Dict> entity) {
    callByName(item(metadata.raw(), "entities").raw(), "append"_name, entity);
    return loadEntity(entity.orNone());
}

void Level::removeEntityFromJson(Ref<Entity> entity) {
    Ref<List> live = entities;
    Ref<> index = callByName(live.raw(), "index"_name, entity);
    deleteItem(live.raw(), index.raw());
    deleteItem(item(metadata.raw(), "entities").raw(), index.raw());
}

void Level::syncEntitiesFromEcs(Ref<Ecs> ecs) {
    Ref<> source = callByName(ecs.raw(), "getEntities"_name);
    call<&Level::removeAllEntities>(*this);
    forEach(
        source.raw(), [&](PyObject* entity) { call<&Level::addEntity>(*this, Convert<Ref<Entity>>::from(entity)); });
}

void Level::syncEntitiesToEcs(Ref<Ecs> ecs) {
    callByName(ecs.raw(), "removeAllEntities"_name);
    forEach(entities.raw(), [&](PyObject* entity) { callByName(ecs.raw(), "addEntity"_name, entity); });
}

Ref<> Level::getEntities(Args requiredComponentTypes) const {
    Ref<List> all = entities;
    if (requiredComponentTypes.size == 0) return Ref<>::borrow(all.raw());
    Ref<Tuple> types = tupleOf(requiredComponentTypes);
    Ref<> found = Ref<>::steal(PyList_New(0));
    forEach(all.raw(), [&](PyObject* entity) {
        if (hasComponents(entity, types.raw())) append(found.raw(), entity);
    });
    return found;
}

}  // namespace zv
