#include "resources/entity/entity.hpp"

#include "binding/items.hpp"

namespace zv {

static PyObject* typeOfObject(PyObject* o) { return reinterpret_cast<PyObject*>(Py_TYPE(o)); }

void Entity::init(PyObject* newId, Args newComponents) {
    if (newId && Py_TYPE(newId) != &PyLong_Type) raise(PyExc_ValueError, "Entity ID must be int");
    setId(newId ? Convert<int64_t>::from(newId) : noId);
    Ref<Dict> byType = Ref<Dict>::steal(PyDict_New());
    for (Py_ssize_t i = 0; i < newComponents.size; i++)
        checked(PyDict_SetItem(byType.raw(), typeOfObject(newComponents.items[i]), newComponents.items[i]));
    components = std::move(byType);
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
    Ref<Dict> held = components;  // comparing keys may run a script that replaces the field
    if (contains(held.raw(), typeOfObject(component))) return;
    setItem(held.raw(), typeOfObject(component), component);
    membershipChanged();
}

void Entity::removeComponent(PyObject* component) { removeComponentType(typeOfObject(component)); }

void Entity::removeComponentType(PyObject* componentType) {
    Ref<Dict> held = components;
    if (!contains(held.raw(), componentType)) return;
    deleteItem(held.raw(), componentType);
    membershipChanged();
}

Ref<> Entity::getComponent(PyObject* componentType) const {
    Ref<Dict> held = components;
    if (!held) return {};
    PyObject* found = PyDict_GetItemWithError(held.raw(), componentType);
    if (!found && PyErr_Occurred()) throw PythonError{};
    return Ref<>::borrow(found);
}

Ref<> Entity::getComponents() const { return callByName(components.raw(), "values"_name); }

bool hasComponents(PyObject* entity, PyObject* componentTypes) {
    Ref<> types = Ref<>::steal(PySequence_Tuple(componentTypes));
    if (PyTuple_GET_SIZE(types.raw()) == 0) return true;
    Ref<> components = getAttribute(entity, "_components"_name);
    for (Py_ssize_t i = 0; i < PyTuple_GET_SIZE(types.raw()); i++)
        if (!contains(components.raw(), PyTuple_GET_ITEM(types.raw(), i))) return false;
    return true;
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
