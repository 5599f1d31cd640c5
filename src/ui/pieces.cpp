#include "ui/pieces.hpp"

namespace zv {

SDL_Rect rectIn(const Ref<>& table) {
    return {numberIn(table, "x"_name), numberIn(table, "y"_name), numberIn(table, "width"_name),
        numberIn(table, "height"_name)};
}

Edges edgesIn(const Ref<>& table) {
    return {numberIn(table, "top"_name), numberIn(table, "right"_name), numberIn(table, "bottom"_name),
        numberIn(table, "left"_name)};
}

NinePatch ninePatchIn(const Ref<>& table) {
    return {numberIn(table, "x"_name), numberIn(table, "y"_name),
        {numberIn(table, "leftWidth"_name), numberIn(table, "middleWidth"_name), numberIn(table, "rightWidth"_name)},
        {numberIn(table, "topHeight"_name), numberIn(table, "middleHeight"_name),
            numberIn(table, "bottomHeight"_name)}};
}

}  // namespace zv
