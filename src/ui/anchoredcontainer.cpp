#include "ui/anchoredcontainer.hpp"

namespace zv {

void UIAnchorWrapper::init(Ref<UIWidget> newChild, int newX, int newY, int newAnchorTypeX, int newAnchorTypeY) {
    child = std::move(newChild);
    x = newX;
    y = newY;
    anchorTypeX = newAnchorTypeX;
    anchorTypeY = newAnchorTypeY;
}

void UIAnchoredContainer::init() { sizePolicyX = sizePolicyY = SIZE_GROW; }

void UIAnchoredContainer::addChild(Ref<UIWidget> child, int anchorX, int anchorY, int anchorTypeX, int anchorTypeY) {
    if (contains(children.raw(), child.orNone())) return;
    Ref<UIAnchorWrapper> anchor = make<UIAnchorWrapper>();
    anchor->init(child, anchorX, anchorY, anchorTypeX, anchorTypeY);
    anchors.push_back(anchor);
    try {
        appendChild(child);
    } catch (...) {
        std::erase_if(anchors, [&](const auto& other) { return other.raw() == anchor.raw(); });
        throw;
    }
}

void UIAnchoredContainer::removeChild(Ref<UIWidget> child) {
    for (size_t i = 0; i < anchors.size(); i++) {  // comparing may run a script that changes the list
        Ref<UIAnchorWrapper> anchor = anchors[i];
        Ref<UIWidget> anchored = anchor->child;
        if (!checked(PyObject_RichCompareBool(anchored.orNone(), child.orNone(), Py_EQ))) continue;
        std::erase_if(anchors, [&](const auto& other) { return other.raw() == anchor.raw(); });
        break;
    }
    AbstractUIContainer::removeChild(child.orNone());
}

void UIAnchoredContainer::removeAllChildren() {
    std::vector<Ref<UIAnchorWrapper>> released;
    released.swap(anchors);
    AbstractUIContainer::removeAllChildren();
}

// The edge of a child along one axis; `lead` and `trail` are its margins.
static int place(int anchor, int farEdge, int start, int room, int distance, int lead, int trail, int size) {
    if (anchor == farEdge) return saturate(int64_t{start} + room - distance - trail - size);
    if (anchor == ANCHOR_CENTER) return saturate(start + truncated(room * 0.5 + lead + distance - trail - size * 0.5));
    return saturate(int64_t{start} + distance + lead);
}

void UIAnchoredContainer::calculatePos() {
    for (const auto& a : anchors) {
        UIWidget& c = *a->child;
        c.x = place(a->anchorTypeX, ANCHOR_RIGHT, x, width, a->x, c.marginLeft, c.marginRight, c.width);
        c.y = place(a->anchorTypeY, ANCHOR_BOTTOM, y, height, a->y, c.marginTop, c.marginBottom, c.height);
    }
    AbstractUIContainer::calculatePos();
}

void declareUIAnchoredContainer(Module& module) {
    Class<UIAnchorWrapper>("zelvarine._UIAnchorWrapper", "Where a child of a UIAnchoredContainer is anchored.")
        .init<&UIAnchorWrapper::init>({{"child"}, {"x"}, {"y"}, {"anchorTypeX"}, {"anchorTypeY"}})
        .addTo(module.raw());
    Class<UIAnchoredContainer, AbstractUIContainer>("zelvarine.UIAnchoredContainer",
        "A UIAnchoredContainer places each child by its distance from an edge, or from the centre, of the\n"
        "container. It takes all the room that it gets.")
        .init<&UIAnchoredContainer::init>()
        .method<&UIAnchoredContainer::addChild>("addChild",
            {{"child", Required{}, "UIWidget"}, {"x"}, {"y"}, {"anchorTypeX", ANCHOR_LEFT},
                {"anchorTypeY", ANCHOR_TOP}},
            "Adds a child on top of the others, `x` and `y` pixels from where it is anchored: inward from an edge,\n"
            "right and down from the centre (ANCHOR_CENTER). A child that is here already stays as it is.")
        .method<&UIAnchoredContainer::removeChild>("removeChild", {{"child"}},
            "Removes a child; nothing happens if it is not here. It keeps its parent and its renderer.")
        .method<&UIAnchoredContainer::removeAllChildren>("removeAllChildren", {}, "Removes all children.")
        .addTo(module.raw());
}

}  // namespace zv
