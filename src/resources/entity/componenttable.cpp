#include "resources/entity/componenttable.hpp"

#include <algorithm>

namespace zv {

void ComponentTable::eachRef(RefVisitor& visit) {
    std::vector<Item> cleared;
    if (!visit.visit) cleared.swap(row);
    for (Item& item : row) {
        visit(item.type);
        visit(item.component);
    }
    if (dict) visit(*dict);
}

Ref<Dict> ComponentTable::asDict() {
    if (dict) return *dict;
    Ref<Dict> made = Ref<Dict>::steal(PyDict_New());
    if (dict) return *dict;  // made meanwhile: a new object may be the occasion to collect garbage
    for (const Item& item : row) checked(PyDict_SetItem(made.raw(), item.type.raw(), item.component.raw()));
    *this = made;
    return made;
}

ComponentTable& ComponentTable::operator=(Ref<Dict> newDict) {
    std::vector<Item> replaced;
    replaced.swap(row);
    if (!dict) dict.emplace();
    *dict = std::move(newDict);
    return *this;
}

Ref<>* ComponentTable::find(PyObject* plainType) {
    for (Item& item : row)
        if (item.type.raw() == plainType) return &item.component;
    return nullptr;
}

void ComponentTable::set(PyObject* type, PyObject* component) {
    if (!isPlain(type)) return setItem(asDict().raw(), type, component);
    if (Ref<>* place = find(type)) *place = Ref<>::borrow(component);
    else row.push_back({Ref<>::borrow(type), Ref<>::borrow(component)});
}

bool ComponentTable::add(PyObject* type, PyObject* component) {
    if (isPlain(type)) {
        if (find(type)) return false;
        set(type, component);
        return true;
    }
    // Comparing keys may run a script that replaces the dict, or gives the component another class.
    Ref<> heldType = Ref<>::borrow(type);
    Ref<Dict> held = asDict();
    if (contains(held.raw(), type)) return false;
    setItem(held.raw(), type, component);
    return true;
}

bool ComponentTable::remove(PyObject* type) {
    if (isPlain(type)) {
        auto found = std::find_if(row.begin(), row.end(), [&](const Item& item) { return item.type.raw() == type; });
        if (found == row.end()) return false;
        Item removed = std::move(*found);  // to be released when the row is in order again
        row.erase(found);
        return true;
    }
    Ref<> heldType = Ref<>::borrow(type);
    Ref<Dict> held = asDict();
    if (!contains(held.raw(), type)) return false;
    deleteItem(held.raw(), type);
    return true;
}

Ref<> ComponentTable::get(PyObject* type) {
    if (isPlain(type)) {
        Ref<>* place = find(type);
        return place ? *place : Ref<>();
    }
    Ref<Dict> held = asDict();
    if (!held) return {};
    PyObject* found = PyDict_GetItemWithError(held.raw(), type);
    if (!found && PyErr_Occurred()) throw PythonError{};
    return Ref<>::borrow(found);
}

}  // namespace zv
