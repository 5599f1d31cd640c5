// TrueType fonts: text becomes textures.
#pragma once
#include "resources/texture.hpp"

#include <SDL_ttf.h>

namespace zv {

struct FontRelease {
    void operator()(TTF_Font* font) const { TTF_CloseFont(font); }
};

struct Font : Resource {
    void init(Ref<> filename, PyObject* newSize);
    int getFontSize() const { return size; }
    std::tuple<int, int> getRenderedTextSize(PyObject* text) const;
    Ref<Texture> render(PyObject* text, PyObject* color) const;
    Ref<Texture> renderLines(PyObject* lines, PyObject* color) const;

    // The number of what is open at its size, another one after each change; 0 while nothing is open.
    int64_t face = 0;
    Ref<Texture> renderPage(PyObject* lines, SDL_Color color) const;

private:
    std::unique_ptr<TTF_Font, FontRelease> font;
    int size = 0;  // in points

    TTF_Font* openFont() const;
    SurfaceHandle rendered(PyObject* text, SDL_Color color) const;
};

// The color of text: 3 or 4 integers, (r, g, b) or (r, g, b, a).
SDL_Color textColor(PyObject* color);

void declareFont(Module&);

}  // namespace zv
