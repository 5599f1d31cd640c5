#include "ui/anchoredcontainer.hpp"

#include "core/numbers.hpp"
#include "ui/axis.hpp"

namespace zv {

void UIAnchoredContainer::init() { sizePolicyX = sizePolicyY = SIZE_GROW; }

void UIAnchoredContainer::addChild(Ref<UIWidget> child, int anchorX, int anchorY, int anchorTypeX, int anchorTypeY) {
    if (contains(children.raw(), child.orNone())) return;
    if (child) anchors.push_back(make<UIAnchorWrapper>(child, anchorX, anchorY, anchorTypeX, anchorTypeY));
    appendChild(child);
}

void UIAnchoredContainer::removeChild(Ref<UIWidget> child) {
    for (size_t i = 0; i < anchors.size(); i++) {  // comparing may run a script that changes the list
        Ref<UIAnchorWrapper> anchor = anchors[i];
        Ref<UIWidget> anchored = anchor->child;
        if (!equal(anchored.raw(), child.raw())) continue;
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

// Where a child stands along an axis, from the near edge of the container.
static int64_t place(const Axis& axis, int room, const UIWidget& child, int distance, int anchor, int farEdge) {
    int before = child.*axis.marginBefore, after = child.*axis.marginAfter, size = child.*axis.size;
    if (anchor == farEdge) return int64_t{room} - distance - after - size;
    if (anchor == ANCHOR_CENTER) return truncate(room * 0.5 + before + distance - after - size * 0.5);
    return int64_t{distance} + before;
}

void UIAnchoredContainer::calculatePos() {
    for (const auto& a : anchors) {
        UIWidget& c = *a->child;
        c.x = saturate(x + place(Axis::horizontal, width, c, a->x, a->anchorTypeX, ANCHOR_RIGHT));
        c.y = saturate(y + place(Axis::vertical, height, c, a->y, a->anchorTypeY, ANCHOR_BOTTOM));
    }
    AbstractUIContainer::calculatePos();
}

void declareUIAnchoredContainer(Module& module) {
    Class<UIAnchorWrapper>("zelvarine._UIAnchorWrapper", "Where a child of a UIAnchoredContainer is anchored.")
        .init<&UIAnchorWrapper::child, &UIAnchorWrapper::x, &UIAnchorWrapper::y, &UIAnchorWrapper::anchorTypeX,
            &UIAnchorWrapper::anchorTypeY>({{"child"}, {"x"}, {"y"}, {"anchorTypeX"}, {"anchorTypeY"}})
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
