#include "resources/entity/entityids.hpp"

namespace zv {

void EntityIds::learn(PyObject** entities, size_t count) {
    byId.clear();
    complete = true;
    renamings = Entity::renamings;
    for (size_t i = 0; i < count && complete; i++) add(*native<Entity>(entities[i]));
}

void EntityIds::add(const Entity& entity) {
    if (!isComplete() || entity.id == Entity::noId) return forget();  // it gets its first id unnoticed
    byId.emplace(entity.id, entity.self());
}

void EntityIds::remove(const Entity& entity) {
    if (!isComplete()) return forget();
    auto [first, last] = byId.equal_range(entity.id);
    byId.erase(std::find_if(first, last, [&](const auto& each) { return each.second == entity.self(); }));
}

std::optional<Ref<>> EntityIds::find(int64_t id) const {
    auto [first, last] = byId.equal_range(id);
    if (first == last) return Ref<>();
    if (std::next(first) != last) return {};
    return Ref<>::borrow(first->second);
}

}  // namespace zv
