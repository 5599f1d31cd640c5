#include "events.hpp"

namespace zv {

void declareEvents(Module& module) {
    Class<Event>("zelvarine.Event", "The base class of all events.")
        .init<&Event::init>()
        .property<&Event::isAlreadyHandled>(
            "isAlreadyHandled", "bool; a note from one handler for whoever looks at the event later")
        .addTo(module.raw());
    Class<KeyEvent, Event>("zelvarine.KeyEvent", "A key went down, or repeats because it is held.")
        .init<&KeyEvent::key, &KeyEvent::isCtrlPressed, &KeyEvent::isAltPressed, &KeyEvent::isShiftPressed>(
            {{"key"}, {"isCtrlPressed"}, {"isAltPressed"}, {"isShiftPressed"}})
        .readonly<&KeyEvent::key>("key", "keycode, one of the KEY_* constants; the same with and without Shift")
        .readonly<&KeyEvent::isCtrlPressed>("isCtrlPressed", "bool; whether a Ctrl key is held")
        .readonly<&KeyEvent::isAltPressed>("isAltPressed", "bool; whether an Alt key is held")
        .readonly<&KeyEvent::isShiftPressed>("isShiftPressed", "bool; whether a Shift key is held")
        .addTo(module.raw());
    Class<MouseClickEvent, Event>("zelvarine.MouseClickEvent",
        "A mouse button was released. The position is in pixels of the picture, whatever the window's size.")
        .init<&MouseClickEvent::x, &MouseClickEvent::y, &MouseClickEvent::button>({{"x"}, {"y"}, {"button"}})
        .readonly<&MouseClickEvent::x>("x", "x coordinate in the picture, int")
        .readonly<&MouseClickEvent::y>("y", "y coordinate in the picture, int")
        .readonly<&MouseClickEvent::button>("button", "the button, one of the MOUSE_* constants")
        .addTo(module.raw());
    Class<MouseWheelEvent, Event>("zelvarine.MouseWheelEvent", "The mouse wheel was turned.")
        .init<&MouseWheelEvent::x, &MouseWheelEvent::y>({{"x"}, {"y"}})
        .readonly<&MouseWheelEvent::x>("x", "amount to the right, int")
        .readonly<&MouseWheelEvent::y>("y", "amount away from the user, int")
        .addTo(module.raw());
    Class<FullscreenEvent, Event>("zelvarine.FullscreenEvent", "`Engine.toggleFullscreen` changed the window.")
        .init<&FullscreenEvent::oldValue, &FullscreenEvent::newValue>({{"oldValue"}, {"newValue"}})
        .readonly<&FullscreenEvent::oldValue>("oldValue", "bool; whether it was in fullscreen before")
        .readonly<&FullscreenEvent::newValue>("newValue", "bool; whether it is in fullscreen now")
        .addTo(module.raw());
}

}  // namespace zv
