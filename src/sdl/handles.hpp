// Owners of SDL objects: each releases what it holds when it goes.
#pragma once
#include <SDL.h>

#include <memory>

namespace zv {

struct SurfaceRelease {
    void operator()(SDL_Surface* s) const { SDL_FreeSurface(s); }
};
using SurfaceHandle = std::unique_ptr<SDL_Surface, SurfaceRelease>;

struct WindowRelease {
    void operator()(SDL_Window* w) const { SDL_DestroyWindow(w); }
};
using WindowHandle = std::unique_ptr<SDL_Window, WindowRelease>;

struct RendererRelease {
    void operator()(SDL_Renderer* r) const { SDL_DestroyRenderer(r); }
};
using RendererHandle = std::unique_ptr<SDL_Renderer, RendererRelease>;

struct TextureRelease {
    void operator()(SDL_Texture* t) const { SDL_DestroyTexture(t); }
};
using TextureHandle = std::unique_ptr<SDL_Texture, TextureRelease>;

}  // namespace zv
