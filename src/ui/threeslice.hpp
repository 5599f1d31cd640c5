// A picture of three pieces in a row that fills a bar of any length.
#pragma once
#include "gui/imprint.hpp"
#include "ui/axis.hpp"

namespace zv {

// Draws a cap at both ends of the widget, the middle piece tiled between them and squeezed into what is left. The
// pieces are read from the table as they are needed. A middle piece of length 0 raises ZeroDivisionError behind the
// first cap.
void blitThreeSlice(
    const Canvas&, const Ref<Texture>& tileset, const Ref<>& table, const Axis& along, const UIWidget& bar);

// Adds to a look what that depends on.
void addThreeSlice(Look& look, const Ref<>& table, const Axis& along);

}  // namespace zv
