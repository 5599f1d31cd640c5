// Draws a tree of widgets onto its target, and hands it clicks and wheel steps.
#pragma once
#include "gui/uitheme.hpp"
#include "gui/uiwidget.hpp"
#include "renderer.hpp"
#include "sdl/blit.hpp"

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

    // The theme's table of pieces.
    Ref<> pieces() const { return getAttribute(theme.raw(), "widgets"_name); }
    // What widgets draw with; good until the next Python code runs.
    Canvas canvas() const { return unclipped(target->surface()); }
    Canvas canvas(const SDL_Rect& clip) const { return {target->surface(), clip}; }
    SDL_Surface* tileset() const { return theme->tileset->surface(); }
};

void declareUIRenderer(Module&);

}  // namespace zv
