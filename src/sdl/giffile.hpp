// What SDL_image takes for granted of a GIF file.
#pragma once
#include "sdl/filebytes.hpp"

namespace zv {

// Whether the file can hold as many pixels as it claims, and all codes of its pictures mean something: SDL_image
// follows those that do not through memory that nobody has written.
bool isSafeGif(std::string_view gif);

}  // namespace zv
