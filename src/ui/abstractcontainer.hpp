// The base of all widgets that hold others: passes layout, update, drawing and clicks on to them.
#pragma once
#include "gui/uiwidget.hpp"

namespace zv {

struct AbstractUIContainer : UIWidget {
    Ref<List> children = Ref<List>::steal(PyList_New(0));  // in drawing order; the last is on top
    int innerWidth = 0, innerHeight = 0;                   // the room that a child may take
    // Room between the edges and the children. It is 0 but where a class offers it to scripts: see declarePadding().
    int paddingLeft = 0, paddingTop = 0, paddingRight = 0, paddingBottom = 0;

    void eachRef(RefVisitor& visit) override {
        UIWidget::eachRef(visit);
        visit(children);
    }

    void setRenderer(const Ref<UIRenderer>& newRenderer) override;
    void calculateMinSize() override;
    void calculateMaxSize() override;
    void calculatePos() override;
    void doUpdate(int mouseX, int mouseY, bool isMouseLeftPressed) override;
    void doRender(const Clip& clip) override { renderChildren(clip); }
    SDL_Point innerSize() const override { return {innerWidth, innerHeight}; }

    Ref<> getChildren() const { return Ref<>::borrow(children.raw()); }
    void removeChild(PyObject* child);
    void removeAllChildren();
    bool handleClick(MouseClickEvent* event);
    Ref<> handleScroll(MouseWheelEvent* event);
    void setPadding(Args values) {
        assignEdges("setPadding", values, paddingTop, paddingRight, paddingBottom, paddingLeft);
    }

protected:
    // Appends a child, then tells it. One that refuses is in the list by then, and stays.
    void appendChild(const Ref<UIWidget>& child);
    void renderChildren(const Clip& clip);
    // Fills the container with the theme's panel.
    void renderBackground(const Canvas& canvas);

    Py_ssize_t childCount() const { return children ? PyList_GET_SIZE(children.raw()) : 0; }
    // A script has the list itself, so anything may be in there: raises TypeError for what is no widget.
    Ref<UIWidget> childAt(Py_ssize_t i) const;

    // Walks the live list, as a `for` loop would. A tree that contains itself, or is deeper than
    // Python's recursion limit, ends in RecursionError.
    template <class F> void eachChild(F&& body) {
        RecursionGuard guard;
        for (Py_ssize_t i = 0; i < childCount(); i++) body(*childAt(i));
    }

private:
    // Whether a child, the topmost first, takes the event.
    bool offerEvent(Name& method, Event* event);
};

void declareAbstractUIContainer(Module&);

// Adds the padding to the declaration of a class, as attributes and setPadding().
template <class C> C& declarePadding(C& container) {
    using T = AbstractUIContainer;
    return container.template method<&T::setPadding>("setPadding", {}, edgesDoc)
        .template property<&T::paddingLeft>("paddingLeft", "room between the left edge and the content, in pixels")
        .template property<&T::paddingTop>("paddingTop", "room between the top edge and the content, in pixels")
        .template property<&T::paddingRight>("paddingRight", "room between the content and the right edge, in pixels")
        .template property<&T::paddingBottom>(
            "paddingBottom", "room between the content and the bottom edge, in pixels");
}

}  // namespace zv
