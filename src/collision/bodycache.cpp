#include "collision/bodycache.hpp"

namespace zv {

const std::vector<BodyCache::Body>& BodyCache::bodies() {
    if (isValid) return known;
    std::vector<Body> current;
    allNative = true;
    forEach(Ref<List>(system->entities).raw(), [&](PyObject* entity) {
        allNative = allNative && isNative(entity);
        current.push_back(
            {Ref<>::borrow(entity), componentOf<PositionComponent>(entity), componentOf<CollisionComponent>(entity)});
    });
    known.swap(current);
    isValid = true;
    return known;
}

}  // namespace zv
