#include "ui/panel.hpp"

#include "ui/pieces.hpp"

namespace zv {

void UIPanel::init() { paddingLeft = paddingTop = paddingRight = paddingBottom = 8; }

void UIPanel::doRender(const Clip& clip) {
    std::optional<Canvas> canvas = beginRender(clip);
    if (!canvas) return;
    canvas->cut();
    renderBackground(*canvas);
    renderChildren({});  // they are handed no clip: that of the panel ends here
    canvas->uncut();
}

bool UIPanel::handleClick(MouseClickEvent* event) {
    return AbstractUIContainer::handleClick(event) || UIWidget::handleClick(event);
}

void declareUIPanel(Module& module) {
    Class<UIPanel, UIListContainer>("zelvarine.UIPanel",
        "A UIListContainer with a background and a padding of 8. An enabled panel takes the clicks on it that no\n"
        "child takes.")
        .init<&UIPanel::init>()
        .method<&UIWidget::renderAs<UIPanel>>("render", clipParams, "Renders the panel and its children.")
        .method<&UIPanel::handleClick>("_onClick", {{"event"}},
            "Offers a click to the children, then calls the panel's own `onClick` if the mouse is over it.\n"
            "@return(bool) whether a child or the panel took the click")
        .addTo(module.raw());
}

}  // namespace zv
