// A list of widgets on a background.
#pragma once
#include "ui/listcontainer.hpp"

namespace zv {

struct UIPanel : UIListContainer {
    void init();
    void doRender(const Clip& clip) override;
    bool handleClick(MouseClickEvent* event);
};

void declareUIPanel(Module&);

}  // namespace zv
