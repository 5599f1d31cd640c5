// The base of all events, and the events of the input step.
#pragma once
#include "binding/class.hpp"
#include "binding/module.hpp"

namespace zv {

struct Event : Object {
    bool isAlreadyHandled = false;  // a note from one handler for whoever looks later

    void init() { isAlreadyHandled = false; }
};

struct KeyEvent : Event {
    int key = 0;
    bool isCtrlPressed = false, isAltPressed = false, isShiftPressed = false;

    void init(int newKey, bool ctrl, bool alt, bool shift);
};

struct MouseClickEvent : Event {
    int x = 0, y = 0, button = 0;

    void init(int newX, int newY, int newButton);
};

struct MouseWheelEvent : Event {
    int x = 0, y = 0;

    void init(int newX, int newY);
};

struct FullscreenEvent : Event {
    bool oldValue = false, newValue = false;

    void init(bool before, bool after);
};

void declareEvents(Module&);

}  // namespace zv
