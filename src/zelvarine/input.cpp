// Events, the input step of the frame, and the state of keyboard and mouse.
#include "zelvarine/engine.hpp"

#include "binding/items.hpp"
#include "core/numbers.hpp"
#include "events/joystick.hpp"

namespace zv {

void Engine::subscribeEvent(PyObject* eventType, PyObject* eventHandler) {
    Ref<> subscribers = getAttribute(self(), "_eventSubscribers"_name);
    if (!contains(subscribers.raw(), eventType)) setItem(subscribers.raw(), eventType, Ref<>::steal(PyList_New(0)));
    callByName(handlersOf(eventType).raw(), "append"_name, eventHandler);
}

void Engine::unsubscribeEvent(PyObject* eventType, PyObject* eventHandler) {
    Ref<> handlers = handlersOf(eventType);
    if (handlers && contains(handlers.raw(), eventHandler)) callByName(handlers.raw(), "remove"_name, eventHandler);
}

// The list itself, not a copy: handlers may subscribe and unsubscribe while it is walked.
Ref<> Engine::handlersOf(PyObject* eventType) const {
    Ref<> subscribers = getAttribute(self(), "_eventSubscribers"_name);
    if (!contains(subscribers.raw(), eventType)) return {};
    return item(subscribers.raw(), eventType);
}

void Engine::fireEvent(PyObject* event, PyObject* eventType) {
    bool byOwnType = !eventType || eventType == Py_None;
    Ref<> handlers = handlersOf(byOwnType ? reinterpret_cast<PyObject*>(Py_TYPE(event)) : eventType);
    if (handlers) forEach(handlers.raw(), [&](PyObject* handler) { callFunction(handler, event); });
}

// Yes is said wherever a script has a say in it.
bool Engine::isHeard(PyObject* eventType) const {
    Name& attribute = "_eventSubscribers"_name;
    if (isOverridden<&Engine::fireEvent>(self()) || !inherits(Py_TYPE(self()), &typeOf<Engine>, attribute)) return true;
    Ref<> subscribers = getAttribute(self(), attribute);
    bool isSilent = true;
    auto listen = [&](PyObject* type, PyObject* handlers) {
        if (type == eventType) isSilent = PyList_CheckExact(handlers) && PyList_GET_SIZE(handlers) == 0;
    };
    return !PyDict_CheckExact(subscribers.raw()) || !visitClasses(subscribers.raw(), listen) || !isSilent;
}

void Engine::fire(PyObject* event) { callByName(self(), signatureOf<&Engine::fireEvent>.name, event); }

// Gives every handler an event of its own, so that none sees what another one noted in it.
template <class E> static void giveEach(const Ref<>& handlers, auto... values) {
    if (handlers) forEach(handlers.raw(), [&](PyObject* handler) { callFunction(handler, make<E>(values...)); });
}

void Engine::updateInput() {
    mouseDistX = mouseDistY = 0;
    unraisable("zelvarine.Engine._updateInput"_name, [&] {
        // A handler may have called quit.
        for (SDL_Event event; window && SDL_PollEvent(&event);) {
            switch (event.type) {
            case SDL_QUIT: running = false; break;
            case SDL_KEYDOWN: handleKey(event.key.keysym.sym); break;
            case SDL_MOUSEMOTION:  // the last one of a frame counts, not the sum
                mouseDistX = event.motion.xrel;
                mouseDistY = event.motion.yrel;
                break;
            case SDL_MOUSEBUTTONUP: handleClick(event.button); break;
            case SDL_MOUSEWHEEL: handleWheel(event.wheel); break;
            case SDL_JOYDEVICEADDED: handleJoystickAdded(); break;
            case SDL_JOYDEVICEREMOVED: print("Joystick removed"); break;
            default: break;
            }
        }
    });
}

static int keyState(SDL_Keycode key) { return SDL_GetKeyboardState(nullptr)[SDL_GetScancodeFromKey(key)]; }

void Engine::handleKey(int key) {
    if (killWithEscapeKey && key == SDLK_ESCAPE) running = false;
    bool ctrl = keyState(SDLK_LCTRL) || keyState(SDLK_RCTRL);
    bool alt = keyState(SDLK_LALT) || keyState(SDLK_RALT);
    bool shift = keyState(SDLK_LSHIFT) || keyState(SDLK_RSHIFT);
    fire(make<KeyEvent>(key, ctrl, alt, shift).raw());
}

void Engine::handleClick(const SDL_MouseButtonEvent& click) {
    auto [scaleX, scaleY] = getDisplayScaleFactor();
    giveEach<MouseClickEvent>(handlersOf(classOf<MouseClickEvent>()), truncate(click.x * scaleX),
        truncate(click.y * scaleY), int{click.button});
}

void Engine::handleWheel(const SDL_MouseWheelEvent& wheel) {
    giveEach<MouseWheelEvent>(handlersOf(classOf<MouseWheelEvent>()), wheel.x, wheel.y);
}

void Engine::handleJoystickAdded() {
    Ref<Joystick> joystick = openNewestJoystick();
    if (!joystick) return;  // unplugged meanwhile
    callByName(getAttribute(self(), "_joysticks"_name).raw(), "append"_name, joystick);
    fire(make<JoystickAddedEvent>(joystick).raw());
}

std::tuple<double, double> Engine::getDisplayScaleFactor() const {
    if (!frameTexture) return {1, 1};
    int windowWidth, windowHeight, width, height;
    SDL_GetWindowSize(window.get(), &windowWidth, &windowHeight);
    SDL_QueryTexture(frameTexture.get(), nullptr, nullptr, &width, &height);
    if (windowWidth == 0 || windowHeight == 0) return {1, 1};
    return {static_cast<double>(width) / windowWidth, static_cast<double>(height) / windowHeight};
}

std::string Engine::getKeyName(int keycode) const { return SDL_GetKeyName(keycode); }
int Engine::isKeyPressed(int keycode) const { return keyState(keycode); }

bool Engine::isMouseButtonPressed(int button) const {
    return button >= 1 && button <= 8 && (SDL_GetMouseState(nullptr, nullptr) & SDL_BUTTON(button));
}

std::tuple<int, int> Engine::getMousePos() const {
    int x, y;
    SDL_GetMouseState(&x, &y);
    auto [scaleX, scaleY] = getDisplayScaleFactor();
    return {truncate(x * scaleX), truncate(y * scaleY)};
}

void Engine::captureMouse(bool capture) {
    if (SDL_WasInit(SDL_INIT_VIDEO)) SDL_SetRelativeMouseMode(capture ? SDL_TRUE : SDL_FALSE);
}

bool Engine::isMouseCaptured() const { return SDL_GetRelativeMouseMode(); }

Ref<> Engine::getJoysticks() const {
    return Ref<>::steal(PySequence_List(getAttribute(self(), "_joysticks"_name).raw()));
}

}  // namespace zv
