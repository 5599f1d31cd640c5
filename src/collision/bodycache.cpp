#include "collision/bodycache.hpp"

namespace zv {

void BodyCache::fetch() {
    std::vector<Body> current;
    allNative = true;
    forEach(Ref<List>(system->entities).raw(), [&](PyObject* entity) {
        allNative = allNative && isNative(entity);
        current.push_back(
            {Ref<>::borrow(entity), componentOf<PositionComponent>(entity), componentOf<CollisionComponent>(entity)});
    });
    known.swap(current);
    isValid = true;
}

}  // namespace zv
