#include "collision/bodycache.hpp"

namespace zv {

static uint64_t keyOf(const Vector2* vector) { return reinterpret_cast<uintptr_t>(vector); }

size_t BodyCache::next(size_t number, const Move& move, const CollisionComponent& mover) {
    if (!isFetched) fetch();
    return isIndexed && !mayAskScripts(mover) ? grid.nextOverlapped(number, move, &mover) : number;
}

void BodyCache::fetch() {
    Ref<List> current = system->entities;
    list = current && PyList_CheckExact(current.raw()) ? Ref<>::borrow(current.raw()) : listCopy(current);
    isIndexed = index();
    isFetched = true;
}

bool BodyCache::index() {
    grid.reset(size());
    positions.clear();
    byPosition.reset(size());
    areFlagsWords = true;
    for (size_t number = 0; number < size(); number++) {
        Ref<> body = entity(number);
        Ref<PositionComponent> position;
        Ref<CollisionComponent> collision;
        if (!readKnown(body.raw(), position, collision)) return false;
        if (!position || !position->pos || !collision) return false;
        const Vector2* pos = position->pos.get();
        grid.add({pos->point(), collision->radius, collision.get()});
        positions.push_back(pos);
        byPosition.insert(keyOf(pos), number);
        areFlagsWords = areFlagsWords && (!collision->hasFlags || areWords(collision->hasFlags));
    }
    return true;
}

void BodyCache::place(const Vector2& vector) {
    byPosition.visit(keyOf(&vector), [&](size_t number) {
        if (positions[number] == &vector) grid.place(number, vector.point());
    });
}

bool BodyCache::mayAskScripts(const CollisionComponent& mover) const {
    if (!mover.ignoreFlags || PyList_GET_SIZE(mover.ignoreFlags.raw()) == 0) return false;
    return !areFlagsWords || !areWords(mover.ignoreFlags);
}

bool areWords(const Ref<List>& flags) {
    if (!PyList_CheckExact(flags.raw())) return false;
    for (Py_ssize_t i = 0; i < PyList_GET_SIZE(flags.raw()); i++)
        if (!PyUnicode_CheckExact(PyList_GET_ITEM(flags.raw(), i))) return false;
    return true;
}

}  // namespace zv
