// Joysticks and the event that tells of a new one.
#pragma once
#include "events.hpp"
#include "sdl/shutdown.hpp"

namespace zv {

struct Joystick : Object {
    Ref<Str> name;
    int axes = 0, buttons = 0;

    void eachRef(RefVisitor& visit) override { visit(name); }

    double getAxis(int axis) const;
    bool isButtonPressed(int button) const;
    Ref<> text() const;

    void attach(SDL_Joystick* device) { handle = device; }

private:
    SDL_Joystick* handle = nullptr;  // stays open until SDL ends
    BeforeSdlQuit beforeQuit{[this] { handle = nullptr; }};
};

struct JoystickAddedEvent : Event {
    Ref<Joystick> joystick;

    void eachRef(RefVisitor& visit) override {
        Event::eachRef(visit);
        visit(joystick);
    }
};

// Opens the device of the highest index; empty if it is gone again already.
Ref<Joystick> openNewestJoystick();

void declareJoystick(Module&);

}  // namespace zv
