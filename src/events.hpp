// The base of all events, and the events of the input step.
#pragma once
#include "binding/class.hpp"
#include "binding/module.hpp"

namespace zv {

struct Event : Object {
    bool isAlreadyHandled = false;  // a note from one handler for whoever looks later

    void init() { isAlreadyHandled = false; }
};

// What lower layers know of the engine, beyond what they call by name.
struct EventHub : Object {
    // Whether firing an event of exactly this class may run anything. If not, it need not even be made.
    virtual bool isHeard(PyObject* eventType) const = 0;
};

struct KeyEvent : Event {
    int key = 0;
    bool isCtrlPressed = false, isAltPressed = false, isShiftPressed = false;
};

struct MouseClickEvent : Event {
    int x = 0, y = 0, button = 0;
};

struct MouseWheelEvent : Event {
    int x = 0, y = 0;
};

struct FullscreenEvent : Event {
    bool oldValue = false, newValue = false;
};

void declareEvents(Module&);

}  // namespace zv
