// A list of entities that scripts may hold and change; while none can, it takes no search to find an entity.
#pragma once
#include "resources/entity/entityids.hpp"

#include <unordered_map>

namespace zv {

// To learn a list takes as long as dozens of searches through it, so it waits for as many.
class Patience {
public:
    bool isOver() { return ++searches % 50 == 0; }

private:
    unsigned searches = 0;
};

// What scripts see is a plain list, and the rule is that of `in` and `remove`: compare with one item after the other.
// Tables give the same answers at once while the list is *known*. This is how it can be:
//  - Nobody but its owner can reach a known list, so it holds what was put into it here. A script gets a list through
//    the conversion below, which makes it unknown; it is learned anew when the owner's reference is the only one left.
//    The cycle collector tells scripts of every object that it tracks: it does not track a known list, and the owner
//    shows it the items instead.
//  - No comparison can run a script. Entities of the class itself are equal to themselves alone, for good. Those of a
//    script's class are looked at each time: scripts may change the class, and exchange it for another one.
// Native code may walk the list as a Ref<List>, but must hand it on to scripts through the conversion.
class EntityList : public Ref<List> {
public:
    EntityList() : Ref<List>(steal(PyList_New(0))) {}
    EntityList(const EntityList&) = delete;
    EntityList& operator=(Ref<List> list) {
        forget();
        Ref<List>::operator=(std::move(list));
        return *this;
    }
    void eachRef(RefVisitor&);

    bool contains(PyObject* entity);
    void append(PyObject* entity);
    void remove(PyObject* entity);
    // Appends or removes the entity, unless that is how it is already.
    void setMember(PyObject* entity, bool isWanted);
    // list.sort(key=key, reverse=True)
    void sortDescending(PyObject* key);
    // The first entity with that id, or None.
    Ref<> find(PyObject* id);

    void forget();

private:
    bool isPlain() const { return raw() && PyList_CheckExact(raw()); }
    size_t size() const { return static_cast<size_t>(PyList_GET_SIZE(raw())); }
    PyObject** items() const { return reinterpret_cast<PyListObject*>(raw())->ob_item; }

    bool isKnown();
    void learn();
    bool note(PyObject* entity);
    std::optional<bool> holds(PyObject* entity);
    Py_ssize_t placeOf(PyObject* entity) const;
    bool knowsIds();

    bool known = false;
    Patience patience;
    uint64_t joinings = 0;
    std::unordered_map<PyObject*, uint64_t> joined;  // by the number of its joining
    std::vector<PyObject*> strangers;                // the entities of other classes
    EntityIds ids;
    Patience idPatience;
};

template <> struct Convert<EntityList> : Convert<Ref<List>> {
    static PyObject* to(EntityList& list) {
        list.forget();
        return Convert<Ref<List>>::to(list);
    }
};

}  // namespace zv
