// The pieces that widgets cut from the tileset, read from the theme's table.
#pragma once
#include "binding/items.hpp"
#include "ui/ninepatch.hpp"

namespace zv {

inline int numberIn(const Ref<>& table, Name& key) { return Convert<int>::from(item(table.raw(), key).raw()); }

SDL_Rect rectIn(const Ref<>& table);
Edges edgesIn(const Ref<>& table);
NinePatch ninePatchIn(const Ref<>& table);

}  // namespace zv
