// The components of an entity by their exact type.
#pragma once
#include "binding/items.hpp"

namespace zv {

// To scripts this is a dict, which is made when one asks for it and holds the components from then on. Until then they
// stand in a row, where the few that an entity has are found without hashing, and without running a script.
class ComponentTable {
public:
    void eachRef(RefVisitor& visit);

    Ref<Dict> asDict();  // empty if a script has set it to None
    ComponentTable& operator=(Ref<Dict> newDict);

    void set(PyObject* type, PyObject* component);
    bool add(PyObject* type, PyObject* component);  // false if there is one of that type
    bool remove(PyObject* type);                    // false if there is none
    Ref<> get(PyObject* type);                      // empty if there is none

    // Whether a look along the row answers for that type.
    bool isPlain(PyObject* type) const { return !dict && PyType_CheckExact(type); }
    Ref<>* find(PyObject* plainType);

    // Visits types and components, and tells whether these are all: keys of a dict that are no plain types end it.
    template <class F> bool visit(F&& visitor) const {
        if (dict) return !*dict || visitClasses(dict->raw(), visitor);
        for (const Item& item : row) visitor(item.type.raw(), item.component.raw());
        return true;
    }

private:
    struct Item {
        Ref<> type, component;
    };
    std::vector<Item> row;  // in the order of the dict
    std::optional<Ref<Dict>> dict;
};

template <> struct Convert<ComponentTable> : Convert<Ref<Dict>> {
    static PyObject* to(ComponentTable& table) { return Convert<Ref<Dict>>::to(table.asDict()); }
};

}  // namespace zv
