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

static ThreeSlice checkedBar(const ThreeSlice& bar) {
    if (bar.middle == 0) raise(PyExc_ZeroDivisionError, "float division");
    return bar;
}

ThreeSlice horizontalSliceIn(const Ref<>& table) {
    return checkedBar({numberIn(table, "x"_name), numberIn(table, "y"_name), numberIn(table, "left"_name),
        numberIn(table, "middle"_name), numberIn(table, "right"_name), numberIn(table, "height"_name), false});
}

ThreeSlice verticalSliceIn(const Ref<>& table) {
    return checkedBar({numberIn(table, "x"_name), numberIn(table, "y"_name), numberIn(table, "top"_name),
        numberIn(table, "middle"_name), numberIn(table, "bottom"_name), numberIn(table, "width"_name), true});
}

}  // namespace zv
