// Drawing images onto surfaces: cut exactly, and safe for rectangles anywhere in 32 bits.
#pragma once
#include <SDL.h>

namespace zv {

// Where to draw, and the rectangle that everything drawn is cut at.
struct Canvas {
    SDL_Surface* target;
    SDL_Rect clip;
};

// The whole of a surface as canvas.
inline Canvas unclipped(SDL_Surface* target) { return {target, {0, 0, target->w, target->h}}; }

// Blends the rectangle `part` of an image onto the canvas, its top left corner at (x, y).
void blit(SDL_Surface* source, const SDL_Rect& part, const Canvas&, int x, int y);

// Blends the rectangle `part` of an image onto the rectangle `place`, stretched to fill it. A cut
// picture is scaled as if it were whole. SDL_UpperBlitScaled gives the same pixels where nothing is
// cut, but scales a cut rectangle anew, or draws nothing when less than half a source pixel is left.
void blitScaled(SDL_Surface* source, const SDL_Rect& part, const Canvas&, const SDL_Rect& place);

}  // namespace zv
