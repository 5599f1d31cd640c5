// SDL's own blits, kept from rectangles that they do not survive: they add in 32 bits and check nothing.
#pragma once
#include <SDL.h>

#include <algorithm>
#include <cstddef>

namespace zv {

// No picture reaches further, and a few such numbers still add up to an int.
inline bool isNear(int position) { return position > -(1 << 28) && position < 1 << 28; }
inline bool isNear(const SDL_Rect& r) { return isNear(r.x) && isNear(r.y); }

inline bool isEmpty(const SDL_Rect& r) { return r.w <= 0 || r.h <= 0; }

// Blends the rectangle `part` of an image onto the target, its top left corner at (x, y).
inline void blit(SDL_Surface* source, SDL_Rect part, SDL_Surface* target, int x, int y) {
    SDL_Rect place{x, y, part.w, part.h};
    if (!isEmpty(part) && isNear(part) && isNear(place)) SDL_UpperBlit(source, &part, target, &place);
}

// Blends the rectangle `part` of an image onto the rectangle `place`, stretched to fill it.
inline void blitScaled(SDL_Surface* source, SDL_Rect part, SDL_Surface* target, SDL_Rect place) {
    bool isPlain = part.w == place.w && part.h == place.h;
    bool isSafe = isPlain ? isNear(part) && isNear(place)
                          : part.w < 1 << 15 && part.h < 1 << 15;  // scaling counts in 1/65536 of a source pixel
    if (!isEmpty(part) && !isEmpty(place) && isSafe) SDL_UpperBlitScaled(source, &part, target, &place);
}

}  // namespace zv
