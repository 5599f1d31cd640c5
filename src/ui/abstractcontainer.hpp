// The base of all widgets that hold others: passes layout, update, drawing and clicks on to them.
#pragma once
#include "gui/geometry.hpp"
#include "gui/uiwidget.hpp"

namespace zv {

struct AbstractUIContainer : UIWidget {
    Ref<List> children = Ref<List>::steal(PyList_New(0));  // in drawing order; the last is on top
    int innerWidth = 0, innerHeight = 0;                   // the room that a child may take

    void eachRef(RefVisitor& visit) override {
        UIWidget::eachRef(visit);
        visit(children);
    }

    void setRenderer(const Ref<UIRenderer>& newRenderer) override;
    void calculateMinSize() override;
    void calculateMaxSize() override;
    void calculatePos() override;

    Ref<> getChildren() const { return Ref<>::borrow(children.raw()); }
    void removeChild(PyObject* child);
    void removeAllChildren();
    void render(Ref<> clipX, Ref<> clipY, Ref<> clipWidth, Ref<> clipHeight) {
        renderChildren({clipX, clipY, clipWidth, clipHeight});
    }
    void update(int mouseX, int mouseY, bool isMouseLeftPressed);
    bool handleClick(MouseClickEvent* event);
    Ref<> handleScroll(MouseWheelEvent* event);

protected:
    // Appends a child and tells it; one that refuses does not stay in the list.
    void appendChild(const Ref<UIWidget>& child);
    // Sets the room for the children from the container's own size, and lets them fill it.
    void offerRoom(const Edges& padding);
    void renderChildren(const Clip& clip);

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

}  // namespace zv
