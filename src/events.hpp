// The base of all events, and the events of the input step.
#pragma once
#include "binding/class.hpp"
#include "binding/module.hpp"

namespace zv {

struct Event : Object {
    bool isAlreadyHandled = false;  // a note from one handler for whoever looks later

    void init() { isAlreadyHandled = false; }
};

void declareEvents(Module&);

}  // namespace zv
