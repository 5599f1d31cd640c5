#include "resources/entity/entitylist.hpp"

#include "binding/items.hpp"

namespace zv {

static bool isPlainEntity(PyObject* o) { return Py_TYPE(o) == &typeOf<Entity>; }

// Whether a comparison with the object runs no code.
static bool equalsItselfAlone(PyObject* o) { return Py_TYPE(o)->tp_richcompare == PyBaseObject_Type.tp_richcompare; }

void EntityList::eachRef(RefVisitor& visit) {
    if (!visit.visit) forget();
    if (!known) return visit(static_cast<Ref<List>&>(*this));
    if (Py_REFCNT(raw()) > 1) return;  // native code is at it, which keeps the items alive as well
    for (size_t i = 0; i < size() && !visit.result; i++) visit.result = visit.visit(items()[i], visit.arg);
}

// What is handed out becomes a list like any other.
void EntityList::forget() {
    if (!known) return;
    known = false;
    ids.forget();
    PyObject_GC_Track(raw());
}

void EntityList::learn() {
    if (!isPlain() || Py_REFCNT(raw()) > 1) return;
    if (size() > 0 && !patience.isOver()) return;
    joined.clear();
    strangers.clear();
    for (size_t i = 0; i < size(); i++)
        if (!note(items()[i])) return;
    known = true;
    PyObject_GC_UnTrack(raw());
}

bool EntityList::isKnown() {
    if (known && size() != joined.size()) forget();  // an entity came twice, or Python is sorting the list
    if (!known) learn();
    return known;
}

// Says whether this is the first time: an entity that is there twice cannot be known.
bool EntityList::note(PyObject* entity) {
    if (!joined.emplace(entity, joinings++).second) return false;
    if (!isPlainEntity(entity)) strangers.push_back(entity);
    return true;
}

// Whether the plain rule finds the entity; nothing if that takes code of a script, which may change anything.
std::optional<bool> EntityList::holds(PyObject* entity) {
    if (isPlain() && equalsItselfAlone(entity)) {
        if (isKnown() && std::all_of(strangers.begin(), strangers.end(), equalsItselfAlone))
            return joined.count(entity) > 0;
        PyObject** last = items() + size();
        auto endsSearch = [&](PyObject* item) { return item == entity || !equalsItselfAlone(item); };
        PyObject** found = std::find_if(items(), last, endsSearch);
        if (found == last) return false;
        if (*found == entity) return true;
    }
    forget();
    return {};
}

Py_ssize_t EntityList::placeOf(PyObject* entity) const {
    PyObject **first = items(), **last = first + size();
    if (known && *first != entity) {  // when all go, it is the first each time
        auto joinedBefore = [&](PyObject* item, uint64_t number) { return joined.at(item) < number; };
        PyObject** place = std::lower_bound(first, last, joined.at(entity), joinedBefore);
        if (place != last && *place == entity) return place - first;  // or it has been sorted
    }
    return std::find(first, last, entity) - first;
}

bool EntityList::contains(PyObject* entity) {
    if (std::optional<bool> answer = holds(entity)) return *answer;
    Ref<List> held = *this;
    return zv::contains(held.raw(), entity);
}

void EntityList::append(PyObject* entity) {
    if (known && note(entity) && isPlainEntity(entity)) ids.add(*native<Entity>(entity));
    callByName(raw(), "append"_name, entity);
}

void EntityList::remove(PyObject* entity) {
    if (!holds(entity).value_or(false)) {
        callByName(raw(), "remove"_name, entity);
        return;
    }
    Py_ssize_t place = placeOf(entity);
    if (known) {
        joined.erase(entity);
        if (isPlainEntity(entity)) ids.remove(*native<Entity>(entity));
        else strangers.erase(std::find(strangers.begin(), strangers.end(), entity));
    }
    checked(PyList_SetSlice(raw(), place, place + 1, nullptr));
}

void EntityList::setMember(PyObject* entity, bool isWanted) {
    if (std::optional<bool> isMember = holds(entity)) {
        if (*isMember && !isWanted) remove(entity);
        if (!*isMember && isWanted) append(entity);
        return;
    }
    Ref<List> held = *this;  // a comparison may put another list in its place
    bool isMember = zv::contains(held.raw(), entity);
    if (isMember && !isWanted) callByName(held.raw(), "remove"_name, entity);
    if (!isMember && isWanted) callByName(held.raw(), "append"_name, entity);
}

void EntityList::sortDescending(PyObject* key) {
    // The key function may run a script, which finds the list by the method. Python undoes what it does to the list
    // before the end of the sort; later it can reach the list only by a reference that it has kept.
    struct Ending {
        EntityList& list;
        Py_ssize_t references = list ? Py_REFCNT(list.raw()) : 0;
        ~Ending() {
            if (list && Py_REFCNT(list.raw()) > references) list.forget();
        }
    } ending{*this};
    Ref<> options = Ref<>::steal(Py_BuildValue("{s:O,s:O}", "key", key, "reverse", Py_True));
    Ref<> method = getAttribute(raw(), "sort"_name);
    Ref<>::steal(PyObject_Call(method.raw(), Ref<>::steal(PyTuple_New(0)).raw(), options.raw()));
}

// The id that an entity of the class itself may have; comparing it with another object may run code.
static std::optional<int64_t> plainId(PyObject* id) {
    int isLarge = 0;
    int64_t number = PyLong_CheckExact(id) ? PyLong_AsLongLongAndOverflow(id, &isLarge) : 0;
    if (!PyLong_CheckExact(id) || isLarge) return {};
    return number;
}

Ref<> EntityList::find(PyObject* id) {
    std::optional<int64_t> number = plainId(id);
    if (number && knowsIds())
        if (std::optional<Ref<>> answer = ids.find(*number)) return *answer;
    Ref<> first;
    forEach(raw(), [&](PyObject* entity) {
        bool fits = number && isPlainEntity(entity) ? native<Entity>(entity)->id == *number
                                                    : equal(getAttribute(entity, "id"_name).raw(), id);
        if (fits && !first) first = Ref<>::borrow(entity);  // the others are compared as well
    });
    return first;
}

bool EntityList::knowsIds() {
    if (!isKnown() || !strangers.empty()) return false;
    if (!ids.isComplete() && idPatience.isOver()) ids.learn(items(), size());
    return ids.isComplete();
}

}  // namespace zv
