#include "ui/slider.hpp"

#include "core/numbers.hpp"
#include "gui/uirenderer.hpp"
#include "ui/axis.hpp"
#include "ui/pieces.hpp"
#include "ui/threeslice.hpp"

#include <cmath>

namespace zv {

const Axis& UISlider::axis() const {
    return orientation == SLIDER_ORIENTATION_HORIZONTAL ? Axis::horizontal : Axis::vertical;
}

const UISlider::Names& UISlider::names() const {
    static const Names horizontal{
        "horizontalBackground"_name, "leftButton"_name, "rightButton"_name, "horizontalButton"_name};
    static const Names vertical{
        "verticalBackground"_name, "topButton"_name, "bottomButton"_name, "verticalButton"_name};
    return axis().of<const Names&>(horizontal, vertical);
}

int UISlider::valueByName() const { return Convert<int>::from(getAttribute(self(), "value"_name).raw()); }

void UISlider::setValue(int newValue) {
    int oldValue = valueByName();
    value = newValue > maxValue ? maxValue : std::max(newValue, minValue);
    if (!renderer || !renderer->engine) return;
    int changed = valueByName();
    if (changed == oldValue) return;
    fireEvent(toPython(make<SliderValueChangedEvent>(*this, oldValue, changed)));
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
    setAttribute(self(), "value"_name, toPython(saturate(truncateFar(offset) + minValue)).raw());
}

void UISlider::writePercent(double percent) {
    if (std::isnan(percent)) raise(PyExc_ValueError, "the percent of a slider must not be NaN");
    setPercent(static_cast<float>(percent));
}

UISlider::Track UISlider::track() {
    // Both step buttons count with their width, also in a vertical slider.
    int64_t first = numberIn(normalPiece(names().firstButton), "width"_name);
    int second = numberIn(normalPiece(names().secondButton), "width"_name);
    int knob = numberIn(normalPiece(names().knob), axis().lengthName);
    return {first, this->*axis().size - first - second - knob, knob};
}

void UISlider::calculateMinSize() {
    if (!renderer) return;
    const Axis& along = axis();
    Ref<> background = piece("slider"_name, names().background);
    auto lengthOf = [&](Name& name) { return int64_t{numberIn(normalPiece(name), along.lengthName)}; };
    for (const Axis* each : {&Axis::horizontal, &Axis::vertical}) {
        if (this->*each->sizePolicy == SIZE_FIXED) continue;
        if (each != &along) {
            this->*each->size = numberIn(background, each->lengthName);
            continue;
        }
        int64_t caps = int64_t{numberIn(background, along.firstName)} + numberIn(background, along.lastName);
        this->*each->size = saturate(
            caps + 2 * lengthOf(names().knob) + lengthOf(names().firstButton) + lengthOf(names().secondButton));
    }
}

void UISlider::doUpdate(int mouseX, int mouseY, bool isMouseLeftPressed) {
    UIWidget::doUpdate(mouseX, mouseY, isMouseLeftPressed);
    if (!renderer) {
        firstButtonHovered = secondButtonHovered = false;
        return;
    }
    Ref<> first = normalPiece(names().firstButton), second = normalPiece(names().secondButton);
    auto isOver = [&](const Ref<>& button, bool atEnd) {
        SDL_Rect r{x, y, numberIn(button, "width"_name), numberIn(button, "height"_name)};
        if (atEnd) r.*axis().start = saturate(axis().end(*this) - r.*axis().length);
        return isPointIn(r, mouseX, mouseY);
    };
    firstButtonHovered = isOver(first, false);
    secondButtonHovered = isOver(second, true);
}

bool UISlider::isPointIn(const SDL_Rect& r, int mouseX, int mouseY) {
    if (isNative(*this)) return contains(r, mouseX, mouseY);
    return Convert<bool>::from(callByName(self(), "_pointInRect"_name, mouseX, mouseY, r.x, r.y, r.w, r.h).raw());
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
    SDL_Rect knob = rect();
    int64_t moved = truncateFar(static_cast<double>(getPercent()) * static_cast<double>(t.length));
    knob.*axis().start = saturate(knob.*axis().start + t.first + moved);
    knob.*axis().length = t.knob;
    if (isPointIn(knob, mouseX, mouseY)) isDragged = true;
}

// The knob's centre follows the mouse, wherever it was grabbed.
void UISlider::onDrag(int mouseX, int mouseY, int, int) {
    if (!isDragged) return;
    Track t = track();
    if (t.length == 0) raise(PyExc_ZeroDivisionError, "float division");
    int64_t fromStart = int64_t{axis().of(mouseX, mouseY)} - t.first - this->*axis().position;
    double knobStart = static_cast<double>(fromStart) - t.knob / 2.0;
    setPercent(static_cast<float>(knobStart / static_cast<double>(t.length)));
}

void UISlider::onDragEnd(int, int) { isDragged = false; }

void UISlider::doRender(const Clip& clip) {
    std::optional<Canvas> canvas = beginRender(clip);
    if (!canvas) return;
    canvas->cut();
    const Axis& along = axis();
    Ref<Texture> pictures = tileset();
    auto button = [&](Name& name, bool isOver) {
        return rectIn(piece("slider"_name, name, isOver ? "hover"_name : "normal"_name));
    };
    auto blitAt = [&](int64_t place, const SDL_Rect& part) {
        SDL_Rect target = along.rect(place, this->*along.other().position, 0, 0);
        canvas->blit(pictures, part, target.x, target.y);
    };
    imprint.draw(*canvas, rect(), look(), [&] {
        blitThreeSlice(*canvas, pictures, piece("slider"_name, names().background), along, *this);
        blitAt(this->*along.position, button(names().firstButton, firstButtonHovered));
        SDL_Rect second = button(names().secondButton, secondButtonHovered);
        blitAt(along.end(*this) - second.*along.length, second);
    });
    canvas->uncut();

    SDL_Rect knob = button(names().knob, false);
    Track t = track();
    int64_t moved = truncateFar(getPercent() * static_cast<float>(t.length));
    blitAt(this->*along.position + t.first + moved, knob);
    canvas->uncut();
}

Look UISlider::look() const {
    Look look = tilesetLook();
    auto addButton = [&](Name& name, bool isOver) {
        Ref<> button = plainPiece("slider"_name, name, isOver ? "hover"_name : "normal"_name);
        look.addNumbers(button, "x"_name, "y"_name, "width"_name, "height"_name);
    };
    look.add(orientation);
    addThreeSlice(look, plainPiece("slider"_name, names().background), axis());
    addButton(names().firstButton, firstButtonHovered);
    addButton(names().secondButton, secondButtonHovered);
    return look;
}

void declareUISlider(Module& module) {
    Class<UISlider, UIWidget>("zelvarine.UISlider",
        "A bar with a knob to drag and a button at each end, for an integer from `minValue` to `maxValue`. A\n"
        "click on a button changes it by 10. The engine fires a SliderValueChangedEvent for each change.")
        .init<&UISlider::value, &UISlider::minValue, &UISlider::maxValue, &UISlider::orientation>(
            {{"value"}, {"minValue", 0}, {"maxValue", 100}, {"orientation", SLIDER_ORIENTATION_HORIZONTAL}})
        .property<&UISlider::getValue, &UISlider::setValue>(
            "value", "the value, int; what is written is clamped to the bounds")
        .property<&UISlider::readPercent, &UISlider::writePercent>("percent",
            "the value as a share of the range, 0.0 to 1.0; NaN raises ValueError. With equal bounds it reads as\n"
            "0.0, and each reading reports a ZeroDivisionError to sys.unraisablehook.")
        .method<&UIWidget::updateAs<UISlider>>("update", {{"mouseX"}, {"mouseY"}, {"isMouseLeftPressed"}},
            "Tracks the mouse over the slider and its buttons.")
        .method<&UIWidget::renderAs<UISlider>>("render", clipParams, "Renders the slider")
        .method<&UISlider::handleClick>("_onClick", {{"event"}},
            "A click on a button at the end changes the value by 10.\n@return(bool) whether the slider took the click")
        .method<&UISlider::onDragStart>(
            "onDragStart", {{"mouseX"}, {"mouseY"}}, "Grabs the knob if the mouse is over it.")
        .method<&UISlider::onDrag>(
            "onDrag", {{"mouseX"}, {"mouseY"}, {"diffX"}, {"diffY"}}, "Moves the grabbed knob under the mouse.")
        .method<&UISlider::onDragEnd>("onDragEnd", {{"mouseX"}, {"mouseY"}}, "Lets the knob go.")
        .addTo(module.raw());
    Class<SliderValueChangedEvent, Event>("zelvarine.SliderValueChangedEvent", "The value of a UISlider has changed.")
        .init<&SliderValueChangedEvent::target, &SliderValueChangedEvent::oldValue, &SliderValueChangedEvent::newValue>(
            {{"target"}, {"oldValue"}, {"newValue"}})
        .readonly<&SliderValueChangedEvent::target>("target", "the UISlider")
        .readonly<&SliderValueChangedEvent::oldValue>("oldValue", "value before, int")
        .readonly<&SliderValueChangedEvent::newValue>("newValue", "value now, int")
        .addTo(module.raw());
}

}  // namespace zv
