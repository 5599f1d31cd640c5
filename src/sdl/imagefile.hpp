// Image files of any kind that SDL_image reads.
#pragma once
#include "sdl/handles.hpp"

namespace zv {

// None if the file cannot be read, holds no image, or ends before its image does.
SurfaceHandle loadImage(const char* filename);

}  // namespace zv
