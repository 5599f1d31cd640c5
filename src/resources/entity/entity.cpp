#include "resources/entity/entity.hpp"

#include "binding/items.hpp"

namespace zv {

static PyObject* typeOfObject(PyObject* o) { return reinterpret_cast<PyObject*>(Py_TYPE(o)); }

void Entity::init(PyObject* newId, Args newComponents) {
    if (newId && Py_TYPE(newId) != &PyLong_Type) raise(PyExc_ValueError, "Entity ID must be int");
    setId(newId ? Convert<int64_t>::from(newId) : noId);
    {
        ComponentTable table;
        for (Py_ssize_t i = 0; i < newComponents.size; i++)
            table.set(typeOfObject(newComponents.items[i]), newComponents.items[i]);
        std::swap(components, table);
    }
    ecs = {};
}

void Entity::setId(int64_t newId) {
    if (id != noId) renamings++;
    id = newId;
}

void Entity::membershipChanged() {
    if (ecs) callByName(ecs.raw(), "_updateEntityMembership"_name, *this);
}

void Entity::addComponent(PyObject* component) {
    if (components.add(typeOfObject(component), component)) membershipChanged();
}

void Entity::removeComponent(PyObject* component) { removeComponentType(typeOfObject(component)); }

void Entity::removeComponentType(PyObject* componentType) {
    if (components.remove(componentType)) membershipChanged();
}

Ref<> Entity::getComponent(PyObject* componentType) { return components.get(componentType); }
Ref<> Entity::getComponents() { return callByName(components.asDict().raw(), "values"_name); }

// The table of an entity whose `_components` no script has overridden.
static ComponentTable* tableOf(PyObject* entity) {
    bool isOwn = inherits(Py_TYPE(entity), &typeOf<Entity>, "_components"_name);
    return isOwn ? &native<Entity>(entity)->components : nullptr;
}

bool hasComponents(PyObject* entity, PyObject* componentTypes) {
    Ref<> types = Ref<>::steal(PySequence_Tuple(componentTypes));
    PyObject **first = &PyTuple_GET_ITEM(types.raw(), 0), **last = first + PyTuple_GET_SIZE(types.raw());
    if (first == last) return true;
    ComponentTable* table = tableOf(entity);
    if (table && std::all_of(first, last, [&](PyObject* type) { return table->isPlain(type); }))
        return std::all_of(first, last, [&](PyObject* type) { return table->find(type); });
    Ref<> components = getAttribute(entity, "_components"_name);
    return std::all_of(first, last, [&](PyObject* type) { return contains(components.raw(), type); });
}

void declareEntity(Module& module) {
    Class<Entity>("zelvarine.Entity",
        "An object of the game world: a bag of components, at most one of each exact type.\n\n"
        "The first argument is the id, all further ones are components. Without an id, the entity gets\n"
        "one when it is first added to an Ecs. Raises ValueError for an id that is not exactly an int.")
        .init<&Entity::init>({{"id", -1}})
        .method<&Entity::addComponent>("addComponent", {{"component"}},
            "Adds a component; if the entity has one of the same exact type already, nothing happens.")
        .method<&Entity::removeComponent>("removeComponent", {{"component"}},
            "Removes the component of the type of `component`, whichever instance that is.")
        .method<&Entity::removeComponentType>("removeComponentType", {{"componentType", Required{}, "type"}},
            "Removes the component of that exact type; nothing happens if there is none.")
        .method<&Entity::getComponent>("getComponent", {{"componentType", Required{}, "type"}},
            "The component of that exact type, or None.\n@return(object or None)")
        .method<&Entity::getComponents>("getComponents", {}, "A live view of all components.\n@return(dict_values)")
        .property<&Entity::components>("_components", "dict from exact type to component")
        .property<&Entity::ecs>("_ecs", "the Ecs that the entity is in, or None")
        .property<&Entity::getId, &Entity::setId>("_id", "the id; -1 means that none has been given yet")
        .readonly<&Entity::id>("id", "the id; -1 means that none has been given yet")
        .addTo(module.raw());
}

}  // namespace zv
