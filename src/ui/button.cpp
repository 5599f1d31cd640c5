#include "ui/button.hpp"

#include "ui/pieces.hpp"
#include "ui/threeslice.hpp"

namespace zv {

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
    Ref<> normal = piece("button"_name, "normal"_name);
    int minHeight = 0;
    if (label) {
        minHeight = numberIn(normal, "height"_name);  // a script's number may exchange the label
        minHeight = std::max(minHeight, label->height);
        paddingTop = saturate((int64_t{height} - label->height) / 2);
    }
    int64_t sides = int64_t{numberIn(normal, "left"_name)} + numberIn(normal, "right"_name);
    UIListContainer::calculateMinSize();
    if (sizePolicyX != SIZE_FIXED) width = saturate(width + sides);
    if (sizePolicyY != SIZE_FIXED) height = minHeight;
}

void UIButton::doRender(const Clip& clip) {
    std::optional<Canvas> canvas = beginRender(clip);
    if (!canvas) return;
    imprint.draw(*canvas, rect(), look(clip), [&] {
        canvas->cut();
        Ref<> face = piece("button"_name, hovered() ? "hover"_name : "normal"_name);
        blitThreeSlice(*canvas, tileset(), face, Axis::horizontal, *this);
        renderChildren(clip);
    });
    canvas->uncut();
}

Look UIButton::look(const Clip& clip) const {
    Look look = tilesetLook();
    bool hasOnlyLabel = label && childCount() == 1 && PyList_GET_ITEM(children.raw(), 0) == label.raw();
    look.isPlain =
        look.isPlain && clip.isPlain() && isNative(*this) && hasOnlyLabel && label->renderer.raw() == renderer.raw();
    if (!look.isPlain) return look;
    Ref<> face = plainPiece("button"_name, isHovered ? "hover"_name : "normal"_name);
    addThreeSlice(look, face, Axis::horizontal);
    SDL_Rect text = label->rect();
    if (!label->isVisible || isEmpty(text)) return look;
    look.add(label->shownPage());
    look.isPlain = look.isPlain && covers(rect(), text);
    for (int64_t number : {int64_t{text.x} - x, int64_t{text.y} - y, int64_t{text.w}, int64_t{text.h}})
        look.add(number);
    return look;
}

bool UIButton::handleClick(MouseClickEvent* event) {
    AbstractUIContainer::handleClick(event);  // the label's answer does not count
    if (!event) raise(PyExc_AttributeError, "a click needs a MouseClickEvent, not None");
    if (!isEnabled || !isUnder(event->x, event->y)) return false;
    Ref<ButtonClickEvent> click = make<ButtonClickEvent>(*this, event->x, event->y, event->button);
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
        .method<&UIWidget::renderAs<UIButton>>("render", clipParams, "Renders the button and its label.")
        .method<&UIButton::handleClick>("_onClick", {{"event"}},
            "An enabled button takes a click inside it: it calls `onClick` and fires a ButtonClickEvent.\n"
            "@return(bool) whether the button took the click")
        .property<&UIButton::getTextByName, &UIButton::setTextByName>(
            "text", "text of the label; the same as getText and setText")
        .addTo(module.raw());
    Class<ButtonClickEvent, MouseClickEvent>("zelvarine.ButtonClickEvent", "A UIButton was clicked.")
        .init<&ButtonClickEvent::target, &MouseClickEvent::x, &MouseClickEvent::y, &MouseClickEvent::button>(
            {{"target"}, {"x"}, {"y"}, {"mouseButton"}})
        .readonly<&ButtonClickEvent::target>("target", "the UIButton")
        .addTo(module.raw());
}

}  // namespace zv
