#include "zelvarine/engine.hpp"

#include "binding/items.hpp"
#include "renderer.hpp"
#include "resources/sound.hpp"
#include "sdl/error.hpp"

#include <SDL_image.h>
#include <SDL_mixer.h>

namespace zv {

static constexpr int maxAudioChannels = 65536;  // SDL_mixer does not notice when memory does not hold them

static bool isTrue(PyObject* flag) { return Convert<bool>::from(flag ? flag : Py_False); }

// Each argument is converted where it is used: what comes before a bad one has happened.
void Engine::init(Ref<Str> title, PyObject* size, PyObject* fullscreen, Ref<> show, PyObject* resizeable,
    Ref<> windowid, PyObject* icon, PyObject* captureMouse, int audioChannels, Ref<> newKillWithEscapeKey) {
    if (audioChannels > maxAudioChannels) raise(PyExc_ValueError, "audioChannels must be at most %d", maxAudioChannels);
    if (!SDL_WasInit(SDL_INIT_VIDEO)) SDL_InitSubSystem(SDL_INIT_VIDEO | SDL_INIT_JOYSTICK);  // after a quit

    Mix_AllocateChannels(audioChannels);
    killWithEscapeKey = isTrue(newKillWithEscapeKey.raw());
    auto [width, height] = Convert<std::tuple<int, int>>::from(size);
    uint32_t flags = 0;
    if (!isTrue(show.raw())) flags |= SDL_WINDOW_HIDDEN;
    if (isTrue(resizeable)) flags |= SDL_WINDOW_RESIZABLE;
    if (isTrue(captureMouse)) {
        SDL_SetRelativeMouseMode(SDL_TRUE);
        flags |= SDL_WINDOW_INPUT_GRABBED;
    }
    bool opensWindow = !compare(windowid.raw(), Py_NE, toPython(-1).raw());
    close();  // a second init replaces the window
    if (opensWindow) openWindow(title, width, height, flags, icon);
    createRenderer(width, height);
    lastTicks = SDL_GetTicks();
    fps = 0.0;
    timeStep = 1.0 / 60;
    if (isTrue(fullscreen)) addFullscreenTask();
    running = true;
    tellIfUnseen();  // last: what takes the words may be a script's
}

void Engine::ensureInit() const {
    if (!running) raiseEngine("The engine is not initialized, yet.Call init method first.");
}

void Engine::update() {
    call<&Engine::ensureInit>(*this);
    measureTime();
    updateInput();
    if (takeMusicStopped()) fire(makeMusicStoppedEvent().raw());
    runTasks();
    call<&Ecs::update>(*Ref<Ecs>(ecs), timeStep);
    uploadTargets();
    present();
}

void Engine::measureTime() {
    uint32_t ticks = SDL_GetTicks();
    uint32_t delta = ticks - lastTicks;  // right across a wrap of the counter
    if (delta == 0) return;
    lastTicks = ticks;
    fps = 1000.0 / delta;
    timeStep = 1.0 / fps;
}

void Engine::run(double maxFps) {
    if (maxFps == 0) raise(PyExc_ZeroDivisionError, "float division by zero");
    double minFrameTime = 1.0 / maxFps;
    while (running) {
        checked(PyErr_CheckSignals());  // with native systems only, nothing else sees Ctrl-C
        call<&Engine::update>(*this);
        double lastFps = call<&Engine::getFps>(*this);
        double frameTime = 1.0 / (lastFps > 0 ? lastFps : 1);
        double sleepTime = minFrameTime - frameTime;
        // Always sleeps, so that other threads get their turn.
        callByName(Module::global("time"_name).raw(), "sleep"_name, sleepTime > 0 ? sleepTime : 1e-09);
    }
    cancelTimers();
}

void Engine::quit() {
    BeforeSdlQuit::run();  // closes this engine and all others: their windows end as well
    IMG_Quit();
    SDL_Quit();
}

void Engine::close() {
    running = false;
    frameTexture.reset();
    renderer.reset();
    window.reset();
    windowed = {};
}

void setEngineAttributes() {
    Class<Engine>("zelvarine.Engine", "")
        .attribute("version", toPython(0.1))
        .attribute("_eventSubscribers", Ref<>::steal(PyDict_New()))
        .attribute("_tasks", Ref<>::steal(PyList_New(0)))
        .attribute("_timers", Ref<>::steal(PyList_New(0)))
        .attribute("_joysticks", Ref<>::steal(PyList_New(0)));
}

void declareEngine(Module& module) {
    Class<Engine>("zelvarine.Engine",
        "The window, the frame loop, input, events and tasks.\n\n"
        "An engine brings an Ecs for the entities and systems of the game. `init` opens the window; then either\n"
        "`run` plays the game until the user stops it, or a loop of the script's own calls `update` while\n"
        "`isRunning()` is true.\n\n"
        "Event subscribers, tasks, timers and joysticks are shared by all engines of the process. Without a\n"
        "window, which is before `init` and after `quit`, the methods that change the window do nothing, the\n"
        "others give (0, 0) or False, and mouse positions are not scaled.")
        .init<&Engine::construct>()
        .readonly<&Engine::ecs>("ecs", "the Ecs of this engine")
        .method<&Engine::init>("init",
            {{"title", Required{}, "str"}, {"size", Required{}, "(int, int)"}, {"fullscreen", false, "bool"},
                {"show", true, "bool"}, {"resizeable", false, "bool"}, {"windowid", -1, "int"},
                {"icon", None{}, "str or None"}, {"captureMouse", false, "bool"}, {"audioChannels", 32},
                {"killWithEscapeKey", true, "bool"}},
            "Opens the window and makes the engine ready to run.\n\n"
            "`size` is the size of the picture in pixels; it stays, and is stretched over the window when that\n"
            "changes. With `fullscreen` the first frame enters fullscreen. `show` tells whether the window is\n"
            "visible, `resizeable` whether the user can change its size. `icon` is the name of an image file.\n"
            "`captureMouse` hides the mouse and keeps it in the window, see `captureMouse`. `audioChannels` is how\n"
            "many sounds can play at a time, at most 65536. With `killWithEscapeKey` the Escape key stops the\n"
            "engine. Windows of others are not supported: a `windowid` other than -1 always fails.\n\n"
            "An engine that has a window already gets a new one in its place. If no window or renderer can be\n"
            "created, EngineSdlException is raised, and the engine does not run. Without a display the engine runs\n"
            "unseen; it says so once on standard error, unless SDL_VIDEODRIVER in the environment asks for it.")
        .method<&Engine::ensureInit>("_ensureInit", {}, "Raises EngineException unless the engine is running.")
        .method<&Engine::isRunning>(
            "isRunning", {}, "Whether the engine runs: from `init` until the user stops it, or until `quit`.")
        .method<&Engine::update>("update", {},
            "Plays one frame: input, tasks, the systems, and the picture on the screen.\n\n"
            "Only to be called explicitly with a custom main loop; `run` calls it implicitly. Raises\n"
            "EngineException unless the engine is running. Of a renderer's target that has not the size of the\n"
            "picture only the common part is shown; a renderer without a target is passed over. TypeError if a\n"
            "renderer's `getTarget` gives something else.")
        .method<&Engine::run>("run", {{"maxFps", 60}},
            "Plays frames, at most `maxFps` of them per second, until the engine stops, and cancels the timers\n"
            "that are still waiting. Raises ZeroDivisionError for 0 frames per second.")
        .method<&Engine::quit>("quit", {},
            "After calling quit, no more update or render calls are possible.\n\n"
            "Closes the window and ends SDL. This ends all engines of the process, and their joysticks. A frame in\n"
            "progress goes on without a window. `init` starts video and joysticks anew, where SDL can do so, but\n"
            "no sound.")
        .method<&Engine::getFps>("getFps", {}, "Frames per second, according to the length of the last frame alone.")
        .method<&Engine::getTimeStep>("getTimeStep", {}, "Length of the last frame in seconds.")
        .method<&Engine::subscribeEvent>("subscribeEvent",
            {{"eventType", Required{}, "type"}, {"eventHandler", Required{}, "callable"}},
            "Lets `eventHandler(event)` be called for events of exactly that type, after the handlers subscribed\n"
            "before. What is subscribed twice is called twice.")
        .method<&Engine::unsubscribeEvent>("unsubscribeEvent",
            {{"eventType", Required{}, "type"}, {"eventHandler", Required{}, "callable"}},
            "Takes back one subscription; nothing happens if there is none.")
        .method<&Engine::fireEvent>("fireEvent", {{"evt"}, {"evtType", None{}, "type or None"}},
            "Calls the handlers of the type `evtType`, by default the exact type of the event, in the order of\n"
            "their subscription. An exception from a handler leaves at once.")
        .method<&Engine::getKeyName>("getKeyName", {{"keycode"}}, "The name of a key; empty for a key without one.")
        .method<&Engine::isKeyPressed>(
            "isKeyPressed", {{"keycode"}}, "1 if the key, one of the KEY_* constants, is held down, else 0.")
        .method<&Engine::isMouseButtonPressed>(
            "isMouseButtonPressed", {{"button"}}, "Whether the button, one of the MOUSE_* constants, is held down.")
        .method<&Engine::getMouseDist>(
            "getMouseDist", {}, "How far the last motion of the mouse in this frame went, in pixels of the window.")
        .method<&Engine::getMousePos>(
            "getMousePos", {}, "The position of the mouse in pixels of the picture, whatever the size of the window.")
        .method<&Engine::captureMouse>("captureMouse", {{"capture"}},
            "Hides the mouse and keeps it in the window, for looking around by `getMouseDist`, or sets it free.")
        .method<&Engine::isMouseCaptured>("isMouseCaptured", {}, "Whether the mouse is captured.")
        .readonly<&Engine::getJoysticks>("joysticks", "a new list of all joysticks that were ever plugged in")
        .method<&Engine::addTask>("addTask", {{"task", Required{}, "callable"}, {"onDone", None{}}},
            "Lets `task(timeStep, onDone)` be called once in every frame, until it gives a true result.\n"
            "`timeStep` is in seconds. The engine does not use `onDone`, it is there for the task.")
        .method<&Engine::addTaskAfter>("addTaskAfter",
            {{"delaySeconds", Required{}, "number"}, {"task", Required{}, "callable"}, {"onDone", None{}}},
            "Adds a task after a delay, at once if that is not above 0. The end of `run` cancels what still waits.")
        .method<&Engine::setWindowTitle>(
            "setWindowTitle", {{"title", Required{}, "str"}}, "Changes the title of the window.")
        .method<&Engine::getWindowPos>("getWindowPos", {}, "Position of the window on the desktop.")
        .method<&Engine::setWindowPos>("setWindowPos", {{"pos"}}, "Moves the window on the desktop.")
        .method<&Engine::getWindowSize>("getWindowSize", {}, "Width and height of the window.")
        .method<&Engine::setWindowSize>("setWindowSize", {{"size"}},
            "Changes width and height of the window. The picture keeps its size and is stretched. Nothing happens\n"
            "for a size outside of 1 to 16384.")
        .method<&Engine::setWindowIcon>("setWindowIcon", {{"filename", Required{}, "str"}},
            "Takes the icon of the window from an image file; nothing happens if that cannot be loaded.")
        .method<&Engine::setFullscreen>(
            "setFullscreen", {{"fullscreen"}}, "Enters or leaves fullscreen; fires no event.")
        .method<&Engine::isFullscreen>("isFullscreen", {}, "Whether the window is in fullscreen.")
        .method<&Engine::toggleFullscreen>("toggleFullscreen", {},
            "Enters fullscreen in the size of the desktop, or leaves it and restores position and size of the\n"
            "window. Fires a FullscreenEvent.")
        .method<&Engine::saveScreenshot>("saveScreenshot", {{"filename", Required{}, "str"}},
            "Writes what the window shows, in the size of the window, as a PNG file, whatever its name; that\n"
            "should therefore end with \".png\". A failed write raises nothing.")
        .addTo(module.raw());
}

}  // namespace zv
