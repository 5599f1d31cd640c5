// Draws a tree of widgets onto its target, and hands it clicks and wheel steps.
#pragma once
#include "gui/uitheme.hpp"
#include "gui/uiwidget.hpp"
#include "renderer.hpp"

namespace zv {

struct UIRenderer : Renderer {
    Ref<UIWidget> widget;  // the root
    Ref<UITheme> theme;
    bool fillBackground = false;

    void eachRef(RefVisitor& visit) override {
        Renderer::eachRef(visit);
        visit(widget);
        visit(theme);
    }

    void init(Ref<Texture> newTarget, int newFillBackground, Ref<UITheme> newTheme);
    Ref<UIWidget> getWidget() const { return widget; }
    void setWidget(PyObject* newWidget);
    Ref<> getSize() const;
    void render();
    void setEngine(Ref<Engine> newEngine);
    void handleClick(MouseClickEvent* event);
    void handleScroll(MouseWheelEvent* event);

    SDL_Point targetSize() const { return {target->getWidth(), target->getHeight()}; }
};

void declareUIRenderer(Module&);

}  // namespace zv
