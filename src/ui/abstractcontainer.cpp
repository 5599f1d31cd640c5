#include "ui/abstractcontainer.hpp"

#include "ui/pieces.hpp"

namespace zv {

Ref<UIWidget> AbstractUIContainer::childAt(Py_ssize_t i) const {
    return Ref<UIWidget>::to(Convert<UIWidget&>::from(PyList_GET_ITEM(children.raw(), i)));
}

void AbstractUIContainer::setRenderer(const Ref<UIRenderer>& newRenderer) {
    UIWidget::setRenderer(newRenderer);
    eachChild([&](UIWidget& child) { child.setRenderer(newRenderer); });
}

void AbstractUIContainer::calculateMinSize() {
    eachChild([](UIWidget& child) { child.calculateMinSize(); });
    UIWidget::calculateMinSize();
}

void AbstractUIContainer::calculateMaxSize() {
    UIWidget::calculateMaxSize();
    SDL_Rect inner = inset(rect(), {paddingTop, paddingRight, paddingBottom, paddingLeft});
    innerWidth = inner.w;
    innerHeight = inner.h;
    eachChild([](UIWidget& child) { child.calculateMaxSize(); });
}

void AbstractUIContainer::calculatePos() {
    eachChild([](UIWidget& child) { child.calculatePos(); });
}

void AbstractUIContainer::doUpdate(int mouseX, int mouseY, bool isMouseLeftPressed) {
    UIWidget::doUpdate(mouseX, mouseY, isMouseLeftPressed);
    eachChild([&](UIWidget& child) { child.update(mouseX, mouseY, isMouseLeftPressed); });
}

void AbstractUIContainer::renderChildren(const Clip& clip) {
    if (!isVisible) return;
    requireRenderer();
    eachChild([&](UIWidget& child) { child.render(clip); });
}

void AbstractUIContainer::renderBackground(const Canvas& canvas) {
    Look look = tilesetLook();
    Ref<> table = plainPiece("panel"_name);
    look.addNumbers(table, "x"_name, "y"_name, "middleWidth"_name, "middleHeight"_name);
    auto addEdge = [&](Name& name, int room) {
        int64_t length = look.addNumber(table, name);
        look.isPlain = look.isPlain && length >= 0 && length <= room;  // else it reaches out where nothing cuts it
    };
    addEdge("leftWidth"_name, width);
    addEdge("rightWidth"_name, width);
    addEdge("topHeight"_name, height);
    addEdge("bottomHeight"_name, height);
    imprint.draw(canvas, rect(), look, [&] {
        NinePatch background = ninePatchIn(piece("panel"_name));
        blitNinePatch(canvas, tileset(), background, rect());
    });
}

bool AbstractUIContainer::offerEvent(Name& method, Event* event) {
    for (Py_ssize_t i = childCount(); i-- > 0;) {
        if (i >= childCount()) continue;  // a handler has emptied the list
        if (Convert<bool>::from(callByName(childAt(i).raw(), method, event).raw())) return true;
    }
    return false;
}

bool AbstractUIContainer::handleClick(MouseClickEvent* event) { return offerEvent("_onClick"_name, event); }

Ref<> AbstractUIContainer::handleScroll(MouseWheelEvent* event) {
    return offerEvent("_onScroll"_name, event) ? toPython(true) : Ref<>();
}

void AbstractUIContainer::appendChild(const Ref<UIWidget>& child) {
    if (!child) raise(PyExc_AttributeError, "a child must be a UIWidget, not None");
    append(children.orNone(), child);
    callByName(child.raw(), "_setParent"_name, *this);
}

void AbstractUIContainer::removeChild(PyObject* child) {
    Ref<List> list = children;
    if (contains(list.raw(), child)) callByName(list.raw(), "remove"_name, child);
}

void AbstractUIContainer::removeAllChildren() {
    Ref<List> list = children;
    checked(PyList_SetSlice(list.raw(), 0, PY_SSIZE_T_MAX, nullptr));
}

void declareAbstractUIContainer(Module& module) {
    Class<AbstractUIContainer, UIWidget>("zelvarine.AbstractUIContainer",
        "The abstract base class of all widgets that contain others.\n\n"
        "It keeps the children and passes layout, update, drawing, clicks and scrolling on to them. Classes\n"
        "that derive from it say how children are added and placed. An invisible container hides its children.")
        .init<&AbstractUIContainer::init>()
        .method<&AbstractUIContainer::getChildren>("getChildren", {},
            "The list of the children itself, in drawing order: the last one is on top.\n@return(list)")
        .method<&AbstractUIContainer::removeChild>("removeChild", {{"child"}},
            "Removes a child; nothing happens if it is not here. It keeps its parent and its renderer.")
        .method<&AbstractUIContainer::removeAllChildren>("removeAllChildren", {}, "Removes all children.")
        .method<&UIWidget::renderAs<AbstractUIContainer>>("render", clipParams, "Renders the child widgets.")
        .method<&UIWidget::updateAs<AbstractUIContainer>>(
            "update", {{"mouseX"}, {"mouseY"}, {"isMouseLeftPressed"}}, "Updates the child widgets.")
        .method<&AbstractUIContainer::handleClick>("_onClick", {{"event"}},
            "Offers a click to the children, the topmost first, until one takes it.\n"
            "@return(bool) whether a child took it")
        .method<&AbstractUIContainer::handleScroll>("_onScroll", {{"event"}},
            "Offers a step of the mouse wheel to the children, the topmost first, until one takes it.\n"
            "@return(bool) True if a child took it, else None")
        .addTo(module.raw());
}

}  // namespace zv
