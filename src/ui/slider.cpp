#include "ui/slider.hpp"

#include "gui/uirenderer.hpp"
#include "ui/pieces.hpp"

namespace zv {

void SliderValueChangedEvent::init(Ref<UISlider> newTarget, int before, int after) {
    Event::init();
    target = std::move(newTarget);
    oldValue = before;
    newValue = after;
}

void UISlider::init(int newValue, int newMinValue, int newMaxValue, int newOrientation) {
    value = newValue;
    minValue = newMinValue;
    maxValue = newMaxValue;
    orientation = newOrientation;
    firstButtonHovered = secondButtonHovered = isDragged = false;
}

int UISlider::valueByName() const { return Convert<int>::from(getAttribute(self(), "value"_name).raw()); }

void UISlider::setValue(int newValue) {
    int oldValue = valueByName();
    value = newValue > maxValue ? maxValue : std::max(newValue, minValue);
    if (!renderer || !renderer->engine) return;
    int changed = valueByName();
    if (changed == oldValue) return;
    Ref<SliderValueChangedEvent> event = make<SliderValueChangedEvent>();
    event->init(Ref<UISlider>::to(*this), oldValue, changed);
    fireEvent(toPython(event));
}

float UISlider::getPercent() {
    float percent = 0;
    unraisable("zelvarine.UISlider._getPercent"_name, [&] {
        if (maxValue == minValue) raise(PyExc_ZeroDivisionError, "float division");
        percent = static_cast<float>(int64_t{value} - minValue) / static_cast<float>(int64_t{maxValue} - minValue);
    });
    return percent;
}

void UISlider::setPercent(float percent) {
    float offset = percent * static_cast<float>(int64_t{maxValue} - minValue);
    setAttribute(self(), "value"_name, toPython(saturate(truncated(static_cast<double>(offset)) + minValue)).raw());
}

void UISlider::writePercent(double percent) {
    if (std::isnan(percent)) raise(PyExc_ValueError, "the percent of a slider must not be NaN");
    setPercent(static_cast<float>(percent));
}

Ref<> UISlider::normalPiece(Name& horizontal, Name& vertical) const {
    return item(renderer->pieces().raw(), "slider"_name, isHorizontal() ? horizontal : vertical, "normal"_name);
}

UISlider::Track UISlider::track() {
    // Both step buttons count with their width, also in a vertical slider.
    int first = numberIn(normalPiece("leftButton"_name, "topButton"_name), "width"_name);
    int second = numberIn(normalPiece("rightButton"_name, "bottomButton"_name), "width"_name);
    int knob = numberIn(
        normalPiece("horizontalButton"_name, "verticalButton"_name), isHorizontal() ? "width"_name : "height"_name);
    return {first, int64_t{isHorizontal() ? width : height} - first - second - knob, knob};
}

void UISlider::calculateMinSize() {
    if (!renderer) return;
    Ref<> bar = item(renderer->pieces().raw(), "slider"_name,
        isHorizontal() ? "horizontalBackground"_name : "verticalBackground"_name);
    Name &along = isHorizontal() ? "width"_name : "height"_name,
         &across = isHorizontal() ? "height"_name : "width"_name;
    int64_t length = 2 * int64_t{numberIn(normalPiece("horizontalButton"_name, "verticalButton"_name), along)} +
        numberIn(bar, isHorizontal() ? "left"_name : "top"_name) +
        numberIn(bar, isHorizontal() ? "right"_name : "bottom"_name) +
        numberIn(normalPiece("leftButton"_name, "topButton"_name), along) +
        numberIn(normalPiece("rightButton"_name, "bottomButton"_name), along);
    int thickness = numberIn(bar, across);
    if (sizePolicyX != SIZE_FIXED) width = isHorizontal() ? saturate(length) : thickness;
    if (sizePolicyY != SIZE_FIXED) height = isHorizontal() ? thickness : saturate(length);
}

void UISlider::update(int mouseX, int mouseY, bool isMouseLeftPressed) {
    UIWidget::update(mouseX, mouseY, isMouseLeftPressed);
    if (!renderer) {
        firstButtonHovered = secondButtonHovered = false;
        return;
    }
    auto inside = [&](const Ref<>& piece, bool atEnd) {
        int w = numberIn(piece, "width"_name), h = numberIn(piece, "height"_name);
        int left = atEnd && isHorizontal() ? saturate(int64_t{x} + width - w) : x;
        int top = atEnd && !isHorizontal() ? saturate(int64_t{y} + height - h) : y;
        return call<&UIWidget::pointInRect>(*this, mouseX, mouseY, left, top, w, h);
    };
    firstButtonHovered = inside(normalPiece("leftButton"_name, "topButton"_name), false);
    secondButtonHovered = inside(normalPiece("rightButton"_name, "bottomButton"_name), true);
}

void UISlider::step(int by) {
    setAttribute(self(), "value"_name, toPython(saturate(int64_t{valueByName()} + by)).raw());
}

bool UISlider::handleClick(MouseClickEvent* event) {
    if (!UIWidget::handleClick(event)) return false;
    if (secondButtonHovered) step(10);
    if (firstButtonHovered) step(-10);
    return true;
}

void UISlider::onDragStart(int mouseX, int mouseY) {
    Track t = track();
    int64_t offset = t.first + truncated(static_cast<double>(getPercent()) * static_cast<double>(t.length));
    bool hit = isHorizontal()
        ? call<&UIWidget::pointInRect>(*this, mouseX, mouseY, saturate(x + offset), y, t.knob, height)
        : call<&UIWidget::pointInRect>(*this, mouseX, mouseY, x, saturate(y + offset), width, t.knob);
    if (hit) isDragged = true;
}

// The knob's centre follows the mouse, wherever it was grabbed.
void UISlider::onDrag(int mouseX, int mouseY, int, int) {
    if (!isDragged) return;
    Track t = track();
    int64_t fromStart = isHorizontal() ? int64_t{mouseX} - t.first - x : int64_t{mouseY} - t.first - y;
    if (t.length == 0) raise(PyExc_ZeroDivisionError, "float division");
    double knobStart = static_cast<double>(fromStart) - static_cast<double>(t.knob) / 2;
    setPercent(static_cast<float>(knobStart / static_cast<double>(t.length)));
}

void UISlider::onDragEnd(int, int) { isDragged = false; }

void UISlider::render(Ref<> clipX, Ref<> clipY, Ref<> clipWidth, Ref<> clipHeight) {
    if (!isVisible) return;
    SDL_Rect clip = getClippedRect({clipX, clipY, clipWidth, clipHeight});
    if (clip.w <= 0 || clip.h <= 0) return;
    requireRenderer();
    Ref<UIRenderer> held = renderer;
    Ref<> pieces = item(held->pieces().raw(), "slider"_name);
    auto button = [&](Name& name, bool isOver) {
        return rectIn(item(pieces.raw(), name, isOver ? "hover"_name : "normal"_name));
    };
    bool across = isHorizontal();
    ThreeSlice bar = across ? horizontalSliceIn(item(pieces.raw(), "horizontalBackground"_name))
                            : verticalSliceIn(item(pieces.raw(), "verticalBackground"_name));
    SDL_Rect first = button(across ? "leftButton"_name : "topButton"_name, firstButtonHovered);
    SDL_Rect second = button(across ? "rightButton"_name : "bottomButton"_name, secondButtonHovered);
    SDL_Rect knob = button(across ? "horizontalButton"_name : "verticalButton"_name, false);
    Track t = track();
    int64_t offset = t.first + truncated(static_cast<double>(getPercent() * static_cast<float>(t.length)));

    SDL_Surface* tileset = held->tileset();
    Canvas canvas = held->canvas(clip);
    blitThreeSlice(tileset, bar, canvas, x, y, across ? width : height);
    blit(tileset, first, canvas, x, y);
    blit(tileset, second, canvas, across ? saturate(int64_t{x} + width - second.w) : x,
        across ? y : saturate(int64_t{y} + height - second.h));
    blit(tileset, knob, held->canvas(), across ? saturate(x + offset) : x, across ? y : saturate(y + offset));
}

void declareUISlider(Module& module) {
    Class<UISlider, UIWidget>("zelvarine.UISlider",
        "A bar with a knob to drag and a button at each end, for an integer from `minValue` to `maxValue`. A\n"
        "click on a button changes it by 10. The engine fires a SliderValueChangedEvent for each change.")
        .init<&UISlider::init>(
            {{"value"}, {"minValue", 0}, {"maxValue", 100}, {"orientation", SLIDER_ORIENTATION_HORIZONTAL}})
        .property<&UISlider::getValue, &UISlider::setValue>(
            "value", "the value, int; what is written is clamped to the bounds")
        .property<&UISlider::readPercent, &UISlider::writePercent>("percent",
            "the value as a share of the range, 0.0 to 1.0; NaN raises ValueError. With equal bounds it reads as 0.0, and\n"
            "each reading reports a ZeroDivisionError to sys.unraisablehook.")
        .method<&UISlider::update>("update", {{"mouseX"}, {"mouseY"}, {"isMouseLeftPressed"}},
            "Tracks the mouse over the slider and its buttons.")
        .method<&UISlider::render>("render", clipParams, "Renders the slider")
        .method<&UISlider::handleClick>("_onClick", {{"event"}},
            "A click on a button at the end changes the value by 10.\n@return(bool) whether the slider took the click")
        .method<&UISlider::onDragStart>(
            "onDragStart", {{"mouseX"}, {"mouseY"}}, "Grabs the knob if the mouse is over it.")
        .method<&UISlider::onDrag>(
            "onDrag", {{"mouseX"}, {"mouseY"}, {"diffX"}, {"diffY"}}, "Moves the grabbed knob under the mouse.")
        .method<&UISlider::onDragEnd>("onDragEnd", {{"mouseX"}, {"mouseY"}}, "Lets the knob go.")
        .addTo(module.raw());
    Class<SliderValueChangedEvent, Event>("zelvarine.SliderValueChangedEvent", "The value of a UISlider has changed.")
        .init<&SliderValueChangedEvent::init>({{"target"}, {"oldValue"}, {"newValue"}})
        .readonly<&SliderValueChangedEvent::target>("target", "the UISlider")
        .readonly<&SliderValueChangedEvent::oldValue>("oldValue", "value before, int")
        .readonly<&SliderValueChangedEvent::newValue>("newValue", "value now, int")
        .addTo(module.raw());
}

}  // namespace zv
