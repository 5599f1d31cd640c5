// What a widget draws on.
#pragma once
#include "gui/geometry.hpp"
#include "resources/texture.hpp"
#include "sdl/blit.hpp"

namespace zv {

// The target of a renderer, and the part of it where a widget is seen. Both blits are cut at that part after cut(),
// and so is everything else that scripts draw onto the target, until uncut(). Between two widgets nothing is cut: one
// that fails on its way leaves its own cut behind.
class Canvas {
public:
    Canvas(Ref<Texture> texture, const SDL_Rect& seen) : target(std::move(texture)), part(seen) {}
    // With the part that is not cut now.
    explicit Canvas(const Ref<Texture>& texture) : Canvas(texture, texture->source()->clip_rect) {}

    void cut() const {
        SDL_Surface* surface = target->surface();
        bool fits = isNear(part) && isNear(part.w) && isNear(part.h);
        SDL_Rect clip = fits ? part : open();
        SDL_SetClipRect(surface, &clip);
    }
    void uncut() const { SDL_SetClipRect(target->surface(), nullptr); }

    // Where something can be drawn after cut().
    SDL_Rect open() const {
        const SDL_Surface* surface = target->source();
        return intersection(part, {0, 0, surface->w, surface->h});
    }
    MutableImage pixels() const { return target->mutableImage(); }

    void blit(const Ref<Texture>& source, const SDL_Rect& from, int x, int y) const {
        zv::blit(source->source(), from, target->surface(), x, y);
    }
    void blitScaled(const Ref<Texture>& source, const SDL_Rect& from, const SDL_Rect& place) const {
        zv::blitScaled(source->source(), from, target->surface(), place);
    }

private:
    Ref<Texture> target;
    SDL_Rect part;
};

}  // namespace zv
