#include "sdl/blit.hpp"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace zv {

namespace {

struct Span {
    int64_t begin, end;
    bool empty() const { return begin >= end; }
};

// What can be seen of a length at a place, along one axis.
Span visible(int64_t place, int64_t length, int clip, int clipLength, int targetLength) {
    int64_t low = std::max(clip, 0), high = std::min<int64_t>(int64_t{clip} + clipLength, targetLength);
    return {std::max(place, low), std::min(place + length, high)};
}

// The source pixel that each pixel of a stretched length shows, in steps of 1/65536 source pixel:
// the pixel under its centre.
struct Stretch {
    int64_t step;

    Stretch(int64_t sourceLength, int64_t length) : step((sourceLength << 16) / length) {}
    int64_t operator()(int64_t i) const { return (step / 2 + i * step) >> 16; }
};

// The roundings are those of SDL's own scaled blit.
uint32_t blend(uint32_t below, uint32_t above, uint32_t alphaMod) {
    uint32_t alpha = alphaMod == 255 ? above >> 24 : (above >> 24) * alphaMod / 255;
    if (alpha == 255) return above;
    uint32_t rest = 255 - alpha;
    uint32_t word = (alpha + rest * (below >> 24) / 255) << 24;
    for (int shift = 0; shift < 24; shift += 8)
        word |= ((above >> shift & 255) * alpha / 255 + rest * (below >> shift & 255) / 255) << shift;
    return word;
}

uint32_t* row(SDL_Surface* surface, int64_t y) {
    return reinterpret_cast<uint32_t*>(static_cast<char*>(surface->pixels) + y * surface->pitch);
}

}  // namespace

void blit(SDL_Surface* source, const SDL_Rect& part, const Canvas& canvas, int x, int y) {
    // What the source does not have is left out on the same side of the destination.
    int64_t left = std::max<int64_t>(part.x, 0), right = std::min<int64_t>(int64_t{part.x} + part.w, source->w);
    int64_t top = std::max<int64_t>(part.y, 0), bottom = std::min<int64_t>(int64_t{part.y} + part.h, source->h);
    int64_t placeX = x + left - part.x, placeY = y + top - part.y;
    Span across = visible(placeX, right - left, canvas.clip.x, canvas.clip.w, canvas.target->w);
    Span down = visible(placeY, bottom - top, canvas.clip.y, canvas.clip.h, canvas.target->h);
    if (across.empty() || down.empty()) return;
    int w = static_cast<int>(across.end - across.begin), h = static_cast<int>(down.end - down.begin);
    SDL_Rect from{static_cast<int>(left + across.begin - placeX), static_cast<int>(top + down.begin - placeY), w, h};
    SDL_Rect to{static_cast<int>(across.begin), static_cast<int>(down.begin), w, h};
    SDL_UpperBlit(source, &from, canvas.target, &to);
}

void blitScaled(SDL_Surface* source, const SDL_Rect& part, const Canvas& canvas, const SDL_Rect& place) {
    if (part.w == place.w && part.h == place.h) return blit(source, part, canvas, place.x, place.y);
    if (part.w <= 0 || part.h <= 0 || place.w <= 0 || place.h <= 0) return;
    Span across = visible(place.x, place.w, canvas.clip.x, canvas.clip.w, canvas.target->w);
    Span down = visible(place.y, place.h, canvas.clip.y, canvas.clip.h, canvas.target->h);
    if (across.empty() || down.empty()) return;
    Stretch column(part.w, place.w), line(part.h, place.h);
    auto sourceX = [&](int64_t x) { return part.x + column(x - place.x); };
    // Pixels beyond the source's edges are left out; the positions grow from left to right.
    while (!across.empty() && sourceX(across.begin) < 0) across.begin++;
    while (!across.empty() && sourceX(across.end - 1) >= source->w) across.end--;
    Uint8 alphaMod = 255;
    SDL_GetSurfaceAlphaMod(source, &alphaMod);
    for (int64_t y = down.begin; y < down.end; y++) {
        int64_t sourceY = part.y + line(y - place.y);
        if (sourceY < 0 || sourceY >= source->h) continue;
        const uint32_t* from = row(source, sourceY);
        uint32_t* to = row(canvas.target, y);
        int64_t position = column.step / 2 + (across.begin - place.x) * column.step;
        for (int64_t x = across.begin; x < across.end; x++, position += column.step)
            to[x] = blend(to[x], from[part.x + (position >> 16)], alphaMod);
    }
}

}  // namespace zv
