// Owners of SDL objects: each releases what it holds when it goes.
#pragma once
#include <SDL.h>

#include <memory>

namespace zv {

struct SurfaceRelease {
    void operator()(SDL_Surface* s) const { SDL_FreeSurface(s); }
};
using SurfaceHandle = std::unique_ptr<SDL_Surface, SurfaceRelease>;

}  // namespace zv
