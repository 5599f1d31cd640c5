#include "ui/button.hpp"

#include "gui/uirenderer.hpp"
#include "ui/pieces.hpp"

namespace zv {

void ButtonClickEvent::init(Ref<UIButton> newTarget, int newX, int newY, int newButton) {
    MouseClickEvent::init(newX, newY, newButton);
    target = std::move(newTarget);
}

void UIButton::init(PyObject* text) {
    Ref<UIText> newLabel = make<UIText>();
    newLabel->init(text, {});
    if (label) removeChild(label.raw());
    label = newLabel;
    callByName(self(), "addChild"_name, newLabel);
    newLabel->horizontalAlign = ALIGN_CENTER;
    newLabel->verticalAlign = VALIGN_MIDDLE;
}

Ref<Str> UIButton::getText() const { return label->getText(); }
void UIButton::setText(PyObject* text) { Ref<UIText>(label)->setText(text); }
Ref<> UIButton::getTextByName() const { return callByName(self(), "getText"_name); }
void UIButton::setTextByName(PyObject* text) { callByName(self(), "setText"_name, text); }

// The label is centred by the sizes of the frame before.
void UIButton::calculateMinSize() {
    if (!renderer) return;
    Ref<> normal = item(renderer->pieces().raw(), "button"_name, "normal"_name);
    int faceHeight = numberIn(normal, "height"_name), minHeight = 0;
    int64_t sides = int64_t{numberIn(normal, "left"_name)} + numberIn(normal, "right"_name);
    if (label) {
        minHeight = std::max(faceHeight, label->height);
        paddingTop = saturate((int64_t{height} - label->height) / 2);
    }
    UIListContainer::calculateMinSize();
    if (sizePolicyX != SIZE_FIXED) width = saturate(width + sides);
    if (sizePolicyY != SIZE_FIXED) height = minHeight;
}

void UIButton::render(Ref<> clipX, Ref<> clipY, Ref<> clipWidth, Ref<> clipHeight) {
    if (!isVisible) return;
    SDL_Rect clip = getClippedRect({clipX, clipY, clipWidth, clipHeight});
    if (clip.w < 1 || clip.h < 1) return;
    requireRenderer();
    Ref<UIRenderer> held = renderer;
    ThreeSlice face =
        horizontalSliceIn(item(held->pieces().raw(), "button"_name, hovered() ? "hover"_name : "normal"_name));
    blitThreeSlice(held->tileset(), face, held->canvas(clip), x, y, width);
    renderChildren({clipX, clipY, clipWidth, clipHeight});
}

bool UIButton::handleClick(MouseClickEvent* event) {
    AbstractUIContainer::handleClick(event);  // the label's answer does not count
    if (!event) raise(PyExc_AttributeError, "a click needs a MouseClickEvent, not None");
    if (!isEnabled || !isUnder(event->x, event->y)) return false;
    Ref<ButtonClickEvent> click = make<ButtonClickEvent>();
    click->init(Ref<UIButton>::to(*this), event->x, event->y, event->button);
    Ref<> handler = getAttribute(self(), "onClick"_name);
    if (handler.raw() != Py_None) callFunction(handler.raw(), click);
    fireEvent(toPython(click));
    return true;
}

void declareUIButton(Module& module) {
    Class<UIButton, UIListContainer>("zelvarine.UIButton",
        "A push button with a text label. A click calls `onClick` with a ButtonClickEvent, and the engine\n"
        "fires the same event.")
        .init<&UIButton::init>({{"label", Required{}, "str"}})
        .method<&UIButton::getText>("getText", {}, "The text of the label.\n@return(str)")
        .method<&UIButton::setText>("setText", {{"text", Required{}, "str"}}, "Replaces the text of the label.")
        .method<&UIButton::render>("render", clipParams, "Renders the button and its label.")
        .method<&UIButton::handleClick>("_onClick", {{"event"}},
            "An enabled button takes a click inside it: it calls `onClick` and fires a ButtonClickEvent.\n"
            "@return(bool) whether the button took the click")
        .property<&UIButton::getTextByName, &UIButton::setTextByName>(
            "text", "text of the label; the same as getText and setText")
        .addTo(module.raw());
    Class<ButtonClickEvent, MouseClickEvent>("zelvarine.ButtonClickEvent", "A UIButton was clicked.")
        .init<&ButtonClickEvent::init>({{"target"}, {"x"}, {"y"}, {"mouseButton"}})
        .readonly<&ButtonClickEvent::target>("target", "the UIButton")
        .addTo(module.raw());
}

}  // namespace zv
