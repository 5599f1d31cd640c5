#include "events/joystick.hpp"

namespace zv {

// SDL looks at upper limits only.
double Joystick::getAxis(int axis) const {
    return handle && axis >= 0 ? SDL_JoystickGetAxis(handle, axis) * (1.0 / 32768) : 0.0;
}

bool Joystick::isButtonPressed(int button) const {
    return handle && button >= 0 && SDL_JoystickGetButton(handle, button);
}

Ref<> Joystick::text() const {
    return Ref<>::steal(PyUnicode_FromFormat(
        "Joystick\n    name:    %S\n    axes:    %d\n    buttons: %d\n", Ref<Str>(name).orNone(), axes, buttons));
}

Ref<Joystick> openNewestJoystick() {
    SDL_Joystick* device = SDL_JoystickOpen(SDL_NumJoysticks() - 1);
    if (!device) return {};
    const char* name = SDL_JoystickName(device);
    Ref<Joystick> joystick =
        make<Joystick>(name ? name : "", SDL_JoystickNumAxes(device), SDL_JoystickNumButtons(device));
    joystick->attach(device);
    return joystick;
}

void declareJoystick(Module& module) {
    Class<Joystick>("zelvarine.Joystick",
        "A joystick or gamepad. The engine makes them, see `Engine.joysticks`; one that a script makes has no\n"
        "device. Without a device, and after `Engine.quit`, all axes are at 0.0 and no button is pressed.")
        .init<&Joystick::name, &Joystick::axes, &Joystick::buttons>({{"name"}, {"axes"}, {"buttons"}})
        .method<&Joystick::getAxis>("getAxis", {{"axis"}},
            "Position of an axis, counted from 0: from -1.0 to just below 1.0. An axis that the device does\n"
            "not have is at 0.0.")
        .method<&Joystick::isButtonPressed>("isButtonPressed", {{"button"}},
            "Whether a button, counted from 0, is pressed; False for one that the device does not have.")
        .str<&Joystick::text>()
        .readonly<&Joystick::name>("name", "the name of the device, str")
        .readonly<&Joystick::axes>("axes", "number of axes, int")
        .readonly<&Joystick::buttons>("buttons", "number of buttons, int")
        .addTo(module.raw());
    Class<JoystickAddedEvent, Event>(
        "zelvarine.JoystickAddedEvent", "A joystick was plugged in, or was there from the start.")
        .init<&JoystickAddedEvent::joystick>({{"joystick"}})
        .readonly<&JoystickAddedEvent::joystick>("joystick", "the Joystick")
        .addTo(module.raw());
}

}  // namespace zv
