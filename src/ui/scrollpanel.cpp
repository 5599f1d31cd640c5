#include "ui/scrollpanel.hpp"

#include "gui/uirenderer.hpp"
#include "ui/pieces.hpp"

namespace zv {

void UIScrollPanel::init(Ref<UIWidget> newContent) {
    setContent(std::move(newContent));
    scrollPosX = 0;
    sizePolicyX = sizePolicyY = SIZE_FIXED;
    Ref<UISlider> newSlider = make<UISlider>();
    newSlider->orientation = SLIDER_ORIENTATION_VERTICAL;
    newSlider->setRenderer(renderer);
    slider = std::move(newSlider);
}

Ref<> UIScrollPanel::getContent() const {
    if (childCount() == 0) raise(PyExc_IndexError, "the scroll panel has no content");
    return Ref<>::borrow(PyList_GET_ITEM(children.raw(), 0));
}

Ref<UIWidget> UIScrollPanel::content() const { return Ref<UIWidget>::to(Convert<UIWidget&>::from(getContent().raw())); }

void UIScrollPanel::setContent(Ref<UIWidget> newContent) {
    removeAllChildren();
    appendChild(newContent);
}

void UIScrollPanel::setScrollPosX(int position) { scrollPosX = std::clamp(position, 0, maxScrollX); }

void UIScrollPanel::setScrollPosY(int position) {
    if (Ref<UISlider> bar = slider) bar->setValue(position);
}

void UIScrollPanel::setRenderer(const Ref<UIRenderer>& newRenderer) {
    AbstractUIContainer::setRenderer(newRenderer);
    if (slider) slider->setRenderer(newRenderer);
}

// The size of the content does not enter that of the panel.
void UIScrollPanel::calculateMinSize() {
    AbstractUIContainer::calculateMinSize();
    if (sizePolicyX != SIZE_FIXED) width = 50;
    if (sizePolicyY != SIZE_FIXED) height = 50;
    Ref<UISlider>(slider)->calculateMinSize();
}

void UIScrollPanel::calculateMaxSize() {
    UIWidget::calculateMaxSize();
    innerWidth = saturate(int64_t{width} - paddingLeft - paddingRight - slider->width);
    innerHeight = saturate(int64_t{height} - paddingTop - paddingBottom);
    RecursionGuard guard;
    content()->calculateMaxSize();
}

void UIScrollPanel::calculatePos() {
    Ref<UIWidget> held = content();
    UIWidget& c = *held;
    c.x = saturate(int64_t{x} + c.marginLeft - scrollPosX + paddingLeft);
    c.y = saturate(int64_t{y} + c.marginTop - scrollPosY + paddingTop);
    AbstractUIContainer::calculatePos();
    maxScrollX = std::max(0, saturate(int64_t{c.width} - width + paddingLeft + paddingRight));
    maxScrollY = std::max(0, saturate(int64_t{c.height} - height + paddingTop + paddingBottom));
}

void UIScrollPanel::doUpdate(int mouseX, int mouseY, bool isMouseLeftPressed) {
    AbstractUIContainer::doUpdate(mouseX, mouseY, isMouseLeftPressed);
    Ref<> margin = piece("scrollPanel"_name, "sliderMargin"_name);
    auto at = [&](Name& edge) { return int64_t{numberIn(margin, edge)}; };
    Ref<UISlider> held = slider;
    UISlider& bar = *held;
    int64_t top = at("top"_name), bottom = at("bottom"_name);
    bar.height = saturate(height - top - bottom);
    int64_t right = at("right"_name);
    bar.x = saturate(int64_t{x} + width - bar.width - right);
    bar.y = saturate(y + at("top"_name));
    bar.maxValue = maxScrollY;
    bar.doUpdate(mouseX, mouseY, isMouseLeftPressed);
    scrollPosY = bar.value;
}

void UIScrollPanel::doRender(const Clip& clip) {
    if (!isVisible || !renderer) return;
    SDL_Rect outer = getClippedRect(clip);
    SDL_Rect inner = inset(outer, edgesIn(piece("scrollPanel"_name, "clipPadding"_name)));
    if (isEmpty(inner)) return;
    renderBackground(Canvas(renderer->target));
    renderChildren(Clip::of(inner));
    Ref<UISlider>(slider)->doRender(Clip::of(outer));
}

bool UIScrollPanel::handleClick(MouseClickEvent* event) {
    return Ref<UISlider>(slider)->handleClick(event) || AbstractUIContainer::handleClick(event);
}

bool UIScrollPanel::handleScroll(MouseWheelEvent* event) {
    if (AbstractUIContainer::handleScroll(event)) return true;
    if (!event) raise(PyExc_AttributeError, "scrolling needs a MouseWheelEvent, not None");
    if (!isEnabled || !hovered()) return false;
    Ref<UISlider> held = slider;
    UISlider& bar = *held;
    int before = bar.value;
    bar.setValue(saturate(before - int64_t{event->y} * wheelScrollPixels));
    return bar.value != before;
}

void declareUIScrollPanel(Module& module) {
    Class<UIScrollPanel, AbstractUIContainer> panel("zelvarine.UIScrollPanel",
        "A UIScrollPanel shows one content widget through a viewport of fixed size, `width` by `height`. A\n"
        "scroll bar and the mouse wheel move the content up and down.\n\n"
        "The bar is a UISlider and fires SliderValueChangedEvents like any other: compare the `target` of an event\n"
        "with your own sliders. Where there is nothing to scroll, it reports a ZeroDivisionError in every frame.");
    panel.init<&UIScrollPanel::init>({{"content", Required{}, "UIWidget"}})
        .property<&UIScrollPanel::getContent, &UIScrollPanel::setContent>(
            "content", "the widget that is shown; assigning one replaces it")
        .method<&UIWidget::updateAs<UIScrollPanel>>("update", {{"mouseX"}, {"mouseY"}, {"isMouseLeftPressed"}},
            "Updates the content and the scroll bar, and scrolls to where the bar is.")
        .method<&UIWidget::renderAs<UIScrollPanel>>("render", clipParams, "Renders the content widget.")
        .method<&UIScrollPanel::handleClick>("_onClick", {{"event"}},
            "Offers a click to the scroll bar, then to the content.\n@return(bool) whether one of them took it")
        .method<&UIScrollPanel::handleScroll>("_onScroll", {{"event"}},
            "Offers a step of the mouse wheel to the content; if it does not take it, an enabled panel under the\n"
            "mouse scrolls by `wheelScrollPixels`.\n"
            "@return(bool) whether the content took the step or the panel scrolled")
        .property<&UIScrollPanel::getScrollPosX, &UIScrollPanel::setScrollPosX>("scrollPosX",
            "how far the content is moved to the left, in pixels; clamped to what the content is wider than the panel")
        .property<&UIScrollPanel::getScrollPosY, &UIScrollPanel::setScrollPosY>("scrollPosY",
            "how far the content is moved up, in pixels; what is written moves the scroll bar, and shows after the\n"
            "next update")
        .property<&UIScrollPanel::wheelScrollPixels>(
            "wheelScrollPixels", "pixels that one step of the mouse wheel scrolls");
    declarePadding(panel).addTo(module.raw());
}

}  // namespace zv
