// The window: its creation, what it shows, and what scripts can change of it.
#include "zelvarine/engine.hpp"

#include "events.hpp"
#include "renderer.hpp"
#include "sdl/error.hpp"
#include "sdl/imagefile.hpp"
#include "sdl/text.hpp"

#include <SDL_image.h>

#include <algorithm>
#include <string_view>

namespace zv {

static constexpr int maxWindowSize = 16384;  // SDL looks at it only when it creates a window

void Engine::openWindow(const Ref<Str>& title, int width, int height, uint32_t flags, PyObject* icon) {
    Utf8 text(title.orNone());
    window.reset(SDL_CreateWindow(text, SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED, width, height, flags));
    if (!window) raiseSdl("Could not initialize the window.");
    if (icon && icon != Py_None) callByName(self(), signatureOf<&Engine::setWindowIcon>.name, icon);
}

void Engine::createRenderer(int width, int height) {
    frameTexture.reset();  // an override of setWindowIcon may have called init by itself
    renderer.reset(SDL_CreateRenderer(window.get(), -1, SDL_RENDERER_SOFTWARE));
    if (!renderer) raiseSdl("Could not initialize the rendering subsystem");
    frameTexture.reset(
        SDL_CreateTexture(renderer.get(), SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STREAMING, width, height));
    if (!frameTexture) raiseSdl("Could not initialize the picture of the window.");
}

// Without a display SDL falls back on a driver that shows nothing: a game would run for ever, and nobody know.
void Engine::tellIfUnseen() const {
    static bool told = false;
    const char* wanted = SDL_getenv("SDL_VIDEODRIVER");
    const char* driver = SDL_GetCurrentVideoDriver();
    std::string_view chosen = driver ? driver : "";
    bool isShown = window && !(SDL_GetWindowFlags(window.get()) & SDL_WINDOW_HIDDEN);
    if (told || !isShown || (wanted && *wanted) || (chosen != "offscreen" && chosen != "dummy")) return;
    told = true;
    PySys_WriteStderr(
        "zelvarine: there is no display, so the game runs unseen (SDL_VIDEODRIVER=dummy says it should)\n");
}

// Each renderer overwrites the whole picture: the last one is what is shown.
void Engine::uploadTargets() {
    Ref<List> systems = Ref<Ecs>(ecs)->systems;
    forEach(systems.raw(), [&](PyObject* system) {
        if (!PyObject_TypeCheck(system, &typeOf<Renderer>)) return;
        Ref<Texture> target = Convert<Ref<Texture>>::from(callByName(system, "getTarget"_name).raw());
        if (target) upload(target->image());
    });
}

// An image of another size is shown as far as it fits.
void Engine::upload(const Image& image) {
    if (!frameTexture) return;
    SDL_Rect common{};
    SDL_QueryTexture(frameTexture.get(), nullptr, nullptr, &common.w, &common.h);
    common.w = std::min(common.w, image.width);
    common.h = std::min(common.h, image.height);
    if (!SDL_RectEmpty(&common)) SDL_UpdateTexture(frameTexture.get(), &common, image.pixels, image.width * 4);
}

void Engine::present() {
    if (!frameTexture) return;
    SDL_RenderCopy(renderer.get(), frameTexture.get(), nullptr, nullptr);
    SDL_RenderPresent(renderer.get());
}

void Engine::setWindowTitle(Ref<Str> title) {
    Utf8 text(title.orNone());
    if (window) SDL_SetWindowTitle(window.get(), text);
}

std::tuple<int, int> Engine::getWindowPos() const {
    int x = 0, y = 0;
    if (window) SDL_GetWindowPosition(window.get(), &x, &y);
    return {x, y};
}

void Engine::setWindowPos(std::tuple<int, int> pos) {
    if (window) SDL_SetWindowPosition(window.get(), std::get<0>(pos), std::get<1>(pos));
}

std::tuple<int, int> Engine::getWindowSize() const {
    int width = 0, height = 0;
    if (window) SDL_GetWindowSize(window.get(), &width, &height);
    return {width, height};
}

void Engine::setWindowSize(std::tuple<int, int> size) {
    auto [width, height] = size;
    bool possible = std::max(width, height) <= maxWindowSize;
    if (window && possible) SDL_SetWindowSize(window.get(), width, height);
}

void Engine::setWindowIcon(Ref<Str> filename) {
    Utf8 path(filename.orNone());
    if (!window) return;
    SurfaceHandle icon = loadImage(path);
    if (icon) SDL_SetWindowIcon(window.get(), icon.get());
}

void Engine::setFullscreen(bool fullscreen) {
    if (window) SDL_SetWindowFullscreen(window.get(), fullscreen ? SDL_WINDOW_FULLSCREEN : 0);
    if (!fullscreen) windowed = {};
}

bool Engine::isFullscreen() const {
    return window && (SDL_GetWindowFlags(window.get()) & SDL_WINDOW_FULLSCREEN_DESKTOP);
}

void Engine::toggleFullscreen() {
    bool before = call<&Engine::isFullscreen>(*this);
    toggleWindow();
    bool after = call<&Engine::isFullscreen>(*this);
    fire(make<FullscreenEvent>(before, after).raw());
}

void Engine::toggleWindow() {
    SDL_Window* w = window.get();
    if (!w) return;
    if (Engine::isFullscreen()) {
        SDL_SetWindowFullscreen(w, 0);
        if (SDL_RectEmpty(&windowed)) return;  // entered by setFullscreen: SDL restores the window by itself
        SDL_SetWindowSize(w, windowed.w, windowed.h);
        SDL_SetWindowPosition(w, windowed.x, windowed.y);
        windowed = {};
    } else {
        SDL_GetWindowPosition(w, &windowed.x, &windowed.y);
        SDL_GetWindowSize(w, &windowed.w, &windowed.h);
        SDL_Rect display;
        if (SDL_GetDisplayBounds(SDL_GetWindowDisplayIndex(w), &display) == 0) {
            SDL_SetWindowPosition(w, display.x, display.y);
            SDL_SetWindowSize(w, display.w, display.h);
        }
        SDL_SetWindowFullscreen(w, SDL_WINDOW_FULLSCREEN_DESKTOP);
    }
}

// A task for the first frame; unlike toggleFullscreen it fires no event.
void Engine::addFullscreenTask() {
    static PyMethodDef task{"activateFullscreen",
        [](PyObject* engine, PyObject* args) -> PyObject* {
            PyObject *step, *onDone;
            if (!PyArg_UnpackTuple(args, "activateFullscreen", 2, 2, &step, &onDone)) return nullptr;
            native<Engine>(engine)->toggleWindow();
            Py_RETURN_TRUE;
        },
        METH_VARARGS, nullptr};
    Ref<> activateFullscreen = Ref<>::steal(PyCFunction_New(&task, self()));
    callByName(self(), signatureOf<&Engine::addTask>.name, activateFullscreen);
}

void Engine::saveScreenshot(Ref<Str> filename) const {
    Utf8 path(filename.orNone());
    SDL_Surface* surface = window ? SDL_GetWindowSurface(window.get()) : nullptr;
    if (surface) IMG_SavePNG(surface, path);
}

}  // namespace zv
