// A container that puts its children next to or above each other.
#pragma once
#include "ui/abstractcontainer.hpp"

namespace zv {

enum ListLayout : int { LIST_LAYOUT_HORIZONTAL, LIST_LAYOUT_VERTICAL };

struct UIListContainer : AbstractUIContainer {
    int layout = LIST_LAYOUT_VERTICAL;

    void calculateMinSize() override;
    void calculatePos() override;

    void addChild(Ref<UIWidget> child) { appendChild(child); }
};

void declareUIListContainer(Module&);

}  // namespace zv
