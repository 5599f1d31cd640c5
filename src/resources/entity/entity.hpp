// A bag of components, keyed by their exact type.
#pragma once
#include "binding/class.hpp"
#include "resources/entity/componenttable.hpp"

namespace zv {

struct Ecs;

struct Entity : Object {
    static constexpr int64_t noId = -1;
    // How many times an entity has exchanged its id for another one.
    inline static uint64_t renamings = 0;

    ComponentTable components;
    Ref<Ecs> ecs;
    int64_t id = noId;

    void eachRef(RefVisitor& visit) override {
        components.eachRef(visit);
        visit(ecs);
    }

    void init(PyObject* newId, Args newComponents);
    void addComponent(PyObject* component);
    void removeComponent(PyObject* component);
    void removeComponentType(PyObject* componentType);
    Ref<> getComponent(PyObject* componentType);
    Ref<> getComponents();
    int64_t getId() const { return id; }
    void setId(int64_t newId);

private:
    void membershipChanged();
};

// The entity's component of exactly the class T, empty if it has none.
template <class T> Ref<T> componentOf(PyObject* entity) {
    PyObject* type = classOf<T>();
    Ref<> found = Py_TYPE(entity) == &typeOf<Entity> ? native<Entity>(entity)->getComponent(type)
                                                     : callByName(entity, "getComponent"_name, type);
    return found ? Convert<Ref<T>>::from(found.raw()) : Ref<T>();
}

// The same for several classes at once, as far as no script has to be asked; false if one has to be.
template <class... T> bool readKnown(PyObject* entity, Ref<T>&... components) {
    if (isOverridden<&Entity::getComponent>(entity)) return false;
    bool fit = true;
    auto take = [&]<class C>(Ref<C>& place, PyObject* type, PyObject* component) {
        if (type != classOf<C>()) return;
        if (PyObject_TypeCheck(component, &typeOf<C>)) place = Ref<C>::borrow(component);
        else fit = false;  // something else that a script has put under this class
    };
    return native<Entity>(entity)->components.visit(
               [&](PyObject* type, PyObject* component) { (take(components, type, component), ...); }) &&
        fit;
}

// Whether the entity has a component of each of the given types.
bool hasComponents(PyObject* entity, PyObject* componentTypes);

void declareEntity(Module&);

}  // namespace zv
