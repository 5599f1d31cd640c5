#include "ui/listcontainer.hpp"

namespace zv {

static int64_t outerWidth(const UIWidget& w) { return int64_t{w.width} + w.marginLeft + w.marginRight; }
static int64_t outerHeight(const UIWidget& w) { return int64_t{w.height} + w.marginTop + w.marginBottom; }

void UIListContainer::calculateMinSize() {
    int64_t maxWidth = 0, maxHeight = 0, sumWidth = 0, sumHeight = 0;
    eachChild([&](UIWidget& child) {
        child.calculateMinSize();
        maxWidth = std::max(maxWidth, outerWidth(child));
        maxHeight = std::max(maxHeight, outerHeight(child));
        sumWidth += outerWidth(child);
        sumHeight += outerHeight(child);
    });
    bool horizontal = layout == LIST_LAYOUT_HORIZONTAL;
    if (sizePolicyX != SIZE_FIXED) width = saturate((horizontal ? sumWidth : maxWidth) + paddingLeft + paddingRight);
    if (sizePolicyY != SIZE_FIXED) height = saturate((horizontal ? maxHeight : sumHeight) + paddingTop + paddingBottom);
}

// Across the list, alignment counts with the container's whole size, from behind the leading padding.
void UIListContainer::calculatePos() {
    int64_t left = int64_t{x} + paddingLeft, top = int64_t{y} + paddingTop, offset = 0;
    eachChild([&](UIWidget& child) {
        if (layout == LIST_LAYOUT_HORIZONTAL) {
            child.x = saturate(left + offset + child.marginLeft);
            if (child.verticalAlign == VALIGN_BOTTOM)
                child.y = saturate(top + height - child.height - child.marginBottom);
            else if (child.verticalAlign == VALIGN_MIDDLE)
                child.y = saturate(top + (int64_t{height} - child.height) / 2);
            else child.y = saturate(top + child.marginTop);
            offset += outerWidth(child);
        } else {
            if (child.horizontalAlign == ALIGN_RIGHT)
                child.x = saturate(left + width - child.width - child.marginRight);
            else if (child.horizontalAlign == ALIGN_CENTER)
                child.x = saturate(left + (int64_t{width} - child.width) / 2);
            else child.x = saturate(left + child.marginLeft);
            child.y = saturate(top + offset + child.marginTop);
            offset += outerHeight(child);
        }
    });
    AbstractUIContainer::calculatePos();
}

void declareUIListContainer(Module& module) {
    Class<UIListContainer, AbstractUIContainer>("zelvarine.UIListContainer",
        "A UIListContainer can contain other UIWidget objects next to or above each other.")
        .init<&UIListContainer::init>()
        .method<&UIListContainer::addChild>("addChild", {{"child", Required{}, "UIWidget"}},
            "Appends a child at the end of the list, on top of the others.")
        .method<&UIListContainer::setPadding>("setPadding", {},
            "Sets the padding in the order of the CSS shorthand: all; top and bottom, left and right; top, left\n"
            "and right, bottom; or top, right, bottom, left. Raises ValueError for any other count of values.")
        .property<&UIListContainer::paddingLeft>("paddingLeft", "room between the left edge and the content, in pixels")
        .property<&UIListContainer::paddingTop>("paddingTop", "room between the top edge and the content, in pixels")
        .property<&UIListContainer::paddingRight>(
            "paddingRight", "room between the content and the right edge, in pixels")
        .property<&UIListContainer::paddingBottom>(
            "paddingBottom", "room between the content and the bottom edge, in pixels")
        .property<&UIListContainer::layout>(
            "layout", "direction of the list: LIST_LAYOUT_HORIZONTAL or LIST_LAYOUT_VERTICAL")
        .addTo(module.raw());
}

}  // namespace zv
