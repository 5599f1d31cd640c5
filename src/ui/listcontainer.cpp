#include "ui/listcontainer.hpp"

#include "ui/axis.hpp"

namespace zv {

static const Axis& axisOf(int layout) { return layout == LIST_LAYOUT_HORIZONTAL ? Axis::horizontal : Axis::vertical; }

// Along the list its children add up, across it the largest one counts.
void UIListContainer::calculateMinSize() {
    const Axis &along = axisOf(layout), &across = along.other();
    int64_t sum = 0, largest = 0;
    eachChild([&](UIWidget& child) {
        child.calculateMinSize();
        sum += along.outerSize(child);
        largest = std::max(largest, across.outerSize(child));
    });
    auto fit = [this](const Axis& axis, int64_t content) {
        if (this->*axis.sizePolicy == SIZE_FIXED) return;
        this->*axis.size = saturate(content + this->*axis.paddingBefore + this->*axis.paddingAfter);
    };
    fit(along, sum);
    fit(across, largest);
}

// Where a child stands across the list: it counts with the container's whole size, from behind the leading padding.
static int64_t aligned(const UIWidget& child, const Axis& axis, int64_t room) {
    int64_t left = room - child.*axis.size;
    if (child.*axis.align == axis.alignFar) return left - child.*axis.marginAfter;
    if (child.*axis.align == axis.alignMiddle) return left / 2;
    return child.*axis.marginBefore;
}

void UIListContainer::calculatePos() {
    const Axis &along = axisOf(layout), &across = along.other();
    auto begin = [this](const Axis& axis) { return int64_t{this->*axis.position} + this->*axis.paddingBefore; };
    int64_t offset = 0;
    eachChild([&](UIWidget& child) {
        child.*along.position = saturate(begin(along) + offset + child.*along.marginBefore);
        child.*across.position = saturate(begin(across) + aligned(child, across, this->*across.size));
        offset += along.outerSize(child);
    });
    AbstractUIContainer::calculatePos();
}

void declareUIListContainer(Module& module) {
    Class<UIListContainer, AbstractUIContainer> list("zelvarine.UIListContainer",
        "A UIListContainer can contain other UIWidget objects next to or above each other.");
    list.init<&UIListContainer::init>()
        .method<&UIListContainer::addChild>("addChild", {{"child", Required{}, "UIWidget"}},
            "Appends a child at the end of the list, on top of the others.")
        .property<&UIListContainer::layout>(
            "layout", "direction of the list: LIST_LAYOUT_HORIZONTAL or LIST_LAYOUT_VERTICAL");
    declarePadding(list).addTo(module.raw());
}

}  // namespace zv
