// The engine: window, frame loop, input, events, tasks.
#pragma once
#include "core/image.hpp"
#include "events.hpp"
#include "resources/entity/ecs.hpp"
#include "sdl/handles.hpp"
#include "sdl/shutdown.hpp"

namespace zv {

struct Engine : EventHub {
    Ref<Ecs> ecs = make<Ecs>();

    Engine() { ecs->engine = Ref<Engine>::to(*this); }
    void eachRef(RefVisitor& visit) override { visit(ecs); }

    // Lifecycle and frame
    void construct() {}
    void init(Ref<Str> title, PyObject* size, PyObject* fullscreen, Ref<> show, PyObject* resizeable, Ref<> windowid,
        PyObject* icon, PyObject* captureMouse, int audioChannels, Ref<> newKillWithEscapeKey);
    void ensureInit() const;
    bool isRunning() const { return running; }
    void update();
    void run(double maxFps);
    void quit();
    double getFps() const { return fps; }
    double getTimeStep() const { return timeStep; }

    // Events and input
    void subscribeEvent(PyObject* eventType, PyObject* eventHandler);
    void unsubscribeEvent(PyObject* eventType, PyObject* eventHandler);
    void fireEvent(PyObject* event, PyObject* eventType);
    bool isHeard(PyObject* eventType) const override;
    std::string getKeyName(int keycode) const;
    int isKeyPressed(int keycode) const;
    bool isMouseButtonPressed(int button) const;
    std::tuple<int, int> getMouseDist() const { return {mouseDistX, mouseDistY}; }
    std::tuple<int, int> getMousePos() const;
    void captureMouse(bool capture);
    bool isMouseCaptured() const;
    Ref<> getJoysticks() const;  // a new list

    // Tasks
    void addTask(PyObject* task, PyObject* onDone);
    void addTaskAfter(PyObject* delaySeconds, PyObject* task, PyObject* onDone);

    // Window
    void setWindowTitle(Ref<Str> title);
    std::tuple<int, int> getWindowPos() const;
    void setWindowPos(std::tuple<int, int> pos);
    std::tuple<int, int> getWindowSize() const;
    void setWindowSize(std::tuple<int, int> size);
    void setWindowIcon(Ref<Str> filename);
    void setFullscreen(bool fullscreen);
    bool isFullscreen() const;
    void toggleFullscreen();
    void saveScreenshot(Ref<Str> filename) const;

private:
    bool running = false;
    bool killWithEscapeKey = true;
    // Each is destroyed before what it was made from. All are null before `init` and after `quit`.
    WindowHandle window;
    RendererHandle renderer;
    TextureHandle frameTexture;  // carries every frame to the screen; keeps the size given to `init`
    uint32_t lastTicks = 0;      // milliseconds
    double fps = 0.0;
    double timeStep = 1.0 / 60;  // seconds
    int mouseDistX = 0, mouseDistY = 0;
    SDL_Rect windowed{};  // where the window was before fullscreen; empty while no toggle is to restore it
    BeforeSdlQuit beforeQuit{[this] { close(); }};

    // Frame
    void measureTime();
    void updateInput();
    void runTasks();
    void uploadTargets();
    void upload(const Image&);
    void present();

    // Events and input
    Ref<> handlersOf(PyObject* eventType) const;
    void fire(PyObject* event);
    void handleKey(int key);
    void handleClick(const SDL_MouseButtonEvent&);
    void handleWheel(const SDL_MouseWheelEvent&);
    void handleJoystickAdded();
    std::tuple<double, double> getDisplayScaleFactor() const;  // from the window to the picture

    // Tasks
    void cancelTimers();

    // Window
    void openWindow(const Ref<Str>& title, int width, int height, uint32_t flags, PyObject* icon);
    void createRenderer(int width, int height);
    void tellIfUnseen() const;
    void close();
    void toggleWindow();
    void addFullscreenTask();
};

void declareEngine(Module&);

// What all engines of the process share, as attributes of the class.
void setEngineAttributes();

}  // namespace zv
