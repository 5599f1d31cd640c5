#include "ui/panel.hpp"

#include "gui/uirenderer.hpp"
#include "ui/pieces.hpp"

namespace zv {

void UIPanel::init() { paddingLeft = paddingTop = paddingRight = paddingBottom = 8; }

void UIPanel::render(Ref<> clipX, Ref<> clipY, Ref<> clipWidth, Ref<> clipHeight) {
    if (!isVisible) return;
    SDL_Rect clip = getClippedRect({clipX, clipY, clipWidth, clipHeight});
    if (clip.w <= 0 || clip.h <= 0) return;
    requireRenderer();
    Ref<UIRenderer> held = renderer;
    NinePatch background = ninePatchIn(item(held->pieces().raw(), "panel"_name));
    blitNinePatch(held->tileset(), background, held->canvas(clip), rect());
    renderChildren({});  // a clip ends at the background
}

bool UIPanel::handleClick(MouseClickEvent* event) {
    return AbstractUIContainer::handleClick(event) || UIWidget::handleClick(event);
}

void declareUIPanel(Module& module) {
    Class<UIPanel, UIListContainer>("zelvarine.UIPanel",
        "A UIListContainer with a background and a padding of 8. An enabled panel takes the clicks on it that no\n"
        "child takes.")
        .init<&UIPanel::init>()
        .method<&UIPanel::render>("render", clipParams, "Renders the panel and its children.")
        .method<&UIPanel::handleClick>("_onClick", {{"event"}},
            "Offers a click to the children, then calls the panel's own `onClick` if the mouse is over it.\n"
            "@return(bool) whether a child or the panel took the click")
        .addTo(module.raw());
}

}  // namespace zv
