// Which entities have which id, as far as that is known.
#pragma once
#include "resources/entity/entity.hpp"

#include <unordered_map>

namespace zv {

// Holds each entity of a list by its id, once it is complete. An entity that is given another id does not know who
// holds it by the old one, so that ends the knowledge of all.
class EntityIds {
public:
    bool isComplete() const { return complete && renamings == Entity::renamings; }
    void learn(PyObject** entities, size_t count);
    void forget() { complete = false; }

    void add(const Entity& entity);
    void remove(const Entity& entity);
    // The only entity with that id, or None; nothing if there are several.
    std::optional<Ref<>> find(int64_t id) const;

private:
    bool complete = false;
    uint64_t renamings = 0;  // as of which it is complete
    std::unordered_multimap<int64_t, PyObject*> byId;
};

}  // namespace zv
