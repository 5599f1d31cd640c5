// A list of widgets on a background.
#pragma once
#include "ui/listcontainer.hpp"

namespace zv {

struct UIPanel : UIListContainer {
    void init();
    void render(Ref<> clipX, Ref<> clipY, Ref<> clipWidth, Ref<> clipHeight);
    bool handleClick(MouseClickEvent* event);
};

void declareUIPanel(Module&);

}  // namespace zv
