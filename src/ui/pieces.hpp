// The pieces that widgets cut from the tileset, read from the theme's table.
#pragma once
#include "binding/items.hpp"
#include "gui/imprint.hpp"
#include "ui/ninepatch.hpp"

namespace zv {

inline int numberIn(const Ref<>& table, Name& key) { return Convert<int>::from(item(table.raw(), key).raw()); }

// The numbers of a table, if all of them are plain integers: reading them once more gives the same, and runs no script.
template <class... Keys> bool addNumbers(Look& look, PyObject* table, Keys&... keys) {
    auto addNumber = [&](Name& key) {
        PyObject* number = plainItem(table, key);
        if (!number || !PyLong_CheckExact(number)) return false;
        int overflow;
        long value = PyLong_AsLongAndOverflow(number, &overflow);
        look.add(value);
        return overflow == 0 && value >= INT_MIN && value <= INT_MAX;
    };
    return (addNumber(keys) && ...);
}

SDL_Rect rectIn(const Ref<>& table);
Edges edgesIn(const Ref<>& table);
NinePatch ninePatchIn(const Ref<>& table);
bool addNinePatch(Look& look, PyObject* table);

}  // namespace zv
