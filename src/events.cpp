#include "events.hpp"

namespace zv {

void declareEvents(Module& module) {
    Class<Event>("zelvarine.Event", "The base class of all events.")
        .init<&Event::init>()
        .property<&Event::isAlreadyHandled>("isAlreadyHandled", "bool; a note from one handler for whoever looks at the event later")
        .addTo(module.raw());
}

}  // namespace zv
