// A container that puts its children next to or above each other.
#pragma once
#include "ui/abstractcontainer.hpp"

namespace zv {

enum ListLayout : int { LIST_LAYOUT_HORIZONTAL, LIST_LAYOUT_VERTICAL };

struct UIListContainer : AbstractUIContainer {
    int paddingLeft = 0, paddingTop = 0, paddingRight = 0, paddingBottom = 0;
    int layout = LIST_LAYOUT_VERTICAL;

    void calculateMinSize() override;
    void calculateMaxSize() override { offerRoom({paddingTop, paddingRight, paddingBottom, paddingLeft}); }
    void calculatePos() override;

    void addChild(Ref<UIWidget> child) { appendChild(child); }
    void setPadding(Args values) {
        assignEdges("setPadding", values, paddingTop, paddingRight, paddingBottom, paddingLeft);
    }
};

void declareUIListContainer(Module&);

}  // namespace zv
